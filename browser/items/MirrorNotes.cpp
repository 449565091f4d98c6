#include <browser/items/MirrorNotes.hpp>

#include <algorithm>
#include <browser/items/RecordItem.hpp>
#include <treemodel/kernel/TreeModel.hpp>
#include <treemodel/treedata/TreeBodyData.hpp>
#include <utility>

MirrorNotes::MirrorNotes(TreeModel& mirror)
    : m_mirror(mirror)
{
    follow_geometry();
    follow_groups();
    follow_mesh();
    follow_simulation();
    for (int kind = 0; kind < int(ItemKind::FirstCategory); ++kind) {
        m_scans.insert(ItemKind(kind));
    }
}

MirrorNotes::~MirrorNotes()
{
    qDeleteAll(m_datas);
}

RecordItemData* MirrorNotes::data(TreeData* record) const
{
    return m_datas.value(record);
}

RecordItemData& MirrorNotes::data_of(TreeData* record)
{
    RecordItemData*& data = m_datas[record];
    if (!data) {
        data = new RecordItemData(record);
        follow_record(*data);
    }
    return *data;
}

bool MirrorNotes::is_empty() const
{
    return !has_changed_children() && !has_changes() && dead_count() == 0 && !has_scans() &&
           !has_unplaced();
}

std::vector<RecordItemData*> MirrorNotes::take_changed_children()
{
    for (RecordItemData* data : m_changed_children) {
        data->m_children_changed = false;
    }
    return std::exchange(m_changed_children, {});
}

MirrorNotes::Change MirrorNotes::take_change()
{
    RecordItemData* data = m_changed.back();
    m_changed.pop_back();
    return {data, std::exchange(data->m_changes, RecordItemData::Nothing)};
}

void MirrorNotes::drop_first_dead()
{
    m_dead.pop_front();
}

ItemKind MirrorNotes::take_scan()
{
    const ItemKind kind = *m_scans.cbegin();
    m_scans.erase(m_scans.cbegin());
    return kind;
}

TreeData* MirrorNotes::take_unplaced()
{
    TreeData* record = nullptr;
    do {
        record = m_placing.front();
        m_placing.pop_front();
    } while (!m_unplaced.remove(record));
    return record;
}

void MirrorNotes::note_record(TreeData* record)
{
    if (!m_unplaced.contains(record)) {
        m_unplaced.insert(record);
        m_placing.push_back(record);
        Q_EMIT noted();
    }
}

void MirrorNotes::note_kind(ItemKind kind)
{
    m_scans.insert(kind);
    Q_EMIT noted();
}

void MirrorNotes::follow_geometry()
{
    connect(&m_mirror, &TreeModel::geometry_added, this,
        [this](TreeGeometryData* geom, TreeGeometryData* parent) {
            note_record(geom);
            note_children(parent);
        });
    const auto note_link = [this](TreeGeometryData* parent, TreeGeometryData* child) {
        note_record(child);
        note_children(parent);
    };
    connect(&m_mirror, &TreeModel::geometry_associated, this, note_link);
    connect(&m_mirror, &TreeModel::geometry_disassociated, this, note_link);
    connect(&m_mirror, &TreeModel::geometry_removed, this, &MirrorNotes::forget_geometry);
    connect(&m_mirror, &TreeModel::about_to_clear_geometry, this,
        [this] { forget_kinds(ItemKind::Body, ItemKind::Vertex); });
}

void MirrorNotes::follow_groups()
{
    connect(&m_mirror, &TreeModel::group_added, this, &MirrorNotes::note_record);
    connect(&m_mirror, &TreeModel::group_removed, this, &MirrorNotes::forget);
    connect(&m_mirror, &TreeModel::group_child_added, this, &MirrorNotes::note_children);
    connect(&m_mirror, &TreeModel::group_child_removed, this, &MirrorNotes::note_children);
    connect(&m_mirror, &TreeModel::about_to_clear_groups, this,
        [this] { forget_kinds(ItemKind::Group, ItemKind::Group); });
}

