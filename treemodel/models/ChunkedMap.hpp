#pragma once

#include <algorithm>
#include <cstddef>
#include <functional>
#include <iterator>
#include <type_traits>
#include <utility>
#include <vector>

/// An ordered map in sorted chunks of neighbouring keys, each chunk with its keys side
/// by side, so that a look-up touches few cache lines and one near the last one
/// hardly any. An insertion moves what stands behind it in one chunk.
///
/// Keys are ints or pointers. Pointers to values hold until the next insertion or
/// removal: nothing may be held across a call that can lead back here.
template <typename Key, typename Value>
class ChunkedMap
{
public:
    bool is_empty() const { return m_size == 0; }

    std::size_t size() const { return m_size; }

    /// Null if there is none.
    Value* find(Key key)
    {
        const Place place = place_of(key);
        return place.is_found ? &m_chunks[place.chunk].values[place.index] : nullptr;
    }

    const Value* find(Key key) const { return const_cast<ChunkedMap*>(this)->find(key); }

    /// The value of the key and whether it is new; a new one is what `value` gives.
    std::pair<Value*, bool> insert(Key key, Value value = {})
    {
        Place place = place_of(key);
        const bool is_new = !place.is_found;
        if (is_new) {
            make_room(place);
            Chunk& chunk = m_chunks[place.chunk];
            chunk.keys.insert(chunk.keys.begin() + place.index, key);
            chunk.values.insert(chunk.values.begin() + place.index, std::move(value));
            m_first_keys[place.chunk] = chunk.keys.front();
            ++m_size;
        }
        return {&m_chunks[place.chunk].values[place.index], is_new};
    }

    /// A default value if there is none.
    Value value(Key key) const
    {
        const Value* found = find(key);
        return found ? *found : Value();
    }

    /// Takes the value out; a default value if there is none.
    Value take(Key key)
    {
        const Place place = place_of(key);
        return place.is_found ? take(place) : Value();
    }

    /// False if there is none.
    bool erase(Key key)
    {
        const Place place = place_of(key);
        if (place.is_found) {
            take(place);
        }
        return place.is_found;
    }

    void clear() { *this = {}; }

    /// Calls `visit(key, value)` for each pair in the order of keys.
    template <typename Visit>
    void for_each(Visit visit) const
    {
        for (const Chunk& chunk : m_chunks) {
            for (std::size_t index = 0; index < chunk.keys.size(); ++index) {
                visit(chunk.keys[index], chunk.values[index]);
            }
        }
    }

    /// In their order.
    std::vector<Key> keys() const { return collect<Key>(&Chunk::keys); }

    /// In the order of their keys.
    std::vector<Value> values() const { return collect<Value>(&Chunk::values); }

private:
    static constexpr std::size_t chunk_size = 256;

    struct Chunk
    {
        std::vector<Key> keys;
        std::vector<Value> values;
    };

    // Where a key stands or belongs. In an empty map no such chunk is there yet.
    struct Place
    {
        std::size_t chunk = 0;
        std::size_t index = 0;
        bool is_found = false;
    };

    static bool is_less(Key left, Key right) { return std::less<Key>()(left, right); }

    Place place_of(Key key) const
    {
        if (m_chunks.empty()) {
            return {};
        }
        if (!is_in_chunk(m_last_chunk, key)) {
            m_last_chunk = std::max<std::size_t>(lower_bound(m_first_keys, key, true), 1) - 1;
        }
        const std::vector<Key>& keys = m_chunks[m_last_chunk].keys;
        const std::size_t index = index_of(keys, key);
        return {m_last_chunk, index, index < keys.size() && keys[index] == key};
    }

    bool is_in_chunk(std::size_t chunk, Key key) const
    {
        return chunk < m_chunks.size() && !is_less(key, m_first_keys[chunk]) &&
               (chunk + 1 == m_chunks.size() || is_less(key, m_first_keys[chunk + 1]));
    }

    // Ids mostly count up without a gap.
    static std::size_t index_of(const std::vector<Key>& keys, Key key)
    {
        if constexpr (std::is_integral_v<Key>) {
            const std::size_t guess = std::size_t(key) - std::size_t(keys.front());
            if (guess < keys.size() && keys[guess] == key) {
                return guess;
            }
        }
        if (is_less(keys.back(), key)) {
            return keys.size();
        }
        return lower_bound(keys, key, false);
    }

    // The first key that is not less, or with `or_equal` the first that is greater. Halves
    // without a branch on the comparison, which nothing could predict.
    static std::size_t lower_bound(const std::vector<Key>& keys, Key key, bool or_equal)
    {
        const Key* first = keys.data();
        for (std::size_t count = keys.size(); count > 0;) {
            const std::size_t half = (count + 1) / 2;
            const bool is_before =
                or_equal ? !is_less(key, first[half - 1]) : is_less(first[half - 1], key);
            first += is_before ? half : 0;
            count -= half;
        }
        return std::size_t(first - keys.data());
    }

    // Splits a full chunk, in the middle or, for a key after all others, before it.
    void make_room(Place& place)
    {
        if (m_chunks.empty()) {
            m_chunks.emplace_back();
            m_first_keys.emplace_back();
        }
        if (m_chunks[place.chunk].keys.size() < chunk_size) {
            return;
        }
        const bool is_append = place.chunk + 1 == m_chunks.size() && place.index == chunk_size;
        const std::size_t half = is_append ? chunk_size : chunk_size / 2;
        Chunk upper;
        move_tail(m_chunks[place.chunk].keys, half, upper.keys);
        move_tail(m_chunks[place.chunk].values, half, upper.values);
        m_first_keys.insert(m_first_keys.begin() + place.chunk + 1,
            upper.keys.empty() ? Key() : upper.keys.front());
        m_chunks.insert(m_chunks.begin() + place.chunk + 1, std::move(upper));
        if (place.index >= half) {
            ++place.chunk;
            place.index -= half;
        }
    }

    Value take(const Place& place)
    {
        Chunk& chunk = m_chunks[place.chunk];
        Value value = std::move(chunk.values[place.index]);
        chunk.keys.erase(chunk.keys.begin() + place.index);
        chunk.values.erase(chunk.values.begin() + place.index);
        --m_size;
        if (!chunk.keys.empty()) {
            m_first_keys[place.chunk] = chunk.keys.front();
        } else {
            m_chunks.erase(m_chunks.begin() + place.chunk);
            m_first_keys.erase(m_first_keys.begin() + place.chunk);
        }
        return value;
    }

    template <typename T>
    static void move_tail(std::vector<T>& from, std::size_t first, std::vector<T>& to)
    {
        to.reserve(chunk_size);
        std::move(from.begin() + first, from.end(), std::back_inserter(to));
        from.erase(from.begin() + first, from.end());
    }

    template <typename T>
    std::vector<T> collect(std::vector<T> Chunk::*member) const
    {
        std::vector<T> result;
        result.reserve(m_size);
        for (const Chunk& chunk : m_chunks) {
            result.insert(result.end(), (chunk.*member).begin(), (chunk.*member).end());
        }
        return result;
    }

    // No chunk is empty. Side by side with the chunks, the first key of each.
    std::vector<Chunk> m_chunks;
    std::vector<Key> m_first_keys;
    std::size_t m_size = 0;
    mutable std::size_t m_last_chunk = 0;
};
