#pragma once

#include <compare>
#include <QStringView>
#include <span>
#include <treemodel/entity/EntityItem.hpp>

// What children are sorted by. A key reads its item once and can then be compared with the
// keys of any number of others. sort() puts items, none of them null, in ascending order of
// their keys; items that tie come in any order.

/// By display name: UTF-16 code unit by code unit.
struct NameKey
{
    explicit NameKey(const EntityItem* item)
        : name(item->getDisplayName())
    {
    }
    bool operator<(const NameKey& other) const
    {
        return QtPrivate::compareStrings(name, other.name, Qt::CaseSensitive) < 0;
    }
    static void sort(std::span<EntityItem*> items);

    QStringView name;
};

/// By id, then by display name.
struct IdKey
{
    explicit IdKey(const EntityItem* key_item)
        : id(key_item->getId())
        , item(key_item)
    {
    }
    bool operator<(const IdKey& other) const
    {
        return id == other.id ? NameKey(item) < NameKey(other.item) : id < other.id;
    }
    static void sort(std::span<EntityItem*> items);

    int id;
    const EntityItem* item;
};

/// By type, then by id.
struct TypeIdKey
{
    explicit TypeIdKey(const EntityItem* item)
        : type(item->getType())
        , id(item->getId())
    {
    }
    auto operator<=>(const TypeIdKey&) const = default;
    static void sort(std::span<EntityItem*> items);

    int type;
    int id;
};

/// By place at top level: category, then preferred index. As unsigned numbers, those
/// below 0 come last, in ascending order.
struct CategoryKey
{
    explicit CategoryKey(const EntityItem* item)
        : category(static_cast<unsigned>(item->getCategory()))
        , preferredIndex(static_cast<unsigned>(item->getPreferredIndex()))
    {
    }
    auto operator<=>(const CategoryKey&) const = default;

    unsigned category;
    unsigned preferredIndex;
};
