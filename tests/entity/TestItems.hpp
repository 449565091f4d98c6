#pragma once

#include <initializer_list>
#include <QStringList>
#include <treemodel/entity/EntityItem.hpp>
#include <treemodel/entity/EntityItemList.hpp>
#include <utility>

/// An item that notes its death, by name, in a list that outlives it.
template <class Item>
class MortalItem : public Item
{
public:
    template <class... Arguments>
    explicit MortalItem(QStringList& deaths, Arguments&&... arguments)
        : Item(std::forward<Arguments>(arguments)...)
        , m_deaths(deaths)
    {
    }
    ~MortalItem() override { m_deaths.append(this->getDisplayName()); }

private:
    QStringList& m_deaths;
};

inline SimpleItem* new_item(
    const QString& display, int id = 0, int type = 1, EntityItemList* list = nullptr)
{
    auto* item = new SimpleItem(display, type, list);
    item->setId(id);
    return item;
}

inline SimpleItem* new_mortal(
    QStringList& deaths, const QString& display, EntityItemList* list = nullptr)
{
    return new MortalItem<SimpleItem>(deaths, display, 1, list);
}

/// Appends children without asking for their place.
inline void append_children(EntityItem& parent, std::initializer_list<EntityItem*> children)
{
    for (EntityItem* child : children) {
        parent.insertChild(parent.childCount(), child);
    }
}

/// What the children show, as "a b c".
inline QString shown_children(const EntityItem& parent)
{
    QStringList names;
    for (int row = 0; row < parent.childCount(); ++row) {
        names.append(parent.getChild(row)->getDisplayName());
    }
    return names.join(' ');
}
