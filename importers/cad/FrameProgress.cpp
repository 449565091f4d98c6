#include <importers/cad/FrameProgress.hpp>

namespace {

constexpr std::chrono::milliseconds interval(100);

} // namespace

FrameProgress::FrameProgress(FrameChannel& channel, ImportStage stage)
    : m_channel(channel)
    , m_stage(stage)
{
}

void FrameProgress::Show(const Message_ProgressScope&, Standard_Boolean)
{
    const auto now = std::chrono::steady_clock::now();
    if (now - m_last_sent >= interval) {
        m_last_sent = now;
        m_channel.send_progress(m_stage, GetPosition());
    }
}