void MirrorNotes::follow_mesh()
{
    connect(&m_mirror, &TreeModel::sizing_source_added, this, &MirrorNotes::note_record);
    connect(&m_mirror, &TreeModel::sizing_source_removed, this, &MirrorNotes::forget);
    connect(&m_mirror, &TreeModel::about_to_clear_sizing_sources, this,
        [this] { forget_kinds(ItemKind::SizingSource, ItemKind::SizingSource); });

    connect(&m_mirror, &TreeModel::boundary_layer_added, this, &MirrorNotes::note_record);
    connect(&m_mirror, &TreeModel::boundary_layer_removed, this, &MirrorNotes::forget);
    connect(&m_mirror, &TreeModel::about_to_clear_boundary_layers, this,
        [this] { forget_kinds(ItemKind::BoundaryLayer, ItemKind::BoundaryLayer); });

    connect(&m_mirror, &TreeModel::mesh_data_added, this,
        [this](TreeMeshData* /*md*/, TreeData* owner) { note_children(owner); });
    connect(&m_mirror, &TreeModel::mesh_data_removed, this, &MirrorNotes::forget);
    connect(&m_mirror, &TreeModel::about_to_clear_mesh_data, this,
        [this] { forget_kinds(ItemKind::Hex, ItemKind::Node); });
}

void MirrorNotes::follow_simulation()
{
    connect(&m_mirror, &TreeModel::exodus_entity_added, this, &MirrorNotes::note_record);
    connect(&m_mirror, &TreeModel::exodus_entity_removed, this, &MirrorNotes::forget);
    connect(&m_mirror, &TreeModel::about_to_clear_exodus, this,
        [this] { forget_kinds(ItemKind::Block, ItemKind::Nodeset); });

    connect(&m_mirror, &TreeModel::fea_bc_added, this, &MirrorNotes::note_record);
    connect(&m_mirror, &TreeModel::fea_bc_removed, this, &MirrorNotes::forget);
    connect(&m_mirror, &TreeModel::exodus_added_to_fea_bc, this, &MirrorNotes::note_children);
    connect(&m_mirror, &TreeModel::exodus_removed_from_fea_bc, this, &MirrorNotes::note_children);
    connect(&m_mirror, &TreeModel::about_to_clear_fea, this,
        [this] { forget_kinds(ItemKind::Force, ItemKind::ContactPair); });

    connect(&m_mirror, &TreeModel::cfd_bc_added, this, &MirrorNotes::note_record);
    connect(&m_mirror, &TreeModel::cfd_bc_removed, this, &MirrorNotes::forget);
    connect(&m_mirror, &TreeModel::exodus_added_to_cfd_bc, this, &MirrorNotes::note_children);
    connect(&m_mirror, &TreeModel::exodus_removed_from_cfd_bc, this, &MirrorNotes::note_children);
    connect(&m_mirror, &TreeModel::about_to_clear_cfd, this,
        [this] { forget_kinds(ItemKind::Axis, ItemKind::Wall); });

    connect(&m_mirror, &TreeModel::material_added, this, &MirrorNotes::note_record);
    connect(&m_mirror, &TreeModel::material_removed, this, &MirrorNotes::forget);
    connect(&m_mirror, &TreeModel::about_to_clear_material, this,
        [this] { forget_kinds(ItemKind::Material, ItemKind::Medium); });
}

