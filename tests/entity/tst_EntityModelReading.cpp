#include "ModelWatch.hpp"
#include "TestItems.hpp"

#include <memory>
#include <QIcon>
#include <QPersistentModelIndex>
#include <QStandardItemModel>
#include <QTemporaryDir>
#include <QTest>
#include <treemodel/entity/EntityTypeRange.hpp>

namespace {

class Icons : public EntityIconFactory
{
public:
    const char* getIconPath(EntityItem* item) override
    {
        asked.append(item->getDisplayName());
        m_answer = path;
        return m_answer.constData();
    }

    QByteArray path;
    QStringList asked;

private:
    QByteArray m_answer;
};

/// A picture file of one colour.
QByteArray picture(const QTemporaryDir& folder, const QString& name, const QColor& colour)
{
    QImage image(8, 8, QImage::Format_ARGB32);
    image.fill(colour);
    const QString path = folder.filePath(name);
    image.save(path);
    return path.toUtf8();
}

QColor colour_of(const QVariant& decoration)
{
    return decoration.value<QIcon>().pixmap(8, 8).toImage().pixelColor(4, 4);
}

const QString invisible_path = ":/kestogui/light/invisible.svg";

} // namespace

class tst_EntityModelReading : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void newModelHasTwoColumnsAndNoRows();
    void indexesMapToTheirItems();
    void columnOutOfRangeHasNoIndex_data();
    void columnOutOfRangeHasNoIndex();
    void rowOutOfRangeHasNoIndex();
    void parentInTheIdColumnHasAChildIndexButNoRows();
    void parentIsInTheNameColumn();
    void topLevelRowsHaveNoParent();
    void foreignIndexesAreNotTaken();
    void itemsHaveAnIndexIfTheyAreVisible();
    void containsTellsTheVisibleFromTheHidden();
    void unlistedItemHasNoIndex();

    void cellsShowNameAndId_data();
    void cellsShowNameAndId();
    void editorOfADefaultLabelOpensEmpty();
    void otherRolesAreEmpty();
    void cellsFollowSharedData();

    void rowsAreMarkedInvisibleWithoutAFactory();
    void visibleRowHasTheIconOfItsPath();
    void invisibleRowIsMarkedWithoutAskingTheFactory();
    void iconsAreSharedByPath();
    void settingTheFactoryForgetsTheIcons();
    void missingIconIsLookedForAgain();
    void nullPathIsTheNullIcon();

    void headersNameTheColumns();
    void flagsAreSelectableAndEnabledForAll();
    void editableItemIsEditableInTheNameColumn();

    void editIsARequest();
    void editThatChangesNothingIsSilent_data();
    void editThatChangesNothingIsSilent();
    void nameIsComparedNotTheTextShown();
    void acceptedEditReachesTheView();

    void newModelIsSortedByIdAscending();
    void sortOfTopLevelRowsKeepsTheirOrder();
    void repeatedSortIsSilent();
    void everyParentIsSortedFromTheTopDown();
    void columnsBeyondTheTwoSortById();
    void sortedRowsAreFollowedInTheNameColumnOnly();
    void readersSeeASoundTreeWhileSorting();
    void rowsThatMoveDuringASortAreStillFound();
    void rowThatMovesDownDuringASortIsLeftForTheNextOfItsNewParents();
    void sortEndsWithARowThatIsHiddenMeanwhile();
    void hiddenSubtreeKeepsItsOrder();
    void wideTreeIsSortedWithoutSearching();

private:
    EntityItem* add(EntityItem* parent, const QString& name, int id = 0)
    {
        auto* item = new_item(name, id, 1, new SortedEntityList);
        model->addEntity(parent, item);
        return item;
    }

    std::unique_ptr<EntityModel> model;
    std::unique_ptr<ModelWatch> watch;
};

void tst_EntityModelReading::init()
{
    model = std::make_unique<EntityModel>();
    watch = std::make_unique<ModelWatch>(model.get());
}

void tst_EntityModelReading::cleanup()
{
    watch.reset();
    model.reset();
}

