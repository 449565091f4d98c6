#pragma once

#include <filesystem>
#include <importers/cad/PartTree.hpp>
#include <importers/helper/FrameChannel.hpp>

/// Reads a STEP, IGES or BREP file with OpenCASCADE, going by its content, and reports
/// the stages up to ImportStage::Transfer. Throws ImportError, and whatever
/// OpenCASCADE throws.
CadContent read_cad_file(const std::filesystem::path& file, FrameChannel& channel);
