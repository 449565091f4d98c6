#include <algorithm>
#include <array>
#include <embedded/EntityKind.hpp>

namespace {

// Indexed by EntityKind.
const std::array<std::string, 6>& words()
{
    static const std::array<std::string, 6> words{
        "vertex", "curve", "surface", "volume", "body", "group"};
    return words;
}

} // namespace

const std::string& entity_word(EntityKind kind)
{
    return words().at(static_cast<std::size_t>(kind));
}

std::optional<EntityKind> entity_kind(std::string_view word)
{
    const auto found = std::find(words().begin(), words().end(), word);
    if (found == words().end()) {
        return std::nullopt;
    }
    return static_cast<EntityKind>(found - words().begin());
}
