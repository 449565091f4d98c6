#pragma once

#include <QStringList>
#include <vector>

class TreeData;
class TreeGeometryData;
class TreeModel;

/// A mirror in the order in which a tree shows it. Reads the mirror at each call.
///
/// Geometry hangs from body to vertex, a shared record under each of its parents. A group
/// has its members, of which only groups are opened further, and its element counts; a
/// boundary condition has the sets that it applies to. Siblings come by kind and id.
class MirrorTree
{
public:
    /// Keeps the reference.
    explicit MirrorTree(TreeModel& mirror);

    /// Bodies, geometry without a parent, groups that are in no other one, mesh controls,
    /// and the set-up of a simulation.
    std::vector<TreeData*> roots() const;

    /// What hangs below a record that itself hangs below `parent`, null for a root.
    std::vector<TreeData*> children(TreeData* record, TreeData* parent) const;

    /// The kernel's word for what the record is: "surface", "group", "contact pair".
    QString kind(TreeData* record) const;

    /// What there is to say of a record beside kind, id and name: "sheet", "multi-volume",
    /// "free", "shared by 2" for the number of its parents, "lite", "virtual", "hidden".
    QStringList flags(TreeData* record) const;

    /// How many records of a kind there are, under its name in the plural.
    struct Count
    {
        const char* plural;
        int count;
    };

    /// The five kinds of geometry from body to vertex, then the others that there are.
    std::vector<Count> counts() const;

    /// "2 bodies, 2 volumes, 9 surfaces, 15 curves, 10 vertices, 1 groups".
    QString counts_line() const;

private:
    std::vector<TreeData*> free_geometry() const;
    std::vector<TreeData*> mesh_controls() const;
    std::vector<TreeData*> simulation() const;
    QStringList geometry_flags(TreeGeometryData* record) const;

    TreeModel& m_mirror;
};
