#pragma once

#include <chrono>
#include <importers/helper/FrameChannel.hpp>
#include <Message_ProgressIndicator.hxx>

/// Sends OpenCASCADE's progress as frames of one stage, a few in a second.
class FrameProgress : public Message_ProgressIndicator
{
public:
    /// `channel` is not owned and outlives the range.
    FrameProgress(FrameChannel& channel, ImportStage stage);

protected:
    void Show(const Message_ProgressScope& scope, Standard_Boolean is_forced) override;

private:
    FrameChannel& m_channel;
    ImportStage m_stage;
    std::chrono::steady_clock::time_point m_last_sent;
};
