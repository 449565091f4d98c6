#pragma once

#include <functional>
#include <QItemSelection>
#include <QString>

/// The selected rows as text, a line each, from the top down and indented as in the tree. `line`
/// writes the line of an index in column 0.
QString branch_text(
    const QItemSelection& selection, const std::function<QString(const QModelIndex& index)>& line);
