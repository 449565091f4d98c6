#include "support/TreeReference.hpp"

#include <algorithm>
#include <tuple>
#include <utility>

TreeReference::TreeReference()
{
    m_root.order = Category;
}

TreeReference::~TreeReference() = default;

TreeReference::Node* TreeReference::create(
    EntityItem* item, std::shared_ptr<Facts> facts, Order order, QString label)
{
    m_nodes.push_back(std::make_unique<Node>());
    Node* node = m_nodes.back().get();
    node->item = item;
    node->facts = std::move(facts);
    node->order = order;
    node->label = std::move(label);
    node->facts->nodes.push_back(node);
    m_by_item[item] = node;
    return node;
}

void TreeReference::hang(Node* parent, Node* child)
{
    place(parent, int(parent->children.size()), child);
}

void TreeReference::destroy(Node* node)
{
    while (!node->children.empty()) {
        Node* child = node->children.back();
        take_out(child);
        destroy(child);
    }
    std::erase(node->facts->nodes, node);
    m_by_item.erase(node->item);
    std::erase_if(m_nodes, [node](const auto& owned) { return owned.get() == node; });
}

bool TreeReference::addEntity(Node* parent, Node* child)
{
    Node* target = parent ? parent : &m_root;
    const bool known = !parent || is_visible(parent) || is_hidden(parent);
    if (!known || target->order == NoList) {
        destroy(child);
        return false;
    }
    const int row = insert_row(target, child);
    if (row == already_there) {
        return true;
    }
    if (!is_hidden(target)) {
        m_events.push_back({ModelEvent::Inserted, key(target), row, row});
    }
    place(target, row, child);
    return true;
}

bool TreeReference::moveEntity(Node* node, Node* new_parent)
{
    Node* target = new_parent ? new_parent : &m_root;
    if (node && node->parent == target) {
        return true;
    }
    const bool known = node && (is_visible(node) || is_hidden(node)) && new_parent &&
                       (is_visible(new_parent) || is_hidden(new_parent));
    if (!known || target->order == NoList) {
        return false;
    }

    const bool from_view = is_visible(node);
    const bool to_view = is_visible(target);
    const int old_row = from_view ? row(node) : -1;
    const void* source = from_view ? key(node->parent) : nullptr;
    const int new_row = insert_row(target, node);
    if (from_view && to_view) {
        m_events.push_back({ModelEvent::Moved, source, old_row, old_row, key(target), new_row});
    } else if (from_view) {
        m_events.push_back({ModelEvent::Removed, source, old_row, old_row});
    } else if (to_view) {
        m_events.push_back({ModelEvent::Inserted, key(target), new_row, new_row});
    }
    take_out(node);
    place(target, new_row, node);
    return false;
}

bool TreeReference::removeEntity(Node* node)
{
    if (!node || !(is_visible(node) || is_hidden(node))) {
        return false;
    }
    if (is_visible(node)) {
        m_events.push_back({ModelEvent::Removed, key(node->parent), row(node), row(node)});
    }
    take_out(node);
    destroy(node);
    return true;
}

void TreeReference::updateEntity(Node* node)
{
    if (!node || !is_visible(node)) {
        return;
    }
    Node* parent = node->parent;
    const int old_row = row(node);
    const int new_row = updated_row(node);
    if (new_row == old_row) {
        m_events.push_back({ModelEvent::Changed, key(parent), old_row, old_row});
        return;
    }
    m_events.push_back({ModelEvent::Moved, key(parent), old_row, old_row, key(parent), new_row});
    take_out(node);
    place(parent, new_row > old_row ? new_row - 1 : new_row, node);
}

void TreeReference::hideCategory(Node* node)
{
    if (!node || node->parent != &m_root) {
        return;
    }
    m_events.push_back({ModelEvent::Removed, nullptr, row(node), row(node)});
    take_out(node);
    m_hidden.push_back(node);
}

void TreeReference::showCategory(Node* node)
{
    if (node && std::erase(m_hidden, node) > 0) {
        addEntity(nullptr, node);
    }
}

void TreeReference::clearCategory(Node* node)
{
    if (!node || node->children.empty() || !(is_visible(node) || is_hidden(node))) {
        return;
    }
    if (is_visible(node)) {
        m_events.push_back({ModelEvent::Removed, key(node), 0, int(node->children.size()) - 1});
    }
    while (!node->children.empty()) {
        Node* child = node->children.back();
        take_out(child);
        destroy(child);
    }
}

void TreeReference::clear()
{
    m_events.push_back({ModelEvent::Reset});
    while (!m_root.children.empty()) {
        Node* child = m_root.children.back();
        take_out(child);
        destroy(child);
    }
    for (Node* node : std::exchange(m_hidden, {})) {
        destroy(node);
    }
}

void TreeReference::sort(int column, bool ascending)
{
    if (column == m_column && ascending == m_ascending) {
        return;
    }
    m_column = column;
    m_ascending = ascending;
    sort_children(&m_root);
}

std::vector<ModelEvent> TreeReference::take_events()
{
    return std::exchange(m_events, {});
}

std::vector<TreeReference::Node*> TreeReference::nodes() const
{
    std::vector<Node*> result;
    for (const auto& node : m_nodes) {
        result.push_back(node.get());
    }
    return result;
}

std::vector<TreeReference::Node*> TreeReference::outside() const
{
    std::vector<Node*> result;
    for (const auto& node : m_nodes) {
        if (!node->parent && !is_hidden(node.get())) {
            result.push_back(node.get());
        }
    }
    return result;
}

bool TreeReference::is_visible(const Node* node) const
{
    return node != &m_root && is_under(node, &m_root);
}

