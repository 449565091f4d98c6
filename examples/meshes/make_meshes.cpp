// Makes the example meshes: three blocks that share faces, with elements of every kind, in
// each format that is read; and what is told of but not taken in.

#include <cstdlib>
#include <filesystem>
#include <gmsh.h>
#include <iostream>
#include <string>

namespace {

namespace geo = gmsh::model::geo;

void start_model()
{
    gmsh::clear();
    // Few elements make small files.
    gmsh::option::setNumber("Mesh.MeshSizeMin", 1);
}

void name(int dimension, const std::vector<int>& tags, const std::string& text)
{
    const int group = gmsh::model::addPhysicalGroup(dimension, tags);
    gmsh::model::setPhysicalName(dimension, group, text);
}

int square(double x)
{
    const int a = geo::addPoint(x, 0, 0);
    const int b = geo::addPoint(x + 1, 0, 0);
    const int c = geo::addPoint(x + 1, 1, 0);
    const int d = geo::addPoint(x, 1, 0);
    return geo::addPlaneSurface({geo::addCurveLoop(
        {geo::addLine(a, b), geo::addLine(b, c), geo::addLine(c, d), geo::addLine(d, a)})});
}

// Of what an extrusion makes: the far end first, then what is swept, then its sides.
gmsh::vectorpair extruded(int surface, double dx, double dz, const std::vector<int>& layers)
{
    gmsh::vectorpair made;
    geo::extrude({{2, surface}}, dx, 0, dz, made, layers, {}, !layers.empty());
    return made;
}

// Hexahedra at x from 1 to 2, wedges before them, tetrahedra behind them, and pyramids in
// between.
void make_blocks()
{
    start_model();
    const int wedge_base = square(0);
    const int hex_base = square(1);
    geo::mesh::setRecombine(2, hex_base);
    geo::mesh::setTransfiniteSurface(hex_base);
    const auto wedges = extruded(wedge_base, 0, 1, {1});
    const auto hexes = extruded(hex_base, 0, 1, {1});
    geo::removeAllDuplicates();
    // The side at x = 2: behind the far end and the volume, the sides go around.
    const int tet_base = hexes[3].second;
    const auto tets = extruded(tet_base, 1, 0, {});
    geo::synchronize();

    name(3, {hexes[1].second}, "Geh\u00e4use");
    name(3, {tets[1].second}, "Core");
    gmsh::model::addPhysicalGroup(3, {wedges[1].second}, 30);
    name(2, {hex_base, wedge_base}, "Floor");
    name(2, {tets[0].second}, "Outlet");
    name(1, {1, 2}, "Floor");
    name(0, {1, 2}, "Masses");
    gmsh::model::mesh::generate(3);
}

void write(const std::filesystem::path& file, double version = 4.1, bool is_binary = false)
{
    gmsh::option::setNumber("Mesh.MshFileVersion", version);
    gmsh::option::setNumber("Mesh.Binary", is_binary ? 1 : 0);
    gmsh::write(file.string());
}

// Two opposite sides have the same nodes.
void make_periodic_strip()
{
    start_model();
    square(0);
    geo::synchronize();
    gmsh::model::mesh::setPeriodic(1, {2}, {4}, {1, 0, 0, 1, 0, 1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1});
    gmsh::model::mesh::generate(2);
}

void make_all(const std::filesystem::path& folder)
{
    make_blocks();
    write(folder / "blocks_22.msh", 2.2);
    write(folder / "blocks_22_binary.msh", 2.2, true);
    // What is in no group, too; the older version would lose the groups.
    gmsh::option::setNumber("Mesh.SaveAll", 1);
    write(folder / "blocks_41.msh");
    write(folder / "blocks_41_binary.msh", 4.1, true);
    write(folder / "blocks.vtk");
    write(folder / "blocks.bdf");
    write(folder / "blocks.mesh");
    gmsh::model::mesh::partition(2);
    write(folder / "blocks_in_partitions.msh");
    make_periodic_strip();
    write(folder / "strip_periodic.msh");
}

} // namespace

int main(int argc, char* argv[])
{
    if (argc != 2) {
        std::cerr << "Usage: treemodel-make-meshes FOLDER\n";
        return EXIT_FAILURE;
    }
    gmsh::initialize(0, nullptr, false);
    gmsh::option::setNumber("General.Terminal", 0);
    try {
        make_all(argv[1]);
        return EXIT_SUCCESS;
    } catch (const std::string& error) {
        std::cerr << error << '\n';
    }
    return EXIT_FAILURE;
}
