#pragma once

#include <browser/ExitCode.hpp>

struct CommandLine;
class QTextStream;

/// Reads the file of the command and writes its tree to `output`; what goes wrong is told
/// on `messages` in one sentence.
ExitCode print_file(const CommandLine& command, QTextStream& output, QTextStream& messages);
