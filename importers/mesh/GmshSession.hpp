#pragma once

#include <importers/helper/FrameChannel.hpp>
#include <mutex>
#include <optional>
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

    /// What is printed from now on is for nobody.
    void end_stages();

private:
    void watch(int descriptor);

    void report(const std::string& line);

    FrameChannel& m_channel;
    // Keeps reports of an earlier stage from coming after a later one has begun.
    std::mutex m_mutex;
    std::optional<ImportStage> m_stage;
};

/// The last error of Gmsh, which it throws as a bare text, as the end of a sentence.
std::string gmsh_reason(const std::string& error);
