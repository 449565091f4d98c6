#include <importers/mesh/ElementCounter.hpp>

#include <algorithm>
#include <array>
#include <gmsh.h>
#include <string_view>
#include <utility>

namespace {

constexpr int point_type = 15;

// The first words of Gmsh's names of types: "Tetrahedron 10".
constexpr std::array kinds{
    std::pair{std::string_view("Line"), &ElementCounts::edges},
    std::pair{std::string_view("Triangle"), &ElementCounts::tris},
    std::pair{std::string_view("Quadrilateral"), &ElementCounts::quads},
    std::pair{std::string_view("Tetrahedron"), &ElementCounts::tets},
    std::pair{std::string_view("Hexahedron"), &ElementCounts::hexes},
    std::pair{std::string_view("Prism"), &ElementCounts::wedges},
    std::pair{std::string_view("Pyramid"), &ElementCounts::pyramids},
    std::pair{std::string_view("Point"), &ElementCounts::spheres},
};

// Without copying how they are connected.
std::size_t element_count(int type, int tag)
{
    std::vector<std::size_t> elements;
    std::vector<std::size_t> nodes;
    gmsh::model::mesh::preallocateElementsByType(type, true, false, elements, nodes, tag);
    return elements.size();
}

} // namespace

ElementCounts ElementCounter::elements_on(int dimension, int tag, bool points_are_spheres)
{
    ElementCounts counts;
    std::vector<int> types;
    gmsh::model::mesh::getElementTypes(types, dimension, tag);
    for (const int type : types) {
        if (type == point_type && !points_are_spheres) {
            continue;
        }
        const auto count = element_count(type, tag);
        if (const auto field = field_of(type)) {
            counts.*field += static_cast<int>(count);
        } else {
            m_uncounted += count;
        }
    }
    return counts;
}

ElementCounter::Field ElementCounter::field_of(int type)
{
    const auto [known, is_new] = m_fields.try_emplace(type, nullptr);
    if (is_new) {
        std::string name;
        int number = 0;
        std::vector<double> coordinates;
        gmsh::model::mesh::getElementProperties(
            type, name, number, number, number, coordinates, number);
        const auto word = name.substr(0, name.find(' '));
        const auto kind = std::find_if(kinds.begin(), kinds.end(),
            [&word](const auto& candidate) { return candidate.first == word; });
        if (kind != kinds.end()) {
            known->second = kind->second;
        }
    }
    return known->second;
}

int nodes_on(int dimension, int tag)
{
    std::vector<std::size_t> nodes;
    std::vector<double> coordinates;
    std::vector<double> parameters;
    gmsh::model::mesh::getNodes(nodes, coordinates, parameters, dimension, tag, false, false);
    return static_cast<int>(nodes.size());
}
