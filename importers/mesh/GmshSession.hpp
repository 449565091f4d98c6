#pragma once

#include <atomic>
#include <importers/helper/FrameChannel.hpp>
#include <string>

/// Gmsh, ready for work. What it prints becomes progress frames: a line is a sign of life, and
/// a percentage in it how much of the stage is done.
class GmshSession
{
public:
    /// Takes over the standard output. The channel is not owned and outlives the process, as the
    /// session does.
    explicit GmshSession(FrameChannel& channel);

    /// What is printed from now on belongs to this stage.
    void begin(ImportStage stage);

private:
    void watch(int descriptor);

    FrameChannel& m_channel;
    std::atomic<ImportStage> m_stage = ImportStage::Read;
};

/// The last error of Gmsh, which it throws as a bare text, as the end of a sentence.
std::string gmsh_reason(const std::string& error);