void tst_EntityModelReading::newModelHasTwoColumnsAndNoRows()
{
    QCOMPARE(model->rowCount(), 0);
    QCOMPARE(model->columnCount(), 2);
    const EntityItem* a = add(nullptr, "a");
    QCOMPARE(model->rowCount(), 1);
    QCOMPARE(model->columnCount(model->index(0, 0)), 2);
    QCOMPARE(model->columnCount(model->index(0, 1)), 2);
    QCOMPARE(a->getParentEntity()->getType(), -1);
    QCOMPARE(a->getParentEntity()->getId(), 0);
}

void tst_EntityModelReading::indexesMapToTheirItems()
{
    EntityItem* a = add(nullptr, "a");
    EntityItem* b = add(a, "b", 1);
    EntityItem* c = add(a, "c", 2);
    const QModelIndex top = model->index(0, 0);
    QCOMPARE(model->getEntity(top), a);
    QCOMPARE(model->getEntity(model->index(0, 1)), a);
    QCOMPARE(model->getEntity(model->index(0, 0, top)), b);
    QCOMPARE(model->getEntity(model->index(1, 1, top)), c);
    QCOMPARE(model->getEntity(QModelIndex()), nullptr);
    QCOMPARE(model->rowCount(top), 2);
    QCOMPARE(model->rowCount(model->index(1, 0, top)), 0);
}

void tst_EntityModelReading::columnOutOfRangeHasNoIndex_data()
{
    QTest::addColumn<int>("column");
    QTest::newRow("behind the last") << 2;
    QTest::newRow("before the first") << -1;
    QTest::newRow("the largest") << 2147483647;
    QTest::newRow("the smallest") << int(-2147483647 - 1);
}

void tst_EntityModelReading::columnOutOfRangeHasNoIndex()
{
    QFETCH(int, column);
    QVERIFY(!model->index(0, column).isValid());
    add(nullptr, "a");
    QVERIFY(!model->index(0, column, QModelIndex()).isValid());
}

void tst_EntityModelReading::rowOutOfRangeHasNoIndex()
{
    add(nullptr, "a");
    QVERIFY(!model->index(-1, 0).isValid());
    QVERIFY(!model->index(1, 0).isValid());
    QVERIFY(!model->index(0, 0, model->index(0, 0)).isValid());
}

void tst_EntityModelReading::parentInTheIdColumnHasAChildIndexButNoRows()
{
    EntityItem* a = add(nullptr, "a");
    EntityItem* b = add(a, "b");
    const QModelIndex id_cell = model->index(0, 1);
    QCOMPARE(model->getEntity(model->index(0, 0, id_cell)), b);
    QCOMPARE(model->rowCount(id_cell), 0);
}

void tst_EntityModelReading::parentIsInTheNameColumn()
{
    EntityItem* a = add(nullptr, "a");
    EntityItem* b = add(a, "b");
    add(b, "c");
    const QModelIndex cell = model->index(0, 1, model->index(b));
    QCOMPARE(model->parent(cell), model->index(b));
    QCOMPARE(model->parent(cell).column(), 0);
    QCOMPARE(model->parent(model->index(b)), model->index(0, 0));
}

void tst_EntityModelReading::topLevelRowsHaveNoParent()
{
    add(nullptr, "a");
    QVERIFY(!model->parent(model->index(0, 0)).isValid());
    QVERIFY(!model->parent(model->index(0, 1)).isValid());
    QVERIFY(!model->parent(QModelIndex()).isValid());
}

void tst_EntityModelReading::foreignIndexesAreNotTaken()
{
    EntityItem* a = add(nullptr, "a");
    add(a, "b");
    EntityModel other;
    auto* stranger = new_item("stranger", 3, 1, new EntityItemList);
    other.addEntity(nullptr, stranger);
    other.addEntity(stranger, new_item("its child"));
    const QModelIndex foreign = other.index(stranger);

    QCOMPARE(model->getEntity(foreign), nullptr);
    QVERIFY(!model->parent(other.index(0, 0, foreign)).isValid());
    QCOMPARE(model->rowCount(foreign), 0);
    QVERIFY(!model->index(0, 0, foreign).isValid());
    QVERIFY(!model->data(foreign, Qt::DisplayRole).isValid());
    QCOMPARE(model->flags(foreign), Qt::ItemIsSelectable | Qt::ItemIsEnabled);
    QVERIFY(!model->setData(foreign, "x"));
    QCOMPARE(model->columnCount(foreign), 2);
    QVERIFY(!model->index(stranger).isValid());
}

