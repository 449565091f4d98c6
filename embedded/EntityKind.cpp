#include <embedded/EntityKind.hpp>

#include <algorithm>
#include <embedded/EntityFamily.hpp>

namespace {

// Indexed by EntityKind.
const std::array<std::string, entity_kind_count>& words()
{
    static const std::array<std::string, entity_kind_count> words{"vertex", "curve", "surface",
        "volume", "body", "group", "sizing_source", "boundary_layer", "block", "sideset", "nodeset",
        "material", "media", "force", "acceleration", "velocity", "pressure", "temperature",
        "displacement", "constraint", "convection", "heatflux", "contact region", "contact pair",
        "axis", "exhaustfan", "fan", "inletvent", "intakefan", "interface", "interior",
        "massflowinlet", "outflow", "outletvent", "periodic", "periodicshadow", "porousjump",
        "pressurefarfield", "pressureinlet", "pressureoutlet", "radiator", "supersonicinflow",
        "supersonicoutflow", "symmetry", "velocityinlet", "wall"};
    return words;
}

} // namespace

const std::string& entity_word(EntityKind kind)
{
    static const std::string no_word;
    const auto index = static_cast<std::size_t>(kind);
    return index < words().size() ? words()[index] : no_word;
}

std::optional<EntityKind> entity_kind(std::string_view word)
{
    const auto found = std::find(words().begin(), words().end(), word);
    if (found == words().end()) {
        return std::nullopt;
    }
    return static_cast<EntityKind>(found - words().begin());
}
