#include "TestItems.hpp"

#include <memory>
#include <QTest>
#include <treemodel/entity/KestoSelection.hpp>

namespace {

using TypeAndId = std::pair<int, int>;

/// Names types "type 3" and counts how often it is asked. One string serves all
/// answers, so that a caller that keeps the reference is found out.
class TypeNames : public EntityModelInterface
{
public:
    void update_item(EntityItem* /*item*/) override {}
    const std::string& get_type_name(int type) override
    {
        ++questions;
        m_name = "type " + std::to_string(type);
        return m_name;
    }

    int questions = 0;

private:
    std::string m_name;
};

/// The records as "name/type: ids; ...".
QString text_of(const KestoSelection& selection)
{
    QStringList records;
    selection.iterate([&records](const KestoTypeSelection& record) {
        QStringList ids;
        for (const int id : record.ids) {
            ids.append(QString::number(id));
        }
        records.append(QString("%1/%2: %3")
                           .arg(QString::fromStdString(record.type_name))
                           .arg(record.type)
                           .arg(ids.join(' ')));
    });
    return records.join("; ");
}

/// Items over data objects of these types and ids, so that both forms of a conversion
/// can be asked about one input.
class Input
{
public:
    explicit Input(std::initializer_list<TypeAndId> input)
    {
        for (const auto& [type, id] : input) {
            m_data.push_back(std::make_unique<EntityItemData>(type, id));
            data.push_back(m_data.back().get());
            m_items.push_back(std::make_unique<SharedItem>(data.back(), nullptr));
            items.push_back(m_items.back().get());
        }
    }

    std::vector<EntityItem*> items;
    std::vector<EntityItemData*> data;

private:
    std::vector<std::unique_ptr<EntityItemData>> m_data;
    std::vector<std::unique_ptr<SharedItem>> m_items;
};

} // namespace

class tst_KestoSelection : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void idListTakesIdsAsTheyAre();
    void idListAppends();
    void uniqueIdListIsSorted_data();
    void uniqueIdListIsSorted();
    void typeSelectionStartsWithoutIds();

    void newSelectionIsEmpty();
    void firstEntityOfATypeOpensARecord();
    void sizeCountsIdsNotRecords();
    void firstRecordOfATypeIsFound();
    void recordsAreVisitedInOrder();
    void recordsAreVisitedBetweenBounds_data();
    void recordsAreVisitedBetweenBounds();
    void firstRecordOfATypeIsNamed();
    void allRecordsOfATypeAreRemoved();
    void offsetIsSubtractedEverywhere();
    void selectionCopiesAsAValue();

    void itemsBecomeRecords_data();
    void itemsBecomeRecords();
    void conversionAppendsWithoutMerging();
    void typelessItemsGoToThePresentRecord();
    void emptyConversionSetsTheOwnerAlone();
    void idsOfATypeAreAppended();
};

void tst_KestoSelection::idListTakesIdsAsTheyAre()
{
    QVERIFY(KestoIdList().ids.empty());
    const std::vector<int> ids{3, 1, 3};
    QCOMPARE(KestoIdList(ids).ids, ids);
    QCOMPARE(KestoIdList(std::vector<int>{2, 2}).ids, (std::vector<int>{2, 2}));
}

void tst_KestoSelection::idListAppends()
{
    KestoIdList list(std::vector<int>{1});
    list.add_ids(std::vector<int>{5, 1});
    list.add_ids(std::vector<std::vector<int>>{{9, 5}, {}, {1}});
    QCOMPARE(list.ids, (std::vector<int>{1, 5, 1, 9, 5, 1}));
}

void tst_KestoSelection::uniqueIdListIsSorted_data()
{
    QTest::addColumn<std::vector<int>>("ids");
    QTest::addColumn<std::vector<int>>("unique");
    QTest::newRow("empty") << std::vector<int>{} << std::vector<int>{};
    QTest::newRow("twice, apart") << std::vector<int>{3, 1, 3, 2} << std::vector<int>{1, 2, 3};
    QTest::newRow("below zero") << std::vector<int>{0, -1, -5, -1} << std::vector<int>{-5, -1, 0};
    QTest::newRow("all the same") << std::vector<int>{4, 4, 4} << std::vector<int>{4};
}

void tst_KestoSelection::uniqueIdListIsSorted()
{
    QFETCH(std::vector<int>, ids);
    QFETCH(std::vector<int>, unique);
    KestoIdList list(ids);
    list.make_unique();
    QCOMPARE(list.ids, unique);
}

void tst_KestoSelection::typeSelectionStartsWithoutIds()
{
    const KestoTypeSelection untyped;
    QCOMPARE(untyped.type, -1);
    QVERIFY(untyped.type_name.empty());
    QVERIFY(untyped.ids.empty());
    QCOMPARE(KestoTypeSelection(4).type, 4);
    const KestoTypeSelection named("surface", 7);
    QCOMPARE(named.type, 7);
    QCOMPARE(named.type_name, std::string("surface"));
    QVERIFY(named.ids.empty());
}

