#include "MirrorFacts.hpp"

#include <support/RecordText.hpp>
#include <treemodel/kernel/TreeModel.hpp>
#include <treemodel/treedata/TreeBodyData.hpp>

namespace {

QStringList flags_of(TreeData* record)
{
    auto* geometry = qobject_cast<TreeGeometryData*>(record);
    auto* body = qobject_cast<TreeBodyData*>(record);
    auto* set = qobject_cast<TreeExodusData*>(record);
    auto* material = qobject_cast<TreeMaterialData*>(record);
    const std::pair<bool, const char*> flags[]{
        {!record->is_visible(), "hidden"},
        {geometry && geometry->is_virtual(), "virtual"},
        {body && body->is_sheet_body(), "sheet"},
        {body && body->is_multi_volume(), "multi"},
        {set && set->is_lite(), "lite"},
        {material && material->is_cfd(), "medium"},
    };
    QStringList words;
    for (const auto& [is_set, word] : flags) {
        if (is_set) {
            words << word;
        }
    }
    words.sort();
    return words;
}

class FactCollector
{
public:
    template <typename Record>
    void add_records(const std::vector<Record*>& records)
    {
        for (Record* record : records) {
            facts << record_fact(record_text(record), record->name(), flags_of(record));
        }
    }

    template <typename Record>
    void add_links(TreeData* from, const std::vector<Record*>& records)
    {
        for (Record* record : records) {
            facts << link_fact(record_text(from), record_text(record));
        }
    }

    QStringList facts;
};

} // namespace

QString record_fact(const QString& record, const QString& name, const QStringList& flags)
{
    return (QStringList(record + QStringLiteral(" '%1'").arg(name)) + flags).join(' ');
}

QString link_fact(const QString& from, const QString& to)
{
    return from + QStringLiteral(" > ") + to;
}

QStringList mirror_facts(TreeModel& mirror)
{
    FactCollector collector;
    for (int i = TreeGeometryData::VERTEX; i <= TreeGeometryData::BODY; ++i) {
        const auto records = mirror.geometry(TreeGeometryData::GeometryType(i));
        collector.add_records(records);
        for (TreeGeometryData* record : records) {
            collector.add_links(record, mirror.find_geometry_children(record));
        }
    }
    collector.add_records(mirror.groups());
    for (TreeGroupData* group : mirror.groups()) {
        collector.add_links(group, mirror.find_group_children(group));
    }
    collector.add_records(mirror.mesh_data());
    collector.add_records(mirror.sizing_sources());
    collector.add_records(mirror.boundary_layers());
    for (int i = TreeExodusData::BLOCK; i <= TreeExodusData::NODESET; ++i) {
        collector.add_records(mirror.exodus_entities(TreeExodusData::ExodusType(i)));
    }
    for (int i = TreeFeaBCData::FORCE; i <= TreeFeaBCData::CONTACT_PAIR; ++i) {
        const auto records = mirror.fea_bcs(TreeFeaBCData::FEAType(i));
        collector.add_records(records);
        for (TreeFeaBCData* bc : records) {
            collector.add_links(bc, mirror.find_exodus_from_fea(bc));
        }
    }
    for (int i = TreeCfdBCData::AXIS; i <= TreeCfdBCData::WALL; ++i) {
        const auto records = mirror.cfd_bcs(TreeCfdBCData::CFDType(i));
        collector.add_records(records);
        for (TreeCfdBCData* bc : records) {
            collector.add_links(bc, mirror.find_exodus_from_cfd(bc));
        }
    }
    collector.add_records(mirror.materials(false));
    collector.add_records(mirror.materials(true));
    collector.facts.sort();
    return collector.facts;
}
