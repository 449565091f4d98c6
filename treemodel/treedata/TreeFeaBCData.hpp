#pragma once

#include <string>
#include <treemodel/treedata/TreeData.hpp>

/// A boundary condition of a finite-element simulation.
class TREEMODEL_EXPORT TreeFeaBCData : public TreeData
{
    Q_OBJECT

public:
    /// The kinds of condition.
    enum FEAType : int {
        FORCE,
        ACCELERATION,
        VELOCITY,
        PRESSURE,
        TEMPERATURE,
        DISPLACEMENT,
        CONSTRAINT,
        CONVECTION,
        HEATFLUX,
        CONTACT_REGION,
        CONTACT_PAIR,
    };

    /// The type stays as it is; `id` is unique within it.
    TreeFeaBCData(FEAType type, int id);

    /// The kind of this condition.
    FEAType fea_bc_type();

    /// The type that a kernel's word stands for, compared exactly. An unknown word
    /// gives false and leaves `type` alone.
    static bool string_to_type(const std::string& text, FEAType& type);

    /// The kernel's word for the type; empty for a value out of range.
    static std::string type_to_string(FEAType type);

protected:
    /// "Force", without the id.
    QString default_name() override;

private:
    FEAType m_fea_bc_type;
};
