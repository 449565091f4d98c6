// What the link to the kernel does beyond geometry, each against what it cannot do without:
// a large group of which one member comes and goes, a large selection both ways, and the reading
// of a simulation set-up.

#include "support/SetupKernel.hpp"

#include <algorithm>
#include <array>
#include <benchmark/benchmark.h>
#include <map>
#include <memory>
#include <random>
#include <set>
#include <string>
#include <treemodel/kernel/KestoInterface.hpp>
#include <treemodel/kernel/TreeModel.hpp>

using namespace KestoInterface;

namespace {

enum Order : bool { InOrder, Shuffled };

template <typename T>
void put_in(Order order, std::vector<T>& list)
{
    if (order == Shuffled) {
        std::shuffle(list.begin(), list.end(), std::mt19937(1));
    }
}

void count_entities(benchmark::State& state)
{
    state.counters["time/entity"] = benchmark::Counter(double(state.range(0)),
        benchmark::Counter::kIsIterationInvariantRate | benchmark::Counter::kInvert);
}

// The group of all vertices, told as modified. By turns one member has left and is back; the order
// is that of the kernel's answer.

void take_or_give_back_one(SetupKernel& kernel, int count)
{
    if (int(kernel.members.size()) == count) {
        kernel.members.erase(kernel.members.begin() + count / 2);
    } else {
        const std::vector<int>& all = kernel.vertices;
        kernel.members.insert(kernel.members.begin() + count / 2, all[all.size() / 2]);
    }
}

template <typename Tell>
void measure_group(benchmark::State& state, Order order, Tell tell)
{
    const int count = int(state.range(0));
    SetupKernel kernel;
    kernel.add_grouped_vertices(count);
    put_in(order, kernel.vertices);
    kernel.members = kernel.vertices;
    TreeModel mirror;
    mirror.refresh_model(false);
    mirror.connect_to_kesto();
    for (auto _ : state) {
        state.PauseTiming();
        take_or_give_back_one(kernel, count);
        state.ResumeTiming();
        tell();
    }
    count_entities(state);
}

void GroupModified(benchmark::State& state, Order order)
{
    measure_group(state, order, [] { SetupKernel::observer()->notify_group_modified(1); });
}

// The kernel's answer, copied and put in an ordered set.
void GroupModified_floor(benchmark::State& state, Order order)
{
    measure_group(state, order, [] {
        std::array<std::vector<int>, 6> ids;
        std::array<int, 9> counts{};
        get_group_children(1, ids[0], ids[1], ids[2], ids[3], ids[4], ids[5], counts[0], counts[1],
            counts[2], counts[3], counts[4], counts[5], counts[6], counts[7], counts[8]);
        const std::set<int> members(ids[5].begin(), ids[5].end());
        benchmark::DoNotOptimize(members.size());
    });
}

// Records to one command line.

std::vector<TreeData*> vertices_of(TreeModel& mirror, Order order)
{
    const auto vertices = mirror.geometry(TreeGeometryData::VERTEX);
    std::vector<TreeData*> records(vertices.begin(), vertices.end());
    put_in(order, records);
    return records;
}

void SelectEntities(benchmark::State& state, Order order)
{
    SetupKernel kernel;
    kernel.add_grouped_vertices(int(state.range(0)));
    TreeModel mirror;
    mirror.refresh_model(false);
    const std::vector<TreeData*> records = vertices_of(mirror, order);
    for (auto _ : state) {
        mirror.select_entities(records, true);
    }
    count_entities(state);
}

void SelectEntities_floor(benchmark::State& state)
{
    SetupKernel kernel;
    kernel.add_grouped_vertices(int(state.range(0)));
    for (auto _ : state) {
        std::string command = "select vertex ";
        for (const int id : kernel.vertices) {
            command += std::to_string(id);
            command += ' ';
        }
        silent_cmd(command.c_str());
    }
    count_entities(state);
}

// The kernel's selection to records.

std::vector<EntityRef> refs_to(const std::vector<int>& vertices, Order order)
{
    std::vector<EntityRef> refs;
    refs.reserve(vertices.size());
    for (const int id : vertices) {
        refs.push_back({"vertex", id});
    }
    put_in(order, refs);
    return refs;
}

void EntitiesSelected(benchmark::State& state, Order order)
{
    SetupKernel kernel;
    kernel.add_grouped_vertices(int(state.range(0)));
    const std::vector<EntityRef> refs = refs_to(kernel.vertices, order);
    TreeModel mirror;
    mirror.refresh_model(false);
    mirror.connect_to_kesto();
    for (auto _ : state) {
        SetupKernel::observer()->notify_entities_selected(refs);
    }
    count_entities(state);
}

// One look-up for each entity in the map of its kind.
void EntitiesSelected_floor(benchmark::State& state, Order order)
{
    SetupKernel kernel;
    kernel.add_grouped_vertices(int(state.range(0)));
    const std::vector<EntityRef> refs = refs_to(kernel.vertices, order);
    TreeModel mirror;
    mirror.refresh_model(false);
    std::map<int, TreeData*> vertices;
    for (TreeGeometryData* vertex : mirror.geometry(TreeGeometryData::VERTEX)) {
        vertices.emplace(vertex->id(), vertex);
    }
    for (auto _ : state) {
        for (const EntityRef& ref : refs) {
            benchmark::DoNotOptimize(vertices.find(ref.id));
        }
    }
    count_entities(state);
}

// The simulation set-up.

const std::map<TreeFeaBCData::FEAType, KI_BCTypes> fea_codes{
    {TreeFeaBCData::FORCE, BC_FORCE},
    {TreeFeaBCData::ACCELERATION, BC_ACCELERATION},
    {TreeFeaBCData::VELOCITY, BC_VELOCITY},
    {TreeFeaBCData::PRESSURE, BC_PRESSURE},
    {TreeFeaBCData::TEMPERATURE, BC_TEMPERATURE},
    {TreeFeaBCData::DISPLACEMENT, BC_DISPLACEMENT},
    {TreeFeaBCData::CONSTRAINT, BC_CONSTRAINT},
    {TreeFeaBCData::CONVECTION, BC_CONVECTION},
    {TreeFeaBCData::HEATFLUX, BC_HEATFLUX},
    {TreeFeaBCData::CONTACT_REGION, BC_CONTACT_REGION},
    {TreeFeaBCData::CONTACT_PAIR, BC_CONTACT_PAIR},
};

KI_BCTypes code_of(TreeCfdBCData::CFDType type)
{
    return KI_BCTypes(int(BC_AXIS) + type);
}

// The records and links of the mirror, filled by plain code from the same questions.
class PlainSetup
{
public:
    PlainSetup()
    {
        read_sets(TreeExodusData::BLOCK, get_block_id_list());
        read_sets(TreeExodusData::SIDESET, get_sideset_id_list());
        read_sets(TreeExodusData::NODESET, get_nodeset_id_list());
        for (const auto& [type, code] : fea_codes) {
            read_conditions(m_fea[type], type, code);
        }
        for (int i = TreeCfdBCData::AXIS; i <= TreeCfdBCData::WALL; ++i) {
            const auto type = TreeCfdBCData::CFDType(i);
            read_conditions(m_cfd, type, code_of(type));
        }
    }

private:
    template <typename Record>
    using Records = std::map<int, std::unique_ptr<Record>>;

