#include <treemodel/entity/EntityItemData.hpp>

#include <algorithm>
#include <treemodel/entity/EntityItem.hpp>
#include <treemodel/entity/EntityModelInterface.hpp>
#include <treemodel/entity/replace_value.hpp>

EntityItemData::EntityItemData(int type, int id)
    : m_type(type)
    , m_id(id)
{
}

EntityItemData::~EntityItemData() = default;

const QString& EntityItemData::getDisplayName() const
{
    return m_name.isEmpty() ? m_display : m_name;
}

int EntityItemData::getType() const
{
    return m_type;
}

int EntityItemData::getId() const
{
    return m_id;
}

const QString& EntityItemData::getName() const
{
    return m_name;
}

bool EntityItemData::isVisible() const
{
    return m_visible;
}

void EntityItemData::setId(int id)
{
    m_id = id;
}

bool EntityItemData::setType(int type)
{
    return replace_value(m_type, type);
}

bool EntityItemData::setVisible(bool visible)
{
    return replace_value(m_visible, visible);
}

bool EntityItemData::setName(const QString& name)
{
    return replace_value(m_name, name);
}

bool EntityItemData::setDisplay(const QString& display)
{
    return replace_value(m_display, display);
}

bool EntityItemData::itemsEmpty() const
{
    return m_items.isEmpty();
}

EntityItem* EntityItemData::getItem(int i) const
{
    return m_items[i];
}

EntityItem* EntityItemData::findItem(EntityItem* parent) const
{
    const auto found = std::find_if(m_items.begin(), m_items.end(),
        [parent](const EntityItem* item) { return item->getParentEntity() == parent; });
    return found == m_items.end() ? nullptr : *found;
}

void EntityItemData::addItem(EntityItem* item)
{
    m_items.append(item);
}

void EntityItemData::removeItem(EntityItem* item)
{
    m_items.removeAll(item);
}

void EntityItemData::iterateItems(std::function<void(EntityItem*)> visit)
{
    std::for_each(m_items.cbegin(), m_items.cend(), visit);
}

void EntityItemData::iterateItemsReverse(std::function<void(EntityItem*)> visit)
{
    for (qsizetype i = m_items.size() - 1; i >= 0; --i) {
        visit(m_items.at(i));
    }
}

void EntityItemData::updateModel(EntityModelInterface* model)
{
    iterateItems([model](EntityItem* item) { model->update_item(item); });
}
