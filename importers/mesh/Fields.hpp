#pragma once

#include <embedded/ModelData.hpp>

/// Adds the size fields of Gmsh's current model to the sizing sources, and its boundary layers
/// to those, named by type ("Threshold"), in the order of their numbers.
///
/// Gmsh tells of its fields only in a script that it writes, for which a file in the current
/// folder is used.
void add_fields(ModelData& model);