    void read_sets(TreeExodusData::ExodusType type, const std::vector<int>& ids)
    {
        const std::string word = TreeExodusData::type_to_string(type);
        for (const int id : ids) {
            auto record = std::make_unique<TreeExodusData>(type, id);
            record->set_name(QString::fromStdString(get_exodus_entity_name(word, id)));
            record->set_visible(is_visible(word, id));
            m_sets[type].emplace(id, std::move(record));
        }
    }

    template <typename Record, typename Type>
    void read_conditions(Records<Record>& records, Type type, KI_BCTypes code)
    {
        const std::string word = Record::type_to_string(type);
        for (const int id : get_bc_id_list(code)) {
            auto record = std::make_unique<Record>(type, id);
            record->set_name(QString::fromStdString(get_exodus_entity_name(word, id)));
            link(record.get(), TreeExodusData::SIDESET, get_sideset_id_list_for_bc(code, id));
            link(record.get(), TreeExodusData::NODESET, get_nodeset_id_list_for_bc(code, id));
            records.emplace(id, std::move(record));
        }
    }

    void link(TreeData* condition, TreeExodusData::ExodusType type, const std::vector<int>& ids)
    {
        for (const int id : ids) {
            TreeExodusData* set = m_sets[type].at(id).get();
            m_sets_of_conditions[condition].insert(set);
            m_conditions_of_sets[set].insert(condition);
        }
    }

