#pragma once

#include <embedded/ModelData.hpp>

/// A block of cubes that share their faces, curves and vertices with their neighbours, with one
/// body for each row of cubes along x. A cube comes to about 8 entities in a large block, and a
/// single one has 6 surfaces, 12 curves and 8 vertices.
ModelData lattice(int nx, int ny, int nz);

/// Without a body: a free curve with its two vertices, a free vertex; and a sheet body of one
/// surface without curves. A group holds the free vertex, another one that group and the body.
ModelData loose_ends();
