#pragma once

#include <QStyledItemDelegate>

/// Draws the rows of a tree: with some air around them, and selected icons in their own
/// colours, which tell the kinds apart.
class RowDelegate : public QStyledItemDelegate
{
    Q_OBJECT

public:
    using QStyledItemDelegate::QStyledItemDelegate;

    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;

protected:
    void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override;
};
