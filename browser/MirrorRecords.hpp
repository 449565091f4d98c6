#pragma once

#include <vector>

class TreeCfdBCData;
class TreeData;
class TreeFeaBCData;
class TreeModel;

/// The boundary conditions of all types, type by type.
std::vector<TreeFeaBCData*> all_fea_bcs(TreeModel& mirror);
std::vector<TreeCfdBCData*> all_cfd_bcs(TreeModel& mirror);

/// All records of a mirror, kind by kind.
std::vector<TreeData*> all_records(TreeModel& mirror);