void tst_EntityModelReading::itemsHaveAnIndexIfTheyAreVisible()
{
    EntityItem* a = add(nullptr, "a");
    EntityItem* b = add(a, "b");
    EntityItem* hidden = add(nullptr, "hidden");
    EntityItem* under_hidden = add(hidden, "under");
    model->hideCategory(hidden);
    const SimpleItem stranger("stranger", 1, nullptr);

    QCOMPARE(model->index(a), model->index(0, 0));
    QCOMPARE(model->index(b), model->index(0, 0, model->index(0, 0)));
    QVERIFY(!model->index(nullptr).isValid());
    QVERIFY(!model->index(a->getParentEntity()).isValid());
    QVERIFY(!model->index(hidden).isValid());
    QVERIFY(!model->index(under_hidden).isValid());
    QVERIFY(!model->index(const_cast<SimpleItem*>(&stranger)).isValid());
}

void tst_EntityModelReading::containsTellsTheVisibleFromTheHidden()
{
    EntityItem* visible = add(nullptr, "visible");
    EntityItem* under_visible = add(visible, "under");
    EntityItem* hidden = add(nullptr, "hidden");
    EntityItem* under_hidden = add(hidden, "under");
    model->hideCategory(hidden);
    SimpleItem stranger("stranger", 1, new EntityItemList);
    append_children(stranger, {new_item("under")});

    const auto answer = [this](EntityItem* item) {
        // Preset to the other value, so that the write shows.
        bool hidden_flag = true;
        const bool known = model->contains(item, hidden_flag);
        bool other_flag = false;
        model->contains(item, other_flag);
        return QString(known ? "known" : "unknown") + (hidden_flag ? " hidden" : "") +
               (hidden_flag == other_flag ? "" : " flag not written");
    };
    QCOMPARE(answer(visible), "known");
    QCOMPARE(answer(under_visible), "known");
    QCOMPARE(answer(hidden), "known hidden");
    QCOMPARE(answer(under_hidden), "known hidden");
    QCOMPARE(answer(&stranger), "unknown");
    QCOMPARE(answer(stranger.getChild(0)), "unknown");
    QCOMPARE(answer(nullptr), "unknown");
    QCOMPARE(answer(visible->getParentEntity()), "unknown");
}

void tst_EntityModelReading::unlistedItemHasNoIndex()
{
    EntityItem* a = add(nullptr, "a");
    SimpleItem unlisted("unlisted", 1, nullptr);
    unlisted.setParentEntity(a);
    QVERIFY(!model->index(&unlisted).isValid());
}

void tst_EntityModelReading::cellsShowNameAndId_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<int>("id");
    QTest::addColumn<QString>("shown");
    QTest::addColumn<QVariant>("number");
    QTest::newRow("named") << "Lid" << 7 << "Lid" << QVariant(7);
    QTest::newRow("labelled") << "" << 1 << "label" << QVariant(1);
    QTest::newRow("without id") << "Lid" << 0 << "Lid" << QVariant();
    QTest::newRow("negative id") << "Lid" << -4 << "Lid" << QVariant();
}

void tst_EntityModelReading::cellsShowNameAndId()
{
    QFETCH(QString, name);
    QFETCH(int, id);
    QFETCH(QString, shown);
    QFETCH(QVariant, number);
    auto* item = new_item("label", id);
    item->setName(name);
    model->addEntity(nullptr, item);
    const QModelIndex name_cell = model->index(0, 0);
    const QModelIndex id_cell = model->index(0, 1);
    QCOMPARE(model->data(name_cell), QVariant(shown));
    QCOMPARE(model->data(name_cell, Qt::EditRole), QVariant(name));
    QCOMPARE(model->data(id_cell), number);
    QCOMPARE(model->data(id_cell, Qt::EditRole), number);
    QCOMPARE(number.isValid(), model->data(id_cell).typeId() == QMetaType::Int);
    QVERIFY(!model->data(id_cell, Qt::DecorationRole).isValid());
}

