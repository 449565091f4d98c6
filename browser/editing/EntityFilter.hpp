#pragma once

#include <browser/editing/FilterSearch.hpp>
#include <browser/editing/ShownTree.hpp>
#include <QAbstractProxyModel>
#include <QItemSelection>

class EntityItem;
class EntityModel;

/// Shows of an EntityModel the rows whose display name contains a text, in whatever case, with all
/// rows above and below each of them; without a text, all rows.
///
/// Without a text it hands everything through and keeps nothing. With one, it searches the items
/// in slices, between which the event loop runs, and then shows what it has found in one change of
/// layout, in which rows that stay keep their persistent indexes. Until then it shows
/// what it showed before. When the items change, rows that go, move and change are followed at
/// once; what is to appear appears after the next search, which follows within moments.
///
/// It is not a QSortFilterProxyModel, which keeps rows of its own for each open parent, mends them
/// with each single insertion, and filters a parent in one go.
///
/// The item of a row is in its index: item() and index() cost next to nothing
/// beside the way over mapToSource(). The text never hits a heading, an item with a category.
class EntityFilter : public QAbstractProxyModel
{
    Q_OBJECT

public:
    /// Without a text. `items` must outlive the filter.
    explicit EntityFilter(EntityModel& items, QObject* parent = nullptr);

    EntityModel& items() const { return m_items; }

    QString text() const { return m_search.text(); }

    /// Begins a search, the first slice of it at once; a small tree needs no other. An empty
    /// text shows all rows at once, and emits filtered() with 0 of 0.
    void set_text(const QString& text) { m_search.set_text(text); }

    /// How long a slice of the search takes, at least; 4 ms at first.
    void set_slice(std::chrono::nanoseconds slice) { m_search.set_slice(slice); }

    /// True if there is a text.
    bool is_active() const { return m_search.is_active(); }

    /// False while what is shown is not what a new search would give.
    bool is_settled() const { return m_search.is_settled(); }

    /// Ends the search at once.
    void settle() { m_search.settle(); }

    /// What the last search found, and among how many rows; headings do not count.
    int hits() const { return m_search.hits(); }
    int rows() const { return m_search.rows(); }

    /// The item of an index of this model; null for any other.
    EntityItem* item(const QModelIndex& index) const;

    /// The index in column 0 of an item that is shown; invalid for any other.
    QModelIndex index(EntityItem* item) const;

    /// The whole rows of those of the items that are shown. Neighbours share a range, and the
    /// ranges of a parent come from the top down.
    QItemSelection selection(const std::vector<EntityItem*>& items) const;

    QModelIndex index(
        int row, int column, const QModelIndex& parent = QModelIndex()) const override;
    QModelIndex parent(const QModelIndex& child) const override;
    using QObject::parent;
    QModelIndex sibling(int row, int column, const QModelIndex& index) const override;
    int rowCount(const QModelIndex& parent = QModelIndex()) const override;
    int columnCount(const QModelIndex& parent = QModelIndex()) const override;
    bool hasChildren(const QModelIndex& parent = QModelIndex()) const override;
    QVariant headerData(
        int section, Qt::Orientation orientation, int role = Qt::DisplayRole) const override;

    /// None for the invalid index, unlike those of the items.
    Qt::ItemFlags flags(const QModelIndex& index) const override;
    QModelIndex mapToSource(const QModelIndex& proxy_index) const override;
    QModelIndex mapFromSource(const QModelIndex& source_index) const override;

    /// Sorts the items, and tells of one change of layout, where the items tell of one for each
    /// parent.
    void sort(int column, Qt::SortOrder order = Qt::AscendingOrder) override;

Q_SIGNALS:
    /// What is found is shown.
    void filtered(int hits, int rows);

    /// These rows have now to be open for all hits to be seen, and had not before. Comes before
    /// filtered().
    void paths_found(const QModelIndexList& paths);

private:
    // What the second signal of a pair has to end.
    enum class Pending {
        NOTHING,
        INSERTION,
        REMOVAL,
        MOVE,
        ORDER,
    };

    using QAbstractProxyModel::setSourceModel;
    void follow_items();
    void begin_insertion(const QModelIndex& parent, int first, int last);
    void end_insertion(const QModelIndex& parent, int first, int last);
    void begin_removal(const QModelIndex& parent, int first, int last);
    void begin_move(
        const QModelIndex& source, int first, int last, const QModelIndex& target, int target_row);
    void end_pending();
    void forward_change(
        const QModelIndex& top_left, const QModelIndex& bottom_right, const QList<int>& roles);
    void begin_layout(const QList<QPersistentModelIndex>& parents, LayoutChangeHint hint);
    void end_layout(const QList<QPersistentModelIndex>& parents, LayoutChangeHint hint);
    void begin_reset();
    void end_reset();
    void drop_rows(EntityItem* parent, int first, int last);
    void reorder(EntityItem* parent);

    void take_in(ShownRows& shown);
    void show(ShownRows& shown);
    void tell_paths(const ShownRows& before);
    void rewrite_persistent_indexes();

    EntityItem* source_item(const QModelIndex& index) const;

    EntityModel& m_items;
    FilterSearch m_search;
    ShownTree m_tree;
    Pending m_pending = Pending::NOTHING;
    EntityItem* m_pending_parent = nullptr;        // Of what Pending::ORDER is to order
    QList<QPersistentModelIndex> m_layout_parents; // Whose change of layout is passed on
    bool m_passes_layout_on = false;
    bool m_is_sorting = false;
};
