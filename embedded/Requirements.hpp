#pragma once

#include <embedded/EntityFamily.hpp>
#include <string>
#include <vector>

struct KernelState;

// What the operations of the kernel demand of their arguments. Each throws std::invalid_argument
// with a sentence on what is wrong.

[[noreturn]] void refuse(const std::string& sentence);

/// "surface 7".
std::string entity_text(EntityKind kind, int id);

/// That the kind is one of the family, of which `what` is the name: "no geometry".
void require_family(const EntityFamily& family, EntityKind kind, const char* what);
void require_entity(const KernelState& state, EntityKind kind, int id);

/// Each of the ids in use, and none named twice.
void require_entities(const KernelState& state, EntityKind kind, const std::vector<int>& ids);

/// That so many ids are left above the highest one of the kind.
void require_ids_left(const KernelState& state, EntityKind kind, std::size_t count);
