#pragma once

#include <cstdint>
#include <QString>
#include <span>

/// What a fuzz target does with an input; each defines it.
void run_fuzz_input(std::span<const std::uint8_t> bytes);

/// Ends the program with a text about what is wrong, unless it is empty.
void report(const QString& wrong);
