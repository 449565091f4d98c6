#pragma once

#include <filesystem>
#include <importers/mesh/GmshSession.hpp>

/// How a CAD file is meshed.
struct MeshSettings
{
    double element_size;
    int element_order;
};

/// Meshes the CAD file and sends what is on each of its entities, by the ids that the importer
/// gives them: after the curves, the surfaces and the volumes, and the whole at last. Throws
/// ImportError.
void mesh_cad_file(const std::filesystem::path& file, const MeshSettings& settings,
    GmshSession& session, FrameChannel& channel);
