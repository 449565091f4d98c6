#include <importers/mesh/GmshSession.hpp>

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <gmsh.h>
#include <thread>
#include <unistd.h>

namespace {

constexpr std::chrono::milliseconds interval(100);

// "Info    : [ 30%] Meshing curve 4 (Line)"
double fraction_in(const std::string& line)
{
    const auto bracket = line.find('[');
    int percent = 0;
    return bracket != std::string::npos &&
                   std::sscanf(line.c_str() + bracket, "[%d%%]", &percent) == 1
               ? percent / 100.0
               : -1;
}

} // namespace

GmshSession::GmshSession(FrameChannel& channel)
    : m_channel(channel)
{
    int ends[2];
    if (::pipe(ends) != 0 || ::dup2(ends[1], STDOUT_FILENO) < 0) {
        std::_Exit(EXIT_FAILURE);
    }
    std::thread([this, end = ends[0]] { watch(end); }).detach();
    // No arguments, and nothing of what the user has set up for other programs.
    gmsh::initialize(0, nullptr, false);
    gmsh::option::setNumber("General.Terminal", 1);
}

void GmshSession::begin(ImportStage stage)
{
    const std::lock_guard lock(m_mutex);
    m_stage = stage;
    m_channel.send_progress(stage);
}

void GmshSession::end_stages()
{
    const std::lock_guard lock(m_mutex);
    m_stage.reset();
}

void GmshSession::watch(int descriptor)
{
    std::string line;
    auto last_report = std::chrono::steady_clock::now();
    char piece[4096];
    for (ssize_t size = 0; (size = ::read(descriptor, piece, sizeof piece)) > 0;) {
        for (ssize_t i = 0; i < size; ++i) {
            if (piece[i] != '\n' && piece[i] != '\r') {
                line += piece[i];
                continue;
            }
            const auto now = std::chrono::steady_clock::now();
            if (now - last_report >= interval) {
                last_report = now;
                report(line);
            }
            line.clear();
        }
    }
}

void GmshSession::report(const std::string& line)
{
    const std::lock_guard lock(m_mutex);
    if (m_stage) {
        m_channel.send_progress(*m_stage, fraction_in(line));
    }
}

std::string gmsh_reason(const std::string& error)
{
    // Gmsh's sentences end as they like.
    const auto line = error.substr(0, error.find('\n'));
    const auto end = line.find_last_not_of(" .!") + 1;
    return end == 0 ? "Gmsh could not go on" : "Gmsh stopped with " + line.substr(0, end);
}
