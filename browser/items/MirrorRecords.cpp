#include <browser/items/MirrorRecords.hpp>

#include <algorithm>
#include <treemodel/kernel/TreeModel.hpp>

namespace {

template <typename Record>
void append(std::vector<MirrorRecords::Entry>& entries, const std::vector<Record*>& records)
{
    entries.reserve(entries.size() + records.size());
    for (Record* record : records) {
        entries.push_back(MirrorRecords::entry(record));
    }
}

template <typename Record>
std::vector<TreeData*> as_records(const std::vector<Record*>& records)
{
    return {records.begin(), records.end()};
}

template <typename Type>
Type offset_from(ItemKind first, ItemKind kind)
{
    return Type(int(kind) - int(first));
}

} // namespace

MirrorRecords::MirrorRecords(TreeModel& mirror)
    : m_mirror(mirror)
{
}

MirrorRecords::Entry MirrorRecords::entry(TreeData* record)
{
    return {item_kind(record), record->id(), record};
}

std::vector<MirrorRecords::Entry> MirrorRecords::children(TreeData* record, bool opens) const
{
    std::vector<Entry> result;
    const ItemKind kind = item_kind(record);
    if (opens && kind < ItemKind::Vertex) {
        append(result, m_mirror.find_geometry_children(static_cast<TreeGeometryData*>(record)));
    } else if (opens && kind == ItemKind::Group) {
        result = members(static_cast<TreeGroupData*>(record));
    } else if (opens && kind >= ItemKind::Force && kind <= ItemKind::ContactPair) {
        append(result, m_mirror.find_exodus_from_fea(static_cast<TreeFeaBCData*>(record)));
    } else if (opens && kind >= ItemKind::Axis && kind <= ItemKind::Wall) {
        append(result, m_mirror.find_exodus_from_cfd(static_cast<TreeCfdBCData*>(record)));
    }
    append(result, m_mirror.find_mesh_data(record));
    std::sort(result.begin(), result.end());
    return result;
}

std::optional<Category> MirrorRecords::home(TreeData* record) const
{
    const ItemKind kind = item_kind(record);
    if (is_element_count(kind)) {
        return {};
    }
    const bool is_part = kind > ItemKind::Body && kind <= ItemKind::Vertex;
    if (is_part &&
        !m_mirror.find_geometry_parents(static_cast<TreeGeometryData*>(record)).empty()) {
        return {};
    }
    return item_kind_info(kind).category;
}

std::vector<TreeData*> MirrorRecords::all(ItemKind kind) const
{
    if (kind <= ItemKind::Vertex) {
        return as_records(
            m_mirror.geometry(TreeGeometryData::GeometryType(TreeGeometryData::BODY - int(kind))));
    }
    if (kind == ItemKind::Group) {
        return as_records(m_mirror.groups());
    }
    if (kind == ItemKind::SizingSource) {
        return as_records(m_mirror.sizing_sources());
    }
    if (kind == ItemKind::BoundaryLayer) {
        return as_records(m_mirror.boundary_layers());
    }
    if (kind >= ItemKind::Block && kind <= ItemKind::Nodeset) {
        return as_records(m_mirror.exodus_entities(
            offset_from<TreeExodusData::ExodusType>(ItemKind::Block, kind)));
    }
    if (kind >= ItemKind::Force && kind <= ItemKind::ContactPair) {
        return as_records(
            m_mirror.fea_bcs(offset_from<TreeFeaBCData::FEAType>(ItemKind::Force, kind)));
    }
    if (kind >= ItemKind::Axis && kind <= ItemKind::Wall) {
        return as_records(
            m_mirror.cfd_bcs(offset_from<TreeCfdBCData::CFDType>(ItemKind::Axis, kind)));
    }
    if (kind == ItemKind::Material || kind == ItemKind::Medium) {
        return as_records(m_mirror.materials(kind == ItemKind::Medium));
    }
    return {};
}

// Element counts are members, too, but come with their owner. A record that has just left the
// mirror stays a member until it is deleted.
std::vector<MirrorRecords::Entry> MirrorRecords::members(TreeGroupData* group) const
{
    std::vector<Entry> result;
    append(result, m_mirror.find_group_children(group));
    std::erase_if(result, [this](const Entry& entry) { return !stands(entry); });
    return result;
}

bool MirrorRecords::stands(const Entry& entry) const
{
    if (entry.kind <= ItemKind::Vertex) {
        const auto type = TreeGeometryData::GeometryType(TreeGeometryData::BODY - int(entry.kind));
        return m_mirror.find_geometry(type, entry.id) == entry.record;
    }
    return entry.kind == ItemKind::Group && m_mirror.find_group(entry.id) == entry.record;
}
