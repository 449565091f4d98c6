#pragma once

#include <embedded/ModelData.hpp>

/// Throws std::invalid_argument, with a sentence on the first flaw, unless every reference of the
/// model names an entity of it, none does so twice in one list and no group holds itself.
void check_model(const ModelData& model);
