#include <treemodel/models/TreeGeomModel.hpp>

#include <array>
#include <memory>
#include <QScopeGuard>
#include <treemodel/prefetch.hpp>
#include <treemodel/treedata/RecordDeaths.hpp>
#include <treemodel/treedata/TreeBodyData.hpp>
#include <utility>

namespace {

std::unique_ptr<TreeGeometryData> new_record(TreeGeometryData::GeometryType type, int id)
{
    if (type == TreeGeometryData::BODY) {
        return std::make_unique<TreeBodyData>(id);
    }
    return std::make_unique<TreeGeometryData>(type, id);
}

} // namespace

TreeGeomModel::TreeGeomModel() = default;

TreeGeomModel::~TreeGeomModel()
{
    clear();
}

TreeGeometryData* TreeGeomModel::add_geometry(
    TreeGeometryData::GeometryType type, int id, TreeGeometryData* parent)
{
    RecordMap* records = map_of(type);
    if (!records) {
        return nullptr;
    }
    const quint64 deaths = RecordDeaths::count();
    TreeGeometryData* record = records->value(id);
    if (record) {
        associate_geometry(parent, record);
    } else {
        auto created = new_record(type, id);
        records->insert(id, created.get());
        record = created.release();
        const bool is_linked = do_association(parent, record);
        Q_EMIT geometry_added(record, is_linked ? parent : nullptr);
    }
    // A receiver may have had the record removed.
    return deaths == RecordDeaths::count() ? record : find_geometry(type, id);
}

void TreeGeomModel::remove_geometry(TreeGeometryData::GeometryType type, int id)
{
    RecordMap* records = map_of(type);
    if (!records) {
        return;
    }
    if (const auto record = std::unique_ptr<TreeGeometryData>(records->take(id))) {
        // The links, and those that receivers make meanwhile.
        const auto unlink = qScopeGuard([&] { clear_associations(record.get()); });
        clear_associations(record.get());
        Q_EMIT geometry_removed(record.get());
    }
}

void TreeGeomModel::change_geometry_id(TreeGeometryData::GeometryType type, int old_id, int new_id)
{
    RecordMap* records = map_of(type);
    if (!records || records->find(new_id)) {
        return;
    }
    if (TreeGeometryData* record = records->take(old_id)) {
        records->insert(new_id, record);
        record->set_id(new_id);
    }
}

TreeGeometryData* TreeGeomModel::find_geometry(TreeGeometryData::GeometryType type, int id)
{
    const RecordMap* records = map_of(type);
    return records ? records->value(id) : nullptr;
}

std::vector<TreeGeometryData*> TreeGeomModel::geometry_data(TreeGeometryData::GeometryType type)
{
    const RecordMap* records = map_of(type);
    return records ? records->values() : std::vector<TreeGeometryData*>();
}

void TreeGeomModel::associate_geometry(TreeGeometryData* parent, TreeGeometryData* child)
{
    if (do_association(parent, child)) {
        Q_EMIT association_added(parent, child);
    }
}

void TreeGeomModel::disassociate_geometry(TreeGeometryData* parent, TreeGeometryData* child)
{
    if (do_disassociation(parent, child)) {
        Q_EMIT association_removed(parent, child);
    }
}

std::vector<TreeGeometryData*> TreeGeomModel::find_geometry_children(TreeGeometryData* parent)
{
    return m_children_map.find(parent);
}

std::vector<TreeGeometryData*> TreeGeomModel::find_geometry_parents(TreeGeometryData* child)
{
    return m_parents_map.find(child);
}

void TreeGeomModel::clear()
{
    Q_EMIT about_to_clear();
    m_children_map.clear();
    m_parents_map.clear();
    for (RecordMap* records :
        {&m_body_map, &m_volume_map, &m_surface_map, &m_curve_map, &m_vertex_map}) {
        for_each_prefetched(std::exchange(*records, {}).values(), [this](TreeGeometryData* record) {
            clear_associations(record);
            delete record;
        });
    }
}

TreeGeomModel::RecordMap* TreeGeomModel::map_of(TreeGeometryData::GeometryType type)
{
    const std::array<RecordMap*, 5> maps{
        &m_vertex_map, &m_curve_map, &m_surface_map, &m_volume_map, &m_body_map};
    const auto index = static_cast<std::size_t>(type);
    return index < maps.size() ? maps[index] : nullptr;
}

bool TreeGeomModel::do_association(TreeGeometryData* parent, TreeGeometryData* child)
{
    if (!RecordDeaths::is_alive(parent) || !RecordDeaths::is_alive(child)) {
        return false;
    }
    m_parents_map.insert(child, parent);
    return m_children_map.insert(parent, child);
}

bool TreeGeomModel::do_disassociation(TreeGeometryData* parent, TreeGeometryData* child)
{
    m_parents_map.erase(child, parent);
    return m_children_map.erase(parent, child);
}

void TreeGeomModel::clear_associations(TreeGeometryData* record)
{
    for (TreeGeometryData* child : find_geometry_children(record)) {
        do_disassociation(record, child);
    }
    m_children_map.erase(record);
    for (TreeGeometryData* parent : find_geometry_parents(record)) {
        do_disassociation(parent, record);
    }
    m_parents_map.erase(record);
}
