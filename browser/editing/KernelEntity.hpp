#pragma once

#include <embedded/EntityKind.hpp>
#include <optional>
#include <QString>

class TreeData;

/// An entity as the kernel's operations name it.
struct KernelEntity
{
    EntityKind kind;
    int id;

    /// "surface 7".
    QString text() const;
};

/// The entity that a record mirrors; nothing for null and for element counts, which are none.
std::optional<KernelEntity> kernel_entity(TreeData* record);
