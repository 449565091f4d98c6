#include <treemodel/entity/ItemKeys.hpp>

#include <algorithm>
#include <limits>
#include <vector>

namespace {

struct NumberedItem
{
    quint64 number;
    EntityItem* item;
};

/// A name with the units in which the names of a sort first differ, packed into a number
/// that compares as they do. Most comparisons so need no look at the text.
struct NamedItem
{
    quint64 units;
    const QString* name;
    EntityItem* item;
};

bool operator<(const NumberedItem& a, const NumberedItem& b)
{
    return a.number < b.number;
}

bool operator<(const NamedItem& a, const NamedItem& b)
{
    if (a.units != b.units) {
        return a.units < b.units;
    }
    return QtPrivate::compareStrings(*a.name, *b.name, Qt::CaseSensitive) < 0;
}

/// Sorts `entries` and puts their items, in that order, into `items`.
template <typename Entry>
void sort_items(std::vector<Entry>& entries, std::span<EntityItem*> items)
{
    std::sort(entries.begin(), entries.end());
    std::transform(entries.begin(), entries.end(), items.begin(),
        [](const Entry& entry) { return entry.item; });
}

/// `numberOf` gives a number for an item, by which the items are sorted. Returns the
/// numbers in that order.
template <typename NumberOf>
std::vector<NumberedItem> sort_by_number(std::span<EntityItem*> items, NumberOf numberOf)
{
    std::vector<NumberedItem> entries;
    entries.reserve(items.size());
    for (EntityItem* item : items) {
        entries.push_back({numberOf(item), item});
    }
    sort_items(entries, items);
    return entries;
}

/// A number that compares as the signed one does.
quint64 ordered(int value)
{
    return static_cast<quint32>(value) ^ 0x8000'0000U;
}

qsizetype common_prefix(QStringView a, QStringView b)
{
    const auto length = std::min(a.size(), b.size());
    return std::mismatch(a.begin(), a.begin() + length, b.begin()).first - a.begin();
}

/// The first eight units. One beyond Latin-1 counts as 0xff and ends them, so that
/// it makes a tie and never a wrong order.
quint64 packed(QStringView text)
{
    constexpr quint64 beyond = 0xff;
    quint64 units = 0;
    int shift = 64;
    for (const QChar unit : text.first(std::min<qsizetype>(text.size(), 8))) {
        const auto value = std::min<quint64>(unit.unicode(), beyond);
        shift -= 8;
        units |= value << shift;
        if (value == beyond) {
            break;
        }
    }
    return units;
}

} // namespace

void NameKey::sort(std::span<EntityItem*> items)
{
    if (items.empty()) {
        return;
    }
    const QString& first = items.front()->getDisplayName();
    qsizetype prefix = first.size();
    std::vector<NamedItem> entries;
    entries.reserve(items.size());
    for (EntityItem* item : items) {
        const QString& name = item->getDisplayName();
        prefix = common_prefix(QStringView(first).first(prefix), name);
        entries.push_back({0, &name, item});
    }
    for (NamedItem& entry : entries) {
        entry.units = packed(QStringView(*entry.name).sliced(prefix));
    }
    sort_items(entries, items);
}

void IdKey::sort(std::span<EntityItem*> items)
{
    const auto entries =
        sort_by_number(items, [](const EntityItem* item) { return ordered(item->getId()); });
    for (auto run = entries.begin(); run != entries.end();) {
        const auto end = std::find_if(run, entries.end(),
            [run](const NumberedItem& entry) { return entry.number != run->number; });
        if (end - run > 1) {
            NameKey::sort(items.subspan(run - entries.begin(), end - run));
        }
        run = end;
    }
}

void TypeIdKey::sort(std::span<EntityItem*> items)
{
    sort_by_number(items, [](const EntityItem* item) {
        return ordered(item->getType()) << 32 | ordered(item->getId());
    });
}
