#pragma once

#include <embedded/EntityKind.hpp>
#include <set>
#include <utility>

using Entity = std::pair<EntityKind, int>;

/// Ordered from the lowest kind of geometry up, so that what holds comes after what it holds.
using EntitySet = std::set<Entity>;