void tst_KestoSelection::newSelectionIsEmpty()
{
    const KestoSelection selection;
    QCOMPARE(selection.size(), 0U);
    QCOMPARE(selection.owner_type, -1);
    QCOMPARE(selection.owner_id, -1);
    QCOMPARE(selection.get_list(0), nullptr);
    QCOMPARE(selection.get_list(-1), nullptr);
}

void tst_KestoSelection::firstEntityOfATypeOpensARecord()
{
    KestoSelection selection;
    QVERIFY(selection.add_entity(3, 1));
    QVERIFY(!selection.add_entity(3, 2));
    QVERIFY(!selection.add_entity(3, 2));
    QVERIFY(selection.add_entity(1, 2));
    QCOMPARE(text_of(selection), "/3: 1 2 2; /1: 2");
}

void tst_KestoSelection::sizeCountsIdsNotRecords()
{
    KestoSelection selection;
    selection.add_entity(3, 1);
    selection.add_entity(3, 1);
    selection.add_entity(4, 1);
    selection.lists.emplace_back(5);
    QCOMPARE(selection.size(), 3U);
}

void tst_KestoSelection::firstRecordOfATypeIsFound()
{
    KestoSelection selection;
    selection.lists = {KestoTypeSelection(1), KestoTypeSelection(2), KestoTypeSelection(2)};
    QCOMPARE(selection.get_list(2), &selection.lists[1]);
    QCOMPARE(selection.get_list(3), nullptr);
    selection.add_entity(2, 8);
    QCOMPARE(text_of(selection), "/1: ; /2: 8; /2: ");
}

void tst_KestoSelection::recordsAreVisitedInOrder()
{
    KestoSelection selection;
    selection.lists = {KestoTypeSelection("b", 2), KestoTypeSelection("a", 1)};
    QString names;
    selection.iterate([&names](const KestoTypeSelection& record) {
        names += QString::fromStdString(record.type_name);
    });
    QCOMPARE(names, "ba");
}

void tst_KestoSelection::recordsAreVisitedBetweenBounds_data()
{
    QTest::addColumn<int>("first");
    QTest::addColumn<int>("last");
    QTest::addColumn<QString>("visited");
    QTest::newRow("one type") << 2 << 2 << "2 2";
    QTest::newRow("both bounds included") << 2 << 4 << "4 2 2";
    QTest::newRow("all") << -100 << 100 << "4 -1 2 9 2";
    QTest::newRow("bounds the wrong way round") << 5 << 2 << "";
    QTest::newRow("between types") << 5 << 8 << "";
}

void tst_KestoSelection::recordsAreVisitedBetweenBounds()
{
    QFETCH(int, first);
    QFETCH(int, last);
    QFETCH(QString, visited);
    KestoSelection selection;
    selection.lists = {4, -1, 2, 9, 2};
    QStringList types;
    selection.iterate(first, last,
        [&types](const KestoTypeSelection& record) { types.append(QString::number(record.type)); });
    QCOMPARE(types.join(' '), visited);
}

void tst_KestoSelection::firstRecordOfATypeIsNamed()
{
    KestoSelection selection;
    selection.lists = {1, 2, 2};
    selection.set_type_name(2, "curve");
    selection.set_type_name(5, "nothing");
    QCOMPARE(text_of(selection), "/1: ; curve/2: ; /2: ");
}

void tst_KestoSelection::allRecordsOfATypeAreRemoved()
{
    KestoSelection selection;
    selection.lists = {4, 3, 4, 1};
    selection.remove_entities(4);
    QCOMPARE(text_of(selection), "/3: ; /1: ");
    selection.remove_entities(4);
    QCOMPARE(text_of(selection), "/3: ; /1: ");
}

void tst_KestoSelection::offsetIsSubtractedEverywhere()
{
    KestoSelection selection;
    selection.add_entity(12, 12);
    selection.add_entity(13, 1);
    selection.set_type_name(12, "volume");
    selection.remove_type_offset(10);
    QCOMPARE(text_of(selection), "volume/2: 12; /3: 1");
    QCOMPARE(selection.owner_type, -11);
    QCOMPARE(selection.owner_id, -1);
    selection.remove_type_offset(-1);
    QCOMPARE(selection.owner_type, -10);
}

void tst_KestoSelection::selectionCopiesAsAValue()
{
    KestoSelection selection;
    selection.add_entity(1, 2);
    KestoSelection copy = selection;
    copy.add_entity(1, 3);
    QCOMPARE(text_of(selection), "/1: 2");
    const KestoSelection moved = std::move(copy);
    QCOMPARE(text_of(moved), "/1: 2 3");
}

