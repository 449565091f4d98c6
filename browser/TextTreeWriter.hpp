#pragma once

#include <limits>
#include <QString>
#include <vector>

class MirrorTree;
class QTextStream;
class TreeData;

/// Writes a tree as indented text, one record a line:
///
///     plate  [body 1]
///     └─ Volume 1  [volume 1]
///        ├─ Surface 1  [surface 1, shared by 2]  … 4 below
///
/// A record below which the depth ends tells how many children it has.
class TextTreeWriter
{
public:
    static constexpr int AllLevels = std::numeric_limits<int>::max();

    /// Keeps the references. `depth` is the number of levels to write.
    TextTreeWriter(const MirrorTree& tree, QTextStream& output, int depth = AllLevels);

    void write();

private:
    void write_record(TreeData* record, const QString& indent);
    void write_children(TreeData* record, const QString& indent);

    const MirrorTree& m_tree;
    QTextStream& m_output;
    int m_depth;
    // From the root to the parent of the record that is being written.
    std::vector<TreeData*> m_path;
};
