#include "SignalPicture.hpp"

#include "MirrorFacts.hpp"
#include <support/RecordText.hpp>
#include <treemodel/kernel/TreeModel.hpp>
#include <treemodel/treedata/TreeBodyData.hpp>

SignalPicture::SignalPicture(TreeModel& mirror)
{
    follow_geometry(mirror);
    follow_groups_and_mesh(mirror);
    follow_simulation(mirror);
}

QStringList SignalPicture::facts() const
{
    QStringList facts;
    for (auto entry = m_entries.begin(); entry != m_entries.end(); ++entry) {
        QStringList flags(entry->flags.begin(), entry->flags.end());
        flags.sort();
        facts << record_fact(text_of(entry.key()), entry->name, flags);
    }
    for (const Link& link : m_links) {
        facts << link_fact(text_of(link.first), text_of(link.second));
    }
    facts.sort();
    return facts;
}

void SignalPicture::follow_geometry(TreeModel& mirror)
{
    connect(&mirror, &TreeModel::geometry_added, this,
        [this](TreeGeometryData* geom, TreeGeometryData* parent) {
            add(Geometry, geom);
            if (parent) {
                link(parent, geom);
            }
        });
    connect(&mirror, &TreeModel::geometry_removed, this, &SignalPicture::remove);
    connect(&mirror, &TreeModel::geometry_associated, this, &SignalPicture::link);
    connect(&mirror, &TreeModel::geometry_disassociated, this, &SignalPicture::unlink);
    connect(&mirror, &TreeModel::about_to_clear_geometry, this, [this] { clear(Geometry); });
}

void SignalPicture::follow_groups_and_mesh(TreeModel& mirror)
{
    connect(&mirror, &TreeModel::group_added, this, [this](TreeData* group) { add(Group, group); });
    connect(&mirror, &TreeModel::group_removed, this, &SignalPicture::remove);
    connect(&mirror, &TreeModel::group_child_added, this, &SignalPicture::link);
    connect(&mirror, &TreeModel::group_child_removed, this, &SignalPicture::unlink);
    connect(&mirror, &TreeModel::about_to_clear_groups, this, [this] { clear(Group); });

    connect(
        &mirror, &TreeModel::mesh_data_added, this, [this](TreeData* mesh) { add(Mesh, mesh); });
    connect(&mirror, &TreeModel::mesh_data_removed, this, &SignalPicture::remove);
    connect(&mirror, &TreeModel::about_to_clear_mesh_data, this, [this] { clear(Mesh); });
    connect(&mirror, &TreeModel::sizing_source_added, this,
        [this](TreeData* source) { add(SizingSource, source); });
    connect(&mirror, &TreeModel::sizing_source_removed, this, &SignalPicture::remove);
    connect(
        &mirror, &TreeModel::about_to_clear_sizing_sources, this, [this] { clear(SizingSource); });
    connect(&mirror, &TreeModel::boundary_layer_added, this,
        [this](TreeData* layer) { add(BoundaryLayer, layer); });
    connect(&mirror, &TreeModel::boundary_layer_removed, this, &SignalPicture::remove);
    connect(&mirror, &TreeModel::about_to_clear_boundary_layers, this,
        [this] { clear(BoundaryLayer); });
}

void SignalPicture::follow_simulation(TreeModel& mirror)
{
    connect(&mirror, &TreeModel::exodus_entity_added, this,
        [this](TreeData* exodus) { add(Exodus, exodus); });
    connect(&mirror, &TreeModel::exodus_entity_removed, this, &SignalPicture::remove);
    connect(&mirror, &TreeModel::about_to_clear_exodus, this, [this] { clear(Exodus); });

    connect(&mirror, &TreeModel::fea_bc_added, this, [this](TreeData* bc) { add(Fea, bc); });
    connect(&mirror, &TreeModel::fea_bc_removed, this, &SignalPicture::remove);
    connect(&mirror, &TreeModel::exodus_added_to_fea_bc, this, &SignalPicture::link);
    connect(&mirror, &TreeModel::exodus_removed_from_fea_bc, this, &SignalPicture::unlink);
    connect(&mirror, &TreeModel::about_to_clear_fea, this, [this] { clear(Fea); });

    connect(&mirror, &TreeModel::cfd_bc_added, this, [this](TreeData* bc) { add(Cfd, bc); });
    connect(&mirror, &TreeModel::cfd_bc_removed, this, &SignalPicture::remove);
    connect(&mirror, &TreeModel::exodus_added_to_cfd_bc, this, &SignalPicture::link);
    connect(&mirror, &TreeModel::exodus_removed_from_cfd_bc, this, &SignalPicture::unlink);
    connect(&mirror, &TreeModel::about_to_clear_cfd, this, [this] { clear(Cfd); });

    connect(&mirror, &TreeModel::material_added, this,
        [this](TreeData* material) { add(Material, material); });
    connect(&mirror, &TreeModel::material_removed, this, &SignalPicture::remove);
    connect(&mirror, &TreeModel::about_to_clear_material, this, [this] { clear(Material); });
}

