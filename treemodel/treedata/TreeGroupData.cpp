#include <treemodel/treedata/TreeGroupData.hpp>

#include <QMetaType>

TreeGroupData::TreeGroupData(const QString& name, int id)
    : TreeData(name, id)
{
    qRegisterMetaType<TreeGroupData*>();
}
