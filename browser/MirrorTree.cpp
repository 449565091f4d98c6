#include <browser/MirrorTree.hpp>

#include <algorithm>
#include <array>
#include <browser/items/MirrorRecords.hpp>
#include <treemodel/kernel/TreeModel.hpp>
#include <treemodel/treedata/TreeBodyData.hpp>

namespace {

// What is counted in one: the records of consecutive kinds.
struct CountedKinds
{
    ItemKind first;
    ItemKind last;
    const char* plural;
};

constexpr std::array<CountedKinds, 15> counted_kinds{{
    {ItemKind::Body, ItemKind::Body, "bodies"},
    {ItemKind::Volume, ItemKind::Volume, "volumes"},
    {ItemKind::Surface, ItemKind::Surface, "surfaces"},
    {ItemKind::Curve, ItemKind::Curve, "curves"},
    {ItemKind::Vertex, ItemKind::Vertex, "vertices"},
    {ItemKind::Group, ItemKind::Group, "groups"},
    {ItemKind::SizingSource, ItemKind::SizingSource, "sizing sources"},
    {ItemKind::BoundaryLayer, ItemKind::BoundaryLayer, "boundary layers"},
    {ItemKind::Block, ItemKind::Block, "blocks"},
    {ItemKind::Sideset, ItemKind::Sideset, "sidesets"},
    {ItemKind::Nodeset, ItemKind::Nodeset, "nodesets"},
    {ItemKind::Force, ItemKind::ContactPair, "FEA boundary conditions"},
    {ItemKind::Axis, ItemKind::Wall, "CFD boundary conditions"},
    {ItemKind::Material, ItemKind::Material, "materials"},
    {ItemKind::Medium, ItemKind::Medium, "media"},
}};

template <typename Record>
void append(std::vector<TreeData*>& list, const std::vector<Record*>& records)
{
    list.insert(list.end(), records.begin(), records.end());
}

std::vector<TreeData*> records_between(TreeModel& mirror, ItemKind first, ItemKind last)
{
    const MirrorRecords records(mirror);
    std::vector<TreeData*> result;
    for (int kind = int(first); kind <= int(last); ++kind) {
        append(result, records.all(ItemKind(kind)));
    }
    return result;
}

// Among the children of one record: groups, geometry from body to vertex, sets and
// element counts by their types.
std::pair<int, int> place_among_siblings(TreeData* record)
{
    int rank = 0;
    if (auto* geometry = qobject_cast<TreeGeometryData*>(record)) {
        rank = 1 + TreeGeometryData::BODY - geometry->geometry_type();
    } else if (auto* exodus = qobject_cast<TreeExodusData*>(record)) {
        rank = 1 + exodus->exodus_type();
    } else if (auto* mesh = qobject_cast<TreeMeshData*>(record)) {
        return {100, mesh->mesh_type()};
    }
    return {rank, record->id()};
}

} // namespace

MirrorTree::MirrorTree(TreeModel& mirror)
    : m_mirror(mirror)
{
}

void MirrorTree::set_filter(const QString& text)
{
    m_filter = text;
    m_hits_below.clear();
}

void MirrorTree::set_selected(const std::vector<TreeData*>& records)
{
    m_selected = {records.begin(), records.end()};
}

std::vector<TreeData*> MirrorTree::children(const Path& path) const
{
    TreeData* const record = path.empty() ? nullptr : path.back();
    TreeData* const parent = path.size() < 2 ? nullptr : path[path.size() - 2];
    std::vector<TreeData*> result = record ? children_of(record, parent) : roots();
    const bool shows_all =
        m_filter.isEmpty() ||
        std::any_of(path.begin(), path.end(), [this](TreeData* above) { return is_hit(above); });
    if (!shows_all) {
        std::erase_if(result,
            [&](TreeData* child) { return !is_hit(child) && !has_hit_below(child, record); });
    }
    return result;
}

bool MirrorTree::is_hit(TreeData* record) const
{
    return record->name().contains(m_filter, Qt::CaseInsensitive);
}

bool MirrorTree::has_hit_below(TreeData* record, TreeData* parent) const
{
    const bool is_member = qobject_cast<TreeGroupData*>(parent);
    // A group that holds itself finds its own entry.
    const auto [entry, is_new] = m_hits_below.insert({{record, is_member}, false});
    if (is_new) {
        const std::vector<TreeData*> records = children_of(record, parent);
        entry->second = std::any_of(records.begin(), records.end(),
            [&](TreeData* child) { return is_hit(child) || has_hit_below(child, record); });
    }
    return entry->second;
}

