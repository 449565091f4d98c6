#pragma once

#include <string>

/// What the entities of all kinds have in common.
struct EntityRow
{
    std::string name;
    bool visible = true;
    /// Whether it stands in the selection.
    bool selected = false;
};