void tst_EntityModelReading::editorOfADefaultLabelOpensEmpty()
{
    add(nullptr, "Surface 3", 3);
    QCOMPARE(model->data(model->index(0, 0), Qt::EditRole).toString(), "");
    QCOMPARE(model->data(model->index(0, 0)).toString(), "Surface 3");
}

void tst_EntityModelReading::otherRolesAreEmpty()
{
    add(nullptr, "a", 5);
    for (int role = 0; role <= Qt::UserRole + 1; ++role) {
        if (role == Qt::DisplayRole || role == Qt::EditRole || role == Qt::DecorationRole) {
            continue;
        }
        QVERIFY2(
            !model->data(model->index(0, 0), role).isValid(), qPrintable(QString::number(role)));
        QVERIFY2(
            !model->data(model->index(0, 1), role).isValid(), qPrintable(QString::number(role)));
    }
    QVERIFY(!model->data(QModelIndex()).isValid());
}

void tst_EntityModelReading::cellsFollowSharedData()
{
    EntityItemData data(4, 9);
    data.setDisplay("Surface 9");
    EntityItem* a = add(nullptr, "a");
    EntityItem* b = add(nullptr, "b");
    for (EntityItem* parent : {a, b}) {
        model->addEntity(parent, new SharedItem(&data, nullptr));
    }
    data.setName("Lid");
    QCOMPARE(model->index(0, 0, model->index(a)).data(), QVariant("Lid"));
    QCOMPARE(model->index(0, 0, model->index(b)).data(), QVariant("Lid"));
    model->clear();
    QVERIFY(data.itemsEmpty());
}

void tst_EntityModelReading::rowsAreMarkedInvisibleWithoutAFactory()
{
    add(nullptr, "a");
    const QVariant mark = model->index(0, 0).data(Qt::DecorationRole);
    QCOMPARE(mark.typeId(), qMetaTypeId<QIcon>());
    QCOMPARE(mark.value<QIcon>().isNull(), QIcon(invisible_path).isNull());
}

void tst_EntityModelReading::visibleRowHasTheIconOfItsPath()
{
    const QTemporaryDir folder;
    Icons icons;
    icons.path = picture(folder, QString::fromUtf8("grün.png"), Qt::green);
    model->setIcons(&icons);
    QCOMPARE(watch->take(), QStringList());
    add(nullptr, "a");
    QVERIFY(model->index(0, 0).data(Qt::DecorationRole).isValid());
    QCOMPARE(colour_of(model->index(0, 0).data(Qt::DecorationRole)), QColor(Qt::green));
    icons.path = picture(folder, "red.png", Qt::red);
    QCOMPARE(colour_of(model->index(0, 0).data(Qt::DecorationRole)), QColor(Qt::red));
    model->setIcons(nullptr);
    QCOMPARE(model->index(0, 0).data(Qt::DecorationRole).value<QIcon>().isNull(),
        QIcon(invisible_path).isNull());
}

void tst_EntityModelReading::invisibleRowIsMarkedWithoutAskingTheFactory()
{
    const QTemporaryDir folder;
    Icons icons;
    icons.path = picture(folder, "green.png", Qt::green);
    model->setIcons(&icons);
    EntityItemData data(4, 9);
    data.setVisible(false);
    model->addEntity(nullptr, new SharedItem(&data, nullptr));
    icons.asked.clear();

    const QVariant mark = model->index(0, 0).data(Qt::DecorationRole);
    QCOMPARE(mark.value<QIcon>().isNull(), QIcon(invisible_path).isNull());
    QCOMPARE(icons.asked, QStringList());
    QVERIFY(!model->index(0, 1).data(Qt::DecorationRole).isValid());
    QCOMPARE(icons.asked, QStringList());

    data.setVisible(true);
    QCOMPARE(colour_of(model->index(0, 0).data(Qt::DecorationRole)), QColor(Qt::green));
    QCOMPARE(icons.asked.size(), 1);
    model->clear();
}

