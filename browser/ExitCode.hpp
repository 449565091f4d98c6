#pragma once

/// What the program ends with.
enum ExitCode : int {
    Success = 0,
    /// A file could not be read or written, or does not hold what was asked for.
    Failure = 1,
    Misuse = 2,
};
