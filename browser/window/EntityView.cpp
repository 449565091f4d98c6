#include <browser/window/EntityView.hpp>

#include <QContextMenuEvent>
#include <QHeaderView>
#include <QPainter>

namespace {

// A highlight on which the icons can be seen.
QPalette softened(QPalette palette)
{
    constexpr float part_of_highlight = 0.35F;
    const QColor base = palette.color(QPalette::Base);
    const QColor highlight = palette.color(QPalette::Highlight);
    const auto mix = [](float from, float to) { return from + (to - from) * part_of_highlight; };
    palette.setColor(QPalette::Highlight,
        QColor::fromRgbF(mix(base.redF(), highlight.redF()), mix(base.greenF(), highlight.greenF()),
            mix(base.blueF(), highlight.blueF())));
    palette.setColor(QPalette::HighlightedText, palette.color(QPalette::Text));
    return palette;
}

} // namespace

EntityView::EntityView(QWidget* parent)
    : QTreeView(parent)
{
    setUniformRowHeights(true);
    setSelectionMode(ExtendedSelection);
    setEditTriggers(EditKeyPressed);
    setAlternatingRowColors(true);
    setAllColumnsShowFocus(true);
}

void EntityView::setModel(QAbstractItemModel* model)
{
    constexpr int digits_of_an_id = 9;
    QTreeView::setModel(model);
    header()->setStretchLastSection(false);
    header()->setSectionResizeMode(0, QHeaderView::Stretch);
    header()->resizeSection(1, digits_of_an_id * fontMetrics().horizontalAdvance(QLatin1Char('0')));
    // As the model is sorted at first.
    sortByColumn(1, Qt::AscendingOrder);
    setSortingEnabled(true);
}

void EntityView::dataChanged(
    const QModelIndex& top_left, const QModelIndex& bottom_right, const QList<int>& roles)
{
    const bool is_edited = state() == EditingState &&
                           QItemSelectionRange(top_left, bottom_right).contains(currentIndex());
    if (is_edited) {
        QTreeView::dataChanged(top_left, bottom_right, roles);
    } else {
        viewport()->update();
    }
}

void EntityView::set_hint(const QString& text)
{
    m_hint = text;
    viewport()->update();
}

void EntityView::expand_selected()
{
    set_selected_expanded(true);
}

void EntityView::collapse_selected()
{
    set_selected_expanded(false);
}

void EntityView::set_selected_expanded(bool expanded)
{
    // While a layout is due, an expansion is no more than noted.
    scheduleDelayedItemsLayout();
    for (const QModelIndex& index : selectionModel()->selectedRows()) {
        set_expanded_below(index, expanded);
    }
}

void EntityView::set_expanded_below(const QModelIndex& index, bool expanded)
{
    if (!model()->hasChildren(index)) {
        return;
    }
    setExpanded(index, expanded);
    for (int row = 0; row < model()->rowCount(index); ++row) {
        set_expanded_below(model()->index(row, 0, index), expanded);
    }
}

QRegion EntityView::visualRegionForSelection(const QItemSelection& selection) const
{
    // A tree view searches all its rows for each range.
    constexpr qsizetype few = 20;
    return selection.size() > few ? QRegion(viewport()->rect())
                                  : QTreeView::visualRegionForSelection(selection);
}

void EntityView::contextMenuEvent(QContextMenuEvent* event)
{
    const bool is_by_key = event->reason() == QContextMenuEvent::Keyboard;
    Q_EMIT menu_wanted(is_by_key ? viewport()->mapToGlobal(visualRect(currentIndex()).bottomLeft())
                                 : event->globalPos());
}

void EntityView::drawRow(
    QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const
{
    QStyleOptionViewItem row = option;
    row.palette = softened(option.palette);
    QTreeView::drawRow(painter, row, index);
}

void EntityView::paintEvent(QPaintEvent* event)
{
    QTreeView::paintEvent(event);
    if (!m_hint.isEmpty()) {
        QPainter painter(viewport());
        painter.setPen(palette().color(QPalette::PlaceholderText));
        painter.drawText(viewport()->rect(), Qt::AlignCenter | Qt::TextWordWrap, m_hint);
    }
}
