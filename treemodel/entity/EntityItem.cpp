#include <treemodel/entity/EntityItem.hpp>

#include <treemodel/entity/EntityItemList.hpp>

EntityItem::EntityItem(EntityItemList* list)
    : m_list(list)
{
}

EntityItem::~EntityItem()
{
    delete m_list;
}

int EntityItem::getCategory() const
{
    return -1;
}

int EntityItem::getPreferredIndex() const
{
    return -1;
}

EntityItemData* EntityItem::getData()
{
    return nullptr;
}

int EntityItem::getType() const
{
    return -1;
}

int EntityItem::getId() const
{
    return 0;
}

bool EntityItem::isEditable() const
{
    return false;
}

bool EntityItem::isVisible() const
{
    return true;
}

EntityItem* EntityItem::getParentEntity() const
{
    return m_parentEntity;
}

void EntityItem::setParentEntity(EntityItem* parent)
{
    m_parentEntity = parent;
}

EntityItemList* EntityItem::getList()
{
    return m_list;
}

void EntityItem::setList(EntityItemList* list)
{
    Q_ASSERT(!list || list != m_list);
    delete m_list;
    m_list = list;
}

void EntityItem::clear()
{
    if (m_list) {
        m_list->clear();
    }
}

int EntityItem::childCount() const
{
    return m_list ? m_list->childCount() : 0;
}

EntityItem* EntityItem::getChild(int row) const
{
    return m_list ? m_list->getChild(row) : nullptr;
}

EntityItem* EntityItem::getChildById(int id) const
{
    EntityItem* found = nullptr;
    if (m_list) {
        m_list->iterateChildren([&](EntityItem* child) {
            if (child->getId() != id) {
                return false;
            }
            found = child;
            return true;
        });
    }
    return found;
}

EntityItem* EntityItem::getChildById(int id, int type) const
{
    EntityItem* found = nullptr;
    if (m_list) {
        m_list->iterateChildren([&](EntityItem* child) {
            if (child->getType() != type || child->getId() != id) {
                return false;
            }
            found = child;
            return true;
        });
    }
    return found;
}

void EntityItem::getChildIds(std::set<int>& ids) const
{
    if (m_list) {
        m_list->iterateChildren([&](EntityItem* child) {
            ids.insert(child->getId());
            return false;
        });
    }
}

void EntityItem::getChildIds(std::set<int>& ids, int type) const
{
    if (m_list) {
        m_list->iterateChildren([&](EntityItem* child) {
            if (child->getType() == type) {
                ids.insert(child->getId());
            }
            return false;
        });
    }
}

int EntityItem::getChildIndex(EntityItem* child) const
{
    return m_list ? m_list->getChildIndex(child) : -1;
}

int EntityItem::findInsertIndex(EntityItem* child, int column, bool ascending) const
{
    return m_list ? m_list->findInsertIndex(child, column, ascending) : -1;
}

int EntityItem::findUpdatedIndex(int row, int column, bool ascending) const
{
    return m_list ? m_list->findUpdatedIndex(row, column, ascending) : row;
}

void EntityItem::sortChildren(int column, bool ascending)
{
    if (m_list) {
        m_list->sortChildren(column, ascending);
    }
}

EntityItem* EntityItem::insertChild(int row, EntityItem* child)
{
    if (!m_list) {
        delete child;
        return nullptr;
    }
    child->setParentEntity(this);
    m_list->insertChild(row, child);
    return child;
}

EntityItem* EntityItem::removeChild(int row)
{
    return m_list ? m_list->removeChild(row) : nullptr;
}

EntityItem* EntityItem::getNext(EntityItem* stop)
{
    if (EntityItem* child = getChild(0)) {
        return child;
    }
    for (EntityItem* item = this; item != stop; item = item->m_parentEntity) {
        const EntityItem* parent = item->m_parentEntity;
        if (!parent || !parent->m_list) {
            return nullptr;
        }
        if (EntityItem* sibling = parent->getChild(parent->getChildIndex(item) + 1)) {
            return sibling;
        }
    }
    return nullptr;
}
