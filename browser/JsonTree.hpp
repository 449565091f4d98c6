#pragma once

#include <QJsonObject>

class MirrorTree;

/// A tree as JSON: the file, the counts by plural, and the nested records with kind,
/// id, name, flags and children. `depth` is the number of levels.
QJsonObject json_tree(const MirrorTree& tree, const QString& file, int depth);
