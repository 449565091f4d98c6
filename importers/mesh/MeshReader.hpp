#pragma once

#include <filesystem>
#include <importers/helper/FrameChannel.hpp>

/// Reads a mesh file or, if trusted, a script into Gmsh's current model, going by the content of
/// the file; puts partitions together again, and warns. Throws ImportError, and a bare
/// std::string for what stops Gmsh.
///
/// Leaves a file in the current folder.
void read_mesh_file(const std::filesystem::path& file, bool trusts_scripts, FrameChannel& channel);
