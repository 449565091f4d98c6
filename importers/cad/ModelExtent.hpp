#pragma once

#include <importers/cad/ModelBuilder.hpp>

/// The diagonal of the box around all entities of a model; 0 if there is no such box.
double extent_of(const ModelBuilder& builder);
