#pragma once

#include <browser/items/ItemKind.hpp>
#include <optional>
#include <vector>

class TreeGroupData;
class TreeModel;

/// What a mirror says about the places of its records in the tree. Reads it at each call.
class MirrorRecords
{
public:
    /// Keeps the reference.
    explicit MirrorRecords(TreeModel& mirror);

    /// A record and what it is sorted by.
    struct Entry
    {
        ItemKind kind;
        int id;
        TreeData* record;

        auto operator<=>(const Entry&) const = default;
    };

    static Entry entry(TreeData* record);

    /// What stands below a record, by kind and id. Element counts stand below their owner
    /// everywhere; geometry, members of groups and sets only where the record `opens`.
    std::vector<Entry> children(TreeData* record, bool opens) const;

    /// The category in which a record stands; none for geometry that hangs under other geometry,
    /// and for element counts.
    std::optional<Category> home(TreeData* record) const;

    /// All records of a kind; none of a kind of element counts or of categories.
    std::vector<TreeData*> all(ItemKind kind) const;

private:
    std::vector<Entry> members(TreeGroupData* group) const;
    bool stands(const Entry& entry) const;

    TreeModel& m_mirror;
};
