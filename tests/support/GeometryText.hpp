#pragma once

#include <QStringList>
#include <vector>

class TreeGeometryData;
class TreeModel;

/// "surface 5" for each record, in the given order.
QStringList names_of(const std::vector<TreeGeometryData*>& records);

/// The same in the order of the ids: linked records come in that of their addresses.
QStringList sorted_names_of(std::vector<TreeGeometryData*> records);

/// All geometry of a mirror, one line for each record, with its name, what is
/// special about it, and its links up and down:
/// `surface 5 'Lid' hidden virtual < volume 2 > curve 1, curve 7`.
QStringList geometry_text(TreeModel& model);
