#pragma once

#include <filesystem>
#include <functional>
#include <importers/cad/ModelBuilder.hpp>
#include <importers/helper/FrameChannel.hpp>

/// Reads a CAD file, builds its model and hands the builder to `use`; reports the stages up to
/// ImportStage::Walk and warns. Throws ImportError, also for what OpenCASCADE throws in any of
/// this, `use` included.
void with_cad_model(const std::filesystem::path& file, FrameChannel& channel,
    const std::function<void(const ModelBuilder& builder)>& use);
