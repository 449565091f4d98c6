#include <browser/GeometryTree.hpp>

#include <algorithm>
#include <array>
#include <treemodel/kernel/TreeModel.hpp>
#include <treemodel/treedata/TreeBodyData.hpp>

using GeometryType = TreeGeometryData::GeometryType;

namespace {

// Indexed by GeometryType; the words of the command line's output are not translated.
constexpr std::array<const char*, 5> plurals{"vertices", "curves", "surfaces", "volumes", "bodies"};

constexpr std::array<GeometryType, 5> from_body_to_vertex{TreeGeometryData::BODY,
    TreeGeometryData::VOLUME, TreeGeometryData::SURFACE, TreeGeometryData::CURVE,
    TreeGeometryData::VERTEX};

} // namespace

GeometryTree::GeometryTree(TreeModel& mirror)
    : m_mirror(mirror)
{
}

std::vector<TreeGeometryData*> GeometryTree::roots() const
{
    std::vector<TreeGeometryData*> result = m_mirror.geometry(TreeGeometryData::BODY);
    for (const GeometryType type : from_body_to_vertex) {
        if (type == TreeGeometryData::BODY) {
            continue;
        }
        for (TreeGeometryData* record : m_mirror.geometry(type)) {
            if (m_mirror.find_geometry_parents(record).empty()) {
                result.push_back(record);
            }
        }
    }
    return result;
}

std::vector<TreeGeometryData*> GeometryTree::children(TreeGeometryData* record) const
{
    std::vector<TreeGeometryData*> result = m_mirror.find_geometry_children(record);
    std::sort(result.begin(), result.end(),
        [](TreeGeometryData* left, TreeGeometryData* right) { return left->id() < right->id(); });
    return result;
}

QStringList GeometryTree::flags(TreeGeometryData* record) const
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
    if (!record->is_visible()) {
        result << "hidden";
    }
    return result;
}

std::vector<GeometryTree::Count> GeometryTree::counts() const
{
    std::vector<Count> result;
    for (const GeometryType type : from_body_to_vertex) {
        result.push_back({plurals[type], int(m_mirror.geometry(type).size())});
    }
    return result;
}

QString GeometryTree::counts_line() const
{
    QStringList parts;
    for (const Count& count : counts()) {
        parts << QStringLiteral("%1 %2").arg(count.count).arg(QLatin1String(count.plural));
    }
    return parts.join(QLatin1String(", "));
}

QString GeometryTree::count_text(GeometryType type, int count)
{
    const QString word = count == 1 ? QString::fromStdString(TreeGeometryData::type_to_string(type))
                                    : QLatin1String(plurals[type]);
    return QStringLiteral("%1 %2").arg(count).arg(word);
}
