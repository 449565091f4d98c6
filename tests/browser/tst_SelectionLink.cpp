#include "JoinedModel.hpp"

#include <browser/editing/EntityFilter.hpp>
#include <browser/editing/KernelEntity.hpp>
#include <browser/editing/SelectionLink.hpp>
#include <NotificationLog.hpp>
#include <QSignalSpy>
#include <QTest>
#include <QTreeView>
#include <random>
#include <TestModels.hpp>

namespace {

/// Two cubes in a row, which share surface 2, its curves and vertices; a group and a material.
struct LinkedModel : JoinedModel
{
    NoIcons icons;
    EntityFilter rows{items};
    SelectionLink link{join, rows};
    NotificationLog log;

    LinkedModel()
    {
        items.setIcons(&icons);
        kernel.open_model(lattice(2, 1, 1), "two.step");
        kernel.create_group("Bolts");
        kernel.create_material("Steel");
        kernel.add_to_group(1, EntityKind::CURVE, {1});
        join.settle();
        log.take();
    }

    /// The selected rows as "surface 2, surface 2".
    QString selected_rows()
    {
        QStringList texts;
        for (const QModelIndex& index : link.selectedRows()) {
            EntityItem* item = rows.item(index);
            texts << QString::fromStdString(join.get_type_name(item->getType())) + u' ' +
                         QString::number(item->getId());
        }
        texts.sort();
        return texts.join(", ");
    }

    /// What the kernel has selected.
    QString selected_in_kernel() const
    {
        QStringList texts;
        for (int i = 0; i < KestoInterface::current_selection_count(); ++i) {
            texts << QString::fromStdString(KestoInterface::get_selected_type(i)) + u' ' +
                         QString::number(KestoInterface::get_selected_id(i));
        }
        texts.sort();
        return texts.join(", ");
    }

    QModelIndex row(TreeData* record) { return rows.index(item(record)); }

    /// As a view does for a plain click, and for one with the control key.
    void click(const QModelIndex& index)
    {
        link.select(index, QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
    }
    void click_with_control(const QModelIndex& index)
    {
        link.select(index, QItemSelectionModel::Toggle | QItemSelectionModel::Rows);
    }
};

} // namespace

/// The road of a selection, both ways.
class tst_SelectionLink : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void clickedRowIsSelectedInTheKernelOnce();
    void plainClickReplacesTheSelection();
    void clickWithControlAddsAndTakesAway();
    void allPlacesOfAClickedRecordAreSelected();
    void oneDeselectedPlaceDeselectsAll();
    void clickOnAnotherPlaceOfTheRecordKeepsIt();
    void selectionOfTheKernelSelectsAllPlaces();
    void deselectionOfTheKernelDeselectsThem();
    void categorySelectsNothingInTheKernel();
    void materialIsSelectedThoughTheKernelTellsNothingOfIt();
    void selectedRecordThatDiesIsForgotten();
    void removedPlaceDeselectsNothing();
    void openedModelBeginsWithNothingSelected();
    void clearedItemsDeselectNothing();
    void hiddenCategoryKeepsItsSelection();
    void filteredRowsStaySelectedInTheKernel();
    void plainClickDeselectsWhatIsFilteredOut();
    void placeThatComesLaterIsSelected();
    void goesToTheLatestSelection();
    void goesToARowThatComesLater();
    void followsTheKernelIfAskedTo();
    void changesOfTheRecordsAreTold();
    void manySeparateRowsAreSelectedAndDeselected();
    void treeViewSelectsByMouseAndKeyboard();
    void rowsAgreeWithTheKernelUnderRandomUse_data();
    void rowsAgreeWithTheKernelUnderRandomUse();
};

void tst_SelectionLink::clickedRowIsSelectedInTheKernelOnce()
{
    LinkedModel model;
    model.click(model.row(model.body(1)));
    QCOMPARE(model.log.take(), QString("selected body 1"));
    QCOMPARE(model.selected_rows(), QString("body 1"));
    QCOMPARE(model.link.records(), std::vector<TreeData*>{model.body(1)});
    model.click(model.row(model.body(1)));
    QCOMPARE(model.log.take(), QString());
}

void tst_SelectionLink::plainClickReplacesTheSelection()
{
    LinkedModel model;
    model.click(model.row(model.volume(1)));
    model.click(model.row(model.volume(2)));
    QCOMPARE(
        model.log.take(), QString("selected volume 1, deselected volume 1, selected volume 2"));
    QCOMPARE(model.selected_rows(), QString("volume 2"));
    model.link.clearSelection();
    QCOMPARE(model.log.take(), QString("deselected volume 2"));
    QCOMPARE(model.selected_in_kernel(), QString());
}

