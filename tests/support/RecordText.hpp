#pragma once

#include <QString>

class TreeData;

/// What a record is: "surface 5", "group 3", "contact pair 2", "material 1" (a medium,
/// too); "hex" for a mesh record, which does not know its owner. A record on its way out
/// is no more than "TreeData 5".
QString record_text(TreeData* record);
