#include <treemodel/models/TreeMeshModel.hpp>

#include <treemodel/models/DeathWatch.hpp>
#include <treemodel/models/RecordMaps.hpp>
#include <treemodel/treedata/RecordDeaths.hpp>

namespace {

const DeathWatch& death_watch()
{
    static const DeathWatch watch(
        TreeMeshModel::staticMetaObject, "mesh_data_owner_destroyed(TreeData*)");
    return watch;
}

} // namespace

TreeMeshModel::TreeMeshModel() = default;

TreeMeshModel::~TreeMeshModel()
{
    clear();
}

TreeSizingSourceData* TreeMeshModel::add_sizing_source(int id)
{
    return add_record(m_sizing_source_map, this, &TreeMeshModel::sizing_source_added, id, id);
}

void TreeMeshModel::remove_sizing_source(int id)
{
    if (const auto source = take_record(m_sizing_source_map, id)) {
        Q_EMIT sizing_source_removed(source.get());
    }
}

TreeSizingSourceData* TreeMeshModel::find_sizing_source(int id)
{
    return find_record(m_sizing_source_map, id);
}

std::vector<TreeSizingSourceData*> TreeMeshModel::sizing_sources()
{
    return all_records(m_sizing_source_map);
}

TreeBoundaryLayerData* TreeMeshModel::add_boundary_layer(int id)
{
    return add_record(m_boundary_layer_map, this, &TreeMeshModel::boundary_layer_added, id, id);
}

void TreeMeshModel::remove_boundary_layer(int id)
{
    if (const auto layer = take_record(m_boundary_layer_map, id)) {
        Q_EMIT boundary_layer_removed(layer.get());
    }
}

TreeBoundaryLayerData* TreeMeshModel::find_boundary_layer(int id)
{
    return find_record(m_boundary_layer_map, id);
}

std::vector<TreeBoundaryLayerData*> TreeMeshModel::boundary_layers()
{
    return all_records(m_boundary_layer_map);
}

TreeMeshData* TreeMeshModel::add_mesh_data(
    TreeMeshData::MeshType type, int element_count, TreeData* owner)
{
    if (!RecordDeaths::is_alive(owner)) {
        return nullptr;
    }
    const quint64 deaths = RecordDeaths::count();
    const auto [entry, owner_is_new] = m_mesh_data_map.try_emplace(owner);
    const auto [record, is_new] = find_or_add_record(entry->second, type, type, element_count);
    if (owner_is_new) {
        announce_first_mesh_data(record, owner);
    } else if (is_new) {
        Q_EMIT mesh_data_added(record, owner);
    } else if (record->element_count() != element_count) {
        record->set_element_count(element_count);
    }
    return deaths == RecordDeaths::count() ? record : find_mesh_data(type, owner);
}

void TreeMeshModel::remove_mesh_data(TreeMeshData::MeshType type, TreeData* owner)
{
    if (auto record = take_mesh_data(type, owner)) {
        Q_EMIT mesh_data_removed(record.get(), owner);
        record.reset();
        drop_empty_entry(owner);
    }
}

TreeMeshData* TreeMeshModel::find_mesh_data(TreeMeshData::MeshType type, TreeData* owner)
{
    const MeshDataMap* records = mesh_data_of(owner);
    return records ? find_record(*records, type) : nullptr;
}

std::vector<TreeMeshData*> TreeMeshModel::mesh_data()
{
    std::vector<TreeMeshData*> result;
    for (const auto& [owner, records] : m_mesh_data_map) {
        for (const auto& [type, record] : records) {
            result.push_back(record);
        }
    }
    return result;
}

std::vector<TreeMeshData*> TreeMeshModel::mesh_data(TreeMeshData::MeshType type)
{
    std::vector<TreeMeshData*> result;
    for (const auto& [owner, records] : m_mesh_data_map) {
        if (TreeMeshData* record = find_record(records, type)) {
            result.push_back(record);
        }
    }
    return result;
}

std::vector<TreeMeshData*> TreeMeshModel::mesh_data(TreeData* owner)
{
    const MeshDataMap* records = mesh_data_of(owner);
    return records ? all_records(*records) : std::vector<TreeMeshData*>();
}

void TreeMeshModel::clear_sizing_sources()
{
    Q_EMIT about_to_clear_sizing_sources();
    delete_records(m_sizing_source_map);
}

void TreeMeshModel::clear_boundary_layers()
{
    Q_EMIT about_to_clear_boundary_layers();
    delete_records(m_boundary_layer_map);
}

void TreeMeshModel::clear_mesh_data()
{
    Q_EMIT about_to_clear_mesh_data();
    // Receivers may delete owners from here on, and add records, which stay.
    auto owners = std::exchange(m_mesh_data_map, {});
    for (const auto& [owner, records] : owners) {
        unwatch(owner);
    }
    for (auto& [owner, records] : owners) {
        delete_records(records);
    }
}

void TreeMeshModel::clear()
{
    clear_boundary_layers();
    clear_sizing_sources();
    clear_mesh_data();
}

// The owner is no more than a key here. Its records are looked up anew at each
// step, since a receiver may clear the model.
void TreeMeshModel::mesh_data_owner_destroyed(TreeData* owner)
{
    for (const MeshDataMap* records = mesh_data_of(owner); records && !records->empty();
         records = mesh_data_of(owner)) {
        TreeMeshData* record = records->begin()->second;
        const TreeMeshData::MeshType type = record->mesh_type();
        Q_EMIT mesh_data_removed(record, owner);
        take_mesh_data(type, owner).reset();
    }
    m_mesh_data_map.erase(owner);
}

/// Null for an owner without an entry.
TreeMeshModel::MeshDataMap* TreeMeshModel::mesh_data_of(TreeData* owner)
{
    const auto entry = m_mesh_data_map.find(owner);
    return entry == m_mesh_data_map.end() ? nullptr : &entry->second;
}

/// Hands the record over to the caller; null if there is none.
std::unique_ptr<TreeMeshData> TreeMeshModel::take_mesh_data(
    TreeMeshData::MeshType type, TreeData* owner)
{
    MeshDataMap* records = mesh_data_of(owner);
    return records ? take_record(*records, type) : nullptr;
}

// The owner is watched from here on, behind the receivers' own connections.
// Should it die while they run, its entry goes no later than the owner itself.
void TreeMeshModel::announce_first_mesh_data(TreeMeshData* record, TreeData* owner)
{
    const auto guard = connect(
        owner, &QObject::destroyed, this, [this, owner] { mesh_data_owner_destroyed(owner); });
    Q_EMIT mesh_data_added(record, owner);
    disconnect(guard);
    if (mesh_data_of(owner)) {
        watch(owner);
    }
}

void TreeMeshModel::drop_empty_entry(TreeData* owner)
{
    const MeshDataMap* records = mesh_data_of(owner);
    if (records && records->empty()) {
        m_mesh_data_map.erase(owner);
        unwatch(owner);
    }
}

void TreeMeshModel::watch(TreeData* owner)
{
    death_watch().connect(owner, this, Qt::UniqueConnection);
}

void TreeMeshModel::unwatch(TreeData* owner)
{
    death_watch().disconnect(owner, this);
}
