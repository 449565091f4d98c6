#include <importers/cad/CadDocument.hpp>

#include <algorithm>
#include <array>
#include <string_view>
#include <TDataStd_Name.hxx>
#include <TDF_Label.hxx>
#include <TDF_LabelSequence.hxx>
#include <XCAFApp_Application.hxx>
#include <XCAFDoc_DocumentTool.hxx>
#include <XCAFDoc_ShapeTool.hxx>

namespace {

std::string utf8(const TCollection_ExtendedString& text)
{
    std::string bytes(static_cast<std::size_t>(text.LengthOfCString()) + 1, '\0');
    char* start = bytes.data();
    bytes.resize(static_cast<std::size_t>(text.ToUTF8CString(start)));
    return bytes;
}

bool is_filler(std::string_view name)
{
    // What programs write where a name is missing: words, references to records, and
    // beginnings of generated names.
    static constexpr std::array<std::string_view, 9> words{
        "NONE", "SOLID", "SHELL", "FACE", "EDGE", "VERTEX", "COMPOUND", "COMPSOLID", "ASSEMBLY"};
    static constexpr std::array<std::string_view, 2> beginnings{
        "Open CASCADE STEP translator", "=>[0:1"};
    const bool is_reference =
        name.starts_with('#') && name.find_first_not_of("0123456789", 1) == std::string_view::npos;
    return is_reference || std::find(words.begin(), words.end(), name) != words.end() ||
           std::any_of(beginnings.begin(), beginnings.end(),
               [name](std::string_view beginning) { return name.starts_with(beginning); });
}

std::string name_of(const TDF_Label& label)
{
    Handle(TDataStd_Name) name;
    return label.FindAttribute(TDataStd_Name::GetID(), name) ? proper_name(name->Get())
                                                             : std::string();
}

Part part_at(const TDF_Label& label, const TopLoc_Location& location);

std::vector<Part> parts_at(const TDF_LabelSequence& labels, const TopLoc_Location& location)
{
    std::vector<Part> parts;
    for (const auto& label : labels) {
        parts.push_back(part_at(label, location));
    }
    return parts;
}

// Reads the label of a product; name and place are those of the instance, if any.
Part product_at(const TDF_Label& label, const TopLoc_Location& location, std::string name)
{
    Part part;
    part.name = name.empty() ? name_of(label) : std::move(name);
    TDF_LabelSequence components;
    if (XCAFDoc_ShapeTool::GetComponents(label, components)) {
        part.parts = parts_at(components, location);
        part.is_assembly = std::any_of(part.parts.begin(), part.parts.end(),
            [](const Part& child) { return child.is_assembly || !child.name.empty(); });
    }
    if (!part.is_assembly) {
        // Unnamed pieces of one part are the part.
        part.parts.clear();
        part.shape = XCAFDoc_ShapeTool::GetShape(label);
        if (!part.shape.IsNull()) {
            part.shape.Move(location);
        }
    }
    return part;
}

Part part_at(const TDF_Label& label, const TopLoc_Location& location)
{
    TDF_Label product;
    if (XCAFDoc_ShapeTool::GetReferredShape(label, product)) {
        return product_at(
            product, location * XCAFDoc_ShapeTool::GetLocation(label), name_of(label));
    }
    return product_at(label, location, {});
}

} // namespace

CadDocument::CadDocument()
{
    XCAFApp_Application::GetApplication()->NewDocument("MDTV-XCAF", m_document);
    // Without this, unnamed shapes get the names of their types.
    XCAFDoc_ShapeTool::SetAutoNaming(false);
}

std::vector<Part> CadDocument::roots() const
{
    TDF_LabelSequence labels;
    XCAFDoc_DocumentTool::ShapeTool(m_document->Main())->GetFreeShapes(labels);
    return parts_at(labels, {});
}

std::string proper_name(const TCollection_ExtendedString& name)
{
    const auto text = utf8(name);
    return is_filler(text) ? std::string() : text;
}
