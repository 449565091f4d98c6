#include <support/FullModel.hpp>

using KestoInterface::BC_CONTACT_PAIR;
using KestoInterface::BC_FAN;
using KestoInterface::BC_FORCE;
using KestoInterface::BC_INLETVENT;
using KestoInterface::BC_WALL;

FullMirror::FullMirror()
{
    kernel.material_component = &materials;
}

void script_full_model(FullMirror& mirror)
{
    RecordingKernel& kernel = mirror.kernel;
    kernel.entities = {
        {"body", {1}}, {"volume", {1, 2}}, {"surface", {1, 2}}, {"curve", {1}}, {"vertex", {1, 2}}};
    kernel.free_entities = {{"vertex", {2}}};
    kernel.relatives.clear();
    kernel.relate("body", 1, "volume", {1, 2});
    kernel.relate("volume", 1, "surface", {1, 2});
    kernel.relate("volume", 2, "surface", {2});
    kernel.relate("surface", 1, "curve", {1});
    kernel.relate("curve", 1, "vertex", {1});
    kernel.names = {{{"body", 1}, "Housing"}, {{"surface", 2}, "Interface"},
        {{"group", 2}, "Inner"}, {{"group", 1}, "Outer"}};
    kernel.hidden = {{"volume", 2}, {"group", 2}, {"sideset", 2}};

    kernel.groups = {{"Inner", 2}, {"", 3}, {"Outer", 1}};
    kernel.group_contents = {
        {1, {{{{2, 3}, {1}, {2}, {1, 2}, {1}, {1, 2}}}, {9, 8, 1, 7, 2, 6, 3, 4, 5}}},
        {2, {{{{}, {}, {}, {2}, {1}, {}}}, {0, 0, 0, 0, 4, 0, 0, 0, 0}}}};

    kernel.sizing_sources = {1, 2};
    kernel.boundary_layers = {1, 3};

    kernel.exodus_ids = {{"block", {1, 2}}, {"sideset", {1, 2}}, {"nodeset", {1, 2}}};
    kernel.bc_ids = {{BC_FORCE, {1, 2}}, {BC_CONTACT_PAIR, {1}}, {BC_FAN, {5}}, {BC_INLETVENT, {3}},
        {BC_WALL, {1}}};
    kernel.sidesets_of_bc = {
        {{BC_FORCE, 1}, {1, 2}}, {{BC_WALL, 1}, {2}}, {{BC_INLETVENT, 3}, {1}}};
    kernel.nodesets_of_bc = {{{BC_FORCE, 1}, {1}}, {{BC_FORCE, 2}, {1, 2}}, {{BC_WALL, 1}, {2}}};
    kernel.exodus_names = {{{"block", 1}, "Steel parts"}, {{"sideset", 2}, "Inlet"},
        {{"force", 1}, "Gravity"}, {{"wall", 1}, "Duct"}, {{"material", 1}, "Steel"},
        {{"media", 2}, "Air"}};
    mirror.materials.materials = {{1, false}, {2, true}};

    kernel.selection = {{"Surface", 2}, {"GROUP", 2}, {"sizing_source", 1}, {"boundary_layer", 3},
        {"block", 1}, {"force", 2}, {"wall", 1}, {"material", 1}, {"nothing", 1}};
}

void change_full_model(FullMirror& mirror)
{
    RecordingKernel& kernel = mirror.kernel;
    kernel.entities = {
        {"body", {1}}, {"volume", {1, 3}}, {"surface", {2, 3}}, {"curve", {1, 2}}, {"vertex", {2}}};
    kernel.relatives.clear();
    kernel.relate("body", 1, "volume", {1, 3});
    kernel.relate("volume", 3, "surface", {2, 3});
    kernel.relate("surface", 2, "curve", {1, 2});
    kernel.names[{"body", 1}] = "Case";
    kernel.hidden = {{"surface", 3}, {"group", 3}, {"block", 2}};

    kernel.groups = {{"", 3}, {"Fourth", 4}, {"Outermost", 1}};
    kernel.names[{"group", 1}] = "Outermost";
    kernel.names[{"group", 4}] = "Fourth";
    kernel.group_contents = {
        {1, {{{{3, 4}, {1}, {}, {2, 3}, {}, {2}}}, {0, 8, 2, 0, 1, 0, 0, 0, 0}}},
        {4, {{{{}, {}, {3}, {2}, {}, {}}}, {1, 0, 0, 0, 0, 0, 0, 0, 0}}}};

    kernel.sizing_sources = {3, 2};
    kernel.boundary_layers = {2, 1};

    kernel.exodus_ids = {{"block", {2, 3}}, {"sideset", {3, 1}}, {"nodeset", {1}}};
    kernel.bc_ids = {{BC_FORCE, {2, 3}}, {BC_INLETVENT, {3, 4}}, {BC_WALL, {1}}};
    kernel.sidesets_of_bc = {
        {{BC_FORCE, 2}, {3}}, {{BC_WALL, 1}, {1, 3}}, {{BC_INLETVENT, 4}, {3}}};
    kernel.nodesets_of_bc = {{{BC_WALL, 1}, {1}}};
    kernel.exodus_names[{"force", 2}] = "Wind";
    mirror.materials.materials = {{2, false}, {3, true}};
    kernel.exodus_names[{"material", 2}] = "Solid air";

    kernel.selection = {{"surface", 3}, {"group", 4}, {"sizing_source", 3}, {"wall", 1}};
}
