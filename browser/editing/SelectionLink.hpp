#pragma once

#include <QItemSelectionModel>
#include <QTimer>
#include <unordered_set>
#include <vector>

class EntityFilter;
class EntityItem;
class MirrorItems;
class TreeData;
class TreeModel;

/// The selection of a tree view which is that of the kernel: give it to
/// QTreeView::setSelectionModel().
///
/// What a person selects goes to the kernel, and what the kernel selects has its rows selected, in
/// all places of each record, also in such as come later or come back from behind the filter. The
/// first comes through select(), as all views do it, and the second does not: nothing can go
/// round in a circle, and rows that are removed or filtered out deselect nothing in the kernel.
///
/// Where a person's selection begins anew, as by a plain click, the kernel also deselects what has
/// no row at present. A row without a record, such as a category, selects nothing there.
class SelectionLink : public QItemSelectionModel
{
    Q_OBJECT

public:
    /// Selects rows of `rows`, of which the items are those of `items`. Both must outlive the link.
    SelectionLink(MirrorItems& items, EntityFilter& rows, QObject* parent = nullptr);

    /// What the kernel has told to be selected, and the records of the selected rows, which
    /// can be more: the kernel tells nothing of materials. Each once, in no order.
    std::vector<TreeData*> records() const;

    /// True if what the kernel selects of its own accord is gone to at once. False at first.
    bool is_following() const { return m_is_following; }
    void set_following(bool is_following) { m_is_following = is_following; }

    /// Makes a row of what was selected last the current one and emits went_to(). If it has no
    /// row yet, that happens when it gets one, unless something else is selected before.
    void go_to_selection();

    using QItemSelectionModel::select;
    void select(const QItemSelection& rows, SelectionFlags command) override;

    /// Tells the kernel nothing.
    void reset() override;

Q_SIGNALS:
    /// What records() gives has changed.
    void records_changed();

    /// A view scrolls to it.
    void went_to(const QModelIndex& index);

private:
    using Records = std::unordered_set<TreeData*>;

    // What one select() changed.
    struct Change
    {
        QItemSelection selected;
        QItemSelection deselected;
    };

    void send(const Change& change, bool begins_anew);
    void receive(const std::vector<TreeData*>& records, bool selected);
    void forget(TreeData* record);
    void mark(const std::vector<EntityItem*>& items, bool selected);
    void mark_all();
    void catch_up();
    void try_to_go();

    std::vector<EntityItem*> places(const std::vector<TreeData*>& records) const;
    std::unordered_set<EntityItem*> selected_items() const;
    Records records_of(const QItemSelection& rows) const;

    MirrorItems& m_items;
    EntityFilter& m_rows;
    TreeModel& m_mirror;
    Records m_selected;           // In the kernel
    TreeData* m_latest = nullptr; // Of m_selected
    Change* m_change = nullptr;   // What the select() under way has changed
    bool m_is_sending = false;
    bool m_is_resetting = false;
    bool m_is_following = false;
    bool m_is_going = false;
    QTimer m_timer; // To catch_up(), when rows or records have come or gone
};
