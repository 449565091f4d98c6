#pragma once

#include <QObject>
#include <string>
#include <treemodel/kernel/KestoInterface.hpp>
#include <treemodel/treedata/TreeCfdBCData.hpp>
#include <treemodel/treedata/TreeExodusData.hpp>
#include <treemodel/treedata/TreeFeaBCData.hpp>
#include <treemodel/treedata/TreeGeometryData.hpp>
#include <vector>

class GeometryHold;
class TreeGeomModel;
class TreeGroupModel;
class TreeMaterialData;
class TreeMeshModel;
class TreeSimModel;

/// The one object through which the kernel reaches the mirror: it takes the
/// kernel's notifications, reads back what they speak of, and writes it into the
/// domain models. Internal; TreeModel owns it and hands it the models.
///
/// A notification may arrive inside any query or emission and is carried out at
/// once; no operation relies on a record that it has held across one.
///
/// The overrides stand in the order of the boundary; each domain has a source
/// file of its own (geometry, groups, mesh, simulation, state, selection, refresh).
class TreeKestoObserver final : public QObject, public KestoInterface::ObserverBase
{
    Q_OBJECT

public:
    explicit TreeKestoObserver(QObject* parent);
    ~TreeKestoObserver() override;

    /// Not owned. Set once each, before anything else is called.
    void set_geom_model(TreeGeomModel* model);
    void set_group_model(TreeGroupModel* model);
    void set_mesh_model(TreeMeshModel* model);
    void set_sim_model(TreeSimModel* model);

    /// Reconciles the whole mirror with the kernel, after clearing it if `clear` is true:
    /// geometry, groups, mesh, simulation, each with its part of the selection.
    void refresh_model(bool clear);

    // Each adds what is missing, reads every record again, removes what the kernel no
    // longer lists, and reports what of its domain is selected.

    /// Bodies first and vertices last.
    void refresh_geometry();
    void refresh_groups();
    /// Sizing sources, then boundary layers. Element counts come with the groups.
    void refresh_mesh();
    /// Exodus entities, boundary conditions, materials and media.
    void refresh_simulation();

    /// Reads name, flags and children of one record from the kernel. Children that it
    /// gains are read in turn; below a virtual record all children are. Null does nothing.
    void update_geometry(TreeGeometryData* geom);

    // Reads name and sets of one boundary condition from the kernel. Null does nothing.
    void update_fea_bc(TreeFeaBCData* bc);
    void update_cfd_bc(TreeCfdBCData* bc);

    /// Sends the kernel one command line that selects (deselects) the records; none at all
    /// for records without a word, or while selection_changed() is being emitted. The
    /// empty vector selects nothing. The mirror hears of it by notification.
    void select_entities(const std::vector<TreeData*>& entities, bool selected);

    /// Emits selection_changed() with the records of these entities, if there are any.
    void report_selection(const std::vector<KestoInterface::EntityRef>& refs, bool selected);

    // Whole-model events.
    void notify_free_entities_changed() override;
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

    // Mesh controls.
    void notify_boundary_layer_created(int id) override;
    void notify_boundary_layer_deleted(int id) override;
    void notify_sizing_source_created(int id) override;
    void notify_sizing_source_deleted(int id) override;

    // State of one entity, and the selection.
    void notify_entity_id_changed(std::string type, int old_id, int new_id) override;
    void notify_entities_selected(const std::vector<KestoInterface::EntityRef>& refs) override;
    void notify_entities_deselected(const std::vector<KestoInterface::EntityRef>& refs) override;
    void notify_entity_name_changed(std::string type, int id) override;

    // Groups.
    void notify_group_created(int id) override;
    void notify_group_modified(int id) override;
    void notify_group_deleted(int id) override;

    // Simulation set-up.
    void notify_exodus_entity_modified(std::string type, int id, std::string action) override;
    void notify_material_modified(int id, std::string action) override;
    void notify_medium_modified(int id, std::string action) override;
    void notify_fea_bc_modified(std::string type, int id, std::string action) override;
    void notify_bc_modified(std::string type, int id, std::string action) override;
    void notify_constraint_modified(int id, std::string action) override;

    // Resets of the whole model.
    void notify_model_reset() override;
    void notify_reserved_1() override {}
    void notify_reserved_2() override {}
    void notify_model_replaced() override;

    // Finished operations.
    void notify_geometry_repair_complete() override { notify_model_refresh_requested(); }

    // Display state.
    void notify_entity_visibility_changed(std::string type, int id) override;
    void notify_exodus_visibility_changed(std::string type, int id) override;

    // Files.
    void notify_kes_file_opened(std::string file) override;

Q_SIGNALS:
    void selection_changed(std::vector<TreeData*> entities, bool selected);

private:
    // Geometry.
    void add_and_read(TreeGeometryData::GeometryType type, int id);
    void refresh_geometry_of(TreeGeometryData::GeometryType type);
    void read_body(GeometryHold& body);
    void read_attributes(GeometryHold& geom);
    std::vector<GeometryHold> reconcile_children(GeometryHold& geom);
    void read_children(GeometryHold& geom, std::vector<GeometryHold> gained);

    // Groups.
    void reconcile_group(int id);

    // Simulation.
    void refresh_exodus();
    void read_exodus_display(TreeExodusData* exodus);
    void read_exodus_record(TreeExodusData* exodus);
    void change_fea_bc(TreeFeaBCData::FEAType type, int id, const std::string& action);
    void change_cfd_bc(TreeCfdBCData::CFDType type, int id, const std::string& action);
    void modify_cfd_bc(TreeCfdBCData::CFDType type, int id);
    void change_material(bool is_medium, int id, const std::string& action);
    void read_material_name(TreeMaterialData* material, bool is_medium);
    void refresh_materials();

    // State and selection.
    TreeData* find_geometry_or_group(const std::string& type, int id);
    TreeData* find_record(const KestoInterface::EntityRef& ref);
    void report_kernel_selection(bool (*is_wanted)(const std::string& word));

    // Refresh.
    void clear_models();

    TreeGeomModel* m_geom_model = nullptr;
    TreeGroupModel* m_group_model = nullptr;
    TreeMeshModel* m_mesh_model = nullptr;
    TreeSimModel* m_sim_model = nullptr;
    bool m_echoing_selection = false;
};
