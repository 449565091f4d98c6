#pragma once

#include <QString>
#include <vector>

class TreeData;
class TreeModel;

/// Every record that the lists of a mirror give.
std::vector<TreeData*> all_records(TreeModel& mirror);

/// The first rule of a mirror that does not hold, whatever the kernel says; empty if all do:
/// lists ascend and agree with the finders, a link shows from both of its sides and leads to
/// records that are listed, a mesh record belongs to its owner, a name tells of a virtual entity.
QString broken_rule(TreeModel& mirror);

/// The first difference between the ids, names and links that the functions of the kernel
/// boundary give and those of the mirror; empty if there is none.
QString difference_from_kernel(TreeModel& mirror);
