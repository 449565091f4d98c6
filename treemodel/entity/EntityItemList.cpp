#include <treemodel/entity/EntityItemList.hpp>

#include <algorithm>
#include <treemodel/prefetch.hpp>
#include <utility>

namespace {

quint32 low_half(const EntityItem* item)
{
    return static_cast<quint32>(reinterpret_cast<quintptr>(item));
}

/// The first position that holds `wanted`, or the end. Compares whole blocks without an early
/// exit, and only half of each pointer, which makes dense vector code at memory speed; a
/// block with a hit is then searched for the whole pointer.
template <typename Iterator>
Iterator find_pointer(Iterator first, Iterator last, const EntityItem* wanted)
{
    constexpr qsizetype block_size = 32;
    const quint32 wanted_half = low_half(wanted);
    while (last - first >= block_size) {
        const Iterator block_end = first + block_size;
        quint32 hits = 0;
        for (qsizetype i = 0; i < block_size; ++i) {
            hits += low_half(first[i]) == wanted_half ? 1 : 0;
        }
        if (hits > 0) {
            const Iterator found = std::find(first, block_end, wanted);
            if (found != block_end) {
                return found;
            }
        }
        first = block_end;
    }
    return std::find(first, last, wanted);
}

} // namespace

EntityItemList::~EntityItemList()
{
    clear();
}

int EntityItemList::findInsertIndex(EntityItem* /*item*/, int /*column*/, bool /*ascending*/) const
{
    return childCount();
}

int EntityItemList::findUpdatedIndex(int row, int /*column*/, bool /*ascending*/) const
{
    return row;
}

void EntityItemList::sortChildren(int /*column*/, bool /*ascending*/) {}

bool EntityItemList::hasChildren() const
{
    return !m_children.isEmpty();
}

int EntityItemList::childCount() const
{
    return static_cast<int>(m_children.size());
}

EntityItem* EntityItemList::getChild(int row) const
{
    return m_children.value(row);
}

int EntityItemList::getChildIndex(EntityItem* child) const
{
    const auto found = find_pointer(m_children.begin(), m_children.end(), child);
    return found == m_children.end() ? -1 : static_cast<int>(found - m_children.begin());
}

void EntityItemList::iterateChildren(std::function<bool(EntityItem*)> visit) const
{
    static_cast<void>(std::any_of(m_children.begin(), m_children.end(), std::move(visit)));
}

void EntityItemList::insertChild(int row, EntityItem* child)
{
    if (m_children.isEmpty()) {
        m_children.reserve(1); // Many parents have no second child
    }
    m_children.insert(row, child);
}

EntityItem* EntityItemList::removeChild(int row)
{
    EntityItem* child = m_children.takeAt(row);
    child->setParentEntity(nullptr);
    return child;
}

void EntityItemList::clear()
{
    constexpr int prefetch_distance = 8;
    for (int row = 0; row < childCount(); ++row) {
        prefetch(getChild(row + prefetch_distance));
        delete getChild(row);
    }
    m_children.clear();
}

void EntityItemList::moveChild(int row, int target)
{
    m_children.move(row, target);
}
