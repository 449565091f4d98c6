#pragma once

#include <array>
#include <cstdint>
#include <embedded/EmbeddedKernel.hpp>
#include <map>
#include <QString>
#include <string>
#include <vector>

/// An operation on a kernel, as numbers that mean something only beside one.
struct KernelStep
{
    std::uint32_t operation;
    std::uint32_t kind;
    std::uint32_t first;
    std::uint32_t second;
};

/// Makes steps on one kernel, and reads each against what the kernel holds by then. One that
/// makes no sense there is refused by the kernel and changes nothing.
class KernelRunner
{
public:
    /// Not owned.
    explicit KernelRunner(EmbeddedKernel& kernel)
        : m_kernel(kernel)
    {
    }

    /// Gives back what was done; empty if the kernel refused it. May be called from inside a
    /// notification.
    QString run(const KernelStep& step);

private:
    struct Operation
    {
        const char* name;
        QString (KernelRunner::*run)(const KernelStep&);
    };

    static const std::array<Operation, 38> operations;

    int id(EntityKind kind, std::uint32_t number);
    std::vector<int> few_ids(EntityKind kind, std::uint32_t number);
    QString created(EntityKind kind, int id);

    QString create_geometry(const KernelStep& step);
    QString create_sheet(const KernelStep& step);
    QString create_other(const KernelStep& step);
    QString create_condition(const KernelStep& step);
    QString set_condition_sets(const KernelStep& step);
    QString relate(const KernelStep& step);
    QString unrelate(const KernelStep& step);
    QString set_sheet(const KernelStep& step);
    QString set_virtual(const KernelStep& step);
    QString add_to_group(const KernelStep& step);
    QString remove_from_group(const KernelStep& step);
    QString set_counts(const KernelStep& step);
    QString set_lite(const KernelStep& step);
    QString change_kind(const KernelStep& step);
    QString rename(const KernelStep& step);
    QString renumber(const KernelStep& step);
    QString set_visible(const KernelStep& step);
    QString select(const KernelStep& step);
    QString deselect(const KernelStep& step);
    QString select_none(const KernelStep& step);
    QString run_command(const KernelStep& step);
    QString remove(const KernelStep& step);
    QString remove_many(const KernelStep& step);
    QString import_model(const KernelStep& step);
    QString open_model(const KernelStep& step);
    QString replace_model(const KernelStep& step);
    QString clear(const KernelStep& step);

    EmbeddedKernel& m_kernel;
    std::map<EntityKind, int> m_highest;
};
