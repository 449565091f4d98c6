#include <treemodel/entity/SharedItem.hpp>

SharedItem::SharedItem(EntityItemData* data, EntityItemList* list)
    : EntityItem(list)
    , m_data(data)
{
    m_data->addItem(this);
}

SharedItem::~SharedItem()
{
    m_data->removeItem(this);
}

EntityItemData* SharedItem::getData()
{
    return m_data;
}

int SharedItem::getType() const
{
    return m_data->getType();
}

int SharedItem::getId() const
{
    return m_data->getId();
}

bool SharedItem::isEditable() const
{
    return true;
}

const QString& SharedItem::getName() const
{
    return m_data->getName();
}

const QString& SharedItem::getDisplayName() const
{
    return m_data->getDisplayName();
}

bool SharedItem::setDisplay(const QString& display)
{
    return m_data->setDisplay(display);
}

bool SharedItem::isVisible() const
{
    return m_data->isVisible();
}
