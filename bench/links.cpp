// Memberships of groups and links of boundary conditions, against the same
// ordered maps filled by plain code with objects that are no QObjects. What a
// member costs beyond them is its connection, which is measured by itself.

#include <algorithm>
#include <array>
#include <benchmark/benchmark.h>
#include <ctime>
#include <map>
#include <memory>
#include <numeric>
#include <random>
#include <set>
#include <treemodel/models/TreeGeomModel.hpp>
#include <treemodel/models/TreeGroupModel.hpp>
#include <treemodel/models/TreeSimModel.hpp>
#include <vector>

/// Takes the news of a death and does nothing.
class Watcher : public QObject
{
    Q_OBJECT

public Q_SLOTS:
    void ignore(TreeData*) {}
};

namespace {

constexpr int members_of_a_group = 100;
constexpr int links_of_a_condition = 10;

/// As large as a record with its private part, so that addresses lie as far apart.
struct PlainRecord
{
    std::array<char, 192> bytes{};
};

using PlainLinks = std::map<PlainRecord*, std::set<PlainRecord*>>;

void erase_plain_link(PlainLinks& links, PlainRecord* from, PlainRecord* to)
{
    const auto entry = links.find(from);
    entry->second.erase(to);
    if (entry->second.empty()) {
        links.erase(entry);
    }
}

double seconds_used()
{
    timespec time{};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
    return double(time.tv_sec) + double(time.tv_nsec) * 1e-9;
}

// Measures `work` alone, each time on a new world.
template <typename Make, typename Work>
void measure(benchmark::State& state, Make make, Work work)
{
    for (auto _ : state) {
        const auto world = make(int(state.range(0)));
        const double start = seconds_used();
        work(*world);
        state.SetIterationTime(seconds_used() - start);
    }
    state.SetItemsProcessed(state.iterations() * state.range(0));
}

// Pairs come in no order of addresses.
std::vector<int> shuffled(int count)
{
    std::vector<int> numbers(count);
    std::iota(numbers.begin(), numbers.end(), 0);
    std::shuffle(numbers.begin(), numbers.end(), std::mt19937(1));
    return numbers;
}

/// N members spread over N / 100 groups.
struct Members
{
    explicit Members(int count)
        : order(shuffled(count))
    {
        for (int id = 0; id < count / members_of_a_group; ++id) {
            groups.push_back(model.add_group("", id));
        }
        for (int id = 0; id < count; ++id) {
            members.push_back(geometry.add_geometry(TreeGeometryData::VERTEX, id, nullptr));
        }
    }

    TreeGroupData* group_of(int member) { return groups[member / members_of_a_group]; }

    void add()
    {
        for (int i : order) {
            model.add_group_child(group_of(i), members[i]);
        }
    }

    void find()
    {
        for (TreeGroupData* group : groups) {
            benchmark::DoNotOptimize(model.find_group_children(group).data());
        }
        for (int i : order) {
            benchmark::DoNotOptimize(model.find_groups_for_child(members[i]).data());
        }
    }

    void remove()
    {
        for (int i : order) {
            model.remove_group_child(group_of(i), members[i]);
        }
    }

    void end_members() { geometry.clear(); }
    void end_groups() { model.clear(); }

    static std::unique_ptr<Members> made(int count) { return std::make_unique<Members>(count); }

    static std::unique_ptr<Members> filled(int count)
    {
        auto result = made(count);
        result->add();
        return result;
    }

    TreeGeomModel geometry;
    TreeGroupModel model;
    std::vector<TreeGroupData*> groups;
    std::vector<TreeGeometryData*> members;
    std::vector<int> order;
};

/// The same, with nothing but the maps.
struct PlainMembers
{
    explicit PlainMembers(int count)
        : order(shuffled(count))
    {
        for (int id = 0; id < count / members_of_a_group; ++id) {
            groups.push_back(new PlainRecord);
        }
        for (int id = 0; id < count; ++id) {
            members[id] = new PlainRecord;
        }
    }

    ~PlainMembers()
    {
        end_members();
        std::for_each(groups.begin(), groups.end(), std::default_delete<PlainRecord>());
    }

    PlainRecord* group_of(int member) { return groups[member / members_of_a_group]; }

    void add()
    {
        for (int i : order) {
            group_children[group_of(i)].insert(members[i]);
            child_groups[members[i]].insert(group_of(i));
        }
    }

    void find()
    {
        for (PlainRecord* group : groups) {
            const auto& set = group_children.at(group);
            benchmark::DoNotOptimize(std::vector<PlainRecord*>(set.begin(), set.end()).data());
        }
        for (int i : order) {
            const auto& set = child_groups.at(members[i]);
            benchmark::DoNotOptimize(std::vector<PlainRecord*>(set.begin(), set.end()).data());
        }
    }

