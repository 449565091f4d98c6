#include <browser/window/RowDelegate.hpp>

#include <QWidget>

QSize RowDelegate::sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const
{
    constexpr int air = 4;
    return QStyledItemDelegate::sizeHint(option, index) + QSize(0, air);
}

void RowDelegate::initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const
{
    QStyledItemDelegate::initStyleOption(option, index);
    option->text.replace(QChar::LineSeparator, QChar::Space); // All rows are of one line
    if (option->state.testFlag(QStyle::State_Selected) && !option->icon.isNull()) {
        const qreal ratio = option->widget ? option->widget->devicePixelRatio() : 1;
        const QPixmap pixmap = option->icon.pixmap(option->decorationSize, ratio);
        option->icon = QIcon(pixmap);
        option->icon.addPixmap(pixmap, QIcon::Selected);
    }
}
