#include <treemodel/kernel/BoundaryConditionCode.hpp>

#include <treemodel/treedata/KindTable.hpp>

using KestoInterface::KI_BCTypes;

namespace {

constexpr auto no_code = static_cast<KI_BCTypes>(-1);

constexpr KindTable<TreeFeaBCData::FEAType, KI_BCTypes, 11> fea_codes{
    {
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
    },
    no_code,
};

constexpr KindTable<TreeCfdBCData::CFDType, KI_BCTypes, 22> cfd_codes{
    {
        KestoInterface::BC_AXIS,
        KestoInterface::BC_EXHAUSTFAN,
        KestoInterface::BC_FAN,
        KestoInterface::BC_INLETVENT,
        KestoInterface::BC_INTAKEFAN,
        KestoInterface::BC_INTERFACE,
        KestoInterface::BC_INTERIOR,
        KestoInterface::BC_MASSFLOWINLET,
        KestoInterface::BC_OUTFLOW,
        KestoInterface::BC_OUTLETVENT,
        KestoInterface::BC_PERIODIC,
        KestoInterface::BC_PERIODICSHADOW,
        KestoInterface::BC_POROUSJUMP,
        KestoInterface::BC_PRESSUREFARFIELD,
        KestoInterface::BC_PRESSUREINLET,
        KestoInterface::BC_PRESSUREOUTLET,
        KestoInterface::BC_RADIATOR,
        KestoInterface::BC_SUPERSONICINFLOW,
        KestoInterface::BC_SUPERSONICOUTFLOW,
        KestoInterface::BC_SYMMETRY,
        KestoInterface::BC_VELOCITYINLET,
        KestoInterface::BC_WALL,
    },
    no_code,
};

} // namespace

KI_BCTypes boundary_condition_code(TreeFeaBCData::FEAType type)
{
    return fea_codes[type];
}

KI_BCTypes boundary_condition_code(TreeCfdBCData::CFDType type)
{
    return cfd_codes[type];
}
