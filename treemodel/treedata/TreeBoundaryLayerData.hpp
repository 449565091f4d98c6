#pragma once

#include <treemodel/treedata/TreeData.hpp>

/// A boundary layer of the mesher. The mirror reads its id alone.
class TREEMODEL_EXPORT TreeBoundaryLayerData : public TreeData
{
    Q_OBJECT

public:
    /// `id` is the one of the boundary layer in the kernel.
    explicit TreeBoundaryLayerData(int id);

protected:
    /// "Boundary Layer", without the id.
    QString default_name() override;
};
