#pragma once

#include <embedded/EntityKind.hpp>
#include <map>
#include <QStringList>
#include <set>
#include <string>
#include <vector>

/// A slow kernel that is easy to believe, with the same operations as EmbeddedKernel: nothing is
/// stored but the entities with their lists of children and members, the rest is searched for.
/// Takes only what makes sense.
class NaiveKernel
{
public:
    int create(EntityKind kind, const std::vector<int>& children, const std::string& name);
    void relate(EntityKind parent_kind, int parent, int child);
    void unrelate(EntityKind parent_kind, int parent, int child);
    void set_sheet(int volume, bool is_sheet);
    void set_virtual(EntityKind kind, int id, bool is_virtual);
    void rename(EntityKind kind, int id, const std::string& name);
    void renumber(EntityKind kind, int id, int new_id);
    void set_visible(EntityKind kind, int id, bool is_visible);
    void remove(EntityKind kind, int id);
    void add_to_group(int group, EntityKind kind, const std::vector<int>& ids);
    void remove_from_group(int group, EntityKind kind, const std::vector<int>& ids);

    bool contains(EntityKind kind, int id) const;
    std::vector<int> ids(EntityKind kind) const;
    bool has_child(EntityKind parent_kind, int parent, int child) const;
    bool holds_group(int outer, int inner) const;
    std::set<int> relatives(EntityKind kind, int id, EntityKind target) const;

    /// One line for each entity, with all that the boundary tells of it.
    QStringList dump() const;

private:
    struct Entity
    {
        std::string name;
        bool visible = true;
        bool is_virtual = false;
        bool is_sheet = false;
        std::vector<int> children;
        std::map<EntityKind, std::set<int>> members;
    };

    bool holds_virtual(EntityKind kind, int id) const;
    std::vector<int> parents(EntityKind kind, int id) const;

    std::map<EntityKind, std::map<int, Entity>> m_entities;
};

/// The same lines, asked of the kernel through the functions of the boundary.
QStringList dump_of_boundary();
