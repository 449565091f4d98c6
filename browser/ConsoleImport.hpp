#pragma once

#include <embedded/ModelData.hpp>
#include <optional>

class QTextStream;
struct CommandLine;

/// Reads the file of a command to the end for a program without a window. The stages are shown on
/// `messages` if a person is watching, and warnings and the reason of a failure in
/// any case. Nothing for a file that could not be read.
std::optional<ModelData> import_on_console(
    const CommandLine& command, QTextStream& messages, bool show_progress);
