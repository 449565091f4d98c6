#include <embedded/EntityFamily.hpp>

#include <algorithm>

EntityFamily id_range_of(EntityKind kind)
{
    if (material_family.has(kind)) {
        return material_family;
    }
    if (cfd_family.has(kind)) {
        return cfd_family;
    }
    return {kind, kind};
}

std::optional<EntityKind> condition_kind(KestoInterface::KI_BCTypes code)
{
    using namespace KestoInterface;
    // In the order of the kinds. The codes of fluids are in that order themselves.
    static constexpr std::array fea_codes{BC_FORCE, BC_ACCELERATION, BC_VELOCITY, BC_PRESSURE,
        BC_TEMPERATURE, BC_DISPLACEMENT, BC_CONSTRAINT, BC_CONVECTION, BC_HEATFLUX,
        BC_CONTACT_REGION, BC_CONTACT_PAIR};

    const auto shifted = [](EntityKind first, std::ptrdiff_t offset) {
        return static_cast<EntityKind>(static_cast<int>(first) + static_cast<int>(offset));
    };
    if (BC_AXIS <= code && code <= BC_WALL) {
        return shifted(cfd_family.first, code - BC_AXIS);
    }
    const auto found = std::find(fea_codes.begin(), fea_codes.end(), code);
    if (found == fea_codes.end()) {
        return std::nullopt;
    }
    return shifted(fea_family.first, found - fea_codes.begin());
}
