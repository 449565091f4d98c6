#include <treemodel/entity/SimpleItem.hpp>

#include <treemodel/entity/replace_value.hpp>

SimpleItem::SimpleItem(const QString& display, int type, EntityItemList* list)
    : EntityItem(list)
    , m_display(display)
    , m_type(type)
{
}

SimpleItem::SimpleItem(int type, int id, EntityItemList* list)
    : EntityItem(list)
    , m_type(type)
    , m_id(id)
{
}

int SimpleItem::getType() const
{
    return m_type;
}

int SimpleItem::getId() const
{
    return m_id;
}

bool SimpleItem::isEditable() const
{
    return m_editable;
}

const QString& SimpleItem::getName() const
{
    return m_name;
}

const QString& SimpleItem::getDisplayName() const
{
    return m_name.isEmpty() ? m_display : m_name;
}

bool SimpleItem::setDisplay(const QString& display)
{
    return replace_value(m_display, display);
}

void SimpleItem::setType(int type)
{
    m_type = type;
}

void SimpleItem::setId(int id)
{
    m_id = id;
}

void SimpleItem::setEditable(bool editable)
{
    m_editable = editable;
}

bool SimpleItem::setName(const QString& name)
{
    return replace_value(m_name, name);
}
