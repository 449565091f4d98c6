#pragma once

#include "ItemTree.hpp"

#include <browser/items/MirrorItems.hpp>
#include <embedded/EmbeddedKernel.hpp>
#include <treemodel/kernel/TreeModel.hpp>

/// A kernel with a mirror that follows it, and the mirror's rows.
struct JoinedModel
{
    EmbeddedKernel kernel;
    TreeModel mirror;
    EntityModel items;
    MirrorItems join{mirror, items};

    JoinedModel() { mirror.connect_to_kesto(); }
    ~JoinedModel() { mirror.disconnect_from_kesto(); }
    Q_DISABLE_COPY_MOVE(JoinedModel)

    TreeData* geometry(TreeGeometryData::GeometryType type, int id)
    {
        return mirror.find_geometry(type, id);
    }
    TreeData* surface(int id) { return geometry(TreeGeometryData::SURFACE, id); }
    TreeData* curve(int id) { return geometry(TreeGeometryData::CURVE, id); }
    TreeData* vertex(int id) { return geometry(TreeGeometryData::VERTEX, id); }
    TreeData* volume(int id) { return geometry(TreeGeometryData::VOLUME, id); }
    TreeData* body(int id) { return geometry(TreeGeometryData::BODY, id); }

    /// The first row of a record that has all its rows.
    EntityItem* item(TreeData* record)
    {
        join.settle();
        return join.places(record).front();
    }
};
