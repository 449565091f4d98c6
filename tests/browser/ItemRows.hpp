#pragma once

#include <QStringList>

class EntityItem;
class EntityModel;
class MirrorItems;

/// The rows of an item model, for tests to compare and read.
namespace ItemRows {

/// One line a row, indented by its depth: `  Lid <surface 5> hidden`. Siblings come as the model
/// shows them.
QStringList rows(const EntityModel& model);

/// The row of an item and those below it.
QStringList rows(EntityItem* item);

/// The same with siblings in an order of their own, whatever the model's.
QStringList sorted_rows(const EntityModel& model);

/// What is wrong in any case: rows that are not in the order of `column`, a record twice below
/// one parent, a row of a record that the mirror does not hold. Empty if nothing.
QString fault(const MirrorItems& join, int column, Qt::SortOrder order);

} // namespace ItemRows
