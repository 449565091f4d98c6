#include "ItemTree.hpp"

#include <browser/editing/EntityFilter.hpp>
#include <browser/editing/FilterBar.hpp>
#include <QLabel>
#include <QLineEdit>
#include <QSignalSpy>
#include <QTest>
#include <QTreeView>
#include <QVBoxLayout>

namespace {

/// A window with a tree view and a filter bar above it, over three boxes with three bags of
/// three screws each.
struct Window
{
    NoIcons icons;
    EntityModel items;
    EntityFilter rows{items};
    QWidget window;
    QTreeView view;
    FilterBar bar{rows, view};
    std::vector<SimpleItem*> boxes;

    Window()
    {
        items.setIcons(&icons);
        for (int box = 1; box <= 3; ++box) {
            boxes.push_back(add_item(items, nullptr, QString("Box %1").arg(box), box));
            for (int bag = 1; bag <= 3; ++bag) {
                SimpleItem* bag_item =
                    add_item(items, boxes.back(), QString("Bag %1").arg(bag), bag);
                for (int screw = 1; screw <= 3; ++screw) {
                    add_item(items, bag_item, QString("Screw %1").arg(screw), screw);
                }
            }
        }
        view.setModel(&rows);
        auto* layout = new QVBoxLayout(&window);
        layout->addWidget(&bar);
        layout->addWidget(&view);
        window.show();
        window.activateWindow();
        view.setFocus();
    }
    Q_DISABLE_COPY_MOVE(Window)

    QLineEdit* edit() { return bar.findChild<QLineEdit*>(); }
    QString counts()
    {
        const auto* label = bar.findChild<QLabel*>();
        return label->isVisible() ? label->text() : QString();
    }

    QModelIndex index(int box) { return rows.index(boxes[std::size_t(box - 1)]); }
    QModelIndex index(int box, int bag)
    {
        return rows.index(boxes[std::size_t(box - 1)]->getChild(bag - 1));
    }

    /// What is open, visible or not, as "Box 1/Bag 2, Box 2".
    QString open_rows(const QModelIndex& parent = {}, const QString& path = {})
    {
        QStringList texts;
        for (int row = 0; row < rows.rowCount(parent); ++row) {
            const QModelIndex child = rows.index(row, 0, parent);
            const QString name = path + child.data().toString();
            if (view.isExpanded(child)) {
                texts << name;
            }
            const QString below = open_rows(child, name + u'/');
            if (!below.isEmpty()) {
                texts << below;
            }
        }
        texts.sort();
        return texts.join(", ");
    }

    void type(const QString& text)
    {
        QTest::keyClicks(edit(), text);
        QTRY_COMPARE(rows.text(), edit()->text());
        rows.settle();
    }
};

} // namespace

/// What a person sees of the filter.
class tst_FilterBar : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void typedTextFiltersWhenTypingPauses();
    void pathsToTheHitsOpen();
    void countsAreShownWhileThereIsAText();
    void escapeRestoresWhatWasOpen();
    void escapeInTheViewDoesTheSame();
    void clearedTextDoesTheSame();
    void rowsOpenedAndClosedMeanwhileAreRestored();
    void openRowBelowAClosedOneStaysSo();
    void secondTextKeepsTheFirstMemory();
    void removedRowsAreForgotten();
    void clearedItemsAreForgotten();
    void newRowComesClosed();
    void controlFGoesToTheBox();
    void returnAndDownGoToTheView();
    void textCanBeSetAtOnce();
    void rowsThatAPersonClosedStayClosedInALaterSearch();
};

void tst_FilterBar::typedTextFiltersWhenTypingPauses()
{
    Window window;
    QSignalSpy filtered(&window.rows, &EntityFilter::filtered);
    QTest::keyClicks(window.edit(), "bag 2");
    QCOMPARE(filtered.size(), 0);
    QTRY_COMPARE(filtered.size(), 1);
    QCOMPARE(window.rows.rowCount(window.index(1)), 1);
}

void tst_FilterBar::pathsToTheHitsOpen()
{
    Window window;
    window.boxes[1]->getChild(0)->setDisplay("Satchel");
    window.type("satch");
    QCOMPARE(shown_tree(window.rows), QString("Box 2(Satchel(Screw 1 Screw 2 Screw 3))"));
    QCOMPARE(window.open_rows(), QString("Box 2"));
    QVERIFY(window.view.visualRect(window.index(2, 1)).isValid());
}

void tst_FilterBar::countsAreShownWhileThereIsAText()
{
    Window window;
    QCOMPARE(window.counts(), QString());
    window.type("screw 1");
    QCOMPARE(window.counts(), QString("9 of 39"));
    QTest::keyClick(window.edit(), Qt::Key_Escape);
    QCOMPARE(window.counts(), QString());
}

void tst_FilterBar::escapeRestoresWhatWasOpen()
{
    Window window;
    window.view.expand(window.index(1));
    window.view.expand(window.index(1, 2));
    window.view.expand(window.index(3));
    const QString before = window.open_rows();
    QCOMPARE(before, QString("Box 1, Box 1/Bag 2, Box 3"));

    QTest::keyClick(window.edit(), Qt::Key_F, Qt::ControlModifier);
    window.type("screw 1");
    QVERIFY(window.open_rows() != before);
    QTest::keyClick(window.edit(), Qt::Key_Escape);
    QCOMPARE(window.open_rows(), before);
    QCOMPARE(window.edit()->text(), QString());
    QVERIFY(window.view.hasFocus());
}

