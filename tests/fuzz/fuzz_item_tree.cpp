#include "fuzz_target.hpp"

#include <entity/random_sequence.hpp>

// A step takes some three bytes; those that run short are drawn from the seed.
void run_fuzz_input(std::span<const std::uint8_t> bytes)
{
    RandomSequence sequence{RandomSource(1, bytes)};
    report(sequence.run(int(bytes.size() / 3)));
}
