// Reads one CAD file and sends its model to the parent process as frames on the
// standard output. Ends with the parent. Leaves without cleaning up: taking a large
// model apart takes longer than to read it, and may crash after all is said.

#include <cstdlib>
#include <exception>
#include <importers/cad/CadReader.hpp>
#include <importers/cad/FrameChannel.hpp>
#include <importers/cad/ImportError.hpp>
#include <importers/cad/ModelBuilder.hpp>
#include <importers/ModelPack.hpp>
#include <iostream>
#include <Message.hxx>
#include <Message_Messenger.hxx>
#include <new>
#include <Standard_Failure.hxx>
#include <string>
#include <sys/resource.h>
#include <thread>
#include <unistd.h>

namespace {

// The parent holds the other end of the standard input and never writes.
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

void import(const char* file, FrameChannel& channel)
{
    const auto content = read_cad_file(file, channel);

    channel.send_progress(ImportStage::Walk);
    ModelBuilder builder(content.names, [&channel](const std::string& sentence) {
        channel.send_text(FrameKind::Warning, sentence);
    });
    for (const auto& root : content.roots) {
        builder.add(root);
    }
    if (builder.is_empty()) {
        throw ImportError("it holds no geometry");
    }
    channel.send_progress(ImportStage::Pack);
    const auto bytes = pack_model(builder.model());
    if (bytes.size() > largest_payload(FrameKind::Model)) {
        throw ImportError("its model is too large");
    }
    channel.send(FrameKind::Model, bytes);
}

std::string reason_of(const Standard_Failure& failure)
{
    const std::string message = failure.GetMessageString();
    return "it is damaged: OpenCASCADE stopped with " +
           (message.empty() ? failure.DynamicType()->Name() : message);
}

// Empty if all went well.
std::string import_or_reason(const char* file, FrameChannel& channel)
{
    try {
        import(file, channel);
        return {};
    } catch (const Standard_Failure& failure) {
        return reason_of(failure);
    } catch (const std::bad_alloc&) {
        return "there is not enough memory for it";
    } catch (const std::exception& error) {
        return error.what();
    } catch (...) {
        return "it is damaged";
    }
}

} // namespace

int main(int argc, char* argv[])
{
    if (argc != 2) {
        std::cerr << "Usage: treemodel-import-cad FILE\n"
                     "Writes the model in the file to standard output, for a program to read.\n";
        return EXIT_FAILURE;
    }
    leave_no_core_file();
    end_with_parent();
    FrameChannel channel;
    Message::DefaultMessenger()->ChangePrinters().Clear();

    const auto reason = import_or_reason(argv[1], channel);
    if (!reason.empty()) {
        channel.send_text(FrameKind::Failure, reason);
    }
    std::_Exit(reason.empty() ? EXIT_SUCCESS : EXIT_FAILURE);
}
