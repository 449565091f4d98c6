#include <treemodel/kernel/BoundaryConditionCode.hpp>

#include <array>

namespace {

constexpr auto no_code = static_cast<KestoInterface::KI_BCTypes>(-1);

// Indexed by FEAType.
constexpr std::array fea_codes{
    KestoInterface::BC_FORCE,
    KestoInterface::BC_ACCELERATION,
    KestoInterface::BC_VELOCITY,
    KestoInterface::BC_PRESSURE,
    KestoInterface::BC_TEMPERATURE,
    KestoInterface::BC_DISPLACEMENT,
    KestoInterface::BC_CONSTRAINT,
    KestoInterface::BC_CONVECTION,
    KestoInterface::BC_HEATFLUX,
    KestoInterface::BC_CONTACT_REGION,
    KestoInterface::BC_CONTACT_PAIR,
};

} // namespace

KestoInterface::KI_BCTypes boundary_condition_code(TreeFeaBCData::FEAType type)
{
    const auto index = static_cast<std::size_t>(type);
    return index < fea_codes.size() ? fea_codes[index] : no_code;
}

KestoInterface::KI_BCTypes boundary_condition_code(TreeCfdBCData::CFDType type)
{
    if (type < TreeCfdBCData::AXIS || type > TreeCfdBCData::WALL) {
        return no_code;
    }
    return static_cast<KestoInterface::KI_BCTypes>(int(KestoInterface::BC_AXIS) + int(type));
}
