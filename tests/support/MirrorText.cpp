#include <support/MirrorText.hpp>

#include <algorithm>
#include <QLatin1String>
#include <support/GeometryText.hpp>
#include <support/RecordText.hpp>
#include <treemodel/kernel/TreeModel.hpp>

namespace {

template <typename Record>
QStringList texts_of(const std::vector<Record*>& records)
{
    QStringList texts;
    std::transform(records.begin(), records.end(), std::back_inserter(texts), record_text);
    texts.sort(); // linked records come in the order of their addresses
    return texts;
}

QString links_text(const char* sign, const QStringList& records)
{
    return records.isEmpty() ? QString() : QLatin1String(sign) + records.join(", ");
}

QString flag_text(const char* word, bool is_set)
{
    return QLatin1String(is_set ? word : "");
}

QString own_text(const QString& record_name, TreeData* record)
{
    return record_name + " '" + record->name() + '\'' + flag_text(" hidden", !record->is_visible());
}

// The line of each record that is in a group; the groups' own lines show the other side.
template <typename Record>
QStringList membership_text(TreeModel& model, const std::vector<Record*>& records)
{
    QStringList lines;
    for (Record* record : records) {
        const auto groups = model.find_groups_for_child(record);
        if (!groups.empty()) {
            lines << record_text(record) + links_text(" < ", texts_of(groups));
        }
    }
    return lines;
}

QStringList group_text(TreeModel& model)
{
    QStringList lines;
    for (int type = TreeGeometryData::BODY; type >= TreeGeometryData::VERTEX; --type) {
        lines << membership_text(
            model, model.geometry(static_cast<TreeGeometryData::GeometryType>(type)));
    }
    for (TreeGroupData* group : model.groups()) {
        lines << own_text(record_text(group), group) +
                     links_text(" < ", texts_of(model.find_groups_for_child(group))) +
                     links_text(" > ", texts_of(model.find_group_children(group)));
        for (TreeMeshData* mesh : model.find_mesh_data(group)) {
            lines << own_text(record_text(mesh) + " of " + record_text(group), mesh) +
                         links_text(" < ", texts_of(model.find_groups_for_child(mesh)));
        }
    }
    return lines;
}

QStringList mesh_text(TreeModel& model)
{
    QStringList lines;
    for (TreeSizingSourceData* source : model.sizing_sources()) {
        lines << own_text(record_text(source), source);
    }
    for (TreeBoundaryLayerData* layer : model.boundary_layers()) {
        lines << own_text(record_text(layer), layer);
    }
    // With those of owners that are no groups (any more).
    if (const QStringList records = texts_of(model.mesh_data()); !records.isEmpty()) {
        lines << "mesh records: " + records.join(", ");
    }
    return lines;
}

QStringList exodus_text(TreeModel& model)
{
    QStringList lines;
    for (int type = TreeExodusData::BLOCK; type <= TreeExodusData::NODESET; ++type) {
        for (TreeExodusData* set :
            model.exodus_entities(static_cast<TreeExodusData::ExodusType>(type))) {
            lines << own_text(record_text(set), set) + flag_text(" lite", set->is_lite()) +
                         links_text(" < ", texts_of(model.find_fea_from_exodus(set)) +
                                               texts_of(model.find_cfd_from_exodus(set)));
        }
    }
    return lines;
}

QStringList boundary_condition_text(TreeModel& model)
{
    QStringList lines;
    for (int type = TreeFeaBCData::FORCE; type <= TreeFeaBCData::CONTACT_PAIR; ++type) {
        for (TreeFeaBCData* bc : model.fea_bcs(static_cast<TreeFeaBCData::FEAType>(type))) {
            lines << own_text(record_text(bc), bc) +
                         links_text(" > ", texts_of(model.find_exodus_from_fea(bc)));
        }
    }
    for (int type = TreeCfdBCData::AXIS; type <= TreeCfdBCData::WALL; ++type) {
        for (TreeCfdBCData* bc : model.cfd_bcs(static_cast<TreeCfdBCData::CFDType>(type))) {
            lines << own_text(record_text(bc), bc) +
                         links_text(" > ", texts_of(model.find_exodus_from_cfd(bc)));
        }
    }
    return lines;
}

QStringList material_text(TreeModel& model)
{
    QStringList lines;
    for (const bool is_medium : {false, true}) {
        for (TreeMaterialData* material : model.materials(is_medium)) {
            lines << own_text(record_text(material), material) + flag_text(" medium", is_medium);
        }
    }
    return lines;
}

} // namespace

QStringList mirror_text(TreeModel& model)
{
    return geometry_text(model) + group_text(model) + mesh_text(model) + exodus_text(model) +
           boundary_condition_text(model) + material_text(model);
}