void SignalPicture::add(Domain domain, TreeData* record)
{
    const QString text = record_text(record);
    const QString id = QLatin1Char(' ') + QString::number(record->id());
    const QString kind = text.endsWith(id) ? text.chopped(id.size()) : text;
    m_entries.insert(record, {domain, kind, record->id(), record->name(), {}});
    if (auto* material = qobject_cast<TreeMaterialData*>(record)) {
        set_flag(record, "medium", material->is_cfd());
    }
    follow_record(record);
}

void SignalPicture::follow_record(TreeData* record)
{
    connect(record, &TreeData::id_changed, this,
        [this, record](int new_id) { m_entries[record].id = new_id; });
    connect(record, &TreeData::name_changed, this, [this, record](const QString& name) {
        m_entries[record].name = name.isEmpty() ? record->name() : name;
    });
    connect(record, &TreeData::visible_changed, this,
        [this, record](bool visible) { set_flag(record, "hidden", !visible); });
    if (auto* geometry = qobject_cast<TreeGeometryData*>(record)) {
        connect(geometry, &TreeGeometryData::virtual_changed, this,
            [this, record](bool is_virtual) { set_flag(record, "virtual", is_virtual); });
    }
    if (auto* body = qobject_cast<TreeBodyData*>(record)) {
        connect(body, &TreeBodyData::sheet_body_changed, this,
            [this, record](bool is_sheet) { set_flag(record, "sheet", is_sheet); });
        connect(body, &TreeBodyData::multi_volume_changed, this,
            [this, record](bool is_multi) { set_flag(record, "multi", is_multi); });
    }
    if (auto* mesh = qobject_cast<TreeMeshData*>(record)) {
        connect(mesh, &TreeMeshData::element_count_changed, this,
            [this, record] { m_entries[record].name = record->name(); });
    }
    if (auto* exodus = qobject_cast<TreeExodusData*>(record)) {
        connect(exodus, &TreeExodusData::lite_status_changed, this,
            [this, record](bool is_lite) { set_flag(record, "lite", is_lite); });
    }
    if (auto* material = qobject_cast<TreeMaterialData*>(record)) {
        connect(material, &TreeMaterialData::cfd_flag_changed, this, [this, record](bool is_cfd) {
            set_flag(record, "medium", is_cfd);
            m_entries[record].name = record->name();
        });
    }
}

// Links that die with a record are told by its removal alone. A fluid boundary condition
// that has been removed may still speak.
void SignalPicture::remove(TreeData* record)
{
    m_entries.remove(record);
    m_links.removeIf(
        [record](const Link& link) { return link.first == record || link.second == record; });
    record->disconnect(this);
}

void SignalPicture::clear(Domain domain)
{
    const auto entries = m_entries;
    for (auto entry = entries.begin(); entry != entries.end(); ++entry) {
        if (entry->domain == domain) {
            remove(entry.key());
        }
    }
}

void SignalPicture::link(TreeData* from, TreeData* to)
{
    if (m_entries.contains(from) && m_entries.contains(to)) {
        m_links.insert({from, to});
    }
}

void SignalPicture::unlink(TreeData* from, TreeData* to)
{
    m_links.remove({from, to});
}

void SignalPicture::set_flag(TreeData* record, const QString& flag, bool is_set)
{
    QSet<QString>& flags = m_entries[record].flags;
    if (is_set) {
        flags.insert(flag);
    } else {
        flags.remove(flag);
    }
}

// A mesh record is called by its kind alone.
QString SignalPicture::text_of(TreeData* record) const
{
    const Entry& entry = *m_entries.find(record);
    return entry.domain == Mesh ? entry.kind
                                : entry.kind + QLatin1Char(' ') + QString::number(entry.id);
}
