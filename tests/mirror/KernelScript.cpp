#include "KernelScript.hpp"

#include <algorithm>
#include <random>

KernelScript KernelScript::random(unsigned seed, int length)
{
    std::mt19937 random(seed);
    KernelScript script;
    for (int i = 0; i < length; ++i) {
        script.m_steps.push_back({std::uint32_t(random()), std::uint32_t(random()),
            std::uint32_t(random()), std::uint32_t(random())});
    }
    return script;
}

QString KernelScript::run(
    int interval, const std::function<QString(EmbeddedKernel&)>& checkpoint) const
{
    EmbeddedKernel kernel;
    KernelRunner runner(kernel);
    m_done.clear();
    QString wrong = checkpoint(kernel);
    for (std::size_t i = 0; i < m_steps.size() && wrong.isEmpty(); ++i) {
        if (const QString done = runner.run(m_steps[i]); !done.isEmpty()) {
            m_done << done;
        }
        if ((i + 1) % std::size_t(interval) == 0 || i + 1 == m_steps.size()) {
            wrong = checkpoint(kernel);
        }
    }
    return wrong;
}

KernelScript KernelScript::shortest(const std::function<bool(const KernelScript&)>& fails) const
{
    KernelScript best = *this;
    for (std::size_t chunk = best.m_steps.size() / 2; chunk > 0; chunk /= 2) {
        for (std::size_t begin = 0; begin < best.m_steps.size();) {
            KernelScript candidate = best;
            const auto first = candidate.m_steps.begin() + std::ptrdiff_t(begin);
            const auto count = std::min(chunk, best.m_steps.size() - begin);
            candidate.m_steps.erase(first, first + std::ptrdiff_t(count));
            if (fails(candidate)) {
                best = candidate;
            } else {
                begin += chunk;
            }
        }
    }
    fails(best); // leaves its text
    return best;
}
