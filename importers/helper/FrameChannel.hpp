#pragma once

#include <importers/ImportFrames.hpp>
#include <mutex>
#include <string_view>

/// The way of frames to the parent process. Any thread may send.
class FrameChannel
{
public:
    /// Takes over the standard output for frames. What is printed there from now on goes
    /// to the standard error output, because libraries print as they like.
    FrameChannel();

    void send(FrameKind kind, std::string_view payload);

    /// Sends a text, cut to what a frame holds.
    void send_text(FrameKind kind, std::string_view text);

    void send_progress(ImportStage stage, double fraction = -1);

private:
    void write_all(std::string_view bytes) const;

    int m_descriptor;
    std::mutex m_mutex;
};
