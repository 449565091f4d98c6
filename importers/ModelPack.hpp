#pragma once

#include <embedded/ModelData.hpp>
#include <importers/MeshCounts.hpp>
#include <optional>
#include <string>
#include <string_view>

/// A model as bytes for the way between two processes: small numbers take one byte.
std::string pack_model(const ModelData& model);

/// Gives back what pack_model() was given. Empty for bytes that it cannot have made
/// of a sound model: cut off, too long, or with an id that stands for nothing.
/// Never takes more memory than in proportion to the bytes.
std::optional<ModelData> unpack_model(std::string_view bytes);

/// The same for a mesh.
std::string pack_mesh(const MeshCounts& mesh);
std::optional<MeshCounts> unpack_mesh(std::string_view bytes);
