#pragma once

#include <cstddef>
#include <cstdint>

/// The ids that an entity is linked to, in the order of linking. Two of them, as many as most
/// entities have, take no memory beyond the object itself: there are two lists per entity.
class IdList
{
public:
    IdList() = default;
    IdList(IdList&& other) noexcept;
    IdList& operator=(IdList&& other) noexcept;
    ~IdList();

    const int* begin() const { return data(); }
    const int* end() const { return data() + m_size; }
    std::size_t size() const { return m_size; }
    bool empty() const { return m_size == 0; }
    bool contains(int id) const;

    void reserve(std::size_t size);
    void append(int id);

    /// Both take the first occurrence of the id, which must be there.
    void remove(int id);
    void replace(int id, int new_id);

private:
    static constexpr std::uint32_t inline_capacity = 2;

    union Storage {
        int few[inline_capacity];
        int* many;
    };

    bool is_inline() const { return m_capacity == inline_capacity; }
    const int* data() const { return is_inline() ? m_storage.few : m_storage.many; }
    int* data() { return is_inline() ? m_storage.few : m_storage.many; }
    void grow(std::uint32_t capacity);

    std::uint32_t m_size = 0;
    std::uint32_t m_capacity = inline_capacity;
    Storage m_storage{};
};
