#pragma once

#include <cstddef>
#include <treemodel/treemodel_export.hpp>
#include <vector>

/// A block of consecutive type numbers.
struct TypeRange
{
    /// The first number of the block, and how many there are.
    int start;
    int count;
};

/// Hands out blocks of consecutive type numbers, each starting where the last one ended.
///
/// A client numbers its types from 0, one block for each group of related types. Where
/// several clients share a tree, each is shifted by the first free number of the one
/// before it, and their numbers do not clash.
class TREEMODEL_EXPORT EntityTypeRange
{
public:
    /// Appends a block of `count` numbers from next_offset() on.
    void add_range(int count);

    /// The number of blocks.
    std::size_t get_number_of_ranges() const;

    /// The first number after the last block; without a block, the shift given so far.
    int next_offset() const;

    /// The first number after block `i`; next_offset() if there is no such block.
    int next_offset(std::size_t i) const;

    /// The first number of block `i`; if there is no such block, the shift given so far.
    int offset(std::size_t i) const;

    /// True if block `i` exists and holds `type`.
    bool in_range(int type, std::size_t i) const;

    /// Finds the block that holds `type` and puts its position in `i`. If there is none, returns
    /// false and leaves `i` at the number of blocks.
    bool get_range(int type, std::size_t& i) const;

    /// Shifts all blocks, and those added later, by `delta`.
    void offset_ranges(int delta);

private:
    std::vector<TypeRange> m_ranges;
    int m_base_offset = 0;
};

// With the hooks by which a front end plugs its kinds of items into the tree.
#include <treemodel/entity/EntityCategory.hpp>
#include <treemodel/entity/EntityCategoryManager.hpp>
#include <treemodel/entity/EntityIconFactory.hpp>
