#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <functional>
#include <memory>
#include <treemodel/models/ChunkedMap.hpp>
#include <utility>
#include <variant>
#include <vector>

/// A set of pointers in the order of addresses. Most records have a handful of
/// links, which stand in the set itself; a larger set moves to the heap as a whole.
template <typename T>
class PointerSet
{
public:
    /// False if the pointer is in the set.
    bool insert(T* pointer)
    {
        if (m_many) {
            return m_many->insert(pointer).second;
        }
        T** const place = place_of(pointer);
        if (place != end() && *place == pointer) {
            return false;
        }
        if (m_count == m_few.size()) {
            move_to_heap();
            return m_many->insert(pointer).second;
        }
        std::move_backward(place, end(), end() + 1);
        *place = pointer;
        ++m_count;
        return true;
    }

    /// False if the pointer is not in the set.
    bool erase(T* pointer)
    {
        if (m_many) {
            return m_many->erase(pointer);
        }
        T** const place = place_of(pointer);
        if (place == end() || *place != pointer) {
            return false;
        }
        std::move(place + 1, end(), place);
        --m_count;
        return true;
    }

    bool is_empty() const { return m_many ? m_many->is_empty() : m_count == 0; }

    std::vector<T*> to_vector() const
    {
        return m_many ? m_many->keys() : std::vector<T*>(m_few.data(), m_few.data() + m_count);
    }

    /// Calls `visit(pointer)` for each, in their order.
    template <typename Visit>
    void for_each(Visit visit) const
    {
        if (m_many) {
            m_many->for_each([&visit](T* pointer, std::monostate) { visit(pointer); });
        } else {
            std::for_each(m_few.data(), m_few.data() + m_count, visit);
        }
    }

private:
    using Many = ChunkedMap<T*, std::monostate>;

    T** end() { return m_few.data() + m_count; }

    T** place_of(T* pointer)
    {
        return std::find_if(
            m_few.data(), end(), [pointer](T* other) { return !std::less<T*>()(other, pointer); });
    }

    void move_to_heap()
    {
        m_many = std::make_unique<Many>();
        for (T* pointer : m_few) {
            m_many->insert(pointer);
        }
        m_count = 0;
    }

    std::size_t m_count = 0;
    std::array<T*, 6> m_few;
    std::unique_ptr<Many> m_many;
};