std::vector<TreeData*> MirrorTree::roots() const
{
    std::vector<TreeData*> result;
    append(result, m_mirror.geometry(TreeGeometryData::BODY));
    append(result, free_geometry());
    for (TreeGroupData* group : m_mirror.groups()) {
        if (m_mirror.find_groups_for_child(group).empty()) {
            result.push_back(group);
        }
    }
    append(result, records_between(m_mirror, ItemKind::SizingSource, ItemKind::BoundaryLayer));
    append(result, records_between(m_mirror, ItemKind::Block, ItemKind::Medium));
    return result;
}

std::vector<TreeData*> MirrorTree::children_of(TreeData* record, TreeData* parent) const
{
    std::vector<TreeData*> result;
    if (auto* geometry = qobject_cast<TreeGeometryData*>(record)) {
        // A group names its members; they are opened where they belong.
        if (!qobject_cast<TreeGroupData*>(parent)) {
            append(result, m_mirror.find_geometry_children(geometry));
        }
    } else if (auto* group = qobject_cast<TreeGroupData*>(record)) {
        result = m_mirror.find_group_children(group);
    } else if (auto* fea_bc = qobject_cast<TreeFeaBCData*>(record)) {
        append(result, m_mirror.find_exodus_from_fea(fea_bc));
    } else if (auto* cfd_bc = qobject_cast<TreeCfdBCData*>(record)) {
        append(result, m_mirror.find_exodus_from_cfd(cfd_bc));
    }
    std::sort(result.begin(), result.end(), [](TreeData* left, TreeData* right) {
        return place_among_siblings(left) < place_among_siblings(right);
    });
    return result;
}

QString MirrorTree::kind(TreeData* record) const
{
    return qobject_cast<TreeMeshData*>(record)
               ? QStringLiteral("elements")
               : QString::fromStdString(item_kind_info(item_kind(record)).word);
}

QStringList MirrorTree::flags(TreeData* record) const
{
    QStringList result;
    if (auto* geometry = qobject_cast<TreeGeometryData*>(record)) {
        result = geometry_flags(geometry);
    }
    auto* exodus = qobject_cast<TreeExodusData*>(record);
    if (exodus && exodus->is_lite()) {
        result << "lite";
    }
    if (!record->is_visible()) {
        result << "hidden";
    }
    if (m_selected.contains(record)) {
        result << "selected";
    }
    return result;
}

std::vector<MirrorTree::Count> MirrorTree::counts() const
{
    std::vector<Count> result;
    for (const CountedKinds& kinds : counted_kinds) {
        const std::size_t count = records_between(m_mirror, kinds.first, kinds.last).size();
        if (count > 0 || kinds.first <= ItemKind::Vertex) {
            result.push_back({kinds.plural, int(count)});
        }
    }
    return result;
}

QString MirrorTree::counts_line() const
{
    QStringList parts;
    for (const Count& count : counts()) {
        parts << QStringLiteral("%1 %2").arg(count.count).arg(QLatin1String(count.plural));
    }
    return parts.join(QLatin1String(", "));
}

std::vector<TreeData*> MirrorTree::free_geometry() const
{
    std::vector<TreeData*> result = records_between(m_mirror, ItemKind::Volume, ItemKind::Vertex);
    std::erase_if(result, [this](TreeData* record) {
        return !m_mirror.find_geometry_parents(static_cast<TreeGeometryData*>(record)).empty();
    });
    return result;
}

QStringList MirrorTree::geometry_flags(TreeGeometryData* record) const
{
    QStringList result;
    if (auto* body = qobject_cast<TreeBodyData*>(record)) {
        if (body->is_sheet_body()) {
            result << "sheet";
        }
        if (body->is_multi_volume()) {
            result << "multi-volume";
        }
    } else {
        const auto parents = m_mirror.find_geometry_parents(record).size();
        if (parents == 0) {
            result << "free";
        } else if (parents > 1) {
            result << QStringLiteral("shared by %1").arg(parents);
        }
    }
    if (record->is_virtual()) {
        result << "virtual";
    }
    return result;
}
