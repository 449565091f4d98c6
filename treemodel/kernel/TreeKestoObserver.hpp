#pragma once

#include <QObject>
#include <string>
#include <treemodel/kernel/KestoInterface.hpp>
#include <treemodel/treedata/TreeGeometryData.hpp>
#include <vector>

class GeometryHold;
class TreeGeomModel;

/// The one object through which the kernel reaches the mirror: it takes the
/// kernel's notifications, reads back what they speak of, and writes it into the
/// domain models. Internal; TreeModel owns it and hands it the models.
///
/// A notification may arrive inside any query or emission and is carried out at
/// once; no operation relies on a record that it has held across one.
///
/// One source file for each domain, which this list follows in the order of the boundary.
class TreeKestoObserver final : public QObject, public KestoInterface::ObserverBase
{
    Q_OBJECT

public:
    explicit TreeKestoObserver(QObject* parent);
    ~TreeKestoObserver() override;

    /// Not owned. Set once, before anything else is called.
    void set_geom_model(TreeGeomModel* model);

    /// Reconciles the whole mirror with the kernel, after clearing it if `clear` is true.
    void refresh_model(bool clear);

    /// Reconciles all geometry: adds what is missing, reads every record again and
    /// removes what the kernel no longer lists, bodies first and vertices last.
    void refresh_geometry();

    /// Reads name, flags and children of one record from the kernel. Children that it
    /// gains are read in turn; below a virtual record all children are. Null does nothing.
    void update_geometry(TreeGeometryData* geom);

    // Whole-model events (geometry).
    void notify_free_entities_changed() override;

    // Whole-model events (refresh).
    void notify_model_refresh_requested() override;

    // Geometry.
    void notify_body_created(int id) override;
    void notify_body_deleted(int id) override;
    void notify_body_modified(int id) override;
    void notify_volume_modified(int id) override;
    void notify_volume_created(int id) override;
    void notify_volume_deleted(int id) override;
    void notify_surface_created(int id) override;
    void notify_surface_deleted(int id) override;
    void notify_surface_modified(int id) override;
    void notify_curve_created(int id) override;
    void notify_curve_deleted(int id) override;
    void notify_vertex_created(int id) override;
    void notify_vertex_deleted(int id) override;
    void notify_vertex_added(int id) override { notify_vertex_created(id); }
    void notify_curve_added(int id) override { notify_curve_created(id); }
    void notify_vertex_removed(int id) override { notify_vertex_deleted(id); }
    void notify_curve_removed(int id) override { notify_curve_deleted(id); }
    void notify_surface_removed(int id) override { notify_surface_deleted(id); }
    void notify_surface_added(int id) override { notify_surface_created(id); }
    void notify_body_added(int id) override { notify_body_created(id); }
    void notify_body_removed(int id) override { notify_body_deleted(id); }
    void notify_body_changed(int id) override { notify_body_modified(id); }

    // Resets of the whole model (refresh).
    void notify_model_reset() override;
    void notify_reserved_1() override {}
    void notify_reserved_2() override {}
    void notify_model_replaced() override { refresh_model(true); }

    // Finished operations (refresh).
    void notify_geometry_repair_complete() override { notify_model_refresh_requested(); }

    // Session and files (refresh).
    void notify_kes_file_opened(std::string file) override;

private:
    void clear_models();
    void add_and_read(TreeGeometryData::GeometryType type, int id);
    void refresh_geometry_of(TreeGeometryData::GeometryType type);
    void read_body(GeometryHold& body);
    void read_attributes(GeometryHold& geom);
    std::vector<GeometryHold> reconcile_children(GeometryHold& geom);
    void read_children(GeometryHold& geom, std::vector<GeometryHold> gained);

    TreeGeomModel* m_geom_model = nullptr;
};
