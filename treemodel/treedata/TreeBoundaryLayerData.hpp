#pragma once

#include <treemodel/treedata/TreeData.hpp>

/// A boundary layer of the mesher.
class TREEMODEL_EXPORT TreeBoundaryLayerData : public TreeData
{
    Q_OBJECT

public:
    explicit TreeBoundaryLayerData(int id);

protected:
    /// "Boundary Layer", without the id.
    QString default_name() override;
};
