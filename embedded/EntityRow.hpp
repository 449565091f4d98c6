#pragma once

#include <string>

/// What the entities of all kinds have in common.
struct EntityRow
{
    std::string name;
    bool visible = true;
};
