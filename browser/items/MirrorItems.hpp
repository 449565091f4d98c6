#pragma once

#include <browser/items/MirrorNotes.hpp>
#include <browser/items/MirrorRows.hpp>
#include <QDeadlineTimer>
#include <QTimer>
#include <treemodel/entity/EntityModelInterface.hpp>

/// Joins the two halves: keeps the rows of an EntityModel in step with the records of a
/// TreeModel.
///
/// The signals of the mirror and of its records only note what has changed (MirrorNotes). A timer
/// of interval 0 then has the changed things read and the rows brought in line (MirrorRows), in
/// slices of some milliseconds: a window stays alive however much there is to do, and many changes
/// of one thing cost one. Until then a row may show a record that has just left the mirror;
/// record() is null for it.
///
/// Top-level rows are the categories. Below them stands each record of their kinds, geometry
/// only if it hangs under no other; below a record stand its parts, the members of a group,
/// the sets of a boundary condition, and its element counts. A record has one RecordItemData and
/// one node for each of its places. Members and sets are not opened there, groups are, and
/// nothing is opened again below itself.
///
/// The mirror and the item model must outlive this object, which takes its rows along, and the rows
/// are not to be added, moved or removed by others. No event loop may run inside an
/// `about_to_clear` signal. A hidden category is refilled when it is shown again, as it may have
/// been sorted otherwise meanwhile.
class MirrorItems : public QObject, public EntityModelInterface
{
    Q_OBJECT

public:
    /// Adds the categories at once; the records of a filled mirror follow in slices.
    MirrorItems(TreeModel& mirror, EntityModel& items, QObject* parent = nullptr);

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
    void schedule();
    void finish_slice();
    void note_shown_rows(const QModelIndex& parent, int first, int last);

    TreeModel& m_mirror;
    EntityModel& m_items;
    MirrorNotes m_notes;
    MirrorRows m_rows; // Leaves the item model before the notes delete the data
    QTimer m_timer;
    bool m_is_working = false;
    bool m_was_settled = false;
};
