#include <importers/helper/HelperProgram.hpp>

#include <cstdlib>
#include <exception>
#include <importers/helper/ImportError.hpp>
#include <importers/ModelPack.hpp>
#include <new>
#include <string>
#include <sys/resource.h>
#include <thread>
#include <unistd.h>

namespace {

// The parent never writes.
void end_with_parent()
{
    std::thread([] {
        char byte = 0;
        while (::read(STDIN_FILENO, &byte, 1) > 0) {}
        std::_Exit(EXIT_FAILURE);
    }).detach();
}

// A crash on a damaged file is nothing that anybody would look into.
void leave_no_core_file()
{
    const rlimit none{};
    ::setrlimit(RLIMIT_CORE, &none);
}

// Empty if all went well.
std::string work_or_reason(
    const std::function<void(FrameChannel& channel)>& work, FrameChannel& channel)
{
    try {
        work(channel);
        return {};
    } catch (const std::bad_alloc&) {
        return "there is not enough memory for it";
    } catch (const std::exception& error) {
        return error.what();
    } catch (...) {
        return "it is damaged";
    }
}

} // namespace

void run_helper(const std::function<void(FrameChannel& channel)>& work)
{
    leave_no_core_file();
    end_with_parent();
    FrameChannel channel;
    const auto reason = work_or_reason(work, channel);
    if (!reason.empty()) {
        channel.send_text(FrameKind::Failure, reason);
    }
    std::_Exit(reason.empty() ? EXIT_SUCCESS : EXIT_FAILURE);
}

void send_model(const ModelData& model, FrameChannel& channel)
{
    channel.send_progress(ImportStage::Pack);
    const auto bytes = pack_model(model);
    if (bytes.size() > largest_payload(FrameKind::Model)) {
        throw ImportError("its model is too large");
    }
    channel.send(FrameKind::Model, bytes);
}
