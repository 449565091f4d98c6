#include <browser/JsonTreeWriter.hpp>

#include <browser/GeometryTree.hpp>
#include <QJsonArray>

namespace {

QJsonObject json_of(const GeometryTree& tree, TreeGeometryData* record, int depth)
{
    QJsonObject result{
        {"kind", QString::fromStdString(TreeGeometryData::type_to_string(record->geometry_type()))},
        {"id", record->id()},
        {"name", record->name()},
        {"flags", QJsonArray::fromStringList(tree.flags(record))},
    };
    const std::vector<TreeGeometryData*> children = tree.children(record);
    if (depth > 1 && !children.empty()) {
        QJsonArray array;
        for (TreeGeometryData* child : children) {
            array.append(json_of(tree, child, depth - 1));
        }
        result.insert("children", array);
    }
    return result;
}

} // namespace

QJsonObject json_of(const GeometryTree& tree, const QString& file, int depth)
{
    QJsonObject counts;
    for (const GeometryTree::Count& count : tree.counts()) {
        counts.insert(QLatin1String(count.plural), count.count);
    }
    QJsonArray roots;
    for (TreeGeometryData* root : tree.roots()) {
        roots.append(json_of(tree, root, depth));
    }
    return {{"file", file}, {"counts", counts}, {"tree", roots}};
}
