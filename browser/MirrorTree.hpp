#pragma once

#include <map>
#include <QString>
#include <QStringList>
#include <set>
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
    /// From a root of the tree down to one of its records.
    using Path = std::vector<TreeData*>;

    /// Keeps the reference.
    explicit MirrorTree(TreeModel& mirror);

    /// Leaves in the tree only the records that have `text` in their name, in upper or
    /// lower case, and whatever is above or below one of them. Call it again after the
    /// mirror has changed. An empty text leaves all.
    void set_filter(const QString& text);

    /// The records that flags() tells to be selected.
    void set_selected(const std::vector<TreeData*>& records);

    /// What hangs below the last record of the path. For an empty path the roots: bodies,
    /// geometry without a parent, groups that are in no other one, mesh controls, and the
    /// set-up of a simulation.
    std::vector<TreeData*> children(const Path& path) const;

    /// The kernel's word for what the record is: "surface", "group", "contact pair".
    QString kind(TreeData* record) const;

    /// What there is to say of a record beside kind, id and name: "sheet", "multi-volume",
    /// "free", "shared by 2" for the number of its parents, "lite", "virtual", "hidden",
    /// "selected".
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
    std::vector<TreeData*> roots() const;
    std::vector<TreeData*> children_of(TreeData* record, TreeData* parent) const;
    bool is_hit(TreeData* record) const;
    bool has_hit_below(TreeData* record, TreeData* parent) const;
    std::vector<TreeData*> free_geometry() const;
    QStringList geometry_flags(TreeGeometryData* record) const;

    TreeModel& m_mirror;
    QString m_filter;
    std::set<TreeData*> m_selected;
    // By record, and whether it hangs below a group.
    mutable std::map<std::pair<TreeData*, bool>, bool> m_hits_below;
};