void tst_EntityModelReading::iconsAreSharedByPath()
{
    const QTemporaryDir folder;
    Icons icons;
    icons.path = picture(folder, "green.png", Qt::green);
    model->setIcons(&icons);
    add(nullptr, "a");
    add(nullptr, "b");
    const auto icon_of = [this](int row) {
        return model->index(row, 0).data(Qt::DecorationRole).value<QIcon>();
    };
    QCOMPARE(icon_of(0).cacheKey(), icon_of(1).cacheKey());
    const qint64 green = icon_of(0).cacheKey();
    icons.path = picture(folder, "red.png", Qt::red);
    QVERIFY(icon_of(0).cacheKey() != green);
}

void tst_EntityModelReading::settingTheFactoryForgetsTheIcons()
{
    const QTemporaryDir folder;
    Icons icons;
    icons.path = picture(folder, "icon.png", Qt::green);
    model->setIcons(&icons);
    add(nullptr, "a");
    QCOMPARE(colour_of(model->index(0, 0).data(Qt::DecorationRole)), QColor(Qt::green));
    picture(folder, "icon.png", Qt::red);
    model->setIcons(&icons);
    QCOMPARE(colour_of(model->index(0, 0).data(Qt::DecorationRole)), QColor(Qt::red));
}

void tst_EntityModelReading::missingIconIsLookedForAgain()
{
    const QTemporaryDir folder;
    Icons icons;
    icons.path = folder.filePath("late.png").toUtf8();
    model->setIcons(&icons);
    add(nullptr, "a");
    QVERIFY(model->index(0, 0).data(Qt::DecorationRole).isValid());
    picture(folder, "late.png", Qt::blue);
    QCOMPARE(colour_of(model->index(0, 0).data(Qt::DecorationRole)), QColor(Qt::blue));
}

void tst_EntityModelReading::nullPathIsTheNullIcon()
{
    class NoPaths : public EntityIconFactory
    {
    public:
        const char* getIconPath(EntityItem* /*item*/) override { return nullptr; }
    };
    NoPaths icons;
    model->setIcons(&icons);
    add(nullptr, "a");
    QVERIFY(model->index(0, 0).data(Qt::DecorationRole).value<QIcon>().isNull());
}

void tst_EntityModelReading::headersNameTheColumns()
{
    const auto header = [this](int section, Qt::Orientation orientation, int role) {
        return model->headerData(section, orientation, role);
    };
    QCOMPARE(header(0, Qt::Horizontal, Qt::DisplayRole), QVariant(EntityModel::tr("Name")));
    QCOMPARE(header(1, Qt::Horizontal, Qt::DisplayRole), QVariant(EntityModel::tr("Id")));
    QCOMPARE(model->headerData(0, Qt::Horizontal), QVariant("Name"));
    QVERIFY(!header(2, Qt::Horizontal, Qt::DisplayRole).isValid());
    QVERIFY(!header(-1, Qt::Horizontal, Qt::DisplayRole).isValid());
    for (const int section : {-1, 0, 1, 2}) {
        const QVariant order = header(section, Qt::Horizontal, Qt::InitialSortOrderRole);
        QCOMPARE(order, QVariant(int(Qt::AscendingOrder)));
        QCOMPARE(order.typeId(), int(QMetaType::Int));
        QVERIFY(!header(section, Qt::Vertical, Qt::InitialSortOrderRole).isValid());
        QVERIFY(!header(section, Qt::Vertical, Qt::DisplayRole).isValid());
        QVERIFY(!header(section, Qt::Horizontal, Qt::EditRole).isValid());
    }
}

void tst_EntityModelReading::flagsAreSelectableAndEnabledForAll()
{
    const Qt::ItemFlags base = Qt::ItemIsSelectable | Qt::ItemIsEnabled;
    QCOMPARE(model->flags(QModelIndex()), base);
    add(nullptr, "a");
    QCOMPARE(model->flags(model->index(0, 0)), base);
    QCOMPARE(model->flags(model->index(0, 1)), base);
}

void tst_EntityModelReading::editableItemIsEditableInTheNameColumn()
{
    EntityItemData data(4, 9);
    model->addEntity(nullptr, new SharedItem(&data, nullptr));
    const Qt::ItemFlags base = Qt::ItemIsSelectable | Qt::ItemIsEnabled;
    QCOMPARE(model->flags(model->index(0, 0)), base | Qt::ItemIsEditable);
    QCOMPARE(model->flags(model->index(0, 1)), base);
    model->clear();
}

