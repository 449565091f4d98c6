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

class PartReader
{
public:
    explicit PartReader(const std::set<std::string>& stand_ins)
        : m_stand_ins(stand_ins)
    {
    }

    std::vector<Part> parts_at(const TDF_LabelSequence& labels, const TopLoc_Location& place) const
    {
        std::vector<Part> parts;
        for (const auto& label : labels) {
            parts.push_back(part_at(label, place));
        }
        return parts;
    }

private:
    Part part_at(const TDF_Label& label, const TopLoc_Location& place) const
    {
        TDF_Label product;
        if (!XCAFDoc_ShapeTool::GetReferredShape(label, product)) {
            return product_at(label, place);
        }
        auto part = product_at(product, place * XCAFDoc_ShapeTool::GetLocation(label));
        if (auto name = name_of(label); !name.empty() && !m_stand_ins.contains(name)) {
            part.name = std::move(name);
        }
        return part;
    }

    Part product_at(const TDF_Label& label, const TopLoc_Location& place) const
    {
        Part part;
        part.name = name_of(label);
        TDF_LabelSequence components;
        if (XCAFDoc_ShapeTool::GetComponents(label, components)) {
            part.parts = parts_at(components, place);
            part.is_assembly = std::any_of(part.parts.begin(), part.parts.end(),
                [](const Part& child) { return child.is_assembly || !child.name.empty(); });
        }
        if (!part.is_assembly) {
            // Unnamed pieces of one part are the part.
            part.parts.clear();
            part.shape = XCAFDoc_ShapeTool::GetShape(label);
            if (!part.shape.IsNull()) {
                part.shape.Move(place);
            }
        }
        return part;
    }

    const std::set<std::string>& m_stand_ins;
};

} // namespace

CadDocument::CadDocument()
{
    XCAFApp_Application::GetApplication()->NewDocument("MDTV-XCAF", m_document);
    // Without this, unnamed shapes get the names of their types.
    XCAFDoc_ShapeTool::SetAutoNaming(false);
}

std::vector<Part> CadDocument::roots(const std::set<std::string>& stand_ins) const
{
    TDF_LabelSequence labels;
    XCAFDoc_DocumentTool::ShapeTool(m_document->Main())->GetFreeShapes(labels);
    return PartReader(stand_ins).parts_at(labels, {});
}

std::string proper_name(const TCollection_ExtendedString& name)
{
    const auto text = utf8(name);
    return is_filler(text) ? std::string() : text;
}
