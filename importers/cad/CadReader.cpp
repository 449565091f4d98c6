#include <importers/cad/CadReader.hpp>

#include <algorithm>
#include <array>
#include <BRep_Builder.hxx>
#include <BRepTools.hxx>
#include <IGESCAFControl_Reader.hxx>
#include <importers/cad/CadDocument.hpp>
#include <importers/cad/FrameProgress.hpp>
#include <importers/FileContent.hpp>
#include <importers/helper/ImportError.hpp>
#include <Interface_Check.hxx>
#include <Interface_InterfaceModel.hxx>
#include <set>
#include <STEPCAFControl_Reader.hxx>
#include <StepRepr_NextAssemblyUsageOccurrence.hxx>
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

// The text of a check without what the library puts around it.
std::string trouble_in(const Interface_Check& check)
{
    static constexpr std::string_view parser_prefix = "Undefined Parsing: ";
    std::string_view trouble = check.CFail(1);
    if (trouble.starts_with(parser_prefix)) {
        trouble.remove_prefix(parser_prefix.size());
    }
    trouble = trouble.substr(0, trouble.find_last_not_of(" .\n") + 1);
    return std::string(trouble.starts_with("Unknown message") ? "a value is wrong" : trouble);
}

bool is_about_looks(const Standard_Transient& record)
{
    return std::string_view(record.DynamicType()->Name()).starts_with("StepVisual_");
}

// A record that did not load well makes the transfer crash, unless it is one that is
// not looked at.
void check_records(const XSControl_Reader& reader, FrameChannel& channel)
{
    channel.send_progress(ImportStage::Check);
    const auto model = reader.WS()->Model();
    if (model->NbEntities() == 0) {
        throw ImportError("it holds no geometry");
    }
    if (const auto check = model->GlobalCheck(); check->HasFailed()) {
        throw ImportError("it is damaged: " + trouble_in(*check));
    }
    int damaged_looks = 0;
    for (int i = 1; i <= model->NbEntities(); ++i) {
        const auto check = model->Check(i, true);
        if (!check->HasFailed()) {
            continue;
        }
        const auto record = model->Value(i);
        if (!is_about_looks(*record)) {
            throw ImportError(std::string("it is damaged: entity ") +
                              model->StringLabel(record)->ToCString() + ": " + trouble_in(*check));
        }
        ++damaged_looks;
    }
    if (damaged_looks > 0) {
        channel.send_text(
            FrameKind::Warning, "Damaged records about colours or views were ignored: " +
                                    std::to_string(damaged_looks) + '.');
    }
}

template <typename Record, typename Visit>
void for_each_record(const XSControl_Reader& reader, Visit visit)
{
    const auto model = reader.WS()->Model();
    for (int i = 1; i <= model->NbEntities(); ++i) {
        const auto record = Handle(Record)::DownCast(model->Value(i));
        if (!record.IsNull()) {
            visit(*record);
        }
    }
}

bool is_blank(const Handle(TCollection_HAsciiString) & text)
{
    return text.IsNull() || text->IsEmpty();
}

ShapeNames names_of_shapes(const XSControl_Reader& reader)
{
    ShapeNames names;
    const auto process = reader.WS()->TransferReader()->TransientProcess();
    for_each_record<StepRepr_RepresentationItem>(reader, [&](const auto& item) {
        if (is_blank(item.Name())) {
            return;
        }
        const auto shape = TransferBRep::ShapeResult(process->Find(&item));
        const auto name = proper_name(TCollection_ExtendedString(item.Name()->ToCString(), true));
        if (!shape.IsNull() && !name.empty()) {
            names.Bind(shape.Located({}), name);
        }
    });
    return names;
}

// The reader calls an instance without a name by its id, which says nothing.
std::set<std::string> ids_of_unnamed_instances(const XSControl_Reader& reader)
{
    std::set<std::string> ids;
    for_each_record<StepRepr_NextAssemblyUsageOccurrence>(reader, [&ids](const auto& instance) {
        if (is_blank(instance.Name()) && is_blank(instance.Description()) &&
            !is_blank(instance.Id())) {
            ids.insert(instance.Id()->ToCString());
        }
    });
    return ids;
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
    return {document.roots(ids_of_unnamed_instances(reader.Reader())),
        names_of_shapes(reader.Reader())};
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
    return {document.roots({}), {}};
}

// The children of the outermost compound are the parts.
CadContent read_brep(const std::filesystem::path& file, FrameChannel& channel)
{
    channel.send_progress(ImportStage::Read);
    const Handle(FrameProgress) progress = new FrameProgress(channel, ImportStage::Read);
    TopoDS_Shape shape;
    if (!BRepTools::Read(shape, file.c_str(), BRep_Builder(), progress->Start()) ||
        shape.IsNull()) {
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
        throw ImportError("it is truncated: its end is missing");
    }
    return format->read(file, channel);
}
