#pragma once

#include <QTreeView>

/// The tree view of an EntityFilter: names and ids, for models of any size.
class EntityView : public QTreeView
{
    Q_OBJECT

public:
    explicit EntityView(QWidget* parent = nullptr);

    void setModel(QAbstractItemModel* model) override;

    /// Has the rows painted anew, without the search for each of them that a tree view makes.
    void dataChanged(const QModelIndex& top_left, const QModelIndex& bottom_right,
        const QList<int>& roles = {}) override;

    /// A text that is shown over the rows; empty for none.
    void set_hint(const QString& text);
    QString hint() const { return m_hint; }

    /// Expands the selected rows, and what is below them so far as it has children.
    void expand_selected();

    /// Collapses the selected rows and what is below them.
    void collapse_selected();

Q_SIGNALS:
    /// The user wants a menu, at `position` on the screen.
    void menu_wanted(const QPoint& position);

protected:
    QRegion visualRegionForSelection(const QItemSelection& selection) const override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void drawRow(QPainter* painter, const QStyleOptionViewItem& option,
        const QModelIndex& index) const override;
    void paintEvent(QPaintEvent* event) override;

private:
    void set_selected_expanded(bool expanded);
    void set_expanded_below(const QModelIndex& index, bool expanded);

    QString m_hint;
};
