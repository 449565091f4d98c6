#pragma once

#include <QStringList>
#include <treemodel/treedata/TreeGeometryData.hpp>
#include <vector>

class TreeModel;

/// The geometry of a mirror in the order in which a tree shows it: a shared
/// record under each of its parents, siblings by id. Reads the mirror at each call.
class GeometryTree
{
public:
    /// Keeps the reference.
    explicit GeometryTree(TreeModel& mirror);

    /// All bodies, then of each lower kind the records without a parent.
    std::vector<TreeGeometryData*> roots() const;

    std::vector<TreeGeometryData*> children(TreeGeometryData* record) const;

    /// What there is to say of a record beside its name: "sheet", "multi-volume",
    /// "virtual", "hidden", "free" for a root that is no body, "shared by 2" for
    /// the number of its parents.
    QStringList flags(TreeGeometryData* record) const;

    /// "2 bodies, 2 volumes, 9 surfaces, 15 curves, 10 vertices".
    QString counts_line() const;

    /// The number of records of a type, and its name in the plural.
    struct Count
    {
        const char* plural;
        int count;
    };
    /// From body to vertex.
    std::vector<Count> counts() const;

    /// The type's name for one or for many: "1 body", "3 bodies".
    static QString count_text(TreeGeometryData::GeometryType type, int count);

private:
    TreeModel& m_mirror;
};