    void remove()
    {
        for (int i : order) {
            erase_plain_link(group_children, group_of(i), members[i]);
            erase_plain_link(child_groups, members[i], group_of(i));
        }
    }

    void end_members()
    {
        for (const auto& [id, member] : members) {
            const auto entry = child_groups.find(member);
            if (entry != child_groups.end()) {
                for (PlainRecord* group : entry->second) {
                    erase_plain_link(group_children, group, member);
                }
                child_groups.erase(entry);
            }
            delete member;
        }
        members.clear();
    }

    void end_groups()
    {
        group_children.clear();
        child_groups.clear();
        std::for_each(groups.begin(), groups.end(), std::default_delete<PlainRecord>());
        groups.clear();
    }

    static std::unique_ptr<PlainMembers> made(int count)
    {
        return std::make_unique<PlainMembers>(count);
    }

    static std::unique_ptr<PlainMembers> filled(int count)
    {
        auto result = made(count);
        result->add();
        return result;
    }

    std::vector<PlainRecord*> groups;
    std::map<int, PlainRecord*> members;
    PlainLinks group_children;
    PlainLinks child_groups;
    std::vector<int> order;
};

/// What a member has beyond the maps: it is a QObject, with a connection that is
/// made and cut by name as the model does it.
struct Connections
{
    explicit Connections(int count)
        : order(shuffled(count))
    {
        for (int id = 0; id < count; ++id) {
            members.push_back(geometry.add_geometry(TreeGeometryData::VERTEX, id, nullptr));
        }
    }

    void add()
    {
        for (int i : order) {
            QObject::connect(members[i], SIGNAL(treedata_destroyed(TreeData*)), &watcher,
                SLOT(ignore(TreeData*)));
        }
    }

    void remove()
    {
        for (int i : order) {
            QObject::disconnect(members[i], SIGNAL(treedata_destroyed(TreeData*)), &watcher,
                SLOT(ignore(TreeData*)));
        }
    }

    void end_members() { geometry.clear(); }

    static std::unique_ptr<Connections> made(int count)
    {
        return std::make_unique<Connections>(count);
    }

    static std::unique_ptr<Connections> filled(int count)
    {
        auto result = made(count);
        result->add();
        return result;
    }

    Watcher watcher;
    TreeGeomModel geometry;
    std::vector<TreeGeometryData*> members;
    std::vector<int> order;
};

/// N links: N / 10 boundary conditions, each on ten of N / 10 sidesets.
struct Links
{
    explicit Links(int count)
        : order(shuffled(count))
    {
        for (int id = 0; id < count / links_of_a_condition; ++id) {
            conditions.push_back(model.add_fea_bc(TreeFeaBCData::PRESSURE, id));
            sidesets.push_back(model.add_exodus(TreeExodusData::SIDESET, id));
        }
    }

    TreeFeaBCData* condition_of(int link) { return conditions[link / links_of_a_condition]; }

    TreeExodusData* sideset_of(int link)
    {
        return sidesets[(link / links_of_a_condition + link * 7) % sidesets.size()];
    }

    void add()
    {
        for (int i : order) {
            model.fea_add_exodus(condition_of(i), sideset_of(i));
        }
    }

    void find()
    {
        for (TreeFeaBCData* condition : conditions) {
            benchmark::DoNotOptimize(model.find_exodus_from_fea(condition).data());
        }
        for (TreeExodusData* sideset : sidesets) {
            benchmark::DoNotOptimize(model.find_fea_from_exodus(sideset).data());
        }
    }

    void remove()
    {
        for (int i : order) {
            model.fea_remove_exodus(condition_of(i), sideset_of(i));
        }
    }

    void end_sidesets()
    {
        for (std::size_t id = 0; id < sidesets.size(); ++id) {
            model.remove_exodus(TreeExodusData::SIDESET, int(id));
        }
    }

    static std::unique_ptr<Links> made(int count) { return std::make_unique<Links>(count); }

    static std::unique_ptr<Links> filled(int count)
    {
        auto result = made(count);
        result->add();
        return result;
    }

    TreeSimModel model;
    std::vector<TreeFeaBCData*> conditions;
    std::vector<TreeExodusData*> sidesets;
    std::vector<int> order;
};

/// The same, with nothing but the maps.
struct PlainLinksOfConditions
{
    explicit PlainLinksOfConditions(int count)
        : order(shuffled(count))
    {
        for (int id = 0; id < count / links_of_a_condition; ++id) {
            conditions.push_back(new PlainRecord);
            sidesets[id] = new PlainRecord;
        }
    }

    ~PlainLinksOfConditions()
    {
        std::for_each(conditions.begin(), conditions.end(), std::default_delete<PlainRecord>());
        for (const auto& [id, sideset] : sidesets) {
            delete sideset;
        }
    }