void tst_EntityModelReading::editIsARequest()
{
    EntityItem* item = add(nullptr, "Surface 3");
    watch->take();
    QVERIFY(!model->setData(model->index(0, 0), "Lid"));
    QCOMPARE(watch->take(), QStringList{"nameEdited Surface 3: Lid"});
    QCOMPARE(item->getName(), "");
    QVERIFY2(!model->setData(model->index(0, 0), "Lid", Qt::DisplayRole), "any role will do");
    QCOMPARE(watch->take(), QStringList{"nameEdited Surface 3: Lid"});
    QVERIFY(!model->setData(model->index(0, 0), 12));
    QCOMPARE(watch->take(), QStringList{"nameEdited Surface 3: 12"});
}

void tst_EntityModelReading::editThatChangesNothingIsSilent_data()
{
    QTest::addColumn<int>("column");
    QTest::addColumn<QVariant>("value");
    QTest::newRow("the present name") << 0 << QVariant("Lid");
    QTest::newRow("in the id column") << 1 << QVariant("Other");
}

void tst_EntityModelReading::editThatChangesNothingIsSilent()
{
    QFETCH(int, column);
    QFETCH(QVariant, value);
    auto* item = new_item("label", 3);
    item->setName("Lid");
    model->addEntity(nullptr, item);
    watch->take();
    QVERIFY(!model->setData(model->index(0, column), value));
    QVERIFY(!model->setData(QModelIndex(), value));
    QCOMPARE(watch->take(), QStringList());
}

void tst_EntityModelReading::nameIsComparedNotTheTextShown()
{
    add(nullptr, "Surface 3");
    watch->take();
    model->setData(model->index(0, 0), "");
    QCOMPARE(watch->take(), QStringList());
    model->setData(model->index(0, 0), QVariant());
    QCOMPARE(watch->take(), QStringList());
    model->setData(model->index(0, 0), "Surface 3");
    QCOMPARE(watch->take(), QStringList{"nameEdited Surface 3: Surface 3"});
}

void tst_EntityModelReading::acceptedEditReachesTheView()
{
    auto* item = new_item("Surface 3");
    model->addEntity(nullptr, item);
    connect(model.get(), &EntityModel::nameEdited, watch.get(),
        [this](EntityItem* edited, const QString& name) {
            static_cast<SimpleItem*>(edited)->setName(name);
            model->updateEntity(edited);
        });
    watch->take();
    QVERIFY(!model->setData(model->index(0, 0), "Lid"));
    QCOMPARE(watch->take(), (QStringList{"nameEdited Surface 3: Lid", "dataChanged Lid"}));
}

void tst_EntityModelReading::newModelIsSortedByIdAscending()
{
    EntityItem* a = add(nullptr, "a");
    add(a, "x", 3);
    add(a, "y", 1);
    QCOMPARE(ModelWatch::tree(*model), "a(y x)");
    watch->take();
    model->sort(1, Qt::AscendingOrder);
    model->sort(1);
    QCOMPARE(watch->take(), QStringList());
}

void tst_EntityModelReading::sortOfTopLevelRowsKeepsTheirOrder()
{
    model->addEntity(nullptr, new EntityCategory("b", 1, 0, 0));
    model->addEntity(nullptr, new EntityCategory("a", 1, 1, 0));
    watch->take();
    model->sort(0, Qt::DescendingOrder);
    QCOMPARE(watch->take(), ModelWatch::layout("root"));
    model->sort(0, Qt::AscendingOrder);
    QCOMPARE(watch->take(), ModelWatch::layout("root"));
    QCOMPARE(ModelWatch::tree(*model), "b a");
}

void tst_EntityModelReading::repeatedSortIsSilent()
{
    EntityItem* a = add(nullptr, "a");
    auto* x = new_item("x", 1);
    model->addEntity(a, x);
    add(a, "y", 2);
    model->sort(0, Qt::DescendingOrder);
    QCOMPARE(ModelWatch::tree(*model), "a(y x)");
    x->setName("z");
    watch->take();
    model->sort(0, Qt::DescendingOrder);
    QCOMPARE(watch->take(), QStringList());
    QVERIFY2(ModelWatch::tree(*model) == "a(y z)", "there is no forcing of a sort");
}

