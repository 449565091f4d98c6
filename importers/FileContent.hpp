#pragma once

#include <filesystem>

/// What a look at a path found. The formats come last.
enum class FileContent {
    Missing,
    Directory,
    NotRegular,
    Unreadable,
    Empty,
    Foreign,
    Step,
    Iges,
    Brep,
};

/// Looks at the first bytes of a file, never at its name.
FileContent look_at_file(const std::filesystem::path& file);

/// Whether the file ends as its format ends; if not, a part of it is missing.
bool has_end_mark(const std::filesystem::path& file, FileContent format);
