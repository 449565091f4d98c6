#include <treemodel/entity/ItemKeys.hpp>

#include <algorithm>
#include <array>
#include <numeric>
#include <vector>

namespace {

/// An item with a number that tells its place, or that it ties with others.
struct NumberedItem
{
    quint64 number;
    EntityItem* item;
};

/// Sorts by number: byte by byte from the lowest, leaving out those that all have in common.
void radix_sort(std::vector<NumberedItem>& entries)
{
    quint64 differing = 0;
    for (const NumberedItem& entry : entries) {
        differing |= entry.number ^ entries.front().number;
    }
    std::vector<NumberedItem> sorted(entries.size());
    for (int shift = 0; shift < 64; shift += 8) {
        const auto byte_of = [shift](quint64 number) { return number >> shift & 0xff; };
        if (byte_of(differing) == 0) {
            continue;
        }
        std::array<std::size_t, 257> starts{};
        for (const NumberedItem& entry : entries) {
            ++starts[byte_of(entry.number) + 1];
        }
        std::partial_sum(starts.begin(), starts.end(), starts.begin());
        for (const NumberedItem& entry : entries) {
            sorted[starts[byte_of(entry.number)]++] = entry;
        }
        entries.swap(sorted);
    }
}

void sort_entries(std::vector<NumberedItem>& entries)
{
    constexpr std::size_t worth_counting = 512;
    if (entries.size() >= worth_counting) {
        radix_sort(entries);
        return;
    }
    std::sort(entries.begin(), entries.end(),
        [](const NumberedItem& a, const NumberedItem& b) { return a.number < b.number; });
}

/// Sorts `items` by the number that `numberOf` gives for each, then calls `sortTies` for each
/// run of items that have a number in common.
template <typename NumberOf, typename SortTies>
void sort_by_number(std::span<EntityItem*> items, NumberOf numberOf, SortTies sortTies)
{
    std::vector<NumberedItem> entries;
    entries.reserve(items.size());
    for (EntityItem* item : items) {
        entries.push_back({numberOf(item), item});
    }
    sort_entries(entries);
    for (std::size_t i = 0; i < entries.size(); ++i) {
        items[i] = entries[i].item;
    }
    for (std::size_t first = 0; first < entries.size();) {
        std::size_t end = first + 1;
        while (end < entries.size() && entries[end].number == entries[first].number) {
            ++end;
        }
        if (end - first > 1) {
            sortTies(items.subspan(first, end - first));
        }
        first = end;
    }
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

/// The first eight units of a text as a number. One beyond Latin-1 counts as 0xff and ends
/// them, so that it makes a tie and never a wrong order.
quint64 packed(QStringView text)
{
    constexpr quint64 beyond = 0xff;
    quint64 number = 0;
    int shift = 64;
    for (const QChar unit : text.first(std::min<qsizetype>(text.size(), 8))) {
        const auto value = std::min<quint64>(unit.unicode(), beyond);
        shift -= 8;
        number |= value << shift;
        if (value == beyond) {
            break;
        }
    }
    return number;
}

} // namespace

void NameKey::sort(std::span<EntityItem*> items)
{
    if (items.empty()) {
        return;
    }
    QStringView shared = items.front()->getDisplayName();
    for (const EntityItem* item : items) {
        shared = shared.first(common_prefix(shared, item->getDisplayName()));
    }
    const auto number_of = [&shared](const EntityItem* item) {
        return packed(QStringView(item->getDisplayName()).sliced(shared.size()));
    };
    sort_by_number(items, number_of, [&items](std::span<EntityItem*> ties) {
        if (ties.size() < items.size()) {
            NameKey::sort(ties);
            return;
        }
        std::sort(ties.begin(), ties.end(),
            [](const EntityItem* a, const EntityItem* b) { return NameKey(a) < NameKey(b); });
    });
}

void IdKey::sort(std::span<EntityItem*> items)
{
    sort_by_number(
        items, [](const EntityItem* item) { return ordered(item->getId()); }, NameKey::sort);
}

void TypeIdKey::sort(std::span<EntityItem*> items)
{
    sort_by_number(
        items,
        [](const EntityItem* item) {
            return ordered(item->getType()) << 32 | ordered(item->getId());
        },
        [](std::span<EntityItem*> /*ties*/) {});
}
