#pragma once

// All public headers of the library.

#include <treemodel/kernel/KestoInterface.hpp>
#include <treemodel/kernel/TreeModel.hpp>
#include <treemodel/models/TreeGeomModel.hpp>
#include <treemodel/treedata/TreeBodyData.hpp>
#include <treemodel/treedata/TreeData.hpp>
#include <treemodel/treedata/TreeGeometryData.hpp>