bool TreeReference::is_hidden(const Node* node) const
{
    while (node->parent) {
        node = node->parent;
    }
    return std::find(m_hidden.begin(), m_hidden.end(), node) != m_hidden.end();
}

bool TreeReference::is_under(const Node* node, const Node* ancestor) const
{
    while (node && node != ancestor) {
        node = node->parent;
    }
    return node == ancestor;
}

int TreeReference::row(const Node* node)
{
    const auto& rows = node->parent->children;
    return int(std::find(rows.begin(), rows.end(), node) - rows.begin());
}

const TreeReference::Node* TreeReference::next(const Node* node, const Node* top)
{
    if (!node->children.empty()) {
        return node->children.front();
    }
    for (; node != top; node = node->parent) {
        const auto& rows = node->parent->children;
        const size_t after = size_t(row(node)) + 1;
        if (after < rows.size()) {
            return rows[after];
        }
    }
    return nullptr;
}

TreeReference::Node* TreeReference::find(const EntityItem* item) const
{
    const auto found = m_by_item.find(item);
    return found == m_by_item.end() ? nullptr : found->second;
}

bool TreeReference::goes_before(const Node* a, const Node* b, Order order) const
{
    const Facts& left = *a->facts;
    const Facts& right = *b->facts;
    if (order == Category) {
        const auto place = [](const Facts& facts) {
            return std::tuple(facts.category < 0, facts.category, facts.preferred_index < 0,
                facts.preferred_index);
        };
        return place(left) < place(right);
    }
    const auto name = [](const Facts& facts) { return facts.shown().toStdU16String(); };
    const auto precedes = [&](const Facts& first, const Facts& second) {
        if (m_column == 0) {
            return name(first) < name(second);
        }
        if (order == NameOrId) {
            return std::tuple(first.id, name(first)) < std::tuple(second.id, name(second));
        }
        return std::tuple(first.type, first.id) < std::tuple(second.type, second.id);
    };
    return m_ascending ? precedes(left, right) : precedes(right, left);
}

bool TreeReference::is_noticed(const Node* node) const
{
    const Node* list = node->parent;
    bool told = true;
    const int at =
        lower_bound(list->children, node, list->order, 0, int(list->children.size()), told);
    return told && list->order != Insertion && at == row(node);
}

int TreeReference::insert_row(const Node* target, const Node* node)
{
    const int count = int(target->children.size());
    if (target->order == Insertion) {
        return count;
    }
    bool told = true;
    const int row = lower_bound(target->children, node, target->order, 0, count, told);
    if (!told) {
        ++m_open;
        return target->item->getChildIndex(node->item);
    }
    ++m_told;
    return row < count && target->children[row] == node ? already_there : row;
}

int TreeReference::updated_row(const Node* node)
{
    const Node* parent = node->parent;
    const int old_row = row(node);
    if (parent->order != NameOrId && parent->order != NameOrTypeId) {
        return old_row;
    }

    const auto& rows = parent->children;
    const int count = int(rows.size());
    bool told = true;
    int new_row = lower_bound(rows, node, parent->order, 0, old_row, told);
    if (told && new_row == old_row) {
        const int below = lower_bound(rows, node, parent->order, old_row + 1, count, told);
        new_row = below == old_row + 1 ? old_row : below;
    }
    if (told) {
        ++m_told;
        return new_row;
    }
    ++m_open;
    new_row = parent->item->getChildIndex(node->item);
    return new_row > old_row ? new_row + 1 : new_row;
}

/// The first of the rows from `first` that does not go before `node`, or `last`. Clears `told` if
/// a later row does go before it, so that a search may come out elsewhere.
int TreeReference::lower_bound(const std::vector<Node*>& nodes, const Node* node, Order order,
    int first, int last, bool& told) const
{
    int row = first;
    while (row < last && goes_before(nodes[row], node, order)) {
        ++row;
    }
    for (int later = row; later < last; ++later) {
        told = told && !goes_before(nodes[later], node, order);
    }
    return row;
}

void TreeReference::sort_children(Node* node)
{
    if (node->children.empty()) {
        return;
    }
    m_events.push_back({ModelEvent::LaidOut, key(node)});
    if (node->order == NameOrId || node->order == NameOrTypeId) {
        std::vector<Node*> sorted;
        sorted.reserve(node->children.size());
        for (int row = 0; row < node->item->childCount(); ++row) {
            sorted.push_back(find(node->item->getChild(row)));
        }
        const bool same = std::is_permutation(
            sorted.begin(), sorted.end(), node->children.begin(), node->children.end());
        if (!same) {
            m_fault = "a sort changed which rows stand under " + node->label;
        }
        for (size_t row = 1; same && row < sorted.size(); ++row) {
            if (goes_before(sorted[row], sorted[row - 1], node->order)) {
                m_fault = QString("a sort left %1 behind %2")
                              .arg(sorted[row]->label, sorted[row - 1]->label);
            }
        }
        if (same) {
            node->children = sorted;
        }
    }
    for (Node* child : node->children) {
        sort_children(child);
    }
}

const void* TreeReference::key(const Node* node) const
{
    return node->item;
}

void TreeReference::place(Node* target, int row, Node* node)
{
    const int count = int(target->children.size());
    if (row < 0 || row > count) {
        m_fault = node->label + " was put where the rules give it no place";
        row = count;
    }
    target->children.insert(target->children.begin() + row, node);
    node->parent = target;
}

void TreeReference::take_out(Node* node)
{
    if (node->parent) {
        std::erase(node->parent->children, node);
    } else {
        std::erase(m_hidden, node);
    }
    node->parent = nullptr;
}
