#include <support/RecordingKernel.hpp>

#include <QtGlobal>

namespace {

RecordingKernel* active_kernel = nullptr;

template <typename Map>
typename Map::mapped_type answer(const Map& table, const typename Map::key_type& key)
{
    const auto entry = table.find(key);
    return entry == table.end() ? typename Map::mapped_type() : entry->second;
}

QString text(const std::string& word)
{
    return QString::fromStdString(word);
}

QString text(int number)
{
    return QString::number(number);
}

QString text(bool value)
{
    return value ? QStringLiteral("true") : QStringLiteral("false");
}

template <typename... Arguments>
QString call_text(const char* function, const Arguments&... arguments)
{
    const QStringList list{text(arguments)...};
    return QLatin1String(function) + QLatin1Char('(') + list.join(QLatin1String(", ")) +
           QLatin1Char(')');
}

} // namespace

/// What the free functions may do with the active kernel.
struct BoundaryAccess
{
    template <typename... Arguments>
    static RecordingKernel& call(const char* function, const Arguments&... arguments)
    {
        Q_ASSERT_X(active_kernel, function, "called without a kernel");
        active_kernel->called(call_text(function, arguments...));
        return *active_kernel;
    }

    static std::vector<KestoInterface::KIObserve*>& observers(RecordingKernel& kernel)
    {
        return kernel.m_observers;
    }
};

RecordingKernel::RecordingKernel(EventLog& log)
    : m_log(log)
{
    Q_ASSERT(!active_kernel);
    active_kernel = this;
}

RecordingKernel::~RecordingKernel()
{
    active_kernel = nullptr;
}

void RecordingKernel::relate(
    const Word& parent_word, int parent, const Word& child_word, const std::vector<int>& children)
{
    relatives[{parent_word, parent, child_word}] = children;
    for (const int child : children) {
        relatives[{child_word, child, parent_word}].push_back(parent);
    }
}

void RecordingKernel::throw_at_call(int n)
{
    m_throw_at = m_call_count + n;
}

void RecordingKernel::during(const QString& call, std::function<void()> action)
{
    m_actions.emplace(call, std::move(action));
}

KestoInterface::KIObserve* RecordingKernel::observer() const
{
    return m_observers.empty() ? nullptr : m_observers.back();
}

void RecordingKernel::called(const QString& call)
{
    m_log.add(call);
    if (m_call_count++ == m_throw_at) {
        throw KernelFailure("thrown by " + call.toStdString());
    }
    const auto [begin, end] = m_actions.equal_range(call);
    for (auto action = begin; action != end; ++action) {
        action->second();
    }
}

