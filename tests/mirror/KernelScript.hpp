#pragma once

#include "KernelRunner.hpp"

#include <functional>
#include <QStringList>
#include <vector>

/// A sequence of operations on an embedded kernel, drawn from a seed. Any part of a script is
/// a script too.
class KernelScript
{
public:
    static KernelScript random(unsigned seed, int length);

    /// Runs all steps on a new kernel: `checkpoint` after every `interval` of them and at the end.
    /// Its text says what is wrong; the first one that is not empty ends the run and is given back.
    QString run(int interval, const std::function<QString(EmbeddedKernel&)>& checkpoint) const;

    /// The shortest script that still fails, found by leaving steps out. `fails` runs one.
    KernelScript shortest(const std::function<bool(const KernelScript&)>& fails) const;

    /// The steps as they went on the last run, one line each; refused ones left out.
    QString text() const { return m_done.join(QLatin1Char('\n')); }

    int length() const { return int(m_steps.size()); }

private:
    std::vector<KernelStep> m_steps;
    mutable QStringList m_done;
};