    PlainRecord* condition_of(int link) { return conditions[link / links_of_a_condition]; }

    PlainRecord* sideset_of(int link)
    {
        return sidesets.at((link / links_of_a_condition + link * 7) % int(conditions.size()));
    }

    void add()
    {
        for (int i : order) {
            bc_exodus[condition_of(i)].insert(sideset_of(i));
            exodus_bc[sideset_of(i)].insert(condition_of(i));
        }
    }

    void find()
    {
        for (const PlainLinks* links : {&bc_exodus, &exodus_bc}) {
            for (const auto& [record, unused] : *links) {
                const auto& set = links->at(record);
                benchmark::DoNotOptimize(std::vector<PlainRecord*>(set.begin(), set.end()).data());
            }
        }
    }

    void remove()
    {
        for (int i : order) {
            bc_exodus.at(condition_of(i)).erase(sideset_of(i));
            exodus_bc.at(sideset_of(i)).erase(condition_of(i));
        }
    }

    void end_sidesets()
    {
        for (auto entry = sidesets.begin(); entry != sidesets.end();) {
            const auto linked = exodus_bc.find(entry->second);
            if (linked != exodus_bc.end()) {
                for (PlainRecord* condition : linked->second) {
                    bc_exodus.at(condition).erase(entry->second);
                }
                exodus_bc.erase(linked);
            }
            delete entry->second;
            entry = sidesets.erase(entry);
        }
    }

    static std::unique_ptr<PlainLinksOfConditions> made(int count)
    {
        return std::make_unique<PlainLinksOfConditions>(count);
    }

    static std::unique_ptr<PlainLinksOfConditions> filled(int count)
    {
        auto result = made(count);
        result->add();
        return result;
    }

    std::vector<PlainRecord*> conditions;
    std::map<int, PlainRecord*> sidesets;
    PlainLinks bc_exodus;
    PlainLinks exodus_bc;
    std::vector<int> order;
};

template <typename World>
void add(benchmark::State& state)
{
    measure(state, World::made, [](World& world) { world.add(); });
}

template <typename World>
void find(benchmark::State& state)
{
    measure(state, World::filled, [](World& world) { world.find(); });
}

template <typename World>
void remove(benchmark::State& state)
{
    measure(state, World::filled, [](World& world) { world.remove(); });
}

template <typename World>
void end_members(benchmark::State& state)
{
    measure(state, World::filled, [](World& world) { world.end_members(); });
}

template <typename World>
void end_groups(benchmark::State& state)
{
    measure(state, World::filled, [](World& world) { world.end_groups(); });
}

template <typename World>
void end_sidesets(benchmark::State& state)
{
    measure(state, World::filled, [](World& world) { world.end_sidesets(); });
}

void sizes(benchmark::internal::Benchmark* family)
{
    family->Arg(10'000)->Arg(100'000)->Arg(1'000'000);
    family->Unit(benchmark::kMillisecond)->UseManualTime()->Iterations(1);
}

#define ADD_BENCHMARK(function, World, name) BENCHMARK(function<World>)->Name(name)->Apply(sizes)

ADD_BENCHMARK(add, Members, "members/add/model");
ADD_BENCHMARK(add, PlainMembers, "members/add/floor");
ADD_BENCHMARK(add, Connections, "members/add/connections");
ADD_BENCHMARK(find, Members, "members/find both ways/model");
ADD_BENCHMARK(find, PlainMembers, "members/find both ways/floor");
ADD_BENCHMARK(remove, Members, "members/remove/model");
ADD_BENCHMARK(remove, PlainMembers, "members/remove/floor");
ADD_BENCHMARK(remove, Connections, "members/remove/connections");
ADD_BENCHMARK(end_members, Members, "members/death of all members/model");
ADD_BENCHMARK(end_members, PlainMembers, "members/death of all members/floor");
ADD_BENCHMARK(end_members, Connections, "members/death of all members/connections");
ADD_BENCHMARK(end_groups, Members, "members/clear/model");
ADD_BENCHMARK(end_groups, PlainMembers, "members/clear/floor");
ADD_BENCHMARK(add, Links, "links/add/model");
ADD_BENCHMARK(add, PlainLinksOfConditions, "links/add/floor");
ADD_BENCHMARK(find, Links, "links/find both ways/model");
ADD_BENCHMARK(find, PlainLinksOfConditions, "links/find both ways/floor");
ADD_BENCHMARK(remove, Links, "links/remove/model");
ADD_BENCHMARK(remove, PlainLinksOfConditions, "links/remove/floor");
ADD_BENCHMARK(end_sidesets, Links, "links/death of all sidesets/model");
ADD_BENCHMARK(end_sidesets, PlainLinksOfConditions, "links/death of all sidesets/floor");

} // namespace

BENCHMARK_MAIN();
#include "links.moc"
