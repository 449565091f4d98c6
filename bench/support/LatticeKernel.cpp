#include "LatticeKernel.hpp"

#include <algorithm>
#include <benchmark/benchmark.h>
#include <numeric>
#include <treemodel/kernel/KestoInterface.hpp>
#include <utility>

namespace {

enum Kind : int { Vertex, Curve, Surface, Volume, Body };

LatticeKernel* active_kernel = nullptr;
KestoInterface::KIObserve* registered_observer = nullptr;

int kind_of(const std::string& word)
{
    return int(std::find(LatticeKernel::words.begin(), LatticeKernel::words.end(), word) -
               LatticeKernel::words.begin());
}

// Ids, from 1, of the vertices, edges and faces of a lattice of n cubes a side. An edge
// or face is named by its lowest corner and by the axis along it or across it.
class LatticeIds
{
public:
    explicit LatticeIds(int n)
        : m_n(n)
    {
    }

    using Point = std::array<int, 3>;

    int vertex(Point p) const { return index(p, {m_n + 1, m_n + 1, m_n + 1}) + 1; }

    int edge(int axis, Point p) const
    {
        Point size{m_n + 1, m_n + 1, m_n + 1};
        size[axis] = m_n;
        return axis * m_n * (m_n + 1) * (m_n + 1) + index(p, size) + 1;
    }

    int face(int axis, Point p) const
    {
        Point size{m_n, m_n, m_n};
        size[axis] = m_n + 1;
        return axis * m_n * m_n * (m_n + 1) + index(p, size) + 1;
    }

    int cube(Point p) const { return index(p, {m_n, m_n, m_n}) + 1; }

private:
    static int index(Point p, Point size) { return (p[2] * size[1] + p[1]) * size[0] + p[0]; }

    int m_n;
};

template <typename Visit>
void for_each_point(std::array<int, 3> size, Visit visit)
{
    for (int z = 0; z < size[2]; ++z) {
        for (int y = 0; y < size[1]; ++y) {
            for (int x = 0; x < size[0]; ++x) {
                visit(LatticeIds::Point{x, y, z});
            }
        }
    }
}

LatticeIds::Point moved(LatticeIds::Point p, int axis)
{
    ++p[axis];
    return p;
}

} // namespace

const std::array<std::string, LatticeKernel::KindCount> LatticeKernel::words{
    "vertex", "curve", "surface", "volume", "body"};

LatticeKernel::LatticeKernel(std::int64_t records)
{
    // n cubes a side make about 9 n^3 entities.
    int n = 1;
    const auto count_of = [](std::int64_t a) {
        return 2 * a * a * a + 3 * a * a * (a + 1) + 3 * a * (a + 1) * (a + 1) +
               (a + 1) * (a + 1) * (a + 1);
    };
    while (count_of(n) < records) {
        ++n;
    }
    add_entities(Body, n * n * n);
    add_entities(Volume, n * n * n);
    add_entities(Surface, 3 * n * n * (n + 1));
    add_entities(Curve, 3 * n * (n + 1) * (n + 1));
    add_entities(Vertex, (n + 1) * (n + 1) * (n + 1));
    for (std::size_t id = 1; id < m_names[Body].size(); ++id) {
        m_names[Body][id] = "Part " + std::to_string(id);
    }

    const LatticeIds ids(n);
    for_each_point({n, n, n}, [&](LatticeIds::Point p) {
        link(Body, ids.cube(p), ids.cube(p));
        for (int axis = 0; axis < 3; ++axis) {
            link(Volume, ids.cube(p), ids.face(axis, p));
            link(Volume, ids.cube(p), ids.face(axis, moved(p, axis)));
        }
    });
    for (int axis = 0; axis < 3; ++axis) {
        std::array<int, 3> faces{n, n, n};
        faces[axis] = n + 1;
        for_each_point(faces, [&](LatticeIds::Point p) {
            const int u = (axis + 1) % 3;
            const int v = (axis + 2) % 3;
            const int face = ids.face(axis, p);
            for (const int edge : {ids.edge(u, p), ids.edge(v, p), ids.edge(u, moved(p, v)),
                     ids.edge(v, moved(p, u))}) {
                link(Surface, face, edge);
            }
        });
        std::array<int, 3> edges{n + 1, n + 1, n + 1};
        edges[axis] = n;
        for_each_point(edges, [&](LatticeIds::Point p) {
            link(Curve, ids.edge(axis, p), ids.vertex(p));
            link(Curve, ids.edge(axis, p), ids.vertex(moved(p, axis)));
        });
    }
    active_kernel = this;
}

LatticeKernel::~LatticeKernel()
{
    active_kernel = nullptr;
}

std::int64_t LatticeKernel::entity_count() const
{
    return std::accumulate(m_ids.begin(), m_ids.end(), std::int64_t(0),
        [](std::int64_t sum, const std::vector<int>& ids) {
            return sum + std::int64_t(ids.size());
        });
}

void LatticeKernel::start_recording()
{
    m_is_recording = true;
}

std::vector<LatticeKernel::Query> LatticeKernel::stop_recording()
{
    m_is_recording = false;
    return std::exchange(m_queries, {});
}

void LatticeKernel::note(const Query& query)
{
    if (m_is_recording) {
        m_queries.push_back(query);
    }
}

KestoInterface::KIObserve* LatticeKernel::observer()
{
    return registered_observer;
}

