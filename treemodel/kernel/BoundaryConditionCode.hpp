#pragma once

#include <treemodel/kernel/KestoInterface.hpp>
#include <treemodel/treedata/TreeCfdBCData.hpp>
#include <treemodel/treedata/TreeFeaBCData.hpp>

/// The kernel's code for a kind of boundary condition; -1 for a kind out of range.
KestoInterface::KI_BCTypes boundary_condition_code(TreeFeaBCData::FEAType type);
KestoInterface::KI_BCTypes boundary_condition_code(TreeCfdBCData::CFDType type);