void tst_SelectionLink::clickWithControlAddsAndTakesAway()
{
    LinkedModel model;
    model.click(model.row(model.volume(1)));
    model.click_with_control(model.row(model.volume(2)));
    QCOMPARE(model.selected_in_kernel(), QString("volume 1, volume 2"));
    model.click_with_control(model.row(model.volume(1)));
    QCOMPARE(model.selected_in_kernel(), QString("volume 2"));
    QCOMPARE(model.selected_rows(), QString("volume 2"));
}

void tst_SelectionLink::allPlacesOfAClickedRecordAreSelected()
{
    LinkedModel model;
    model.click(model.row(model.surface(2)));
    QCOMPARE(model.selected_rows(), QString("surface 2, surface 2"));
    QCOMPARE(model.log.take(), QString("selected surface 2"));
}

void tst_SelectionLink::oneDeselectedPlaceDeselectsAll()
{
    LinkedModel model;
    model.click(model.row(model.surface(2)));
    model.click_with_control(model.row(model.surface(2)));
    QCOMPARE(model.selected_rows(), QString());
    QCOMPARE(model.selected_in_kernel(), QString());
}

void tst_SelectionLink::clickOnAnotherPlaceOfTheRecordKeepsIt()
{
    LinkedModel model;
    model.join.settle();
    const std::vector<EntityItem*> places = model.join.places(model.surface(2));
    QCOMPARE(places.size(), std::size_t(2));
    model.click(model.rows.index(places[0]));
    model.click(model.rows.index(places[1]));
    QCOMPARE(model.selected_rows(), QString("surface 2, surface 2"));
    QCOMPARE(model.log.take(), QString("selected surface 2"));
}

void tst_SelectionLink::selectionOfTheKernelSelectsAllPlaces()
{
    LinkedModel model;
    model.kernel.select(EntityKind::CURVE, {1});
    QCOMPARE(model.log.take(), QString("selected curve 1"));
    QCOMPARE(int(model.link.selectedRows().size()), int(model.join.places(model.curve(1)).size()));
    QVERIFY2(model.link.selectedRows().size() >= 3, "under two surfaces and in a group");
    model.kernel.select(EntityKind::GROUP, {1});
    QCOMPARE(model.selected_in_kernel(), QString("curve 1, group 1"));
    QVERIFY(model.selected_rows().endsWith("group 1"));
}

void tst_SelectionLink::deselectionOfTheKernelDeselectsThem()
{
    LinkedModel model;
    model.kernel.select(EntityKind::SURFACE, {1, 2, 3});
    model.kernel.deselect(EntityKind::SURFACE, {2});
    QCOMPARE(model.selected_rows(), QString("surface 1, surface 3"));
    model.kernel.select_none();
    QCOMPARE(model.selected_rows(), QString());
    QVERIFY(model.link.records().empty());
}

void tst_SelectionLink::categorySelectsNothingInTheKernel()
{
    LinkedModel model;
    model.click(model.row(model.body(1)));
    model.log.take();
    model.click_with_control(model.rows.index(model.join.category(Category::Geometry)));
    QCOMPARE(model.log.take(), QString());
    QCOMPARE(model.link.selectedRows().size(), 2);
    model.click(model.rows.index(model.join.category(Category::Groups)));
    QCOMPARE(model.log.take(), QString("deselected body 1"));
    QVERIFY(model.link.records().empty());
}

void tst_SelectionLink::materialIsSelectedThoughTheKernelTellsNothingOfIt()
{
    LinkedModel model;
    TreeData* steel = model.mirror.find_material(1);
    model.click(model.row(steel));
    QCOMPARE(model.selected_in_kernel(), QString("material 1"));
    QCOMPARE(model.link.records(), std::vector<TreeData*>{steel});
    model.click(model.row(model.body(1)));
    QCOMPARE(model.selected_in_kernel(), QString("body 1"));
}

void tst_SelectionLink::selectedRecordThatDiesIsForgotten()
{
    LinkedModel model;
    model.click(model.row(model.mirror.find_group(1)));
    model.kernel.remove(EntityKind::GROUP, 1);
    QVERIFY(model.link.records().empty());
    model.join.settle();
    QCOMPARE(model.selected_rows(), QString());
    QCOMPARE(model.log.take(), QString("selected group 1, deselected group 1, group_deleted 1"));
}

