#pragma once

#include <array>
#include <browser/items/MirrorRecords.hpp>
#include <browser/items/RecordItem.hpp>
#include <deque>
#include <memory>
#include <QDeadlineTimer>
#include <QHash>
#include <QObject>
#include <QSet>
#include <QTimer>
#include <treemodel/entity/EntityModelInterface.hpp>
#include <vector>

class EntityCategory;
class EntityModel;
class TreeGeometryData;
class TreeModel;

/// Joins the two halves: keeps the rows of an EntityModel in step with the records of a
/// TreeModel.
///
/// The signals of the mirror and of its records only note what has changed. A timer of
/// interval 0 then reads the changed things in the mirror and brings the rows in line, in slices
/// of some milliseconds: a window stays alive however much there is to do, and many changes of
/// one thing cost one. Until then a row may show a record that has just left the mirror;
/// record() is null for it.
///
/// Top-level rows are the categories. Below them stands each record of their kinds, geometry
/// only if it hangs under no other; below a record stand its parts, the members of a group,
/// the sets of a boundary condition, and its element counts. A record has one RecordItemData and
/// one node for each of its places. Members and sets are not opened there, groups are, and
/// nothing is opened again below itself.
///
/// The mirror and the item model must outlive this object, and the rows are not to be
/// added, moved or removed by others. No event loop may run inside an `about_to_clear` signal. A
/// hidden category is refilled when it is shown again, as it may have been sorted otherwise
/// meanwhile.
class MirrorItems : public QObject, public EntityModelInterface
{
    Q_OBJECT

public:
    /// Adds the categories at once; the records of a filled mirror follow in slices.
    MirrorItems(TreeModel& mirror, EntityModel& items, QObject* parent = nullptr);

    /// Takes the categories with all their rows out of the item model.
    ~MirrorItems() override;

    TreeModel& mirror() const { return m_mirror; }
    EntityModel& items() const { return m_items; }

    /// The record that an item shows; null for a category, an item of others, and a record that
    /// has left the mirror.
    TreeData* record(EntityItem* item) const;

    /// What the places of a record show; null for a record that has no place yet.
    RecordItemData* data(TreeData* record) const;

    /// All places of a record, first come first.
    std::vector<EntityItem*> places(TreeData* record) const;

    EntityItem* category(Category category) const;

    /// Gives an item its children and has those of its children come next. A view calls it for
    /// what the user opens.
    void fill(EntityItem* item);

    /// True if the rows are what the mirror says.
    bool is_settled() const;

    /// Does one slice, at least one step, of what is left to do; false if nothing is left then.
    /// The timer does this, with a deadline of some milliseconds.
    bool advance(QDeadlineTimer deadline);

    /// Does at once all that is left to do.
    void settle();

    /// EntityModel::updateEntity().
    void update_item(EntityItem* item) override;

    /// The kernel's word for a type number: "surface". "geometry" for a category.
    const std::string& get_type_name(int type) override;

Q_SIGNALS:
    /// A slice has been done: there are so many places of records, of which `pending` still
    /// wait for their children.
    void filling(int places, int pending);

    /// The rows are what the mirror says, and were not before.
    void settled();

private:
    using Entry = MirrorRecords::Entry;

    // Noting what the mirror tells.
    void follow_geometry();
    void follow_groups();
    void follow_mesh();
    void follow_simulation();
    void follow_record(RecordItemData& data);
    void note_record(TreeData* record);
    void note_children(TreeData* record);
    void note_change(RecordItemData& data, RecordItemData::Change change);
    void note_shown_rows(const QModelIndex& parent, int first, int last);
    void forget_geometry(TreeGeometryData* record);
    void note_orphans(TreeGeometryData* record);
    void forget(TreeData* record);
    void forget_kinds(ItemKind first, ItemKind last);
    void schedule();

    // Slices.
    bool step(QDeadlineTimer deadline);
    void finish_slice();
    void show_counts();

    // The steps.
    void clear_shown_category();
    void queue_places();
    void read_changes(QDeadlineTimer deadline);
    void bury_dead(QDeadlineTimer deadline);
    void scan_kind();
    void place_records(QDeadlineTimer deadline);
    void fill_first(QDeadlineTimer deadline);

    // Rows.
    RecordItemData& data_of(TreeData* record);
    void place(TreeData* record);
    void add_tree(TreeData* record, EntityItem* target);
    RecordItem* add_node(TreeData* record, EntityItem* parent, EntityItem* target);
    bool opens_below(const RecordItemData& data, EntityItem* parent, EntityItem* target) const;
    void find_missing_children(RecordItem* item);
    void remove(EntityItem* item);
    void clear_children(EntityItem* item);
    void set_crowds_aside(EntityItem* top);
    void put_crowds_back();
    bool is_mostly_dead(EntityItem* parent);
    void repaint(EntityItem* parent, const std::vector<EntityItem*>& children);

    TreeModel& m_mirror;
    EntityModel& m_items;
    MirrorRecords m_records;
    std::array<EntityCategory*, category_count> m_categories; // Owned by the item model
    EntityItem* m_workbench; // Hidden, where trees grow before they are shown; owned by the model
    QHash<TreeData*, RecordItemData*> m_datas; // Owned
    FillQueue m_unfilled;
    QTimer m_timer;

    // What is noted.
    std::deque<RecordItemData*> m_dead;              // Owned
    std::vector<RecordItemData*> m_changed;          // Each once
    std::vector<RecordItemData*> m_changed_children; // Each once
    std::vector<EntityItem*> m_shown_categories;
    QSet<ItemKind> m_scans; // Kinds of which any record may have to move to or from its category
    QSet<TreeData*> m_unplaced;      // Records that may have to
    std::deque<TreeData*> m_placing; // They and others, in the order of noting

    // The node that is being filled, and which of its children are missing.
    RecordItem* m_filling = nullptr;
    std::vector<Entry> m_missing; // The last one next

    QSet<RecordItemData*> m_crowds; // Whose places are set aside until the slice ends
    EntityItem* m_not_mostly_dead = nullptr;
    int m_stamp = 0;
    quint64 m_deaths = 0;
    bool m_is_working = false;
    bool m_was_settled = false;
};
