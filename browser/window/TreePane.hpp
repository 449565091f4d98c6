#pragma once

#include <browser/editing/EntityFilter.hpp>
#include <browser/editing/SelectionLink.hpp>
#include <browser/items/KindIcons.hpp>
#include <browser/items/MirrorItems.hpp>
#include <QWidget>
#include <treemodel/entity/EntityModel.hpp>

class EntityView;
class FilterBar;

/// The tree of a mirror as a person sees it: a view with a filter bar on top, and all that
/// stands between the view and the mirror.
class TreePane : public QWidget
{
    Q_OBJECT

public:
    /// Keeps the reference.
    explicit TreePane(TreeModel& mirror, QWidget* parent = nullptr);

    EntityView* view() const { return m_view; }
    FilterBar* filter_bar() const { return m_filter_bar; }
    EntityModel& items() { return m_items; }
    MirrorItems& join() { return m_join; }
    EntityFilter& rows() { return m_rows; }
    SelectionLink& selection() { return m_selection; }

    /// The item of the current row; null if there is none.
    EntityItem* current_item() const;

    /// Opens the first `levels` levels of the tree once all of it is there.
    void show_levels(int levels);

    /// True if everything is shown that there is to show.
    bool is_settled() const;

    // What a person can do here.

    void expand_branch();
    void collapse_branch();

    /// Puts the selected rows on the clipboard as text, "Bolt 1  [body 5]" a line.
    void copy();
    void go_to_selection();

    /// Opens an editor in the current row; false if it has no name to edit.
    bool rename();
    void edit_filter();

private:
    void create_layout();
    void show_hint();
    QString hint() const;
    void show_wanted_levels();
    QString row_text(const QModelIndex& index) const;

    KindIcons m_icons;
    EntityModel m_items;
    MirrorItems m_join;
    EntityFilter m_rows;
    SelectionLink m_selection;
    EntityView* m_view;
    FilterBar* m_filter_bar;
    int m_wanted_levels = 0;
};
