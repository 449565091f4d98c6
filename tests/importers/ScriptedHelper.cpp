// A helper program that does what the lines of its input file say, after the first
// line, which makes the file look like a CAD file:
//
//   progress STAGE FRACTION | warning TEXT | failure TEXT | model NAME | frame KIND TEXT
//   raw TEXT | cut-model | sleep MILLISECONDS | hang | crash | exit CODE
//
// Writes its process id to FILE.pid first.

#include <csignal>
#include <cstdlib>
#include <fstream>
#include <functional>
#include <importers/ImportFrames.hpp>
#include <importers/ModelPack.hpp>
#include <iostream>
#include <map>
#include <sstream>
#include <string>
#include <unistd.h>

namespace {

void send(FrameKind kind, const std::string& payload)
{
    const auto header = frame_header(kind, payload.size());
    std::cout.write(header.data(), header.size()) << payload << std::flush;
}

std::string rest_of(std::istream& words)
{
    std::string text;
    std::getline(words >> std::ws, text);
    return text;
}

std::string one_body(const std::string& name)
{
    ModelData model;
    model.bodies.push_back({name, {1}});
    model.volumes.resize(1);
    return pack_model(model);
}

void progress(std::istream& words)
{
    int stage = 0;
    double fraction = 0;
    words >> stage >> fraction;
    send(FrameKind::Progress, pack_progress({static_cast<ImportStage>(stage), fraction}));
}

void frame(std::istream& words)
{
    int kind = 0;
    words >> kind;
    send(static_cast<FrameKind>(kind), rest_of(words));
}

void cut_model(std::istream&)
{
    const auto header = frame_header(FrameKind::Model, largest_payload(FrameKind::Model));
    std::cout.write(header.data(), header.size()) << "and no more" << std::flush;
}

void sleep(std::istream& words)
{
    unsigned milliseconds = 0;
    words >> milliseconds;
    ::usleep(milliseconds * 1000);
}

void hang(std::istream&)
{
    for (;;) {
        ::pause();
    }
}

void crash(std::istream&)
{
    std::signal(SIGSEGV, SIG_DFL);
    std::raise(SIGSEGV);
}

void leave(std::istream& words)
{
    int code = 0;
    words >> code;
    std::_Exit(code);
}

using Command = std::function<void(std::istream&)>;

const std::map<std::string, Command> commands{
    {"progress", progress},
    {"warning", [](std::istream& words) { send(FrameKind::Warning, rest_of(words)); }},
    {"failure", [](std::istream& words) { send(FrameKind::Failure, rest_of(words)); }},
    {"model", [](std::istream& words) { send(FrameKind::Model, one_body(rest_of(words))); }},
    {"frame", frame},
    {"raw", [](std::istream& words) { std::cout << rest_of(words) << std::flush; }},
    {"cut-model", cut_model},
    {"sleep", sleep},
    {"hang", hang},
    {"crash", crash},
    {"exit", leave},
};

} // namespace

int main(int, char* argv[])
{
    const std::string file = argv[1];
    std::ofstream(file + ".pid") << ::getpid() << std::flush;
    std::ifstream script(file);
    std::string line;
    std::getline(script, line);
    while (std::getline(script, line)) {
        std::istringstream words(line);
        std::string name;
        words >> name;
        commands.at(name)(words);
    }
    return EXIT_SUCCESS;
}
