#include "entity/random_observers.hpp"

#include <algorithm>
#include <QItemSelectionModel>

using Node = TreeReference::Node;

namespace {

Node* random_visible(RandomSource& random, const TreeReference& reference)
{
    std::vector<Node*> nodes = reference.nodes();
    std::erase_if(nodes, [&](const Node* node) { return !reference.is_visible(node); });
    return nodes.empty() ? nullptr : random.pick(nodes);
}

/// Forgets the items that a view has lost sight of.
void erase_unseen(std::set<EntityItem*>& items, const TreeReference& reference)
{
    std::erase_if(items, [&](const EntityItem* item) {
        const Node* node = reference.find(item);
        return !node || !reference.is_visible(node);
    });
}

/// True if two nodes under one parent show the same data. Their rows change at once and are
/// told one after the other, which a sorting proxy takes for rows in order.
bool has_twins(const TreeReference& reference)
{
    std::set<std::pair<const Node*, const TreeReference::Facts*>> seen;
    const auto nodes = reference.nodes();
    return !std::all_of(nodes.begin(), nodes.end(),
        [&seen](const Node* node) { return seen.emplace(node->parent, node->facts.get()).second; });
}

} // namespace

PersistentObserver::PersistentObserver(const EntityModel* model)
    : m_model(model)
{
}

QString PersistentObserver::stir(RandomSource& random, const TreeReference& reference)
{
    const Node* node = random_visible(random, reference);
    if (!node || random.chance(50)) {
        return {};
    }
    m_indexes[node->item] = m_model->index(node->item);
    return "keep an index of " + node->label;
}

QString PersistentObserver::differences(const TreeReference& reference)
{
    for (auto at = m_indexes.begin(); at != m_indexes.end();) {
        const auto& [item, index] = *at;
        const Node* node = reference.find(item);
        if (!node || !reference.is_visible(node)) {
            if (index.isValid()) {
                return "an index is still valid after its item left the view";
            }
            at = m_indexes.erase(at);
            continue;
        }
        if (index.internalPointer() != item || index.column() != 0 ||
            index.row() != TreeReference::row(node) ||
            index.parent().internalPointer() != node->parent->item) {
            return "the index kept of " + node->label + " does not follow it";
        }
        ++at;
    }
    return {};
}

ViewObserver::ViewObserver(EntityModel* model)
    : m_model(model)
{
    m_view.setModel(model);
    m_view.setSelectionMode(QAbstractItemView::ExtendedSelection);
    m_view.setSelectionBehavior(QAbstractItemView::SelectRows);
}

QString ViewObserver::stir(RandomSource& random, const TreeReference& reference)
{
    const Node* node = random_visible(random, reference);
    if (!node || random.chance(40)) {
        return {};
    }
    const QModelIndex index = m_model->index(node->item);
    if (random.chance(50)) {
        const bool expanded = m_expanded.contains(node->item);
        m_view.setExpanded(index, !expanded);
        expanded ? (void)m_expanded.erase(node->item) : (void)m_expanded.insert(node->item);
        return (expanded ? "collapse " : "expand ") + node->label;
    }
    const bool selected = m_selected.contains(node->item);
    m_view.selectionModel()->select(index, QItemSelectionModel::Toggle | QItemSelectionModel::Rows);
    selected ? (void)m_selected.erase(node->item) : (void)m_selected.insert(node->item);
    return (selected ? "deselect " : "select ") + node->label;
}

QString ViewObserver::differences(const TreeReference& reference)
{
    erase_unseen(m_expanded, reference);
    erase_unseen(m_selected, reference);
    for (const Node* node : reference.nodes()) {
        if (reference.is_visible(node) &&
            m_view.isExpanded(m_model->index(node->item)) != m_expanded.contains(node->item)) {
            return "a view forgets whether it has expanded " + node->label;
        }
    }

    const QModelIndexList cells = m_view.selectionModel()->selectedIndexes();
    std::set<EntityItem*> selected;
    for (const QModelIndex& index : cells) {
        selected.insert(m_model->getEntity(index));
    }
    if (selected != m_selected) {
        return "a view's selection does not stay with its items";
    }
    if (cells.size() != qsizetype(selected.size()) * m_model->columnCount()) {
        return "a view's selection falls apart into single cells";
    }

    std::vector<EntityItem*> expected;
    collect_shown(reference.top_level(), expected);
    std::vector<EntityItem*> shown;
    for (QModelIndex at = m_model->index(0, 0); at.isValid(); at = m_view.indexBelow(at)) {
        shown.push_back(m_model->getEntity(at));
    }
    return shown == expected ? QString() : "a view shows other rows than those expanded";
}

void ViewObserver::collect_shown(const Nodes& nodes, std::vector<EntityItem*>& items) const
{
    for (const Node* node : nodes) {
        items.push_back(node->item);
        if (m_expanded.contains(node->item)) {
            collect_shown(node->children, items);
        }
    }
}

ProxyObserver::ProxyObserver(EntityModel* model, bool sorts)
    : m_sorts(sorts)
{
    m_proxy.setSourceModel(model);
    if (sorts) {
        m_proxy.sort(0);
    }
}

QString ProxyObserver::differences(const TreeReference& reference)
{
    if (m_sorts && has_twins(reference)) {
        m_proxy.invalidate();
    }
    return compare(reference.top_level(), {});
}

QString ProxyObserver::compare(const std::vector<Node*>& nodes, const QModelIndex& parent)
{
    const int count = int(nodes.size());
    if (m_proxy.rowCount(parent) != count) {
        return QString("a proxy has %1 rows where %2 stand")
            .arg(m_proxy.rowCount(parent))
            .arg(count);
    }
    std::set<const Node*> left(nodes.begin(), nodes.end());
    QString previous;
    for (int row = 0; row < count; ++row) {
        const QModelIndex index = m_proxy.index(row, 0, parent);
        const void* item = m_proxy.mapToSource(index).internalPointer();
        const auto found = std::find_if(
            left.begin(), left.end(), [item](const Node* node) { return node->item == item; });
        if (found == left.end() || (!m_sorts && *found != nodes[row])) {
            return QString("a proxy shows the wrong item in row %1").arg(row);
        }
        const Node* node = *found;
        left.erase(found);
        const QString text = index.data().toString();
        if (text != node->facts->shown() || (m_sorts && text < previous)) {
            return "a proxy shows " + node->label + " out of order or by an old name";
        }
        previous = text;
        QString difference = compare(node->children, index);
        if (!difference.isEmpty()) {
            return difference;
        }
    }
    return {};
}

namespace {

QString finding;
QtMessageHandler other_messages = nullptr;

void collect_findings(QtMsgType type, const QMessageLogContext& context, const QString& message)
{
    if (qstrcmp(context.category, "qt.modeltest") != 0) {
        return other_messages(type, context, message);
    }
    if (!message.contains("flags == Qt::ItemIsDropEnabled || flags == 0")) {
        finding = message;
    }
}

} // namespace

TesterObserver::TesterObserver(EntityModel* model)
{
    finding.clear();
    other_messages = qInstallMessageHandler(collect_findings);
    m_tester = std::make_unique<QAbstractItemModelTester>(
        model, QAbstractItemModelTester::FailureReportingMode::Warning);
}

TesterObserver::~TesterObserver()
{
    m_tester.reset();
    qInstallMessageHandler(other_messages);
}

QString TesterObserver::differences(const TreeReference&)
{
    return finding;
}
