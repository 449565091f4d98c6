#pragma once

#include <embedded/EmbeddedKernel.hpp>
#include <QString>
#include <treemodel/kernel/TreeModel.hpp>

/// A kernel and the mirror that follows it, for as long as the session lives.
class KernelSession
{
public:
    KernelSession();
    KernelSession(const KernelSession&) = delete;
    KernelSession& operator=(const KernelSession&) = delete;
    ~KernelSession();

    EmbeddedKernel& kernel() { return m_kernel; }
    TreeModel& mirror() { return m_mirror; }

    /// Has the kernel select what the words name, such as "surface 3 5 body 1"; no words select
    /// nothing. Gives back an empty text, or one sentence if there is no such thing to select.
    QString select(const QString& words);

private:
    EmbeddedKernel m_kernel;
    TreeModel m_mirror;
};
