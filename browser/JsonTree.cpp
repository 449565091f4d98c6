#include <browser/JsonTree.hpp>

#include <algorithm>
#include <browser/MirrorTree.hpp>
#include <QJsonArray>
#include <treemodel/treedata/TreeData.hpp>

namespace {

// `path` leads from the root to the parent of the record.
QJsonObject json_record(const MirrorTree& tree, TreeData* record, MirrorTree::Path& path, int depth)
{
    QJsonObject result{
        {"kind", tree.kind(record)},
        {"id", record->id()},
        {"name", record->name()},
        {"flags", QJsonArray::fromStringList(tree.flags(record))},
    };
    const bool is_last_level = int(path.size()) + 1 >= depth;
    const bool is_in_itself = std::find(path.begin(), path.end(), record) != path.end();
    if (is_last_level || is_in_itself) {
        return result;
    }
    QJsonArray children;
    path.push_back(record);
    for (TreeData* child : tree.children(path)) {
        children.append(json_record(tree, child, path, depth));
    }
    path.pop_back();
    if (!children.isEmpty()) {
        result.insert("children", children);
    }
    return result;
}

} // namespace

QJsonObject json_tree(const MirrorTree& tree, const QString& file, int depth)
{
    QJsonObject counts;
    for (const MirrorTree::Count& count : tree.counts()) {
        counts.insert(QLatin1String(count.plural), count.count);
    }
    QJsonArray roots;
    MirrorTree::Path path;
    for (TreeData* root : tree.children({})) {
        roots.append(json_record(tree, root, path, depth));
    }
    return {{"file", file}, {"counts", counts}, {"tree", roots}};
}