void tst_SelectionLink::removedPlaceDeselectsNothing()
{
    LinkedModel model;
    model.click(model.row(model.surface(2)));
    model.log.take();
    model.kernel.unrelate(EntityKind::VOLUME, 2, 2);
    model.join.settle();
    QCOMPARE(model.selected_rows(), QString("surface 2"));
    QCOMPARE(model.selected_in_kernel(), QString("surface 2"));
    QVERIFY(!model.log.take().contains("selected"));
}

void tst_SelectionLink::openedModelBeginsWithNothingSelected()
{
    LinkedModel model;
    model.kernel.select(EntityKind::SURFACE, {1, 2, 3});
    model.kernel.open_model(lattice(1, 1, 1), "one.step");
    QVERIFY(model.link.records().empty());
    model.join.settle();
    QCOMPARE(model.selected_rows(), QString());
    model.click(model.row(model.surface(1)));
    QCOMPARE(model.selected_in_kernel(), QString("surface 1"));
}

void tst_SelectionLink::clearedItemsDeselectNothing()
{
    EmbeddedKernel kernel;
    kernel.create_body();
    TreeModel mirror;
    mirror.connect_to_kesto();
    mirror.refresh_model(false);
    EntityModel items;
    EntityFilter rows(items);
    {
        MirrorItems join(mirror, items);
        SelectionLink link(join, rows);
        kernel.select(EntityKind::BODY, {1});
        join.settle();
        QTRY_VERIFY(link.hasSelection());
        link.reset();
        QVERIFY(!link.hasSelection());
        QCOMPARE(KestoInterface::current_selection_count(), 1);
    }
    mirror.disconnect_from_kesto();
}

void tst_SelectionLink::hiddenCategoryKeepsItsSelection()
{
    LinkedModel model;
    model.click(model.row(model.body(1)));
    model.items.hideCategory(model.join.category(Category::Geometry));
    QCOMPARE(model.selected_rows(), QString());
    QCOMPARE(model.selected_in_kernel(), QString("body 1"));
    model.items.showCategory(model.join.category(Category::Geometry));
    model.join.settle();
    QTRY_COMPARE(model.selected_rows(), QString("body 1"));
}

void tst_SelectionLink::filteredRowsStaySelectedInTheKernel()
{
    LinkedModel model;
    model.kernel.select(EntityKind::SURFACE, {1, 2});
    model.rows.set_text("surface 1");
    QVERIFY(!model.selected_rows().contains("surface 2"));
    QCOMPARE(model.selected_in_kernel(), QString("surface 1, surface 2"));
    QCOMPARE(int(model.link.records().size()), 2);
    model.rows.set_text({});
    QTRY_COMPARE(model.selected_rows(), QString("surface 1, surface 2, surface 2"));
}

void tst_SelectionLink::plainClickDeselectsWhatIsFilteredOut()
{
    LinkedModel model;
    model.kernel.select(EntityKind::SURFACE, {2});
    model.rows.set_text("surface 1");
    model.click_with_control(model.row(model.surface(1)));
    QCOMPARE(model.selected_in_kernel(), QString("surface 1, surface 2"));
    model.click(model.row(model.surface(1)));
    QCOMPARE(model.selected_in_kernel(), QString("surface 1"));
}

void tst_SelectionLink::placeThatComesLaterIsSelected()
{
    LinkedModel model;
    model.kernel.select(EntityKind::SURFACE, {1});
    model.kernel.create_group("Nuts");
    model.kernel.add_to_group(2, EntityKind::SURFACE, {1});
    QTRY_COMPARE(model.selected_rows(), QString("surface 1, surface 1"));
}

void tst_SelectionLink::goesToTheLatestSelection()
{
    LinkedModel model;
    QSignalSpy went(&model.link, &SelectionLink::went_to);
    model.link.go_to_selection();
    QCOMPARE(went.size(), 0);
    model.kernel.select(EntityKind::SURFACE, {3});
    model.kernel.select(EntityKind::SURFACE, {5});
    QVERIFY(!model.link.currentIndex().isValid());
    model.link.go_to_selection();
    QCOMPARE(model.link.currentIndex(), model.row(model.surface(5)));
    QCOMPARE(went.size(), 1);
    QCOMPARE(model.selected_in_kernel(), QString("surface 3, surface 5"));
}

void tst_SelectionLink::goesToARowThatComesLater()
{
    LinkedModel model;
    model.rows.set_text("body");
    model.rows.set_text("steel");
    model.kernel.select(EntityKind::SURFACE, {5});
    model.link.go_to_selection();
    QVERIFY(!model.link.currentIndex().isValid());
    model.rows.set_text({});
    QTRY_COMPARE(model.link.currentIndex(), model.row(model.surface(5)));
}

