#include <importers/mesh/Fields.hpp>

#include <fstream>
#include <gmsh.h>
#include <regex>

void add_fields(ModelData& model)
{
    const std::string file = "fields.geo_unrolled";
    gmsh::write(file);

    // "Field[3] = Threshold;", and "DistanceField" for a Distance.
    static const std::regex definition(R"(Field\[\d+\] = (\w+?)(Field)?;\s*)");
    std::ifstream script(file);
    std::smatch parts;
    for (std::string line; std::getline(script, line);) {
        if (std::regex_match(line, parts, definition)) {
            auto& list = parts[1] == "BoundaryLayer" ? model.boundary_layers : model.sizing_sources;
            list.push_back(parts[1]);
        }
    }
}
