#pragma once

#include <map>
#include <string>
#include <treemodel/kernel/KestoInterface.hpp>
#include <vector>

/// A kernel that answers from prepared lists and does nothing else, so that a benchmark measures
/// the mirror. It holds vertices, one group of them, and a simulation set-up.
///
/// The functions of the boundary speak to the one that exists.
class SetupKernel
{
public:
    SetupKernel();
    ~SetupKernel();
    SetupKernel(const SetupKernel&) = delete;
    SetupKernel& operator=(const SetupKernel&) = delete;

    /// Vertices 1 to `count`, and group 1 that holds them all in this order.
    void add_grouped_vertices(int count);

    /// So many sets and conditions in all: one half blocks, sidesets and nodesets, the other half
    /// boundary conditions of all kinds, each on two sidesets and a nodeset. All have names.
    void add_simulation(int count);

    struct Condition
    {
        std::vector<int> sidesets;
        std::vector<int> nodesets;
    };

    // What the functions of the boundary answer; whoever changes it tells observer().

    std::vector<int> vertices;
    std::vector<int> members;
    std::vector<int> blocks;
    std::vector<int> sidesets;
    std::vector<int> nodesets;
    std::map<KestoInterface::KI_BCTypes, std::vector<int>> condition_ids;
    /// Indexed by id, as conditions of all kinds have different ones.
    std::vector<Condition> conditions;
    /// Of the set or condition with that id. A short name, as programs give them.
    std::vector<std::string> names;

    /// The observer that registered last.
    static KestoInterface::KIObserve* observer();
};
