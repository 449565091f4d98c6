#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <string_view>

/// The kernel's word for a kind, with a second one that it may use in its place.
struct KindWord
{
    constexpr bool is(std::string_view text) const { return text == usual || text == other; }

    std::string_view usual;
    std::string_view other = usual;
};

/// All that hangs on an enumeration that counts up from 0: a row for each
/// value, in their order, and one for values out of range. Internal.
///
/// A table that is searched by word has a KindWord `word` in its rows.
template <typename Type, typename Row, std::size_t Size>
struct KindTable
{
    std::array<Row, Size> rows;
    Row out_of_range;

    constexpr const Row& operator[](Type type) const
    {
        const auto index = static_cast<std::size_t>(type);
        return index < Size ? rows[index] : out_of_range;
    }

    /// Writes the value whose word `text` is, compared exactly. An unknown one
    /// gives false and leaves `type` alone.
    constexpr bool find(std::string_view text, Type& type) const
    {
        const auto row = std::find_if(rows.begin(), rows.end(),
            [text](const Row& candidate) { return candidate.word.is(text); });
        if (row == rows.end()) {
            return false;
        }
        type = static_cast<Type>(row - rows.begin());
        return true;
    }
};
