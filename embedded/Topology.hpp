#pragma once

#include <array>
#include <embedded/EntityFamily.hpp>
#include <embedded/EntityRow.hpp>
#include <embedded/EntitySet.hpp>
#include <embedded/IdList.hpp>
#include <embedded/IdTable.hpp>
#include <embedded/ModelData.hpp>
#include <set>
#include <vector>

/// One geometric entity and its links one level up and down.
struct GeometryRow : EntityRow
{
    IdList parents;
    IdList children;
    /// How many of the children hold something virtual, see Topology::holds_virtual().
    int virtual_children = 0;
    bool is_virtual = false;
    /// Of a volume only.
    bool is_sheet = false;
};

/// The geometry of a kernel: bodies over volumes over surfaces over curves over vertices, a child
/// with any number of parents. An entity without a parent is free.
///
/// Answers each question in logarithmic time plus the size of the answer. Trusts its caller: an id
/// given to an operation is in use, a link to be made is not there yet.
class Topology
{
public:
    using IdsByKind = std::array<std::vector<int>, 5>;

    static constexpr std::array kinds_downwards{EntityKind::BODY, EntityKind::VOLUME,
        EntityKind::SURFACE, EntityKind::CURVE, EntityKind::VERTEX};

    static EntityKind below(EntityKind kind);
    static EntityKind above(EntityKind kind);

    const IdTable<GeometryRow>& rows(EntityKind kind) const;
    GeometryRow& row(EntityKind kind, int id);
    const GeometryRow& row(EntityKind kind, int id) const;

    /// Ascending.
    std::vector<int> free_ids(EntityKind kind) const;

    /// The entities of the target kind above or below: across one level in the order of linking,
    /// across several by ascending id, each once.
    std::vector<int> relatives(EntityKind kind, int id, EntityKind target) const;

    bool is_linked(EntityKind parent_kind, int parent, int child) const;

    /// Whether the entity is virtual or holds something virtual, however far below.
    bool holds_virtual(EntityKind kind, int id) const;

    GeometryRow& insert(EntityKind kind, int id);

    // What changes in the answers of other entities than those named is added to `touched`.

    void link(EntityKind parent_kind, int parent, int child, EntitySet& touched);
    void unlink(EntityKind parent_kind, int parent, int child, EntitySet& touched);
    void set_virtual(EntityKind kind, int id, bool is_virtual, EntitySet& touched);

    /// Takes the entity out, and with it whatever hangs beneath it and under nothing else.
    /// Gives back all that went, by kind, ascending. Touches the parents that the entity had.
    IdsByKind erase(EntityKind kind, int id, EntitySet& touched);

    void renumber(EntityKind kind, int id, int new_id);

    /// Adds a model that has passed check_model(), each of its ids raised by the offset of its
    /// kind, indexed by EntityKind, which is the highest id in use or more.
    void append(const ModelData& model, const std::array<int, 6>& offsets);

private:
    struct Level
    {
        IdTable<GeometryRow> rows;
        std::set<int> free;
    };

    Level& level(EntityKind kind) { return m_levels[static_cast<std::size_t>(kind)]; }
    const Level& level(EntityKind kind) const { return m_levels[static_cast<std::size_t>(kind)]; }

    static bool holds_virtual(const GeometryRow& row);
    void count_virtual_child(EntityKind kind, int id, int difference, EntitySet& touched);
    void tell_parents(
        EntityKind kind, const GeometryRow& row, bool held_virtual, EntitySet& touched);

    std::array<Level, 5> m_levels;
};
