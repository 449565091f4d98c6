#include <importers/cad/CadModel.hpp>

#include <importers/cad/CadReader.hpp>
#include <importers/helper/ImportError.hpp>
#include <Message.hxx>
#include <Message_Messenger.hxx>
#include <Standard_Failure.hxx>

namespace {

std::string reason_of(const Standard_Failure& failure)
{
    const std::string message = failure.GetMessageString();
    return "it is damaged: OpenCASCADE stopped with " +
           (message.empty() ? failure.DynamicType()->Name() : message);
}

} // namespace

void with_cad_model(const std::filesystem::path& file, FrameChannel& channel,
    const std::function<void(const ModelBuilder& builder)>& use)
try {
    Message::DefaultMessenger()->ChangePrinters().Clear();
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
    use(builder);
} catch (const Standard_Failure& failure) {
    throw ImportError(reason_of(failure));
}
