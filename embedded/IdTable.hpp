#pragma once

#include <algorithm>
#include <array>
#include <cstdint>
#include <map>
#include <span>
#include <utility>
#include <vector>

/// Rows by id, at a logarithmic price, for ids that are dense for the most part but need not be:
/// the rows stand in one vector and their places in pages of 64 ids.
///
/// A pointer to a row holds until the next insert().
template <typename Row>
class IdTable
{
public:
    std::size_t size() const { return m_rows.size() - m_unused.size(); }
    bool contains(int id) const { return find(id) != nullptr; }

    /// Null if there is none.
    const Row* find(int id) const
    {
        const auto page = id > 0 ? m_pages.find(id / page_size) : m_pages.end();
        if (page == m_pages.end()) {
            return nullptr;
        }
        const std::uint32_t place = page->second[id % page_size];
        return place == no_place ? nullptr : &m_rows[place];
    }
    Row* find(int id) { return const_cast<Row*>(std::as_const(*this).find(id)); }

    /// The highest id in use, 0 if there is none.
    int highest() const
    {
        if (m_pages.empty()) {
            return 0;
        }
        const auto& [number, page] = *m_pages.rbegin();
        const auto last = std::find_if(page.rbegin(), page.rend(), is_used);
        return number * page_size + static_cast<int>(page.rend() - last - 1);
    }

    /// All ids, ascending.
    std::vector<int> ids() const
    {
        std::vector<int> ids;
        ids.reserve(size());
        for (const auto& [number, page] : m_pages) {
            for (int i = 0; i < page_size; ++i) {
                if (is_used(page[i])) {
                    ids.push_back(number * page_size + i);
                }
            }
        }
        return ids;
    }

    /// A new row. The id must be above 0 and not in use.
    Row& insert(int id)
    {
        std::uint32_t& place = place_of(id);
        if (m_unused.empty()) {
            m_rows.emplace_back();
            place = static_cast<std::uint32_t>(m_rows.size() - 1);
        } else {
            place = m_unused.back();
            m_unused.pop_back();
        }
        return m_rows[place];
    }

    /// New rows for `count` ids from `first_id` on, in their order, none of them in use.
    std::span<Row> insert_range(int first_id, std::size_t count)
    {
        const std::size_t first_place = m_rows.size();
        m_rows.resize(first_place + count);
        for (std::size_t i = 0; i < count; ++i) {
            place_of(first_id + static_cast<int>(i)) = static_cast<std::uint32_t>(first_place + i);
        }
        return std::span(m_rows).subspan(first_place);
    }

    /// The id must be in use.
    void erase(int id)
    {
        const std::uint32_t place = release(id);
        m_rows[place] = Row();
        m_unused.push_back(place);
    }

    /// The id must be in use and the new one not.
    void renumber(int id, int new_id)
    {
        const std::uint32_t place = release(id);
        place_of(new_id) = place;
    }

private:
    static constexpr int page_size = 64;
    static constexpr std::uint32_t no_place = 0xffffffff;
    using Page = std::array<std::uint32_t, page_size>;

    static bool is_used(std::uint32_t place) { return place != no_place; }

    std::uint32_t& place_of(int id)
    {
        const auto [page, is_new] = m_pages.try_emplace(id / page_size);
        if (is_new) {
            page->second.fill(no_place);
        }
        return page->second[id % page_size];
    }

    // No page stays without an id, so that highest() need not look further than the last.
    std::uint32_t release(int id)
    {
        const auto page = m_pages.find(id / page_size);
        const std::uint32_t place = std::exchange(page->second[id % page_size], no_place);
        if (std::none_of(page->second.begin(), page->second.end(), is_used)) {
            m_pages.erase(page);
        }
        return place;
    }

    std::map<int, Page> m_pages;
    std::vector<Row> m_rows;
    std::vector<std::uint32_t> m_unused;
};
