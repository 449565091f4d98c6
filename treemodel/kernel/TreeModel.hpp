#pragma once

#include <QObject>
#include <treemodel/treedata/TreeGeometryData.hpp>
#include <treemodel/treemodel_export.hpp>
#include <vector>

class TreeGeomModel;
class TreeKestoObserver;

/// The mirror as a front end holds it: one switch to the kernel, one refresh, and
/// the signals and queries of all that is mirrored.
///
/// A new model is empty and unregistered. Fill it with refresh_model(), let it
/// follow the kernel with connect_to_kesto(); neither needs the other. Every
/// signal is emitted inside the kernel's notification or the call that causes it.
///
/// The records belong to the model and live until their removed signal has
/// returned, or until an `about_to_clear` signal has. All on one thread.
class TREEMODEL_EXPORT TreeModel : public QObject
{
    Q_OBJECT

public:
    TreeModel();

    /// Deletes all records, `about_to_clear` signals included. Does not leave the
    /// kernel: call disconnect_from_kesto() before.
    ~TreeModel() override;

    /// From this call on the kernel's notifications reach the mirror. Reads nothing.
    void connect_to_kesto();

    /// After this call they reach it no more. The mirror stays as it is.
    void disconnect_from_kesto();

    /// Brings the mirror in line with the kernel. With `clear`, deletes all records
    /// first, after the `about_to_clear` signals; otherwise adds, updates and removes
    /// only what differs. Emits visible_changed() for every geometry record.
    void refresh_model(bool clear);

    /// The records of the type by ascending id.
    std::vector<TreeGeometryData*> geometry(TreeGeometryData::GeometryType type);

    /// Null if there is none.
    TreeGeometryData* find_geometry(TreeGeometryData::GeometryType type, int id);

    /// The records one level below (above) this one, in no useful order. Empty for null.
    std::vector<TreeGeometryData*> find_geometry_children(TreeGeometryData* parent);
    std::vector<TreeGeometryData*> find_geometry_parents(TreeGeometryData* child);

Q_SIGNALS:
    /// A record is new, and linked to `parent` unless that is null. Its name and
    /// flags are read afterwards and come with its own signals.
    void geometry_added(TreeGeometryData* geom, TreeGeometryData* parent);

    /// The record has left the mirror and is deleted when the signal returns.
    void geometry_removed(TreeGeometryData* geom);

    /// Two records that stood before are linked (no longer linked).
    void geometry_associated(TreeGeometryData* parent, TreeGeometryData* child);
    void geometry_disassociated(TreeGeometryData* parent, TreeGeometryData* child);

    /// All geometry records are deleted when the signal returns; nothing has changed yet.
    void about_to_clear_geometry();

private:
    TreeGeomModel* m_geom_model;
    TreeKestoObserver* m_observer;
};
