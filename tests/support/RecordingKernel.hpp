#pragma once

#include <array>
#include <functional>
#include <map>
#include <set>
#include <stdexcept>
#include <string>
#include <support/EventLog.hpp>
#include <treemodel/kernel/KestoInterface.hpp>
#include <tuple>
#include <vector>

/// Thrown by a RecordingKernel that was told to.
class KernelFailure : public std::runtime_error
{
public:
    using std::runtime_error::runtime_error;
};

/// A kernel for tests: answers each function of the boundary from the tables
/// below, writes each call into an EventLog, and on demand throws or calls back
/// from inside a call. The free functions speak to the one that exists.
///
/// It sends no notification by itself; a test calls them on observer().
class RecordingKernel
{
public:
    using Word = std::string;
    using Entity = std::pair<Word, int>;
    using BoundaryCondition = std::pair<int, int>;

    struct GroupContents
    {
        std::array<std::vector<int>, 6> members; // groups, bodies, ... vertices
        std::array<int, 9> counts{};             // nodes, edges, ... spheres
    };

    explicit RecordingKernel(EventLog& log);
    ~RecordingKernel();
    RecordingKernel(const RecordingKernel&) = delete;
    RecordingKernel& operator=(const RecordingKernel&) = delete;

    // What the functions answer; what is not in a table is empty, false or null,
    // but an entity is visible unless it is hidden.
    std::map<Word, std::vector<int>> entities;
    std::map<Word, std::vector<int>> free_entities;
    std::map<Word, std::vector<int>> exodus_ids; // "block", "sideset", "nodeset"
    std::map<int, std::vector<int>> bc_ids;      // by KI_BCTypes
    std::map<BoundaryCondition, std::vector<int>> sidesets_of_bc;
    std::map<BoundaryCondition, std::vector<int>> nodesets_of_bc;
    std::vector<int> boundary_layers;
    std::vector<int> sizing_sources;
    std::vector<std::pair<std::string, int>> groups;
    std::map<int, GroupContents> group_contents;
    std::map<Entity, std::string> names;
    std::map<Entity, std::string> exodus_names;
    std::map<Entity, std::string> exodus_types;
    std::set<Entity> hidden;
    std::set<Entity> virtual_entities;
    std::set<Entity> containing_virtual;
    std::set<int> sheet_volumes;
    std::map<std::tuple<Word, int, Word>, std::vector<int>> relatives;
    std::vector<Entity> selection;
    bool command_result = true;
    KestoInterface::KestoBaseInterface* material_component = nullptr;

    /// Says that `children` hang below `parent`, for both directions of get_relatives.
    void relate(const Word& parent_word, int parent, const Word& child_word,
        const std::vector<int>& children);

    /// Throws a KernelFailure from the n-th call from now (0: the next). Once.
    void throw_at_call(int n);

    /// Runs `action` inside each call whose log line is `call`, before it is answered.
    void during(const QString& call, std::function<void()> action);

    /// The number of calls so far.
    int call_count() const { return m_call_count; }

    /// The observer that registered last; null if there is none.
    KestoInterface::KIObserve* observer() const;

private:
    friend struct BoundaryAccess;

    void called(const QString& call);

    EventLog& m_log;
    std::vector<KestoInterface::KIObserve*> m_observers;
    std::multimap<QString, std::function<void()>> m_actions;
    int m_call_count = 0;
    int m_throw_at = -1;
};
