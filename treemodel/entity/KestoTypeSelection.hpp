#pragma once

#include <string>
#include <treemodel/treemodel_export.hpp>
#include <vector>

/// The selected ids of one type, in order of addition, with the type's number and name.
class TREEMODEL_EXPORT KestoTypeSelection
{
public:
    /// No ids yet; a type of -1 stands for none.
    KestoTypeSelection(int type = -1);
    KestoTypeSelection(const std::string& type_name, int type);

    /// What the constructor was given, and the ids added since.
    int type;
    std::string type_name;
    std::vector<int> ids;
};
