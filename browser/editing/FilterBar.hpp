#pragma once

#include <browser/editing/OpenRows.hpp>
#include <QModelIndexList>
#include <QTimer>
#include <QWidget>

class EntityFilter;
class QLabel;
class QLineEdit;
class QTreeView;

/// The box above a tree view in which a person types what the view is to show.
///
/// Ctrl+F in the window goes to it. The text takes effect when typing pauses; then the rows on the
/// way to the hits open, and "3 of 120" tells how many there are. Return and Down go to
/// the view. Esc, in the box or the view, shows all rows again, with those open, and no others,
/// that were so before.
class FilterBar : public QWidget
{
    Q_OBJECT

public:
    /// `view` shows `rows`. Both must outlive the bar.
    FilterBar(EntityFilter& rows, QTreeView& view, QWidget* parent = nullptr);

    /// Filters at once. An empty text does what Esc does.
    void set_text(const QString& text);

    /// Gives the box the keyboard, with its text selected.
    void focus();

private:
    void make_shortcuts();
    void begin_pause(const QString& text);
    void apply();
    void clear();
    void open(const QModelIndexList& paths);
    void show_counts(int hits, int rows);

    EntityFilter& m_rows;
    QTreeView& m_view;
    OpenRows m_open_rows; // While the filter is active
    QLineEdit* m_edit;    // Owned by the widget
    QLabel* m_counts;     // Owned by the widget
    QTimer m_pause;
};
