#include "TestItems.hpp"

#include <limits>
#include <QTest>
#include <treemodel/entity/EntityTypeRange.hpp>

namespace {

class Client : public EntityCategoryManager
{
public:
    EntityTypeRange& types() { return type_range; }
};

} // namespace

class tst_EntityTypeRange : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void newTableIsEmpty();
    void blocksFollowOneAnother();
    void shiftMovesBlocksOfNowAndLater();
    void shiftsAddUp();
    void missingBlockAnswersForTheTable();
    void blockHoldsItsNumbersAlone_data();
    void blockHoldsItsNumbersAlone();
    void emptyBlockStandsAndHoldsNothing();
    void failedSearchLeavesTheNumberOfBlocks();

    void managerStartsWithoutTypes();
    void managerOffsetIsAddedNotAssigned();
    void managerOffersNoViews();
    void managerCopiesItsTypes();

    void categoryKnowsItsPlace();
    void categoryIsAPlainRowOtherwise();
    void categoryTakesChildrenOnceItHasAList();
    void categoryCopiesMemberByMember();
};

void tst_EntityTypeRange::newTableIsEmpty()
{
    const EntityTypeRange table;
    std::size_t i = 9;
    QCOMPARE(table.get_number_of_ranges(), 0U);
    QCOMPARE(table.next_offset(), 0);
    QCOMPARE(table.next_offset(0), 0);
    QCOMPARE(table.offset(0), 0);
    QVERIFY(!table.in_range(0, 0));
    QVERIFY(!table.get_range(0, i));
    QCOMPARE(i, 0U);
}

void tst_EntityTypeRange::blocksFollowOneAnother()
{
    EntityTypeRange table;
    table.add_range(5);
    table.add_range(3);
    QCOMPARE(table.get_number_of_ranges(), 2U);
    QCOMPARE(table.offset(0), 0);
    QCOMPARE(table.next_offset(0), 5);
    QCOMPARE(table.offset(1), 5);
    QCOMPARE(table.next_offset(1), 8);
    QCOMPARE(table.next_offset(), 8);
}

void tst_EntityTypeRange::shiftMovesBlocksOfNowAndLater()
{
    EntityTypeRange table;
    table.add_range(5);
    table.add_range(3);
    table.offset_ranges(100);
    QCOMPARE(table.offset(0), 100);
    QCOMPARE(table.offset(1), 105);
    QCOMPARE(table.next_offset(), 108);
    std::size_t i = 0;
    QVERIFY(table.get_range(106, i));
    QCOMPARE(i, 1U);

    EntityTypeRange empty;
    empty.offset_ranges(7);
    QCOMPARE(empty.next_offset(), 7);
    empty.add_range(2);
    QCOMPARE(empty.offset(0), 7);
    QCOMPARE(empty.next_offset(), 9);
}

void tst_EntityTypeRange::shiftsAddUp()
{
    EntityTypeRange table;
    table.add_range(2);
    table.offset_ranges(10);
    table.offset_ranges(-15);
    QCOMPARE(table.offset(0), -5);
    QCOMPARE(table.offset(1), -5);
    QVERIFY(table.in_range(-4, 0));
}

void tst_EntityTypeRange::missingBlockAnswersForTheTable()
{
    EntityTypeRange table;
    table.offset_ranges(4);
    table.add_range(5);
    table.add_range(3);
    QCOMPARE(table.offset(9), 4);
    QCOMPARE(table.offset(2), 4);
    QCOMPARE(table.next_offset(9), table.next_offset());
    QVERIFY(!table.in_range(5, 2));
    QVERIFY(!table.in_range(5, std::numeric_limits<std::size_t>::max()));
}

void tst_EntityTypeRange::blockHoldsItsNumbersAlone_data()
{
    QTest::addColumn<int>("type");
    QTest::addColumn<bool>("held");
    QTest::addColumn<std::size_t>("block");
    QTest::newRow("before the first") << -1 << false << std::size_t(2);
    QTest::newRow("first of the first") << 0 << true << std::size_t(0);
    QTest::newRow("last of the first") << 4 << true << std::size_t(0);
    QTest::newRow("first of the second") << 5 << true << std::size_t(1);
    QTest::newRow("last of the second") << 7 << true << std::size_t(1);
    QTest::newRow("behind the last") << 8 << false << std::size_t(2);
}

void tst_EntityTypeRange::blockHoldsItsNumbersAlone()
{
    QFETCH(int, type);
    QFETCH(bool, held);
    QFETCH(std::size_t, block);
    EntityTypeRange table;
    table.add_range(5);
    table.add_range(3);
    std::size_t i = 77;
    QCOMPARE(table.get_range(type, i), held);
    QCOMPARE(i, block);
    QCOMPARE(table.in_range(type, 0), held && block == 0);
    QCOMPARE(table.in_range(type, 1), held && block == 1);
}

