#include <importers/mesh/Fields.hpp>

#include <fstream>
#include <gmsh.h>
#include <string_view>

namespace {

// "Field[3] = Threshold;"
constexpr std::string_view definition_beginning = "Field[";
constexpr std::string_view definition_middle = "] = ";
// "DistanceField": Gmsh says it twice of some types.
constexpr std::string_view type_ending = "Field";

// The type of the field that a line of a script defines; empty for any other line.
std::string_view defined_type(std::string_view line)
{
    const auto middle = line.find(definition_middle);
    if (!line.starts_with(definition_beginning) || middle == std::string_view::npos) {
        return {};
    }
    auto type = line.substr(middle + definition_middle.size());
    type = type.substr(0, type.find(';'));
    if (type.ends_with(type_ending)) {
        type.remove_suffix(type_ending.size());
    }
    return type;
}

} // namespace

void add_fields(ModelData& model)
{
    const std::string file = "fields.geo_unrolled";
    gmsh::write(file);

    std::ifstream script(file);
    for (std::string line; std::getline(script, line);) {
        const auto type = defined_type(line);
        if (!type.empty()) {
            auto& list = type == "BoundaryLayer" ? model.boundary_layers : model.sizing_sources;
            list.emplace_back(type);
        }
    }
}