    std::array<Records<TreeExodusData>, 3> m_sets;
    std::map<TreeFeaBCData::FEAType, Records<TreeFeaBCData>> m_fea;
    Records<TreeCfdBCData> m_cfd;
    std::map<TreeData*, std::set<TreeExodusData*>> m_sets_of_conditions;
    std::map<TreeExodusData*, std::set<TreeData*>> m_conditions_of_sets;
};

template <typename Mirror, typename Fill>
void measure_fill(benchmark::State& state, Fill fill)
{
    SetupKernel kernel;
    kernel.add_simulation(int(state.range(0)));
    for (auto _ : state) {
        auto mirror = std::make_unique<Mirror>();
        fill(*mirror);
        state.PauseTiming();
        mirror.reset();
        state.ResumeTiming();
    }
    count_entities(state);
}

void SimulationFill(benchmark::State& state)
{
    measure_fill<TreeModel>(state, [](TreeModel& mirror) { mirror.refresh_model(false); });
}

void SimulationFill_floor(benchmark::State& state)
{
    measure_fill<PlainSetup>(state, [](PlainSetup&) {});
}

void SimulationRefresh(benchmark::State& state)
{
    SetupKernel kernel;
    kernel.add_simulation(int(state.range(0)));
    TreeModel mirror;
    mirror.refresh_model(false);
    for (auto _ : state) {
        mirror.refresh_model(false);
    }
    count_entities(state);
}

void ask_about_sets(TreeExodusData::ExodusType type, const std::vector<int>& ids)
{
    const std::string word = TreeExodusData::type_to_string(type);
    for (const int id : ids) {
        benchmark::DoNotOptimize(get_exodus_entity_name(word, id));
        benchmark::DoNotOptimize(is_visible(word, id));
    }
}

void ask_about_conditions(const std::string& word, KI_BCTypes code)
{
    for (const int id : get_bc_id_list(code)) {
        benchmark::DoNotOptimize(get_exodus_entity_name(word, id));
        benchmark::DoNotOptimize(get_sideset_id_list_for_bc(code, id));
        benchmark::DoNotOptimize(get_nodeset_id_list_for_bc(code, id));
    }
}

// The same questions, their answers thrown away.
void SimulationRefresh_floor(benchmark::State& state)
{
    SetupKernel kernel;
    kernel.add_simulation(int(state.range(0)));
    for (auto _ : state) {
        ask_about_sets(TreeExodusData::BLOCK, get_block_id_list());
        ask_about_sets(TreeExodusData::SIDESET, get_sideset_id_list());
        ask_about_sets(TreeExodusData::NODESET, get_nodeset_id_list());
        for (const auto& [type, code] : fea_codes) {
            ask_about_conditions(TreeFeaBCData::type_to_string(type), code);
        }
        for (int i = TreeCfdBCData::AXIS; i <= TreeCfdBCData::WALL; ++i) {
            const auto type = TreeCfdBCData::CFDType(i);
            ask_about_conditions(TreeCfdBCData::type_to_string(type), code_of(type));
        }
    }
    count_entities(state);
}

void sizes(benchmark::internal::Benchmark* family)
{
    family->Arg(10'000)->Arg(100'000)->Arg(1'000'000)->Unit(benchmark::kMillisecond);
}

BENCHMARK_CAPTURE(GroupModified, in_order, InOrder)->Apply(sizes);
BENCHMARK_CAPTURE(GroupModified_floor, in_order, InOrder)->Apply(sizes);
BENCHMARK_CAPTURE(GroupModified, shuffled, Shuffled)->Apply(sizes);
BENCHMARK_CAPTURE(GroupModified_floor, shuffled, Shuffled)->Apply(sizes);
BENCHMARK_CAPTURE(SelectEntities, in_order, InOrder)->Apply(sizes);
BENCHMARK_CAPTURE(SelectEntities, shuffled, Shuffled)->Apply(sizes);
BENCHMARK(SelectEntities_floor)->Apply(sizes);
BENCHMARK_CAPTURE(EntitiesSelected, in_order, InOrder)->Apply(sizes);
BENCHMARK_CAPTURE(EntitiesSelected_floor, in_order, InOrder)->Apply(sizes);
BENCHMARK_CAPTURE(EntitiesSelected, shuffled, Shuffled)->Apply(sizes);
BENCHMARK_CAPTURE(EntitiesSelected_floor, shuffled, Shuffled)->Apply(sizes);
BENCHMARK(SimulationFill)->Apply(sizes);
BENCHMARK(SimulationFill_floor)->Apply(sizes);
BENCHMARK(SimulationRefresh)->Apply(sizes);
BENCHMARK(SimulationRefresh_floor)->Apply(sizes);

} // namespace

BENCHMARK_MAIN();