void MirrorNotes::follow_record(RecordItemData& data)
{
    TreeData* record = data.record();
    const auto note_values = [this, &data] { note_change(data, RecordItemData::Values); };
    const auto note_look = [this, &data] { note_change(data, RecordItemData::Look); };
    connect(record, &TreeData::id_changed, this, note_values);
    connect(record, &TreeData::name_changed, this, note_values);
    connect(record, &TreeData::visible_changed, this, note_values);
    if (auto* geometry = qobject_cast<TreeGeometryData*>(record)) {
        connect(geometry, &TreeGeometryData::virtual_changed, this, note_look);
    }
    if (auto* body = qobject_cast<TreeBodyData*>(record)) {
        connect(body, &TreeBodyData::sheet_body_changed, this, note_look);
        connect(body, &TreeBodyData::multi_volume_changed, this, note_look);
    } else if (auto* mesh = qobject_cast<TreeMeshData*>(record)) {
        connect(mesh, &TreeMeshData::element_count_changed, this, note_values);
    } else if (auto* exodus = qobject_cast<TreeExodusData*>(record)) {
        connect(exodus, &TreeExodusData::lite_status_changed, this, note_look);
    } else if (auto* material = qobject_cast<TreeMaterialData*>(record)) {
        connect(material, &TreeMaterialData::cfd_flag_changed, this, [this, record, note_values] {
            note_values();
            note_record(record);
        });
    }
}

// Places that still wait for their children will read them anyway.
void MirrorNotes::note_children(TreeData* record)
{
    RecordItemData* changed = data(record);
    if (changed && !changed->m_children_changed) {
        changed->m_children_changed = true;
        m_changed_children.push_back(changed);
        Q_EMIT noted();
    }
}

void MirrorNotes::note_change(RecordItemData& data, RecordItemData::Changes change)
{
    if (data.m_changes == RecordItemData::Nothing) {
        m_changed.push_back(&data);
        Q_EMIT noted();
    }
    data.m_changes |= change;
}

void MirrorNotes::forget_geometry(TreeGeometryData* record)
{
    note_orphans(record);
    forget(record);
}

// The links of a dying record end without a word, so geometry below it may have no parent now.
// Its rows tell what that was, unless there are none or they are out of date.
void MirrorNotes::note_orphans(TreeGeometryData* record)
{
    const auto is_up_to_date = [](EntityItem* item) {
        const auto* place = static_cast<RecordItem*>(item);
        return place->opens() && !place->is_waiting();
    };
    RecordItemData* known = data(record);
    const auto all =
        known && !known->m_children_changed ? known->places() : std::vector<EntityItem*>();
    const auto place = std::find_if(all.begin(), all.end(), is_up_to_date);
    if (place != all.end()) {
        for (int row = 0; row < (*place)->childCount(); ++row) {
            const auto* child = static_cast<RecordItem*>((*place)->getChild(row));
            if (TreeData* part = child->data().record()) {
                note_record(part);
            }
        }
    } else if (const ItemKind kind = item_kind(record); kind != ItemKind::Vertex) {
        note_kind(ItemKind(int(kind) + 1));
    }
}

void MirrorNotes::forget(TreeData* record)
{
    m_unplaced.remove(record);
    ++m_death_count;
    if (RecordItemData* dead = m_datas.take(record)) {
        record->disconnect(this);
        dead->m_record = nullptr;
        m_dead.emplace_back(dead);
        Q_EMIT noted();
    }
}

void MirrorNotes::forget_kinds(ItemKind first, ItemKind last)
{
    const auto is_one = [=](const RecordItemData* data) {
        return data->kind() >= first && data->kind() <= last;
    };
    QList<RecordItemData*> dying = m_datas.values();
    dying.removeIf([&](const RecordItemData* data) { return !is_one(data); });
    // Whatever stands below others comes after them, and goes with their rows.
    std::sort(dying.begin(), dying.end(),
        [](const RecordItemData* a, const RecordItemData* b) { return a->kind() < b->kind(); });
    for (RecordItemData* data : std::as_const(dying)) {
        forget(data->record());
    }
    m_unplaced.removeIf([=](TreeData* record) {
        const ItemKind kind = item_kind(record);
        return kind >= first && kind <= last;
    });
    ++m_death_count;
}
