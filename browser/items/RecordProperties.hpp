#pragma once

#include <QList>
#include <QString>

class TreeData;
class TreeModel;

/// One line of what there is to say of a record.
struct RecordProperty
{
    QString label;
    QString value;

    bool operator==(const RecordProperty&) const = default;
};

/// Name, kind, id, visibility, flags, and the records linked to this one: parents, children,
/// groups, boundary conditions. Long lists are cut; what does not apply is left out.
QList<RecordProperty> record_properties(TreeModel& mirror, TreeData* record);
