#include <importers/helper/FrameChannel.hpp>

#include <cerrno>
#include <cstdlib>
#include <unistd.h>

FrameChannel::FrameChannel()
    : m_descriptor(::dup(STDOUT_FILENO))
{
    if (m_descriptor < 0 || ::dup2(STDERR_FILENO, STDOUT_FILENO) < 0) {
        std::_Exit(EXIT_FAILURE);
    }
}

void FrameChannel::send(FrameKind kind, std::string_view payload)
{
    const auto header = frame_header(kind, payload.size());
    const std::lock_guard lock(m_mutex);
    write_all({header.data(), header.size()});
    write_all(payload);
}

void FrameChannel::send_text(FrameKind kind, std::string_view text)
{
    send(kind, text.substr(0, largest_payload(kind)));
}

void FrameChannel::send_progress(ImportStage stage, double fraction)
{
    send(FrameKind::Progress, pack_progress({stage, fraction}));
}

void FrameChannel::write_all(std::string_view bytes) const
{
    while (!bytes.empty()) {
        const auto written = ::write(m_descriptor, bytes.data(), bytes.size());
        if (written >= 0) {
            bytes.remove_prefix(static_cast<std::size_t>(written));
        } else if (errno != EINTR) {
            // Nobody is left to work for.
            std::_Exit(EXIT_FAILURE);
        }
    }
}
