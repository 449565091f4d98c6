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
    constexpr int most_digit_bits = 12;
    constexpr std::size_t most_digits = std::size_t(1) << most_digit_bits;

    if (std::size_t(list.size()) < most_digits) {
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
    // Bits in which no two keys differ, like the lowest ones of addresses, need no pass. The rest
    // is shared out evenly: the smaller the digits, the fewer places are written to by turns.
    const int first_bit = std::countr_zero(differing);
    const int end_bit = int(std::bit_width(differing));
    const int passes = (end_bit - first_bit + most_digit_bits - 1) / most_digit_bits;
    const int digit_bits = (end_bit - first_bit + passes - 1) / passes;
    const std::uint64_t digit_mask = (std::uint64_t(1) << digit_bits) - 1;

    List sorted(list.size());
    for (int shift = first_bit; shift < end_bit; shift += digit_bits) {
        const auto digit_of = [&](const auto& entry) {
            return std::size_t(std::uint64_t(key_of(entry)) >> shift & digit_mask);
        };
        std::array<std::size_t, most_digits> places{};
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