void LatticeKernel::add_entities(int kind, int count)
{
    m_ids[kind].resize(count);
    std::iota(m_ids[kind].begin(), m_ids[kind].end(), 1);
    m_below[kind].resize(count + 1);
    m_above[kind].resize(count + 1);
    m_names[kind].resize(count + 1);
}

void LatticeKernel::link(int parent_kind, int parent, int child)
{
    m_below[parent_kind][parent].push_back(child);
    m_above[parent_kind - 1][child].push_back(parent);
}

void LatticeKernel::ask(const std::vector<Query>& queries)
{
    for (const Query& query : queries) {
        const std::string& word = words[query.source_kind];
        switch (query.function) {
        case Query::Entities:
            benchmark::DoNotOptimize(KestoInterface::get_entities(word));
            break;
        case Query::Name:
            benchmark::DoNotOptimize(KestoInterface::get_entity_name(word, query.id, true));
            break;
        case Query::Visible:
            benchmark::DoNotOptimize(KestoInterface::is_visible(word, query.id));
            break;
        case Query::Virtual:
            benchmark::DoNotOptimize(KestoInterface::is_virtual(word, query.id));
            break;
        case Query::ContainsVirtual:
            benchmark::DoNotOptimize(KestoInterface::contains_virtual(word, query.id));
            break;
        case Query::SheetBody:
            benchmark::DoNotOptimize(KestoInterface::is_sheet_body(query.id));
            break;
        case Query::Relatives:
            benchmark::DoNotOptimize(
                KestoInterface::get_relatives(word, query.id, words[query.target_kind]));
            break;
        }
    }
}

namespace KestoInterface {

using Query = LatticeKernel::Query;

namespace {

void note(Query::Function function, int kind, int id, int target_kind = 0)
{
    active_kernel->note({function, std::uint8_t(kind), std::uint8_t(target_kind), id});
}

} // namespace

std::vector<int> get_entities(const std::string& type)
{
    const int kind = kind_of(type);
    note(Query::Entities, kind, 0);
    return active_kernel->ids(kind);
}

std::string get_entity_name(const std::string& type, int id, bool /*flag*/)
{
    const int kind = kind_of(type);
    if (kind == LatticeKernel::KindCount) {
        return "Lattice"; // the group
    }
    note(Query::Name, kind, id);
    return active_kernel->name(kind, id);
}

bool is_visible(const std::string& type, int id)
{
    note(Query::Visible, kind_of(type), id);
    return true;
}

bool is_virtual(const std::string& type, int id)
{
    note(Query::Virtual, kind_of(type), id);
    return false;
}

bool contains_virtual(const std::string& type, int id)
{
    note(Query::ContainsVirtual, kind_of(type), id);
    return false;
}

bool is_sheet_body(int volume_id)
{
    note(Query::SheetBody, Volume, volume_id);
    return false;
}

std::vector<int> get_relatives(
    const std::string& source_type, int source_id, const std::string& target_type)
{
    const int source = kind_of(source_type);
    const int target = kind_of(target_type);
    note(Query::Relatives, source, source_id, target);
    return target < source ? active_kernel->below(source, source_id)
                           : active_kernel->above(source, source_id);
}

void group_list(std::vector<std::string>& names, std::vector<int>& ids)
{
    if (active_kernel->has_group()) {
        names = {"Lattice"};
        ids = {1};
    }
}

void get_group_children(int /*group_id*/, std::vector<int>& /*groups*/, std::vector<int>& bodies,
    std::vector<int>& volumes, std::vector<int>& surfaces, std::vector<int>& curves,
    std::vector<int>& vertices, int& /*nodes*/, int& /*edges*/, int& /*hexes*/, int& /*quads*/,
    int& /*tets*/, int& /*tris*/, int& /*wedges*/, int& /*pyramids*/, int& /*spheres*/)
{
    bodies = active_kernel->ids(Body);
    volumes = active_kernel->ids(Volume);
    surfaces = active_kernel->ids(Surface);
    curves = active_kernel->ids(Curve);
    vertices = active_kernel->ids(Vertex);
}

// A lattice has nothing else.

std::vector<int> get_list_of_free_ref_entities(const std::string& /*type*/)
{
    return {};
}
std::vector<int> get_block_id_list()
{
    return {};
}
std::vector<int> get_sideset_id_list()
{
    return {};
}
std::vector<int> get_nodeset_id_list()
{
    return {};
}
std::vector<int> get_bc_id_list(KI_BCTypes /*type*/)
{
    return {};
}
std::vector<int> get_sideset_id_list_for_bc(KI_BCTypes /*type*/, int /*bc_id*/)
{
    return {};
}
std::vector<int> get_nodeset_id_list_for_bc(KI_BCTypes /*type*/, int /*bc_id*/)
{
    return {};
}
std::vector<int> get_boundary_layer_id_list()
{
    return {};
}
std::vector<int> sizing_source_ids()
{
    return {};
}
std::string get_exodus_entity_name(std::string /*type*/, int /*id*/)
{
    return {};
}
std::string get_exodus_entity_type(std::string /*type*/, int /*id*/)
{
    return {};
}
int current_selection_count()
{
    return 0;
}
std::string get_selected_type(int /*index*/)
{
    return {};
}
int get_selected_id(int /*index*/)
{
    return 0;
}
bool silent_cmd(const char* /*command*/)
{
    return true;
}
KestoBaseInterface* get_interface(std::string /*name*/)
{
    return nullptr;
}

KIObserve::KIObserve() = default;
KIObserve::~KIObserve() = default;
void KIObserve::register_observer()
{
    registered_observer = this;
}
void KIObserve::unregister_observer() {}

} // namespace KestoInterface
