#pragma once

#include <importers/MeshCounts.hpp>

class EmbeddedKernel;

/// Sets on each group of the kernel, which is the active one, how much of the mesh it holds:
/// the elements on its members, bodies and groups standing for what is in them, and the nodes
/// on these with all that bounds them. The whole mesh stands on the group "Mesh", which is made
/// of all bodies and free entities if it is missing.
///
/// The counts must be those of the model that the kernel holds; entities beyond them count as
/// without a mesh.
///
/// Gives back the id of the group "Mesh" if it made it, 0 otherwise.
int count_into_groups(EmbeddedKernel& kernel, const MeshCounts& mesh);