void tst_SelectionLink::followsTheKernelIfAskedTo()
{
    LinkedModel model;
    QSignalSpy went(&model.link, &SelectionLink::went_to);
    model.kernel.select(EntityKind::SURFACE, {3});
    QCOMPARE(went.size(), 0);
    model.link.set_following(true);
    model.kernel.select(EntityKind::SURFACE, {5});
    QCOMPARE(went.size(), 1);
    QCOMPARE(model.link.currentIndex(), model.row(model.surface(5)));
    model.click(model.row(model.surface(1)));
    QVERIFY2(went.size() == 1, "a person is where he clicks");
}

void tst_SelectionLink::changesOfTheRecordsAreTold()
{
    LinkedModel model;
    QTest::qWait(200);
    QSignalSpy changed(&model.link, &SelectionLink::records_changed);
    model.click(model.row(model.body(1)));
    QCOMPARE(changed.size(), 1);
    model.kernel.select(EntityKind::SURFACE, {1, 2});
    QCOMPARE(changed.size(), 2);
    model.kernel.clear();
    QTRY_COMPARE(changed.size(), 3);
    QVERIFY(model.link.records().empty());
}

void tst_SelectionLink::manySeparateRowsAreSelectedAndDeselected()
{
    LinkedModel model;
    std::vector<int> odd;
    std::vector<int> all;
    for (int id = 1; id <= 2000; ++id) {
        model.kernel.create_group();
        all.push_back(id);
        if (id % 2 == 1) {
            odd.push_back(id);
        }
    }
    model.join.settle();
    model.kernel.select(EntityKind::GROUP, odd);
    QCOMPARE(model.link.selectedRows().size(), 1000);
    model.kernel.select(EntityKind::GROUP, all);
    QCOMPARE(model.link.selectedRows().size(), 2000);
    model.kernel.deselect(EntityKind::GROUP, odd);
    QCOMPARE(model.link.selectedRows().size(), 1000);
    model.click(model.row(model.body(1)));
    QCOMPARE(model.selected_in_kernel(), QString("body 1"));
    QCOMPARE(model.selected_rows(), QString("body 1"));
}

void tst_SelectionLink::treeViewSelectsByMouseAndKeyboard()
{
    LinkedModel model;
    QTreeView view;
    view.setModel(&model.rows);
    view.setSelectionModel(&model.link);
    view.setSelectionMode(QAbstractItemView::ExtendedSelection);
    view.expand(model.rows.index(model.join.category(Category::Geometry)));
    view.expand(model.row(model.body(1)));
    view.resize(400, 400);
    view.show();
    const auto click = [&](TreeData* record, Qt::KeyboardModifiers modifiers) {
        QTest::mouseClick(view.viewport(), Qt::LeftButton, modifiers,
            view.visualRect(model.row(record)).center());
    };

    click(model.volume(1), Qt::NoModifier);
    QCOMPARE(model.selected_in_kernel(), QString("volume 1"));
    click(model.volume(2), Qt::ControlModifier);
    QCOMPARE(model.selected_in_kernel(), QString("volume 1, volume 2"));
    click(model.body(1), Qt::ShiftModifier);
    QTest::keyClick(&view, Qt::Key_Up, Qt::ShiftModifier);
    click(model.body(1), Qt::NoModifier);
    QTest::keyClick(&view, Qt::Key_Down, Qt::ShiftModifier);
    QCOMPARE(model.selected_in_kernel(), QString("body 1, volume 1"));
    QTest::keyClick(&view, Qt::Key_Down);
    QCOMPARE(model.selected_in_kernel(), QString("volume 2"));
    QTest::keyClick(&view, Qt::Key_A, Qt::ControlModifier);
    QCOMPARE(model.selected_in_kernel(), QString("body 1, volume 1, volume 2"));
}

void tst_SelectionLink::rowsAgreeWithTheKernelUnderRandomUse_data()
{
    QTest::addColumn<unsigned>("seed");
    for (unsigned seed = 1; seed <= 6; ++seed) {
        QTest::addRow("seed %u", seed) << seed;
    }
}

namespace {

/// Selects from both sides, and filters and changes the model meanwhile.
class RandomUse
{
public:
    RandomUse(LinkedModel& model, unsigned seed)
        : m_model(model)
        , m_random(seed)
    {
    }

