#pragma once

#include <string>
#include <treemodel/treedata/TreeData.hpp>

/// A boundary condition of a fluid simulation.
class TREEMODEL_EXPORT TreeCfdBCData : public TreeData
{
    Q_OBJECT

public:
    /// The kinds of condition.
    enum CFDType : int {
        AXIS,
        EXHAUSTFAN,
        FAN,
        INLETVENT,
        INTAKEFAN,
        INTERFACE,
        INTERIOR,
        MASSFLOWINLET,
        OUTFLOW,
        OUTLETVENT,
        PERIODIC,
        PERIODICSHADOW,
        POROUSJUMP,
        PRESSUREFARFIELD,
        PRESSUREINLET,
        PRESSUREOUTLET,
        RADIATOR,
        SUPERSONICINFLOW,
        SUPERSONICOUTFLOW,
        SYMMETRY,
        VELOCITYINLET,
        WALL,
    };

    /// The type stays as it is; `id` is unique over all types.
    TreeCfdBCData(CFDType type, int id);

    /// The kind of this condition.
    CFDType cfd_bc_type();

    /// The type that a kernel's word stands for, compared exactly. An unknown word
    /// gives false and leaves `type` alone.
    static bool string_to_type(const std::string& text, CFDType& type);

    /// The kernel's word for the type; empty for a value out of range.
    static std::string type_to_string(CFDType type);

protected:
    /// "cfd_bc", whatever the type and the id.
    QString default_name() override;

private:
    CFDType m_cfd_bc_type;
};
