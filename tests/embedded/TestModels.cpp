#include "TestModels.hpp"

namespace {

// Numbers the points of a grid from an id on, x first.
struct Grid
{
    int first_id;
    int nx;
    int ny;
    int nz;

    int id(int x, int y, int z) const { return first_id + x + nx * (y + ny * z); }
    int next_id() const { return first_id + nx * ny * nz; }
    template <typename Visit>
    void visit(Visit visit) const
    {
        for (int z = 0; z < nz; ++z) {
            for (int y = 0; y < ny; ++y) {
                for (int x = 0; x < nx; ++x) {
                    visit(x, y, z);
                }
            }
        }
    }
};

} // namespace

ModelData lattice(int nx, int ny, int nz)
{
    const Grid vertices{1, nx + 1, ny + 1, nz + 1};
    // Curves by their direction, surfaces by that of their normal.
    const Grid curves_x{1, nx, ny + 1, nz + 1};
    const Grid curves_y{curves_x.next_id(), nx + 1, ny, nz + 1};
    const Grid curves_z{curves_y.next_id(), nx + 1, ny + 1, nz};
    const Grid surfaces_x{1, nx + 1, ny, nz};
    const Grid surfaces_y{surfaces_x.next_id(), nx, ny + 1, nz};
    const Grid surfaces_z{surfaces_y.next_id(), nx, ny, nz + 1};
    const Grid volumes{1, nx, ny, nz};

    ModelData model;
    const auto add = [](auto& entities, std::vector<int> children) {
        entities.emplace_back().children = std::move(children);
    };
    vertices.visit([&](int, int, int) { add(model.vertices, {}); });
    curves_x.visit([&](int x, int y, int z) {
        add(model.curves, {vertices.id(x, y, z), vertices.id(x + 1, y, z)});
    });
    curves_y.visit([&](int x, int y, int z) {
        add(model.curves, {vertices.id(x, y, z), vertices.id(x, y + 1, z)});
    });
    curves_z.visit([&](int x, int y, int z) {
        add(model.curves, {vertices.id(x, y, z), vertices.id(x, y, z + 1)});
    });
    surfaces_x.visit([&](int x, int y, int z) {
        add(model.surfaces, {curves_y.id(x, y, z), curves_y.id(x, y, z + 1), curves_z.id(x, y, z),
                                curves_z.id(x, y + 1, z)});
    });
    surfaces_y.visit([&](int x, int y, int z) {
        add(model.surfaces, {curves_x.id(x, y, z), curves_x.id(x, y, z + 1), curves_z.id(x, y, z),
                                curves_z.id(x + 1, y, z)});
    });
    surfaces_z.visit([&](int x, int y, int z) {
        add(model.surfaces, {curves_x.id(x, y, z), curves_x.id(x, y + 1, z), curves_y.id(x, y, z),
                                curves_y.id(x + 1, y, z)});
    });
    volumes.visit([&](int x, int y, int z) {
        add(model.volumes,
            {surfaces_x.id(x, y, z), surfaces_x.id(x + 1, y, z), surfaces_y.id(x, y, z),
                surfaces_y.id(x, y + 1, z), surfaces_z.id(x, y, z), surfaces_z.id(x, y, z + 1)});
    });
    Grid{1, 1, ny, nz}.visit([&](int, int y, int z) {
        std::vector<int> row;
        row.reserve(std::size_t(nx));
        for (int x = 0; x < nx; ++x) {
            row.push_back(volumes.id(x, y, z));
        }
        add(model.bodies, row);
    });
    return model;
}

ModelData loose_ends()
{
    ModelData model;
    model.vertices.resize(3);
    model.vertices[2].name = "Tip";
    model.curves.resize(1);
    model.curves[0].children = {1, 2};
    model.surfaces.resize(1);
    model.volumes.resize(1);
    model.volumes[0].children = {1};
    model.volumes[0].is_sheet = true;
    model.bodies.resize(1);
    model.bodies[0].name = "Sheet";
    model.bodies[0].children = {1};
    model.groups.resize(2);
    model.groups[0].name = "All";
    model.groups[0].groups = {2};
    model.groups[0].bodies = {1};
    model.groups[1].name = "Tips";
    model.groups[1].vertices = {3};
    return model;
}
