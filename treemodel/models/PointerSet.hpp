#pragma once

#include <algorithm>
#include <functional>
#include <memory>
#include <set>
#include <vector>

/// A set of pointers in the order of addresses. Most records have a handful of
/// links, which stand in one sorted vector; a larger set becomes a tree, so
/// that an insertion is never linear in it.
template <typename T>
class PointerSet
{
public:
    /// False if the pointer is in the set.
    bool insert(T* pointer)
    {
        if (m_tree) {
            return m_tree->insert(pointer).second;
        }
        const auto place = lower_bound(pointer);
        if (place != m_few.end() && *place == pointer) {
            return false;
        }
        if (m_few.size() < few) {
            m_few.insert(place, pointer);
            return true;
        }
        m_tree = std::make_unique<Tree>(m_few.begin(), m_few.end());
        m_few = {};
        return m_tree->insert(pointer).second;
    }

    /// False if the pointer is not in the set.
    bool erase(T* pointer)
    {
        if (m_tree) {
            return m_tree->erase(pointer) > 0;
        }
        const auto place = lower_bound(pointer);
        if (place == m_few.end() || *place != pointer) {
            return false;
        }
        m_few.erase(place);
        return true;
    }

    bool is_empty() const { return m_tree ? m_tree->empty() : m_few.empty(); }

    std::vector<T*> to_vector() const
    {
        return m_tree ? std::vector<T*>(m_tree->begin(), m_tree->end()) : m_few;
    }

private:
    using Tree = std::set<T*>;

    static constexpr std::size_t few = 64;

    auto lower_bound(T* pointer)
    {
        return std::lower_bound(m_few.begin(), m_few.end(), pointer, std::less<T*>());
    }

    std::vector<T*> m_few;
    std::unique_ptr<Tree> m_tree;
};