void tst_FilterBar::escapeInTheViewDoesTheSame()
{
    Window window;
    window.view.expand(window.index(2));
    window.type("screw 1");
    window.view.setFocus();
    QTest::keyClick(&window.view, Qt::Key_Escape);
    QCOMPARE(window.open_rows(), QString("Box 2"));
    QVERIFY(!window.rows.is_active());
}

void tst_FilterBar::clearedTextDoesTheSame()
{
    Window window;
    window.view.expand(window.index(2));
    window.type("screw 1");
    window.edit()->clear();
    QCOMPARE(window.open_rows(), QString("Box 2"));
}

void tst_FilterBar::rowsOpenedAndClosedMeanwhileAreRestored()
{
    Window window;
    window.view.expand(window.index(1));
    window.type("bag");
    window.view.collapse(window.index(1));
    window.view.expand(window.index(2, 3));
    QTest::keyClick(window.edit(), Qt::Key_Escape);
    QCOMPARE(window.open_rows(), QString("Box 1"));
}

void tst_FilterBar::openRowBelowAClosedOneStaysSo()
{
    Window window;
    window.view.expand(window.index(1, 2));
    window.type("screw");
    QTest::keyClick(window.edit(), Qt::Key_Escape);
    QCOMPARE(window.open_rows(), QString("Box 1/Bag 2"));
}

void tst_FilterBar::secondTextKeepsTheFirstMemory()
{
    Window window;
    window.view.expand(window.index(1));
    window.type("screw");
    window.type(" 1");
    QTest::keyClick(window.edit(), Qt::Key_Escape);
    QCOMPARE(window.open_rows(), QString("Box 1"));
}

void tst_FilterBar::removedRowsAreForgotten()
{
    Window window;
    for (int box = 1; box <= 3; ++box) {
        window.view.expand(window.index(box));
        window.view.expand(window.index(box, 1));
    }
    window.type("box 3");
    window.items.removeEntity(window.boxes[0]);
    window.items.clearCategory(window.boxes[1]);
    QTest::keyClick(window.edit(), Qt::Key_Escape);
    QCOMPARE(window.open_rows(), QString("Box 2, Box 3, Box 3/Bag 1"));
}

void tst_FilterBar::clearedItemsAreForgotten()
{
    Window window;
    window.view.expand(window.index(1));
    window.type("box");
    window.items.clear();
    add_item(window.items, nullptr, "Box");
    QTest::keyClick(window.edit(), Qt::Key_Escape);
    QCOMPARE(window.open_rows(), QString());
}

void tst_FilterBar::newRowComesClosed()
{
    Window window;
    window.view.expand(window.index(1));
    window.type("nut");
    SimpleItem* bag = add_item(window.items, window.boxes[1], "Bag of nuts", 4);
    add_item(window.items, bag, "Nut", 1);
    window.rows.settle();
    QCOMPARE(window.open_rows(), QString("Box 2"));
    QTest::keyClick(window.edit(), Qt::Key_Escape);
    QCOMPARE(window.open_rows(), QString("Box 1"));
}

void tst_FilterBar::controlFGoesToTheBox()
{
    Window window;
    QVERIFY(QTest::qWaitForWindowActive(&window.window));
    window.type("bag");
    window.view.setFocus();
    QTest::keyClick(&window.view, Qt::Key_F, Qt::ControlModifier);
    QVERIFY(window.edit()->hasFocus());
    QCOMPARE(window.edit()->selectedText(), QString("bag"));
}

void tst_FilterBar::returnAndDownGoToTheView()
{
    for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Down}) {
        Window window;
        QVERIFY(QTest::qWaitForWindowActive(&window.window));
        window.edit()->setFocus();
        QTest::keyClicks(window.edit(), "bag");
        QTest::keyClick(window.edit(), key);
        QVERIFY2(window.rows.text() == "bag", "without waiting for a pause");
        QVERIFY(window.view.hasFocus());
    }
}

void tst_FilterBar::textCanBeSetAtOnce()
{
    Window window;
    window.view.expand(window.index(2));
    window.bar.set_text("screw 2");
    QCOMPARE(window.rows.text(), QString("screw 2"));
    QCOMPARE(window.edit()->text(), QString("screw 2"));
    QCOMPARE(window.counts(), QString("9 of 39"));
    window.bar.set_text({});
    QCOMPARE(window.open_rows(), QString("Box 2"));
    window.bar.set_text({});
    QCOMPARE(window.open_rows(), QString("Box 2"));
}

void tst_FilterBar::rowsThatAPersonClosedStayClosedInALaterSearch()
{
    Window window;
    window.type("bag");
    window.view.collapse(window.index(1));
    add_item(window.items, window.boxes[0], "Bag 4", 4);
    window.rows.settle();
    QCOMPARE(window.rows.rowCount(window.index(1)), 4);
    QVERIFY(!window.view.isExpanded(window.index(1)));
}

QTEST_MAIN(tst_FilterBar)
#include "tst_FilterBar.moc"
