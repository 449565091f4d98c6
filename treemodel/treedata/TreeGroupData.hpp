#pragma once

#include <treemodel/treedata/TreeData.hpp>

/// A group of the kernel. Its members are links of the TreeGroupModel.
class TREEMODEL_EXPORT TreeGroupData : public TreeData
{
    Q_OBJECT

public:
    /// An empty `name` leaves the group without a name of its own: name() gives "Entity 4" then.
    TreeGroupData(const QString& name, int id);
};
