#include <importers/cad/CadReader.hpp>

#include <algorithm>
#include <array>
#include <BRep_Builder.hxx>
#include <BRepTools.hxx>
#include <IGESCAFControl_Reader.hxx>
#include <importers/cad/CadDocument.hpp>
#include <importers/cad/FrameProgress.hpp>
#include <importers/cad/ImportError.hpp>
#include <importers/FileContent.hpp>
#include <Interface_Check.hxx>
#include <Interface_InterfaceModel.hxx>
#include <STEPCAFControl_Reader.hxx>
#include <StepRepr_RepresentationItem.hxx>
#include <TCollection_HAsciiString.hxx>
#include <TopoDS_Iterator.hxx>
#include <Transfer_TransientProcess.hxx>
#include <TransferBRep.hxx>
#include <XSControl_TransferReader.hxx>
#include <XSControl_WorkSession.hxx>

namespace {

template <typename Reader>
void read_records(Reader& reader, const std::filesystem::path& file, FrameChannel& channel)
{
    channel.send_progress(ImportStage::Read);
    if (reader.ReadFile(file.c_str()) != IFSelect_RetDone) {
        throw ImportError("it is damaged: its records cannot be read");
    }
}

[[noreturn]] void throw_damaged(const std::string& record, const Interface_Check& check)
{
    throw ImportError("it is damaged: " + record + check.CFail(1));
}

// A record that did not load well makes the transfer crash.
void check_records(const XSControl_Reader& reader, FrameChannel& channel)
{
    channel.send_progress(ImportStage::Check);
    const auto model = reader.WS()->Model();
    const auto global_check = model->GlobalCheck();
    if (global_check->HasFailed()) {
        throw_damaged({}, *global_check);
    }
    for (int i = 1; i <= model->NbEntities(); ++i) {
        const auto check = model->Check(i, true);
        if (check->HasFailed()) {
            const auto label = model->StringLabel(model->Value(i));
            throw_damaged(std::string("entity ") + label->ToCString() + ": ", *check);
        }
    }
}

ShapeNames names_of_items(const XSControl_Reader& reader)
{
    ShapeNames names;
    const auto model = reader.WS()->Model();
    const auto process = reader.WS()->TransferReader()->TransientProcess();
    for (int i = 1; i <= model->NbEntities(); ++i) {
        const auto item = Handle(StepRepr_RepresentationItem)::DownCast(model->Value(i));
        if (item.IsNull() || item->Name().IsNull() || item->Name()->IsEmpty()) {
            continue;
        }
        const auto shape = TransferBRep::ShapeResult(process->Find(item));
        const auto name = proper_name(TCollection_ExtendedString(item->Name()->ToCString(), true));
        if (!shape.IsNull() && !name.empty()) {
            names.Bind(shape.Located({}), name);
        }
    }
    return names;
}

CadContent read_step(const std::filesystem::path& file, FrameChannel& channel)
{
    STEPCAFControl_Reader reader;
    reader.SetColorMode(false);
    reader.SetLayerMode(false);
    reader.SetPropsMode(false);
    reader.SetGDTMode(false);
    reader.SetMatMode(false);
    reader.SetViewMode(false);
    read_records(reader, file, channel);
    check_records(reader.Reader(), channel);
    CadDocument document;
    const Handle(FrameProgress) progress = new FrameProgress(channel, ImportStage::Transfer);
    reader.Transfer(document.handle(), progress->Start());
    return {document.roots(), names_of_items(reader.Reader())};
}

CadContent read_iges(const std::filesystem::path& file, FrameChannel& channel)
{
    IGESCAFControl_Reader reader;
    reader.SetColorMode(false);
    reader.SetLayerMode(false);
    read_records(reader, file, channel);
    check_records(reader, channel);
    CadDocument document;
    const Handle(FrameProgress) progress = new FrameProgress(channel, ImportStage::Transfer);
    reader.Transfer(document.handle(), progress->Start());
    return {document.roots(), {}};
}

// The children of the outermost compound are the parts.
CadContent read_brep(const std::filesystem::path& file, FrameChannel& channel)
{
    channel.send_progress(ImportStage::Read);
    const Handle(FrameProgress) progress = new FrameProgress(channel, ImportStage::Read);
    TopoDS_Shape shape;
    if (!BRepTools::Read(shape, file.c_str(), BRep_Builder(), progress->Start())
        || shape.IsNull()) {
        throw ImportError("it is damaged: its shapes cannot be read");
    }
    CadContent content;
    if (shape.ShapeType() != TopAbs_COMPOUND) {
        content.roots.push_back({{}, shape, false, {}});
        return content;
    }
    for (TopoDS_Iterator part(shape); part.More(); part.Next()) {
        content.roots.push_back({{}, part.Value(), false, {}});
    }
    return content;
}

struct Format
{
    FileContent content;
    CadContent (*read)(const std::filesystem::path&, FrameChannel&);
};

constexpr std::array formats{
    Format{FileContent::Step, read_step},
    Format{FileContent::Iges, read_iges},
    Format{FileContent::Brep, read_brep},
};

} // namespace

CadContent read_cad_file(const std::filesystem::path& file, FrameChannel& channel)
{
    const auto found = look_at_file(file);
    const auto format = std::find_if(formats.begin(), formats.end(),
        [found](const Format& candidate) { return candidate.content == found; });
    if (format == formats.end()) {
        throw ImportError("its content is neither STEP nor IGES nor BREP");
    }
    if (!has_end_mark(file, found)) {
        throw ImportError("it is truncated: the mark at its end is missing");
    }
    return format->read(file, channel);
}
