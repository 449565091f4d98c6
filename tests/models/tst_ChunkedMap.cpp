// The ordered containers of the models, against the standard library's.

#include <algorithm>
#include <climits>
#include <map>
#include <memory>
#include <numeric>
#include <QTest>
#include <random>
#include <set>
#include <treemodel/models/ChunkedMap.hpp>
#include <treemodel/models/LinkMap.hpp>
#include <treemodel/models/PointerSet.hpp>

namespace {

using IdMap = ChunkedMap<int, int>;

std::vector<int> keys_of(const std::map<int, int>& map)
{
    std::vector<int> result;
    for (const auto& [key, value] : map) {
        result.push_back(key);
    }
    return result;
}

std::vector<int> values_of(const std::map<int, int>& map)
{
    std::vector<int> result;
    for (const auto& [key, value] : map) {
        result.push_back(value);
    }
    return result;
}

} // namespace

class tst_ChunkedMap : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void emptyMapHasNothing()
    {
        IdMap map;
        QVERIFY(map.is_empty());
        QCOMPARE(map.size(), std::size_t(0));
        QVERIFY(!map.find(0));
        QCOMPARE(map.value(1), 0);
        QCOMPARE(map.take(1), 0);
        QVERIFY(!map.erase(1));
        QVERIFY(map.keys().empty());
    }

    void insertionOfAPresentKeyKeepsItsValue()
    {
        IdMap map;
        QVERIFY(map.insert(7, 70).second);
        const auto [value, is_new] = map.insert(7, 71);
        QVERIFY(!is_new);
        QCOMPARE(*value, 70);
        QCOMPARE(map.size(), std::size_t(1));
    }

    void takenKeyIsGone()
    {
        IdMap map;
        map.insert(7, 70);
        QCOMPARE(map.take(7), 70);
        QVERIFY(!map.find(7));
        QVERIFY(map.is_empty());
        QVERIFY2(map.insert(7, 71).second, "a taken key can come back");
    }

    void filledMapIsInOrder_data()
    {
        QTest::addColumn<std::vector<int>>("keys");

        std::vector<int> counting(3000);
        std::iota(counting.begin(), counting.end(), 1);
        QTest::newRow("ascending") << counting;
        std::vector<int> descending(counting.rbegin(), counting.rend());
        QTest::newRow("descending") << descending;
        std::vector<int> shuffled = counting;
        std::shuffle(shuffled.begin(), shuffled.end(), std::mt19937(1));
        QTest::newRow("shuffled") << shuffled;
        std::vector<int> sparse = shuffled;
        for (int& key : sparse) {
            key *= 700'000;
        }
        QTest::newRow("sparse") << sparse;
        std::vector<int> gap = counting;
        std::replace_if(
            gap.begin(), gap.end(), [](int key) { return key > 600; }, 1'000'000);
        for (std::size_t index = 600; index < gap.size(); ++index) {
            gap[index] -= int(index);
        }
        QTest::newRow("downwards into a gap") << gap;
        QTest::newRow("extremes") << std::vector<int>{
            0, INT_MAX, INT_MIN, -1, 1, INT_MAX - 1, INT_MIN + 1};
    }

    void filledMapIsInOrder()
    {
        QFETCH(std::vector<int>, keys);

        IdMap map;
        std::map<int, int> expected;
        for (const int key : keys) {
            map.insert(key, key / 2);
            expected.emplace(key, key / 2);
        }

        QCOMPARE(map.keys(), keys_of(expected));
        QCOMPARE(map.values(), values_of(expected));
        for (const int key : keys) {
            QVERIFY2(map.find(key), qPrintable(QString("%1 is not found").arg(key)));
            QCOMPARE(map.value(key), key / 2);
        }
    }

    void randomLivesMatchAStandardMap_data()
    {
        QTest::addColumn<int>("range");
        QTest::newRow("one chunk") << 100;
        QTest::newRow("some chunks, mostly filled") << 2000;
        QTest::newRow("sparse") << 2'000'000;
    }

    void randomLivesMatchAStandardMap()
    {
        QFETCH(int, range);

        std::mt19937 random{unsigned(range)};
        IdMap map;
        std::map<int, int> expected;
        for (int step = 0; step < 20'000; ++step) {
            const int key = int(random() % unsigned(range)) - range / 2;
            if (random() % 5 < (step < 12'000 ? 3u : 1u)) {
                QCOMPARE(map.insert(key, step).second, expected.emplace(key, step).second);
            } else {
                QCOMPARE(map.erase(key), expected.erase(key) > 0);
            }
            const auto found = expected.find(key);
            QCOMPARE(map.value(key), found == expected.end() ? 0 : found->second);
            QCOMPARE(map.size(), expected.size());
        }
        QCOMPARE(map.keys(), keys_of(expected));
        QCOMPARE(map.values(), values_of(expected));
    }

    void valuesThatOnlyMoveAreKept()
    {
        ChunkedMap<int, std::unique_ptr<int>> map;
        for (int key = 2000; key > 0; --key) {
            map.insert(key, std::make_unique<int>(key));
        }
        map.erase(1000);
        for (int key = 1; key <= 2000; ++key) {
            const std::unique_ptr<int>* value = map.find(key);
            QCOMPARE(value != nullptr, key != 1000);
            QVERIFY(!value || **value == key);
        }
    }

    void pointerSetIsInTheOrderOfAddresses_data()
    {
        QTest::addColumn<int>("count");
        for (const int count : {0, 1, 5, 6, 7, 8, 1000}) {
            QTest::addRow("%d", count) << count;
        }
    }

    void pointerSetIsInTheOrderOfAddresses()
    {
        QFETCH(int, count);

        std::vector<int> pool(1000);
        std::vector<int*> pointers;
        for (int index = 0; index < count; ++index) {
            pointers.push_back(&pool[std::size_t(index * 377 % 1000)]);
        }
        PointerSet<int> set;
        for (int* pointer : pointers) {
            QVERIFY(set.insert(pointer));
            QVERIFY2(!set.insert(pointer), "the second time it is there");
        }
        std::sort(pointers.begin(), pointers.end());

        QCOMPARE(set.to_vector(), pointers);
        QCOMPARE(set.is_empty(), count == 0);
        std::vector<int*> visited;
        set.for_each([&visited](int* pointer) { visited.push_back(pointer); });
        QCOMPARE(visited, pointers);

        for (int* pointer : pointers) {
            QVERIFY(set.erase(pointer));
            QVERIFY2(!set.erase(pointer), "the second time it is gone");
        }
        QVERIFY(set.is_empty());
        QVERIFY(set.to_vector().empty());
    }

    void setMovesWithItsPointers()
    {
        std::vector<int> pool(20);
        for (const std::size_t count : {std::size_t(3), std::size_t(20)}) {
            PointerSet<int> set;
            for (std::size_t index = 0; index < count; ++index) {
                set.insert(&pool[index]);
            }
            const PointerSet<int> moved = std::move(set);
            QCOMPARE(moved.to_vector().size(), count);
        }
    }

    void linksMatchAStandardMapOfSets()
    {
        std::vector<int> from(300);
        std::vector<char> to(40);
        std::mt19937 random(3);
        LinkMap<int, char> links;
        std::map<int*, std::set<char*>> expected;
        for (int step = 0; step < 20'000; ++step) {
            int* source = &from[random() % from.size()];
            char* target = &to[random() % to.size()];
            switch (random() % 8) {
            case 0:
                links.erase(source);
                expected.erase(source);
                break;
            case 1:
            case 2:
                QCOMPARE(links.erase(source, target), expected[source].erase(target) > 0);
                break;
            default:
                QCOMPARE(links.insert(source, target), expected[source].insert(target).second);
            }
            const std::set<char*>& now = expected[source];
            QCOMPARE(links.find(source), std::vector<char*>(now.begin(), now.end()));
        }
        links.clear();
        QVERIFY(links.find(&from[0]).empty());
    }
};

QTEST_GUILESS_MAIN(tst_ChunkedMap)
#include "tst_ChunkedMap.moc"
