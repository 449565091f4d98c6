#pragma once

#include <algorithm>
#include <QList>
#include <treemodel/entity/ItemKeys.hpp>

// What a sorted list answers about its children. `Key` is one of those of ItemKeys.hpp. A
// null child goes last in either direction.

/// The first of the children from `first` to `last` that does not go before `item`.
template <typename Key, typename Iterator>
Iterator lower_bound_of(Iterator first, Iterator last, const EntityItem* item, bool ascending)
{
    if (!item) {
        return std::partition_point(first, last, [](const EntityItem* child) { return child; });
    }
    const Key key(item);
    return std::partition_point(first, last, [&key, ascending](const EntityItem* child) {
        return child && (ascending ? Key(child) < key : key < Key(child));
    });
}

template <typename Key>
int insert_index(const QList<EntityItem*>& children, const EntityItem* item, bool ascending)
{
    const auto place = lower_bound_of<Key>(children.begin(), children.end(), item, ascending);
    const bool stands_there = place != children.end() && *place == item;
    return stands_there ? -2 : static_cast<int>(place - children.begin());
}

template <typename Key>
int updated_index(const QList<EntityItem*>& children, int row, bool ascending)
{
    const auto first = children.begin();
    const auto current = first + row;
    const auto next = current + 1;
    const auto above = lower_bound_of<Key>(first, current, *current, ascending);
    if (above != current) {
        return static_cast<int>(above - first);
    }
    const auto below = lower_bound_of<Key>(next, children.end(), *current, ascending);
    return below == next ? row : static_cast<int>(below - first);
}

template <typename Key>
void sort_children(QList<EntityItem*>& children, bool ascending)
{
    const auto end = std::partition(
        children.begin(), children.end(), [](const EntityItem* child) { return child; });
    Key::sort({children.begin(), end});
    if (!ascending) {
        std::reverse(children.begin(), end);
    }
}

/// The same three for a list that sorts column 0 by name and any other by `OtherKey`.
template <typename OtherKey>
struct SortedByColumn
{
    static int insertIndex(
        const QList<EntityItem*>& children, const EntityItem* item, int column, bool ascending)
    {
        return column == 0 ? insert_index<NameKey>(children, item, ascending)
                           : insert_index<OtherKey>(children, item, ascending);
    }

    static int updatedIndex(const QList<EntityItem*>& children, int row, int column, bool ascending)
    {
        return column == 0 ? updated_index<NameKey>(children, row, ascending)
                           : updated_index<OtherKey>(children, row, ascending);
    }

    static void sort(QList<EntityItem*>& children, int column, bool ascending)
    {
        column == 0 ? sort_children<NameKey>(children, ascending)
                    : sort_children<OtherKey>(children, ascending);
    }
};
