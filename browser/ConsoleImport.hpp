#pragma once

#include <embedded/ModelData.hpp>
#include <optional>
#include <QString>

class QTextStream;

/// Reads a file to the end for a program without a window. The stages are shown on
/// `messages` if a person is watching, and warnings and the reason of a failure in
/// any case. Nothing for a file that could not be read.
std::optional<ModelData> import_on_console(
    const QString& file, QTextStream& messages, bool show_progress);