void tst_EntityTypeRange::emptyBlockStandsAndHoldsNothing()
{
    EntityTypeRange table;
    table.add_range(0);
    table.add_range(2);
    QCOMPARE(table.get_number_of_ranges(), 2U);
    QCOMPARE(table.offset(1), 0);
    QVERIFY(!table.in_range(0, 0));
    std::size_t i = 0;
    QVERIFY(table.get_range(0, i));
    QCOMPARE(i, 1U);
}

void tst_EntityTypeRange::failedSearchLeavesTheNumberOfBlocks()
{
    EntityTypeRange table;
    table.add_range(1);
    table.add_range(1);
    table.add_range(1);
    std::size_t i = 0;
    QVERIFY(!table.get_range(3, i));
    QCOMPARE(i, table.get_number_of_ranges());
}

void tst_EntityTypeRange::managerStartsWithoutTypes()
{
    Client client;
    QCOMPARE(client.types().get_number_of_ranges(), 0U);
    QCOMPARE(client.types().next_offset(), 0);
}

void tst_EntityTypeRange::managerOffsetIsAddedNotAssigned()
{
    Client client;
    client.types().add_range(2);
    client.set_offset(10);
    client.set_offset(10);
    QCOMPARE(client.types().offset(0), 20);
    client.set_offset(-25);
    QCOMPARE(client.types().offset(0), -5);
    QCOMPARE(client.types().offset(9), -5);
}

void tst_EntityTypeRange::managerOffersNoViews()
{
    Client client;
    QCOMPARE(client.get_number_of_views(), 0);
    QString label = "as it was";
    client.get_view_label(0, label);
    QCOMPARE(label, "as it was");
    for (const bool given : {true, false}) {
        bool flag = given;
        QCOMPARE(client.create_view_widget(0, flag), nullptr);
        QCOMPARE(flag, given);
    }
    client.activate_view(0, nullptr, {});
    client.deactivate_view(0);
    QCOMPARE(client.types().get_number_of_ranges(), 0U);
}

void tst_EntityTypeRange::managerCopiesItsTypes()
{
    Client client;
    client.types().add_range(2);
    Client copy(client);
    client.set_offset(5);
    QCOMPARE(copy.types().offset(0), 0);
    copy = client;
    QCOMPARE(copy.types().offset(0), 5);
}

void tst_EntityTypeRange::categoryKnowsItsPlace()
{
    const EntityCategory category("Groups", 3, 2, -6);
    QCOMPARE(category.getCategory(), 2);
    QCOMPARE(category.getPreferredIndex(), -6);
}

void tst_EntityTypeRange::categoryIsAPlainRowOtherwise()
{
    EntityCategory category("Groups", 3, 2, 1);
    QCOMPARE(category.getDisplayName(), "Groups");
    QCOMPARE(category.getName(), QString());
    QCOMPARE(category.getType(), 3);
    QCOMPARE(category.getId(), 0);
    QVERIFY(!category.isEditable());
    QCOMPARE(category.getList(), nullptr);
    QCOMPARE(category.childCount(), 0);
    QCOMPARE(category.getParentEntity(), nullptr);
    QVERIFY(category.isVisible());
    category.setEditable(true);
    category.setId(4);
    QVERIFY(category.isEditable());
    QCOMPARE(category.getId(), 4);
}

void tst_EntityTypeRange::categoryTakesChildrenOnceItHasAList()
{
    QStringList deaths;
    EntityCategory category("Groups", 3, 2, 1);
    QCOMPARE(category.insertChild(0, new_mortal(deaths, "lost")), nullptr);
    QCOMPARE(deaths, QStringList{"lost"});
    category.setList(new EntityItemList);
    QVERIFY(category.insertChild(0, new_item("kept")));
    QCOMPARE(shown_children(category), "kept");
}

void tst_EntityTypeRange::categoryCopiesMemberByMember()
{
    const EntityCategory category("Groups", 3, 2, 1);
    EntityCategory copy(category);
    QCOMPARE(copy.getCategory(), 2);
    QCOMPARE(copy.getPreferredIndex(), 1);
    QCOMPARE(copy.getDisplayName(), "Groups");
    copy = EntityCategory("Blocks", 4, 5, 6);
    QCOMPARE(copy.getCategory(), 5);
    QCOMPARE(copy.getType(), 4);
    QCOMPARE(category.getCategory(), 2);
}

QTEST_GUILESS_MAIN(tst_EntityTypeRange)
#include "tst_EntityTypeRange.moc"
