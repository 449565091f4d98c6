// An outside program that is itself the kernel: it holds one vertex and defines all
// that the boundary asks for. Its exit code tells the first thing that is wrong.

namespace KestoInterface {
class KIObserve; // named before the boundary is, as a front end may do
}

#include <treemodel/treemodel.hpp>

namespace {

KestoInterface::KIObserve* registered = nullptr;
std::string vertex_name = "Origin";

} // namespace

namespace KestoInterface {

KIObserve::KIObserve() = default;
KIObserve::~KIObserve() = default;

void KIObserve::register_observer()
{
    registered = this;
}

void KIObserve::unregister_observer()
{
    registered = nullptr;
}

std::vector<int> get_entities(const std::string& type)
{
    return type == "vertex" ? std::vector<int>{1} : std::vector<int>();
}

std::string get_entity_name(const std::string&, int, bool)
{
    return vertex_name;
}

// clang-format off
std::vector<int> get_list_of_free_ref_entities(const std::string& type) { return get_entities(type); }
std::vector<int> get_block_id_list() { return {}; }
std::vector<int> get_sideset_id_list() { return {}; }
std::vector<int> get_nodeset_id_list() { return {}; }
std::vector<int> get_bc_id_list(KI_BCTypes) { return {}; }
std::vector<int> get_sideset_id_list_for_bc(KI_BCTypes, int) { return {}; }
std::vector<int> get_nodeset_id_list_for_bc(KI_BCTypes, int) { return {}; }
std::vector<int> get_boundary_layer_id_list() { return {}; }
std::vector<int> sizing_source_ids() { return {}; }
void group_list(std::vector<std::string>&, std::vector<int>&) {}
std::string get_exodus_entity_name(std::string, int) { return {}; }
std::string get_exodus_entity_type(std::string, int) { return {}; }
bool is_visible(const std::string&, int) { return true; }
bool is_virtual(const std::string&, int) { return false; }
bool contains_virtual(const std::string&, int) { return false; }
bool is_sheet_body(int) { return false; }
std::vector<int> get_relatives(const std::string&, int, const std::string&) { return {}; }
void get_group_children(int, std::vector<int>&, std::vector<int>&, std::vector<int>&,
    std::vector<int>&, std::vector<int>&, std::vector<int>&, int&, int&, int&, int&, int&, int&,
    int&, int&, int&) {}
int current_selection_count() { return 0; }
std::string get_selected_type(int) { return {}; }
int get_selected_id(int) { return 0; }
bool silent_cmd(const char*) { return true; }
KestoBaseInterface* get_interface(std::string) { return nullptr; }
// clang-format on

} // namespace KestoInterface

int main()
{
    TreeModel mirror;
    mirror.refresh_model(false);
    TreeGeometryData* vertex = mirror.find_geometry(TreeGeometryData::VERTEX, 1);
    if (!vertex || vertex->name() != QLatin1String("Origin")) {
        return 1;
    }
    mirror.connect_to_kesto();
    if (!registered) {
        return 2;
    }
    vertex_name = "Datum";
    registered->notify_entity_name_changed("vertex", 1);
    if (vertex->name() != QLatin1String("Datum")) {
        return 3;
    }
    mirror.disconnect_from_kesto();
    return registered ? 4 : 0;
}
