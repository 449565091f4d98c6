#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <vector>

namespace KestoInterface {
class KIObserve;
}

/// A kernel that answers from prepared lists and does nothing else, so that a
/// benchmark measures the mirror. It holds a lattice of cubes, each the one
/// volume of its own body, that share faces, edges and corners.
///
/// The functions of the boundary speak to the one that exists.
class LatticeKernel
{
public:
    /// At least `records` entities, as nearly as a cube of cubes allows.
    explicit LatticeKernel(std::int64_t records);
    ~LatticeKernel();
    LatticeKernel(const LatticeKernel&) = delete;
    LatticeKernel& operator=(const LatticeKernel&) = delete;

    std::int64_t entity_count() const;

    /// Puts all entities into group 1.
    void group_all() { m_has_group = true; }
    bool has_group() const { return m_has_group; }

    /// One question that the kernel was asked.
    struct Query
    {
        enum Function : std::uint8_t {
            Entities,
            Name,
            Visible,
            Virtual,
            ContainsVirtual,
            SheetBody,
            Relatives,
        };
        Function function;
        std::uint8_t source_kind;
        std::uint8_t target_kind;
        int id;
    };

    /// From now on keeps the questions; the list ends with stop_recording().
    void start_recording();
    std::vector<Query> stop_recording();

    /// Asks the questions again, through the functions of the boundary, and
    /// throws the answers away.
    static void ask(const std::vector<Query>& queries);

    // Kinds from vertex (0) to body (4).
    static constexpr int KindCount = 5;
    static const std::array<std::string, KindCount> words;

    const std::vector<int>& ids(int kind) const { return m_ids[kind]; }
    const std::vector<int>& below(int kind, int id) const { return m_below[kind][id]; }
    const std::vector<int>& above(int kind, int id) const { return m_above[kind][id]; }
    const std::string& name(int kind, int id) const { return m_names[kind][id]; }
    void note(const Query& query);

    /// The observer that registered last.
    static KestoInterface::KIObserve* observer();

private:
    void add_entities(int kind, int count);
    void link(int parent_kind, int parent, int child);

    // Indexed by kind, the inner lists by id; place 0 is unused.
    std::array<std::vector<int>, KindCount> m_ids;
    std::array<std::vector<std::vector<int>>, KindCount> m_below;
    std::array<std::vector<std::vector<int>>, KindCount> m_above;
    std::array<std::vector<std::string>, KindCount> m_names;
    std::vector<Query> m_queries;
    bool m_is_recording = false;
    bool m_has_group = false;
};
