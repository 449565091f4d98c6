#pragma once

#include <browser/TextTreeWriter.hpp>
#include <QJsonObject>

/// A geometry tree as JSON: its counts, and the nested records with kind, id,
/// name, flags and children.
QJsonObject json_of(
    const GeometryTree& tree, const QString& file, int depth = TextTreeWriter::AllLevels);
