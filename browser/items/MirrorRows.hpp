#pragma once

#include <array>
#include <browser/items/MirrorRecords.hpp>
#include <browser/items/RecordItem.hpp>
#include <QDeadlineTimer>
#include <QSet>
#include <vector>

class EntityCategory;
class EntityModel;
class EntityModelInterface;
class MirrorNotes;
class TreeModel;

/// The rows of MirrorItems: reads in the mirror what is noted, and brings the rows in line, one
/// step after the other.
class MirrorRows
{
public:
    /// Adds the categories to `items`. Keeps the references; `front` is told of each row
    /// whose name, id or kind has changed.
    MirrorRows(
        TreeModel& mirror, EntityModel& items, EntityModelInterface& front, MirrorNotes& notes);
    Q_DISABLE_COPY_MOVE(MirrorRows)

    /// Takes the categories with all rows out of the item model.
    ~MirrorRows();

    EntityItem* category(Category category) const;

    /// True if the rows are what the mirror says.
    bool is_done() const;

    /// Works until the deadline on one thing, or does the least that there is to do of it. False
    /// if there was nothing to do.
    bool step(QDeadlineTimer deadline);

    /// Call this after the last step of a slice: all places are registered with their
    /// data again, and the categories tell their counts.
    void finish_slice();

    int place_count() const { return m_unfilled.node_count(); }
    int waiting_count() const { return m_unfilled.size(); }

    /// Has the next step that fills a place fill this one; awaited() is null afterwards, or if
    /// it does not wait.
    void await(RecordItem* place) { m_unfilled.await(place); }
    RecordItem* awaited() const { return m_unfilled.awaited(); }

    /// Has a category, if the item is one, filled anew: it was hidden, and may have been sorted
    /// otherwise meanwhile. True if it is one.
    bool note_shown(EntityItem* item);

private:
    using Entry = MirrorRecords::Entry;

    // The steps.
    void clear_shown_category();
    void queue_places();
    void read_changes(QDeadlineTimer deadline);
    void bury_dead(QDeadlineTimer deadline);
    void scan_kind();
    void place_records(QDeadlineTimer deadline);
    void fill_first(QDeadlineTimer deadline);

    void place(TreeData* record);
    void add_tree(TreeData* record, EntityItem* target);
    RecordItem* add_node(TreeData* record, EntityItem* parent, EntityItem* target);
    bool opens_below(const RecordItemData& data, EntityItem* parent, EntityItem* target) const;
    bool start_filling(RecordItem* item);
    bool remove_superfluous(RecordItem* item, const std::vector<Entry>& children);
    std::vector<Entry> missing_children(RecordItem* item, std::vector<Entry> children);
    int stamp(const std::vector<Entry>& children);
    void remove(EntityItem* item);
    void clear_children(EntityItem* item);
    void set_aside_if_crowded(RecordItemData& data);
    void set_crowds_aside(EntityItem* top);
    void put_crowds_back();
    bool is_mostly_dead(EntityItem* parent);
    void repaint(const std::vector<EntityItem*>& items);
    void repaint(EntityItem* parent, const std::vector<EntityItem*>& children);
    void show_counts();

    EntityModel& m_items;
    EntityModelInterface& m_front;
    MirrorNotes& m_notes;
    const MirrorRecords m_records;
    std::array<EntityCategory*, category_count> m_categories; // Owned by the item model
    EntityItem* m_workbench; // Hidden, where trees grow before they are shown; owned by the model
    std::vector<EntityItem*> m_shown_categories;
    FillQueue m_unfilled;

    // The node that is being filled, and which of its children are missing.
    RecordItem* m_filling = nullptr;
    std::vector<Entry> m_missing; // The last one next
    quint64 m_known_deaths = 0;   // When they were found missing

    QSet<RecordItemData*> m_crowds; // Whose places are set aside until the slice ends
    EntityItem* m_not_mostly_dead = nullptr;
    int m_stamp = 0;
};
