#pragma once

#include <limits>
#include <QString>

class GeometryTree;
class QTextStream;
class TreeGeometryData;

/// Writes a geometry tree as indented text, one record a line:
///
///     plate  [body 1]
///     └─ Volume 1  [volume 1]
///        ├─ Surface 1  [surface 1, shared by 2]  … 4 curves
///
/// A record below which the depth ends tells how many children it has.
class TextTreeWriter
{
public:
    static constexpr int AllLevels = std::numeric_limits<int>::max();

    TextTreeWriter(const GeometryTree& tree, QTextStream& output, int depth = AllLevels);

    void write();

private:
    void write_record(TreeGeometryData* record, int level, const QString& indent);
    void write_children(TreeGeometryData* record, int level, const QString& indent);

    const GeometryTree& m_tree;
    QTextStream& m_output;
    int m_depth;
};
