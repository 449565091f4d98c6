#pragma once

#include <algorithm>
#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <utility>

/// Sorts by an unsigned key. In linear time, and hardly any for a list in order: the ids and the
/// records of a large model come by the million.
///
/// List is a container of Qt or the standard library whose elements lie side by side.
template <typename List, typename KeyOf>
void radix_sort(List& list, KeyOf key_of)
{
    constexpr int digit_bits = 12;
    constexpr std::uint64_t digit_count = std::uint64_t(1) << digit_bits;

    if (std::size_t(list.size()) < digit_count) {
        std::sort(list.begin(), list.end(),
            [&](const auto& left, const auto& right) { return key_of(left) < key_of(right); });
        return;
    }
    std::uint64_t differing = 0;
    bool is_sorted = true;
    for (auto entry = list.begin(); entry != list.end(); ++entry) {
        differing |= std::uint64_t(key_of(*entry)) ^ key_of(*list.begin());
        is_sorted = is_sorted && (entry == list.begin() || key_of(entry[-1]) <= key_of(*entry));
    }
    if (is_sorted) {
        return;
    }
    List sorted(list.size());
    // Bits in which no two keys differ, like the lowest ones of addresses, need no pass.
    while (differing != 0) {
        const int shift = std::countr_zero(differing);
        differing &= ~((digit_count - 1) << shift);
        const auto digit_of = [&](const auto& entry) {
            return std::size_t(std::uint64_t(key_of(entry)) >> shift) % digit_count;
        };
        std::array<std::size_t, digit_count> places{};
        for (const auto& entry : list) {
            ++places[digit_of(entry)];
        }
        std::size_t place = 0;
        for (std::size_t& count : places) {
            place += std::exchange(count, place);
        }
        for (const auto& entry : list) {
            sorted[places[digit_of(entry)]++] = entry;
        }
        std::swap(list, sorted);
    }
}
