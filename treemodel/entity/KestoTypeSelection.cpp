#include <treemodel/entity/KestoTypeSelection.hpp>

KestoTypeSelection::KestoTypeSelection(int type_number)
    : type(type_number)
{
}

KestoTypeSelection::KestoTypeSelection(const std::string& name, int type_number)
    : type(type_number)
    , type_name(name)
{
}
