#pragma once

// All public headers of the library.

#include <treemodel/entity/EntityItem.hpp>
#include <treemodel/entity/EntityItemList.hpp>
#include <treemodel/entity/EntityModel.hpp>
#include <treemodel/entity/EntityTypeRange.hpp>
#include <treemodel/entity/KestoSelection.hpp>
#include <treemodel/kernel/KestoInterface.hpp>
#include <treemodel/kernel/TreeModel.hpp>
#include <treemodel/models/TreeGeomModel.hpp>
#include <treemodel/models/TreeGroupModel.hpp>
#include <treemodel/models/TreeMeshModel.hpp>
#include <treemodel/models/TreeSimModel.hpp>
#include <treemodel/treedata/TreeBodyData.hpp>
#include <treemodel/treedata/TreeBoundaryLayerData.hpp>
#include <treemodel/treedata/TreeCfdBCData.hpp>
#include <treemodel/treedata/TreeData.hpp>
#include <treemodel/treedata/TreeExodusData.hpp>
#include <treemodel/treedata/TreeFeaBCData.hpp>
#include <treemodel/treedata/TreeGeometryData.hpp>
#include <treemodel/treedata/TreeGroupData.hpp>
#include <treemodel/treedata/TreeMaterialData.hpp>
#include <treemodel/treedata/TreeMeshData.hpp>
#include <treemodel/treedata/TreeSizingSourceData.hpp>
