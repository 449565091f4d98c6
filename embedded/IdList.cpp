#include <embedded/IdList.hpp>

#include <algorithm>
#include <utility>

IdList::IdList(IdList&& other) noexcept
{
    *this = std::move(other);
}

IdList& IdList::operator=(IdList&& other) noexcept
{
    std::swap(m_size, other.m_size);
    std::swap(m_capacity, other.m_capacity);
    std::swap(m_storage, other.m_storage);
    return *this;
}

IdList::~IdList()
{
    if (!is_inline()) {
        delete[] m_storage.many;
    }
}

bool IdList::contains(int id) const
{
    return std::find(begin(), end(), id) != end();
}

void IdList::reserve(std::size_t size)
{
    if (size > m_capacity) {
        grow(static_cast<std::uint32_t>(size));
    }
}

void IdList::append(int id)
{
    if (m_size == m_capacity) {
        grow(2 * m_capacity);
    }
    data()[m_size++] = id;
}

void IdList::remove(int id)
{
    int* const last = data() + m_size;
    int* const found = std::find(data(), last, id);
    std::copy(found + 1, last, found);
    --m_size;
}

void IdList::replace(int id, int new_id)
{
    *std::find(data(), data() + m_size, id) = new_id;
}

void IdList::grow(std::uint32_t capacity)
{
    int* const ids = new int[capacity];
    std::copy(begin(), end(), ids);
    if (!is_inline()) {
        delete[] m_storage.many;
    }
    m_storage.many = ids;
    m_capacity = capacity;
}
