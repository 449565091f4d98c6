#include <browser/window/TreePane.hpp>

#include <QTreeView>
#include <QVBoxLayout>

TreePane::TreePane(KernelSession&, QWidget* parent)
    : QWidget(parent)
    , m_view(new QTreeView)
{
    m_view->setModel(&m_items);
    m_view->setUniformRowHeights(true);
    m_view->setSelectionMode(QAbstractItemView::ExtendedSelection);
    auto* const layout = new QVBoxLayout(this);
    layout->setContentsMargins({});
    layout->addWidget(m_view);
}

void TreePane::set_filter(const QString&) {}

void TreePane::expand_levels(int levels)
{
    m_view->expandToDepth(levels - 1);
}

bool TreePane::is_settled() const
{
    return true;
}
