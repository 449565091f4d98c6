#pragma once

#include <browser/items/ItemKind.hpp>
#include <QFlags>
#include <QSet>
#include <treemodel/entity/EntityItemData.hpp>
#include <vector>

class RecordItem;
class TreeData;

/// What all places of one record in the tree show.
///
/// MirrorItems makes it with the record's first place, and deletes it after the record and its
/// last place have gone.
class RecordItemData : public EntityItemData
{
public:
    /// Reads the record, which must not be null.
    explicit RecordItemData(TreeData* record);

    /// Null if the record has left the mirror; its rows follow at once.
    TreeData* record() const { return m_record; }

    /// What of a record can change.
    enum Change : quint8 {
        Nothing = 0,
        Values = 1, // Its name, id, type or visibility
        Look = 2,   // What its icon tells
    };
    Q_DECLARE_FLAGS(Changes, Change)

    ItemKind kind() const { return ItemKind(getType()); }

    /// All nodes over this data.
    std::vector<EntityItem*> places();

    /// The node directly below a category; null if there is none.
    RecordItem* home() const { return m_home; }

private:
    friend class MirrorNotes;
    friend class MirrorRows;
    friend class RecordItem;

    /// Reads the record anew; true if what rows are sorted by has changed.
    bool read_keys();
    bool read_visibility();

    // Nodes leave the list of an EntityItemData by a search through it. Where many are
    // about to go, all are taken off the list at first, and those that stay put back at last.
    bool is_crowded() const;
    bool is_set_aside() const { return m_is_set_aside; }
    void set_places_aside();
    void put_places_back();
    std::vector<EntityItem*> remaining_aside() const;
    std::vector<EntityItem*> listed();
    void list_only(const std::vector<EntityItem*>& items);

    /// Any node; null if there is none.
    EntityItem* last_place();

    void place_created() { ++m_place_count; }
    void place_destroyed(RecordItem* place);

    TreeData* m_record;           // Not owned
    RecordItem* m_home = nullptr; // Not owned
    int m_place_count = 0;
    int m_stamp = 0;
    Changes m_changes = Nothing;     // Since they were noted
    bool m_children_changed = false; // Likewise

    bool m_is_set_aside = false;
    std::vector<EntityItem*> m_aside;
    QSet<EntityItem*> m_gone; // Of those aside
};