void tst_EntityModelReading::everyParentIsSortedFromTheTopDown()
{
    EntityItem* a = add(nullptr, "a");
    EntityItem* b = add(a, "b", 2);
    EntityItem* c = add(a, "c", 1);
    add(b, "b1", 1);
    add(b, "b2", 2);
    add(c, "c1", 1);
    EntityItem* d = add(nullptr, "d");
    add(d, "d1", 2);
    add(d, "d2", 1);
    QCOMPARE(ModelWatch::tree(*model), "d(d2 d1) a(c(c1) b(b1 b2))");
    watch->take();

    model->sort(0, Qt::DescendingOrder);

    QCOMPARE(ModelWatch::tree(*model), "d(d2 d1) a(c(c1) b(b2 b1))");
    QCOMPARE(watch->take(), ModelWatch::layout("root") + ModelWatch::layout("d") +
                                ModelWatch::layout("a") + ModelWatch::layout("c") +
                                ModelWatch::layout("b"));

    model->sort(0, Qt::AscendingOrder);

    QCOMPARE(ModelWatch::tree(*model), "d(d1 d2) a(b(b1 b2) c(c1))");
    QVERIFY2(watch->take() == ModelWatch::layout("root") + ModelWatch::layout("d") +
                                  ModelWatch::layout("a") + ModelWatch::layout("b") +
                                  ModelWatch::layout("c"),
        "the walk goes on in the new order");
}

void tst_EntityModelReading::columnsBeyondTheTwoSortById()
{
    EntityItem* a = add(nullptr, "a");
    add(a, "x", 3);
    add(a, "y", 1);
    watch->take();
    model->sort(-1, Qt::DescendingOrder);
    QCOMPARE(watch->take(), ModelWatch::layout("root") + ModelWatch::layout("a"));
    QCOMPARE(ModelWatch::tree(*model), "a(x y)");
}

void tst_EntityModelReading::sortedRowsAreFollowedInTheNameColumnOnly()
{
    EntityItem* a = add(nullptr, "a");
    EntityItem* x = add(a, "x", 1);
    add(a, "y", 2);
    add(x, "x1", 1);
    EntityItem* x2 = add(x, "x2", 2);
    const QPersistentModelIndex row(model->index(x));
    const QPersistentModelIndex deep_row(model->index(x2));
    const QPersistentModelIndex top(model->index(a));
    const QPersistentModelIndex id_cell(model->index(x).siblingAtColumn(1));

    model->sort(0, Qt::DescendingOrder);

    QCOMPARE(ModelWatch::tree(*model), "a(y x(x2 x1))");
    QCOMPARE(QModelIndex(row), model->index(x));
    QCOMPARE(row.row(), 1);
    QCOMPARE(QModelIndex(deep_row), model->index(x2));
    QCOMPARE(deep_row.row(), 0);
    QCOMPARE(top.row(), 0);
    QVERIFY2(id_cell.row() == 0, "indexes in the id column stay where they are");
}

void tst_EntityModelReading::readersSeeASoundTreeWhileSorting()
{
    EntityItem* a = add(nullptr, "a");
    EntityItem* b = add(a, "b", 1);
    add(a, "c", 2);
    add(b, "b1", 1);
    add(b, "b2", 2);
    watch->take();

    model->sort(0, Qt::DescendingOrder);

    const QString before = "a(b(b1 b2) c)";
    const QString parent_sorted = "a(c b(b1 b2))";
    QCOMPARE(watch->trees(),
        (QStringList{before, before, before, parent_sorted, parent_sorted, "a(c b(b2 b1))"}));
}

void tst_EntityModelReading::rowsThatMoveDuringASortAreStillFound()
{
    EntityItem* a = add(nullptr, "a");
    EntityItem* b = add(a, "b", 5);
    add(b, "b1", 1);
    add(b, "b2", 2);
    EntityItem* c = add(a, "c", 6);
    add(c, "c1", 1);
    connect(model.get(), &QAbstractItemModel::layoutChanged, watch.get(),
        [this, a](const QList<QPersistentModelIndex>& parents) {
            if (parents.first().data() == "b") {
                add(a, "aa", 7);
            }
        });
    watch->take();

    model->sort(0, Qt::AscendingOrder);

    QCOMPARE(ModelWatch::tree(*model), "a(aa b(b1 b2) c(c1))");
    QCOMPARE(watch->take(), ModelWatch::layout("root") + ModelWatch::layout("a") +
                                ModelWatch::layout("b") + ModelWatch::insertion("a", 0) +
                                ModelWatch::layout("c"));
}

