#include "SetupKernel.hpp"

#include <benchmark/benchmark.h>
#include <numeric>

namespace {

SetupKernel* active_kernel = nullptr;
KestoInterface::KIObserve* registered_observer = nullptr;

std::vector<int> ids_up_to(int count)
{
    std::vector<int> ids(count);
    std::iota(ids.begin(), ids.end(), 1);
    return ids;
}

std::vector<KestoInterface::KI_BCTypes> condition_types()
{
    using namespace KestoInterface;
    std::vector<KI_BCTypes> types{BC_CONTACT_PAIR};
    for (int type = BC_ACCELERATION; type <= BC_WALL; ++type) {
        types.push_back(KI_BCTypes(type));
    }
    return types;
}

} // namespace

SetupKernel::SetupKernel()
{
    active_kernel = this;
}

SetupKernel::~SetupKernel()
{
    active_kernel = nullptr;
}

void SetupKernel::add_grouped_vertices(int count)
{
    vertices = ids_up_to(count);
    members = vertices;
}

void SetupKernel::add_simulation(int count)
{
    const int set_count = count / 6;
    blocks = sidesets = nodesets = ids_up_to(set_count);

    const auto set_of = [set_count](int number) { return number % set_count + 1; };
    const std::vector<KestoInterface::KI_BCTypes> types = condition_types();
    conditions.resize(count / 2 + 1);
    for (int id = 1; id <= count / 2; ++id) {
        condition_ids[types[id % types.size()]].push_back(id);
        conditions[id] = {{set_of(id), set_of(7 * id)}, {set_of(id)}};
    }
    for (std::size_t id = 0; id < conditions.size(); ++id) {
        names.push_back("Part " + std::to_string(id));
    }
}

KestoInterface::KIObserve* SetupKernel::observer()
{
    return registered_observer;
}

namespace KestoInterface {

std::vector<int> get_entities(const std::string& type)
{
    return type == "vertex" ? active_kernel->vertices : std::vector<int>();
}

std::vector<int> get_list_of_free_ref_entities(const std::string& type)
{
    return get_entities(type);
}

std::vector<int> get_block_id_list()
{
    return active_kernel->blocks;
}

std::vector<int> get_sideset_id_list()
{
    return active_kernel->sidesets;
}

std::vector<int> get_nodeset_id_list()
{
    return active_kernel->nodesets;
}

std::vector<int> get_bc_id_list(KI_BCTypes type)
{
    const auto ids = active_kernel->condition_ids.find(type);
    return ids != active_kernel->condition_ids.end() ? ids->second : std::vector<int>();
}

std::vector<int> get_sideset_id_list_for_bc(KI_BCTypes /*type*/, int bc_id)
{
    return active_kernel->conditions[bc_id].sidesets;
}

std::vector<int> get_nodeset_id_list_for_bc(KI_BCTypes /*type*/, int bc_id)
{
    return active_kernel->conditions[bc_id].nodesets;
}

void group_list(std::vector<std::string>& names, std::vector<int>& ids)
{
    if (!active_kernel->members.empty()) {
        names = {"Group"};
        ids = {1};
    }
}

void get_group_children(int /*group_id*/, std::vector<int>& /*groups*/,
    std::vector<int>& /*bodies*/, std::vector<int>& /*volumes*/, std::vector<int>& /*surfaces*/,
    std::vector<int>& /*curves*/, std::vector<int>& vertices, int& /*nodes*/, int& /*edges*/,
    int& /*hexes*/, int& /*quads*/, int& /*tets*/, int& /*tris*/, int& /*wedges*/,
    int& /*pyramids*/, int& /*spheres*/)
{
    vertices = active_kernel->members;
}

std::string get_exodus_entity_name(std::string /*type*/, int id)
{
    return active_kernel->names[id];
}

std::string get_entity_name(const std::string& type, int /*id*/, bool /*flag*/)
{
    return type == "group" ? "Group" : "";
}

bool is_visible(const std::string& /*type*/, int /*id*/)
{
    return true;
}

bool silent_cmd(const char* command)
{
    benchmark::DoNotOptimize(command);
    return true;
}

// It has nothing else.

std::vector<int> get_boundary_layer_id_list()
{
    return {};
}
std::vector<int> sizing_source_ids()
{
    return {};
}
std::string get_exodus_entity_type(std::string /*type*/, int /*id*/)
{
    return {};
}
bool is_virtual(const std::string& /*type*/, int /*id*/)
{
    return false;
}
bool contains_virtual(const std::string& /*type*/, int /*id*/)
{
    return false;
}
bool is_sheet_body(int /*volume_id*/)
{
    return false;
}
std::vector<int> get_relatives(
    const std::string& /*source_type*/, int /*source_id*/, const std::string& /*target_type*/)
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
