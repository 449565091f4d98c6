#pragma once

#include <QStringList>

class TreeModel;

/// All that a mirror holds, one line for each record: geometry as geometry_text() has
/// it, then groups, mesh, and simulation, each link from both of its sides. Two mirrors
/// of one kernel's state give the same text.
///
///     group 3 'Bolts' hidden < group 1 > surface 2, surface 4
///     hex of group 3 '5 hex elements' < group 3
///     sideset 7 'Inlet' lite < wall 2
///     wall 2 'Inflow' > sideset 7
///     material 4 'Air' medium
QStringList mirror_text(TreeModel& model);