    QString run()
    {
        static const std::vector<std::pair<QString, void (RandomUse::*)()>> uses{
            {"click", &RandomUse::click},
            {"click with control", &RandomUse::click_with_control},
            {"select a range", &RandomUse::select_range},
            {"select in the kernel", &RandomUse::select_in_kernel},
            {"deselect in the kernel", &RandomUse::deselect_in_kernel},
            {"filter", &RandomUse::filter},
            {"group", &RandomUse::group},
            {"unlink", &RandomUse::unlink},
            {"sort", &RandomUse::sort},
        };
        const auto& [name, use] = uses[std::size_t(below(int(uses.size())))];
        (this->*use)();
        return name;
    }

    std::vector<QModelIndex> shown_rows(const QModelIndex& parent = {}) const
    {
        std::vector<QModelIndex> rows;
        for (int row = 0; row < m_model.rows.rowCount(parent); ++row) {
            const QModelIndex index = m_model.rows.index(row, 0, parent);
            rows.push_back(index);
            const std::vector<QModelIndex> more = shown_rows(index);
            rows.insert(rows.end(), more.begin(), more.end());
        }
        return rows;
    }

private:
    int below(int bound) { return std::uniform_int_distribution(0, bound - 1)(m_random); }

    QModelIndex some_row()
    {
        const std::vector<QModelIndex> rows = shown_rows();
        return rows.empty() ? QModelIndex() : rows[std::size_t(below(int(rows.size())))];
    }

    std::vector<int> some_curves()
    {
        const int first = 1 + below(15);
        return {first, first + 1, first + 3};
    }

    void click() { m_model.click(some_row()); }
    void click_with_control() { m_model.click_with_control(some_row()); }
    void select_range()
    {
        const QModelIndex row = some_row();
        const QModelIndex last = row.siblingAtRow(m_model.rows.rowCount(row.parent()) - 1);
        m_model.link.select(QItemSelection(row, last),
            QItemSelectionModel::Rows |
                (below(2) ? QItemSelectionModel::ClearAndSelect : QItemSelectionModel::Toggle));
    }
    void select_in_kernel() { m_model.kernel.select(EntityKind::CURVE, some_curves()); }
    void deselect_in_kernel() { m_model.kernel.deselect(EntityKind::CURVE, some_curves()); }
    void filter()
    {
        static const QStringList texts{"", "", "curve", "curve 1", "surface 2", "vertex 3", "bolt"};
        m_model.rows.set_text(texts.at(below(int(texts.size()))));
    }
    void group()
    {
        const int id = m_model.kernel.create_group("Bolts again");
        m_model.kernel.add_to_group(id, EntityKind::CURVE, some_curves());
        if (below(2)) {
            const auto groups = m_model.mirror.groups();
            m_model.kernel.remove(
                EntityKind::GROUP, groups[std::size_t(below(int(groups.size())))]->id());
        }
    }
    void unlink()
    {
        TreeGeometryData* surface = m_model.mirror.geometry(TreeGeometryData::SURFACE).front();
        const auto curves = m_model.mirror.find_geometry_children(surface);
        if (!curves.empty()) {
            m_model.kernel.unrelate(EntityKind::SURFACE, surface->id(), curves.front()->id());
        }
    }
    void sort()
    {
        m_model.rows.sort(below(2), below(2) ? Qt::AscendingOrder : Qt::DescendingOrder);
    }

    LinkedModel& m_model;
    std::mt19937 m_random;
};

} // namespace

void tst_SelectionLink::rowsAgreeWithTheKernelUnderRandomUse()
{
    QFETCH(unsigned, seed);
    LinkedModel model;
    model.kernel.remove(EntityKind::MATERIAL, 1); // Of which the kernel tells nothing
    RandomUse use(model, seed);

    // The first shown row that is selected and should not be or the other way round.
    const auto wrong_row = [&] {
        const QStringList selected = model.selected_in_kernel().split(", ");
        for (const QModelIndex& index : use.shown_rows()) {
            TreeData* record = model.join.record(model.rows.item(index));
            const auto entity = kernel_entity(record);
            if (entity && model.link.isSelected(index) != selected.contains(entity->text())) {
                return entity->text();
            }
        }
        return QString();
    };
    for (int step = 0; step < 120; ++step) {
        const QString name = use.run();
        model.join.settle();
        model.rows.settle();
        QTRY_VERIFY2(wrong_row().isEmpty(), qPrintable(name + ": " + wrong_row()));
    }
}

QTEST_MAIN(tst_SelectionLink)
#include "tst_SelectionLink.moc"
