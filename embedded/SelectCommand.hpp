#pragma once

#include <embedded/EntityFamily.hpp>
#include <optional>
#include <string_view>
#include <utility>
#include <vector>

/// The one command line that the kernel knows, in its three forms:
///
///     select none
///     select body 1 2 contact pair 3 cfd_bc 4 material 5
///     select body 1 2 remove
///
/// Words and ids are divided by single blanks, and one blank may follow the last id. Each word has
/// at least one id. "cfd_bc" and "material" stand for all kinds that share their ids.
struct SelectCommand
{
    enum Action {
        SELECT,
        DESELECT,
        CLEAR,
    };

    Action action = SELECT;
    /// An entity is one of its family, as the line tells no more.
    std::vector<std::pair<EntityFamily, int>> entities;
};

/// Nothing if the line has none of the three forms. Does not ask whether the entities exist.
std::optional<SelectCommand> parse_select_command(std::string_view line);
