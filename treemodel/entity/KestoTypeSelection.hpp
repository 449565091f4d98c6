#pragma once

#include <string>
#include <treemodel/treemodel_export.hpp>
#include <vector>

/// The selected ids of one type, in order of addition, with the type's number and name.
class TREEMODEL_EXPORT KestoTypeSelection
{
public:
    KestoTypeSelection(int type = -1);
    KestoTypeSelection(const std::string& type_name, int type);

    int type;
    std::string type_name;
    std::vector<int> ids;
};
