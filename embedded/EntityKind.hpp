#pragma once

#include <embedded/embedded_export.hpp>
#include <optional>
#include <string>
#include <string_view>

/// @file

/// The kinds of entity that an EmbeddedKernel holds.
enum class EntityKind : int {
    // Geometry, from the lowest to the highest.
    VERTEX,
    CURVE,
    SURFACE,
    VOLUME,
    BODY,

    GROUP,

    // Mesh controls.
    SIZING_SOURCE,
    BOUNDARY_LAYER,

    // Parts of the mesh that a simulation speaks of.
    BLOCK,
    SIDESET,
    NODESET,

    // What things are made of, of a solid and of a fluid. The two share one range of ids.
    MATERIAL,
    MEDIUM,

    // Boundary conditions of finite elements, each kind with ids of its own.
    FORCE,
    ACCELERATION,
    VELOCITY,
    PRESSURE,
    TEMPERATURE,
    DISPLACEMENT,
    CONSTRAINT,
    CONVECTION,
    HEATFLUX,
    CONTACT_REGION,
    CONTACT_PAIR,

    // Boundary conditions of fluids. They all share one range of ids.
    AXIS,
    EXHAUSTFAN,
    FAN,
    INLETVENT,
    INTAKEFAN,
    INTERFACE,
    INTERIOR,
    MASSFLOWINLET,
    OUTFLOW,
    OUTLETVENT,
    PERIODIC,
    PERIODICSHADOW,
    POROUSJUMP,
    PRESSUREFARFIELD,
    PRESSUREINLET,
    PRESSUREOUTLET,
    RADIATOR,
    SUPERSONICINFLOW,
    SUPERSONICOUTFLOW,
    SYMMETRY,
    VELOCITYINLET,
    WALL,
};

/// The word by which the kind crosses the kernel boundary: "surface", "contact pair".
/// Empty for a value that is no kind.
EMBEDDED_EXPORT const std::string& entity_word(EntityKind kind);

/// The kind that a word of the boundary stands for, compared exactly.
EMBEDDED_EXPORT std::optional<EntityKind> entity_kind(std::string_view word);
