#include <browser/window/TreePane.hpp>

#include <browser/editing/FilterBar.hpp>
#include <browser/window/BranchText.hpp>
#include <browser/window/EntityView.hpp>
#include <QClipboard>
#include <QGuiApplication>
#include <QVBoxLayout>
#include <treemodel/treedata/TreeData.hpp>

TreePane::TreePane(TreeModel& mirror, QWidget* parent)
    : QWidget(parent)
    , m_join(mirror, m_items)
    , m_rows(m_items)
    , m_selection(m_join, m_rows)
    , m_view(new EntityView)
    , m_filter_bar(new FilterBar(m_rows, *m_view))
{
    m_items.setIcons(&m_icons);
    m_view->setModel(&m_rows);
    m_view->setSelectionModel(&m_selection);
    create_layout();

    connect(m_view, &QTreeView::expanded, this,
        [this](const QModelIndex& index) { m_join.fill(m_rows.item(index)); });
    connect(&m_selection, &SelectionLink::went_to, m_view,
        [this](const QModelIndex& index) { m_view->scrollTo(index); });
    connect(&m_join, &MirrorItems::settled, this, &TreePane::show_wanted_levels);
    connect(&m_join, &MirrorItems::settled, this, &TreePane::show_hint);
    connect(&m_rows, &EntityFilter::filtered, this, &TreePane::show_hint);
}

void TreePane::create_layout()
{
    auto* const layout = new QVBoxLayout(this);
    layout->setContentsMargins({});
    layout->setSpacing(0);
    m_filter_bar->setContentsMargins(4, 4, 4, 4);
    layout->addWidget(m_filter_bar);
    layout->addWidget(m_view);
    setFocusProxy(m_view);
}

EntityItem* TreePane::current_item() const
{
    return m_rows.item(m_view->currentIndex());
}

void TreePane::show_levels(int levels)
{
    m_wanted_levels = levels;
    if (m_join.is_settled()) {
        show_wanted_levels();
    }
}

bool TreePane::is_settled() const
{
    return m_join.is_settled() && m_rows.is_settled() && m_wanted_levels == 0;
}

void TreePane::expand_branch()
{
    m_view->expand_selected();
}

void TreePane::collapse_branch()
{
    m_view->collapse_selected();
}

void TreePane::copy()
{
    QGuiApplication::clipboard()->setText(branch_text(
        m_selection.selection(), [this](const QModelIndex& index) { return row_text(index); }));
}

void TreePane::go_to_selection()
{
    m_selection.go_to_selection();
}

bool TreePane::rename()
{
    const QModelIndex name = m_view->currentIndex().siblingAtColumn(0);
    if (!name.flags().testFlag(Qt::ItemIsEditable)) {
        return false;
    }
    m_view->setFocus();
    m_view->edit(name);
    return true;
}

void TreePane::edit_filter()
{
    m_filter_bar->focus();
}

void TreePane::show_wanted_levels()
{
    if (m_wanted_levels > 1) {
        m_view->expandToDepth(m_wanted_levels - 2);
    }
    m_wanted_levels = 0;
}

void TreePane::show_hint()
{
    m_view->set_hint(hint());
}

QString TreePane::hint() const
{
    if (m_rows.is_active()) {
        return m_rows.rowCount() > 0 ? QString()
                                     : tr("No name contains \"%1\".").arg(m_rows.text());
    }
    for (int category = 0; category < category_count; ++category) {
        if (m_join.category(Category(category))->childCount() > 0) {
            return {};
        }
    }
    return tr("Open a file with Ctrl+O, or drop one here.");
}

QString TreePane::row_text(const QModelIndex& index) const
{
    TreeData* const record = m_join.record(m_rows.item(index));
    QString name = index.data().toString();
    name.replace(QLatin1Char('\n'), QLatin1Char(' ')); // A row is a line
    return record ? QStringLiteral("%1  [%2 %3]")
                        .arg(name, QString::fromStdString(item_kind_info(item_kind(record)).word))
                        .arg(record->id())
                  : name;
}
