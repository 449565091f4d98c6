#include <treemodel/treedata/TreeBoundaryLayerData.hpp>

#include <QMetaType>

TreeBoundaryLayerData::TreeBoundaryLayerData(int id)
    : TreeData(id)
{
    qRegisterMetaType<TreeBoundaryLayerData*>();
}

QString TreeBoundaryLayerData::default_name()
{
    return tr("Boundary Layer");
}