void tst_KestoSelection::itemsBecomeRecords_data()
{
    using Pairs = std::vector<TypeAndId>;
    QTest::addColumn<Pairs>("input");
    QTest::addColumn<QString>("records");
    QTest::addColumn<int>("questions");
    QTest::newRow("neighbours that are equal go once")
        << Pairs{{1, 5}, {1, 5}, {1, 6}, {1, 5}} << "type 1/1: 5 6 5" << 1;
    QTest::newRow("each run is a record")
        << Pairs{{1, 5}, {2, 5}, {1, 5}} << "type 1/1: 5; type 2/2: 5; type 1/1: 5" << 3;
    QTest::newRow("leading -1 of a run goes")
        << Pairs{{1, -1}, {1, 5}, {1, -1}, {2, -1}} << "type 1/1: 5 -1; type 2/2: " << 2;
    QTest::newRow("zero is an id") << Pairs{{0, 0}} << "type 0/0: 0" << 1;
    QTest::newRow("type -1 behind another")
        << Pairs{{1, 5}, {-1, 6}} << "type 1/1: 5; type -1/-1: 6" << 2;
}

void tst_KestoSelection::itemsBecomeRecords()
{
    QFETCH(std::vector<TypeAndId>, input);
    QFETCH(QString, records);
    QFETCH(int, questions);
    Input given({});
    std::vector<std::unique_ptr<Input>> parts;
    for (const TypeAndId& pair : input) {
        parts.push_back(std::make_unique<Input>(std::initializer_list<TypeAndId>{pair}));
        given.items.push_back(parts.back()->items.front());
        given.data.push_back(parts.back()->data.front());
    }
    EntityItemData owner(8, 80);
    const SharedItem owner_item(&owner, nullptr);

    TypeNames names;
    KestoSelection from_items;
    convert_tree_selection(&names, &owner_item, given.items, from_items);
    QCOMPARE(text_of(from_items), records);
    QCOMPARE(from_items.owner_type, 8);
    QCOMPARE(from_items.owner_id, 80);
    QCOMPARE(names.questions, questions);

    KestoSelection from_data;
    convert_tree_selection(&names, &owner, given.data, from_data);
    QCOMPARE(text_of(from_data), records);
    QCOMPARE(from_data.owner_type, 8);
    QCOMPARE(from_data.owner_id, 80);
    QCOMPARE(names.questions, 2 * questions);
}

void tst_KestoSelection::conversionAppendsWithoutMerging()
{
    const Input input{{1, 5}};
    TypeNames names;
    KestoSelection selection;
    selection.add_entity(1, 5);
    convert_tree_selection(&names, input.items.front(), input.items, selection);
    convert_tree_selection(&names, input.data.front(), input.data, selection);
    QCOMPARE(text_of(selection), "/1: 5; type 1/1: 5; type 1/1: 5");
}

void tst_KestoSelection::typelessItemsGoToThePresentRecord()
{
    const Input input{{-1, 5}, {-1, 6}, {2, 7}};
    TypeNames names;
    KestoSelection selection;
    selection.add_entity(4, 1);
    convert_tree_selection(&names, input.items.front(), input.items, selection);
    QCOMPARE(text_of(selection), "/4: 1 5 6; type 2/2: 7");
    QCOMPARE(names.questions, 1);
}

void tst_KestoSelection::emptyConversionSetsTheOwnerAlone()
{
    EntityItemData owner(8, 80);
    const SharedItem owner_item(&owner, nullptr);
    KestoSelection selection;
    convert_tree_selection(nullptr, &owner_item, {}, selection);
    QCOMPARE(selection.owner_type, 8);
    QCOMPARE(selection.owner_id, 80);
    QVERIFY(selection.lists.empty());

    KestoSelection other;
    convert_tree_selection(nullptr, &owner, {}, other);
    QCOMPARE(other.owner_type, 8);
    QCOMPARE(other.owner_id, 80);
    QVERIFY(other.lists.empty());
}

void tst_KestoSelection::idsOfATypeAreAppended()
{
    const Input input{{1, 5}, {2, 6}, {1, -7}, {1, 5}};
    std::vector<int> ids{9};
    get_tree_entity_ids(input.items, 1, ids);
    QCOMPARE(ids, (std::vector<int>{9, 5, -7, 5}));
    get_tree_entity_ids(input.items, 3, ids);
    QCOMPARE(ids.size(), 4U);

    QList<QString> texts{"9"};
    get_tree_entity_ids(input.items, 1, texts);
    QCOMPARE(texts, (QList<QString>{"9", "5", "-7", "5"}));
    get_tree_entity_ids(input.items, 3, texts);
    QCOMPARE(texts.size(), 4);
}

QTEST_GUILESS_MAIN(tst_KestoSelection)
#include "tst_KestoSelection.moc"
