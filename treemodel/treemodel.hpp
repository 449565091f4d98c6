#pragma once

// All public headers of the library.

#include <treemodel/entity/EntityItem.hpp>
#include <treemodel/entity/EntityItemList.hpp>
#include <treemodel/entity/EntityModel.hpp>
#include <treemodel/entity/EntityTypeRange.hpp>
#include <treemodel/entity/KestoSelection.hpp>
#include <treemodel/kernel/KestoInterface.hpp>
#include <treemodel/models/TreeGeomModel.hpp>
#include <treemodel/treedata/TreeBodyData.hpp>
#include <treemodel/treedata/TreeData.hpp>
#include <treemodel/treedata/TreeGeometryData.hpp>
