#include <treemodel/entity/EntityItemList.hpp>

#include <algorithm>
#include <treemodel/entity/EntityItem.hpp>

namespace {

/// The first position that holds `wanted`, or the end. Whole blocks are compared without an
/// early exit, which compilers turn into vector instructions.
template <typename Iterator>
Iterator find_pointer(Iterator first, Iterator last, const EntityItem* wanted)
{
    constexpr qsizetype block = 32;
    while (last - first >= block) {
        bool found = false;
        for (qsizetype i = 0; i < block; ++i) {
            found |= first[i] == wanted;
        }
        if (found) {
            break;
        }
        first += block;
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
    static_cast<void>(std::any_of(m_children.begin(), m_children.end(), visit));
}

void EntityItemList::insertChild(int row, EntityItem* child)
{
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
    qDeleteAll(m_children);
    m_children.clear();
}

void EntityItemList::moveChild(int row, int target)
{
    m_children.move(row, target);
}
