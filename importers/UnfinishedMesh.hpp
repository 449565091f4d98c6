#pragma once

#include <embedded/ElementCounts.hpp>
#include <importers/MeshCounts.hpp>
#include <map>

class EmbeddedKernel;

/// What stands of a mesh in the groups of a kernel, which is the active one, while it is being
/// made, and what they held before.
class UnfinishedMesh
{
public:
    /// Remembers what the groups hold now. Keeps the reference.
    explicit UnfinishedMesh(EmbeddedKernel& kernel);

    /// As count_into_groups() does.
    void count(const MeshCounts& mesh);

    /// Gives the groups what they held before, those that have come since nothing, and deletes
    /// the group of the whole mesh if it was made by count().
    void take_back();

private:
    EmbeddedKernel& m_kernel;
    std::map<int, ElementCounts> m_former; // By group
    int m_made_group = 0;                  // 0 for none
};
