#pragma once

#include "NaiveKernel.hpp"

#include <embedded/EmbeddedKernel.hpp>
#include <random>

/// Changes a kernel at random and a naive one with it. Half of what it draws makes no sense, which
/// the kernel has to refuse.
class RandomOperations
{
public:
    explicit RandomOperations(unsigned seed)
        : m_random(seed)
    {
    }

    /// One operation on both. Gives back a description of it. Fails with std::logic_error if the
    /// kernel takes nonsense or refuses sense.
    QString run(EmbeddedKernel& kernel, NaiveKernel& naive);

    int below(int bound) { return std::uniform_int_distribution(0, bound - 1)(m_random); }

private:
    EntityKind geometry_kind() { return static_cast<EntityKind>(below(5)); }
    EntityKind parent_kind() { return static_cast<EntityKind>(1 + below(4)); }
    EntityKind any_kind() { return static_cast<EntityKind>(below(6)); }
    int id(const NaiveKernel& naive, EntityKind kind);
    std::vector<int> some_ids(const NaiveKernel& naive, EntityKind kind);

    std::mt19937 m_random;
};