namespace KestoInterface {

std::vector<int> get_entities(const std::string& type)
{
    return answer(BoundaryAccess::call("get_entities", type).entities, type);
}

std::vector<int> get_list_of_free_ref_entities(const std::string& type)
{
    return answer(BoundaryAccess::call("get_list_of_free_ref_entities", type).free_entities, type);
}

std::vector<int> get_block_id_list()
{
    return answer(BoundaryAccess::call("get_block_id_list").exodus_ids, "block");
}

std::vector<int> get_sideset_id_list()
{
    return answer(BoundaryAccess::call("get_sideset_id_list").exodus_ids, "sideset");
}

std::vector<int> get_nodeset_id_list()
{
    return answer(BoundaryAccess::call("get_nodeset_id_list").exodus_ids, "nodeset");
}

std::vector<int> get_bc_id_list(KI_BCTypes type)
{
    return answer(BoundaryAccess::call("get_bc_id_list", int(type)).bc_ids, int(type));
}

std::vector<int> get_sideset_id_list_for_bc(KI_BCTypes type, int bc_id)
{
    return answer(
        BoundaryAccess::call("get_sideset_id_list_for_bc", int(type), bc_id).sidesets_of_bc,
        {int(type), bc_id});
}

std::vector<int> get_nodeset_id_list_for_bc(KI_BCTypes type, int bc_id)
{
    return answer(
        BoundaryAccess::call("get_nodeset_id_list_for_bc", int(type), bc_id).nodesets_of_bc,
        {int(type), bc_id});
}

std::vector<int> get_boundary_layer_id_list()
{
    return BoundaryAccess::call("get_boundary_layer_id_list").boundary_layers;
}

std::vector<int> sizing_source_ids()
{
    return BoundaryAccess::call("sizing_source_ids").sizing_sources;
}

void group_list(std::vector<std::string>& names, std::vector<int>& ids)
{
    for (const auto& [name, id] : BoundaryAccess::call("group_list").groups) {
        names.push_back(name);
        ids.push_back(id);
    }
}

std::string get_entity_name(const std::string& type, int id, bool flag)
{
    return answer(BoundaryAccess::call("get_entity_name", type, id, flag).names, {type, id});
}

std::string get_exodus_entity_name(std::string type, int id)
{
    return answer(
        BoundaryAccess::call("get_exodus_entity_name", type, id).exodus_names, {type, id});
}

std::string get_exodus_entity_type(std::string type, int id)
{
    return answer(
        BoundaryAccess::call("get_exodus_entity_type", type, id).exodus_types, {type, id});
}

bool is_visible(const std::string& type, int id)
{
    return !BoundaryAccess::call("is_visible", type, id).hidden.contains({type, id});
}

bool is_virtual(const std::string& type, int id)
{
    return BoundaryAccess::call("is_virtual", type, id).virtual_entities.contains({type, id});
}

bool contains_virtual(const std::string& type, int id)
{
    return BoundaryAccess::call("contains_virtual", type, id)
        .containing_virtual.contains({type, id});
}

bool is_sheet_body(int volume_id)
{
    return BoundaryAccess::call("is_sheet_body", volume_id).sheet_volumes.contains(volume_id);
}

std::vector<int> get_relatives(
    const std::string& source_type, int source_id, const std::string& target_type)
{
    return answer(
        BoundaryAccess::call("get_relatives", source_type, source_id, target_type).relatives,
        {source_type, source_id, target_type});
}

void get_group_children(int group_id, std::vector<int>& groups, std::vector<int>& bodies,
    std::vector<int>& volumes, std::vector<int>& surfaces, std::vector<int>& curves,
    std::vector<int>& vertices, int& nodes, int& edges, int& hexes, int& quads, int& tets,
    int& tris, int& wedges, int& pyramids, int& spheres)
{
    const RecordingKernel::GroupContents contents =
        answer(BoundaryAccess::call("get_group_children", group_id).group_contents, group_id);
    std::tie(groups, bodies, volumes, surfaces, curves, vertices) =
        std::tuple_cat(contents.members);
    std::tie(nodes, edges, hexes, quads, tets, tris, wedges, pyramids, spheres) =
        std::tuple_cat(contents.counts);
}

int current_selection_count()
{
    return int(BoundaryAccess::call("current_selection_count").selection.size());
}

std::string get_selected_type(int index)
{
    return BoundaryAccess::call("get_selected_type", index).selection.at(index).first;
}

int get_selected_id(int index)
{
    return BoundaryAccess::call("get_selected_id", index).selection.at(index).second;
}

bool silent_cmd(const char* command)
{
    return BoundaryAccess::call("silent_cmd", std::string(command)).command_result;
}

KestoBaseInterface* get_interface(std::string name)
{
    return BoundaryAccess::call("get_interface", name).material_component;
}

KIObserve::KIObserve() = default;

KIObserve::~KIObserve()
{
    if (active_kernel) {
        std::erase(BoundaryAccess::observers(*active_kernel), this);
    }
}

void KIObserve::register_observer()
{
    BoundaryAccess::observers(BoundaryAccess::call("register_observer")).push_back(this);
}

void KIObserve::unregister_observer()
{
    std::erase(BoundaryAccess::observers(BoundaryAccess::call("unregister_observer")), this);
}

} // namespace KestoInterface
