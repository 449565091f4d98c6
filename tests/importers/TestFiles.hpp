#pragma once

#include <embedded/ModelData.hpp>
#include <map>
#include <QByteArray>
#include <QFile>
#include <QStringList>
#include <QTemporaryDir>
#include <vector>

inline QByteArray content_of(const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        qFatal("cannot read %s", qPrintable(path));
    }
    return file.readAll();
}

/// Gives back the path of the new file.
inline QString write_file(const QTemporaryDir& folder, const QString& name, const QByteArray& bytes)
{
    QFile file(folder.filePath(name));
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size()) {
        qFatal("cannot write %s", qPrintable(file.fileName()));
    }
    return file.fileName();
}

inline QString entity_counts(const ModelData& model)
{
    return QStringLiteral("%1 bodies, %2 volumes, %3 surfaces, %4 curves, %5 vertices, %6 groups")
        .arg(model.bodies.size())
        .arg(model.volumes.size())
        .arg(model.surfaces.size())
        .arg(model.curves.size())
        .arg(model.vertices.size())
        .arg(model.groups.size());
}

/// "4 hexes, 24 tets, 33 nodes", without the kinds that are not there.
inline QString text(const ElementCounts& counts)
{
    static const QStringList kinds{
        "nodes", "edges", "hexes", "quads", "tets", "tris", "wedges", "pyramids", "spheres"};
    QStringList words;
    for (std::size_t i = 0; i < element_count_fields.size(); ++i) {
        if (const int count = counts.*element_count_fields[i]) {
            words << QStringLiteral("%1 %2").arg(count).arg(kinds.at(int(i)));
        }
    }
    return words.join(QLatin1String(", "));
}

/// How many entities of a kind have how many parents: "2:16 1:7".
template <typename Parents, typename Children>
QString parent_counts(const Parents& parents, const Children& children)
{
    std::vector<int> uses(children.size());
    for (const auto& parent : parents) {
        for (const int id : parent.children) {
            ++uses.at(static_cast<std::size_t>(id) - 1);
        }
    }
    std::map<int, int> totals;
    for (const int count : uses) {
        ++totals[count];
    }
    QStringList words;
    for (const auto& [count, entities] : totals) {
        words << QStringLiteral("%1:%2").arg(count).arg(entities);
    }
    return words.join(QLatin1Char(' '));
}
