#include <embedded/Requirements.hpp>

#include <algorithm>
#include <embedded/KernelState.hpp>
#include <limits>
#include <stdexcept>

void refuse(const std::string& sentence)
{
    throw std::invalid_argument(sentence);
}

std::string entity_text(EntityKind kind, int id)
{
    const std::string& word = entity_word(kind);
    return word.empty() ? "entity " + std::to_string(id) + " of an unknown kind"
                        : word + " " + std::to_string(id);
}

void require_family(const EntityFamily& family, EntityKind kind, const char* what)
{
    if (!family.has(kind)) {
        refuse("A " + entity_word(kind) + " is " + what + ".");
    }
}

void require_entity(const KernelState& state, EntityKind kind, int id)
{
    if (!state.contains(kind, id)) {
        refuse("There is no " + entity_text(kind, id) + ".");
    }
}

void require_entities(const KernelState& state, EntityKind kind, const std::vector<int>& ids)
{
    for (const int id : ids) {
        require_entity(state, kind, id);
    }
    std::vector<int> sorted = ids;
    std::sort(sorted.begin(), sorted.end());
    const auto repeated = std::adjacent_find(sorted.begin(), sorted.end());
    if (repeated != sorted.end()) {
        refuse(entity_text(kind, *repeated) + " is named twice.");
    }
}

void require_ids_left(const KernelState& state, EntityKind kind, std::size_t count)
{
    const int highest = state.highest_id(kind);
    if (count > static_cast<std::size_t>(std::numeric_limits<int>::max() - highest)) {
        refuse("Too few ids are left above " + entity_text(kind, highest) + ".");
    }
}
