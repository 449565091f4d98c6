#pragma once

#include <browser/ExitCode.hpp>

struct CommandLine;

/// Shows the window until the user closes it, or writes a picture of it. What goes wrong
/// with a picture is told on standard error in one sentence. There must be no application
/// object.
ExitCode run_window(const CommandLine& command, int& argc, char** argv);
