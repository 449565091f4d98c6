#pragma once

#include <filesystem>

/// What a look at a path found. The formats come last: those of CAD, those of meshes, scripts.
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
    Msh,
    Medit,
    Vtk,
    Nastran,
    /// Of Gmsh, known by its name alone, for it may begin with anything.
    GmshScript,
};

/// Looks at the first bytes of a file. Its name counts only for a text that is nothing else.
FileContent look_at_file(const std::filesystem::path& file);

/// Whether the file ends as its format ends; if not, a part of it is missing.
bool has_end_mark(const std::filesystem::path& file, FileContent format);
