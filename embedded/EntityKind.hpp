#pragma once

#include <embedded/embedded_export.hpp>
#include <optional>
#include <string>
#include <string_view>

/// The kinds of entity that an EmbeddedKernel holds, the geometry from the lowest to the highest.
enum class EntityKind : int {
    VERTEX,
    CURVE,
    SURFACE,
    VOLUME,
    BODY,
    GROUP,
};

/// The word by which the kind crosses the kernel boundary: "surface".
EMBEDDED_EXPORT const std::string& entity_word(EntityKind kind);

/// The kind that a word of the boundary stands for, compared exactly.
EMBEDDED_EXPORT std::optional<EntityKind> entity_kind(std::string_view word);
