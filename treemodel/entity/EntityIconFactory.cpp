#include <treemodel/entity/EntityIconFactory.hpp>

EntityIconFactory::~EntityIconFactory() = default;