void tst_EntityModelReading::rowThatMovesDownDuringASortIsLeftForTheNextOfItsNewParents()
{
    EntityItem* a = add(nullptr, "a");
    EntityItem* b = add(a, "b", 1);
    add(b, "b1");
    EntityItem* c = add(a, "c", 2);
    EntityItem* d = add(c, "d");
    add(d, "d1");
    EntityItem* e = add(a, "e", 3);
    add(e, "e2", 1);
    add(e, "e1", 2);
    connect(model.get(), &QAbstractItemModel::layoutChanged, watch.get(),
        [this, b, d](const QList<QPersistentModelIndex>& parents) {
            if (parents.first().data() == "b") {
                model->moveEntity(b, d);
            }
        });
    watch->take();

    model->sort(0, Qt::AscendingOrder);

    QCOMPARE(ModelWatch::tree(*model), "a(c(d(b(b1) d1)) e(e1 e2))");
    QCOMPARE(watch->take(), ModelWatch::layout("root") + ModelWatch::layout("a") +
                                ModelWatch::layout("b") + ModelWatch::move("a", 0, "d", 0) +
                                ModelWatch::layout("e"));
}

void tst_EntityModelReading::sortEndsWithARowThatIsHiddenMeanwhile()
{
    for (const char* name : {"z", "y"}) {
        EntityItem* parent = add(nullptr, name);
        add(parent, "2", 1);
        add(parent, "1", 2);
    }
    EntityItem* y = model->getEntity(model->index(0, 0));
    QCOMPARE(ModelWatch::tree(*model), "y(2 1) z(2 1)");
    connect(model.get(), &QAbstractItemModel::layoutChanged, watch.get(),
        [this, y](const QList<QPersistentModelIndex>& parents) {
            if (parents.first().data() == "y") {
                model->hideCategory(y);
            }
        });
    watch->take();

    model->sort(0, Qt::AscendingOrder);

    QCOMPARE(ModelWatch::tree(*model), "z(2 1)");
    QCOMPARE(shown_children(*y), "1 2");
    QCOMPARE(watch->take(),
        ModelWatch::layout("root") + ModelWatch::layout("y") + ModelWatch::removal("root", 0, 0));
}

void tst_EntityModelReading::hiddenSubtreeKeepsItsOrder()
{
    EntityItem* a = add(nullptr, "a");
    add(a, "x", 1);
    add(a, "y", 2);
    model->hideCategory(a);
    model->sort(0, Qt::DescendingOrder);
    QCOMPARE(shown_children(*a), "x y");
    model->showCategory(a);
    QCOMPARE(ModelWatch::tree(*model), "a(x y)");
    model->sort(1, Qt::DescendingOrder);
    QCOMPARE(ModelWatch::tree(*model), "a(y x)");
}

void tst_EntityModelReading::wideTreeIsSortedWithoutSearching()
{
    watch.reset();
    constexpr int count = 200'000;
    EntityItem* a = new_item("a", 0, 1, new SortedEntityList);
    for (int i = 0; i < count; ++i) {
        auto* row = new_item(QString::number(i), i, 1, new SortedEntityList);
        append_children(*row, {new_item("leaf")});
        append_children(*a, {row});
    }
    model->addEntity(nullptr, a);
    int signals_seen = 0;
    connect(model.get(), &QAbstractItemModel::layoutChanged, model.get(),
        [&signals_seen] { ++signals_seen; });
    QElapsedTimer clock;
    clock.start();
    model->sort(0);
    // Searched for, the rows would cost some 10^10 comparisons.
    QVERIFY2(clock.elapsed() < 8000, qPrintable(QString("%1 ms").arg(clock.elapsed())));
    QCOMPARE(signals_seen, count + 2);
}

QTEST_MAIN(tst_EntityModelReading)
#include "tst_EntityModelReading.moc"
