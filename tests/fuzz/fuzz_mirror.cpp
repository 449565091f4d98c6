#include "fuzz_target.hpp"
#include "MirrorSession.hpp"

void run_fuzz_input(std::span<const std::uint8_t> bytes)
{
    MirrorSession session;
    report(session.run(bytes));
}
