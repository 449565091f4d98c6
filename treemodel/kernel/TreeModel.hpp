#pragma once

#include <QObject>
#include <treemodel/treedata/TreeBoundaryLayerData.hpp>
#include <treemodel/treedata/TreeCfdBCData.hpp>
#include <treemodel/treedata/TreeExodusData.hpp>
#include <treemodel/treedata/TreeFeaBCData.hpp>
#include <treemodel/treedata/TreeGeometryData.hpp>
#include <treemodel/treedata/TreeGroupData.hpp>
#include <treemodel/treedata/TreeMaterialData.hpp>
#include <treemodel/treedata/TreeMeshData.hpp>
#include <treemodel/treedata/TreeSizingSourceData.hpp>
#include <treemodel/treemodel_export.hpp>
#include <vector>

class TreeGeomModel;
class TreeGroupModel;
class TreeKestoObserver;
class TreeMeshModel;
class TreeSimModel;

/// The mirror as a front end holds it: one switch to the kernel, one refresh, one
/// selection, and the signals and queries of all that is mirrored.
///
/// A new model is empty and unregistered. Fill it with refresh_model(), let it
/// follow the kernel with connect_to_kesto(); neither needs the other. Every
/// signal is emitted inside the kernel's notification or the call that causes it.
///
/// The records belong to the model and live until their removed signal has
/// returned, or until an `about_to_clear` signal has. All on one thread.
///
/// An added signal comes when the record stands in the mirror; its name and flags are read
/// afterwards and come with its own signals. A removed signal comes when it has left the
/// mirror. An `about_to_clear` signal comes before any change and stands for all that
/// follows: no removed signal does.
///
/// Queries give null or an empty vector where there is nothing, and for null. Lists of
/// records come by ascending id, those of element counts by owner and then type, lists of
/// linked records in no useful order.
class TREEMODEL_EXPORT TreeModel : public QObject
{
    Q_OBJECT

public:
    TreeModel();

    /// Deletes all records, `about_to_clear` signals included: groups, then mesh, geometry and
    /// simulation. Receivers may query; what has gone is empty. Does not leave the
    /// kernel: call disconnect_from_kesto() before.
    ~TreeModel() override;

    /// From this call on the kernel's notifications reach the mirror. Reads nothing.
    void connect_to_kesto();

    /// After this call they reach it no more. The mirror stays as it is.
    void disconnect_from_kesto();

    /// Brings the mirror in line with the kernel: geometry, groups, mesh, simulation. With
    /// `clear`, deletes all records first, after the `about_to_clear` signals; otherwise
    /// adds, updates and removes only what differs. Emits visible_changed() for each record
    /// whose visibility is read, cfd_flag_changed() for each material, and selection_changed()
    /// for what is selected, after each of the four domains.
    void refresh_model(bool clear);

    /// Has the kernel select (deselect) the records by one command line; the empty vector
    /// clears its selection, whatever `selected` is. Element counts and null are passed over,
    /// and nothing is sent if no record is left. The mirror does not change: the kernel
    /// answers by notification. Does nothing inside selection_changed().
    void select_entities(const std::vector<TreeData*>& entities, bool selected);

    /// The geometry of a type by ascending id, and the one with that id.
    std::vector<TreeGeometryData*> geometry(TreeGeometryData::GeometryType type);
    TreeGeometryData* find_geometry(TreeGeometryData::GeometryType type, int id);

    /// The records one level below (above) this one.
    std::vector<TreeGeometryData*> find_geometry_children(TreeGeometryData* parent);
    std::vector<TreeGeometryData*> find_geometry_parents(TreeGeometryData* child);

    /// All groups by ascending id, and the one with that id.
    std::vector<TreeGroupData*> groups();
    TreeGroupData* find_group(int id);

    /// The members of a group: geometry, groups, and its element counts; and the groups
    /// that a record is a member of.
    std::vector<TreeData*> find_group_children(TreeGroupData* group);
    std::vector<TreeGroupData*> find_groups_for_child(TreeData* child);

    /// The mesh controls and the element counts. A mesh record is known by its owner and
    /// type; the owner is mostly a group.
    std::vector<TreeBoundaryLayerData*> boundary_layers();
    std::vector<TreeSizingSourceData*> sizing_sources();
    std::vector<TreeMeshData*> mesh_data();
    TreeSizingSourceData* find_sizing_source(int id);
    TreeBoundaryLayerData* find_boundary_layer(int id);
    TreeMeshData* find_mesh_data(TreeMeshData::MeshType type, TreeData* owner);
    std::vector<TreeMeshData*> find_mesh_data(TreeMeshData::MeshType type);
    std::vector<TreeMeshData*> find_mesh_data(TreeData* owner);

    /// The set-up of a simulation, by ascending id. A type out of range is a caller's error.
    std::vector<TreeExodusData*> exodus_entities(TreeExodusData::ExodusType type);
    std::vector<TreeFeaBCData*> fea_bcs(TreeFeaBCData::FEAType type);
    std::vector<TreeCfdBCData*> cfd_bcs(TreeCfdBCData::CFDType type);

    /// The media, or the materials.
    std::vector<TreeMaterialData*> materials(bool cfd);

    /// These have ids for each type. A type out of range is a caller's error.
    TreeExodusData* find_exodus(TreeExodusData::ExodusType type, int id);
    TreeFeaBCData* find_fea_bc(TreeFeaBCData::FEAType type, int id);

    /// Fluid boundary conditions have one range of ids for all types.
    TreeCfdBCData* find_cfd_bc(int id);

    /// Materials and media have one range of ids.
    TreeMaterialData* find_material(int id);

    /// The boundary conditions that apply to a set, and the sets that one applies to.
    std::vector<TreeFeaBCData*> find_fea_from_exodus(TreeExodusData* exodus);
    std::vector<TreeCfdBCData*> find_cfd_from_exodus(TreeExodusData* exodus);
    std::vector<TreeExodusData*> find_exodus_from_cfd(TreeCfdBCData* bc);
    std::vector<TreeExodusData*> find_exodus_from_fea(TreeFeaBCData* bc);

Q_SIGNALS:
    /// A new record, linked to `parent` unless that is null.
    void geometry_added(TreeGeometryData* geom, TreeGeometryData* parent);

    /// The record has left with all its links.
    void geometry_removed(TreeGeometryData* geom);

    /// Two records that stood before are linked (no longer linked).
    void geometry_associated(TreeGeometryData* parent, TreeGeometryData* child);
    void geometry_disassociated(TreeGeometryData* parent, TreeGeometryData* child);

    /// Comes before all records of the kind are deleted.
    void about_to_clear_geometry();

    /// A new group; one that has left and lost its members.
    void group_added(TreeGroupData* group);
    void group_removed(TreeGroupData* group);

    /// A membership was made, or ended. A member that dies leaves silently.
    void group_child_added(TreeGroupData* group, TreeData* child);
    void group_child_removed(TreeGroupData* group, TreeData* child);

    /// Comes before all records of the kind are deleted.
    void about_to_clear_groups();

    /// A new record; one that has left.
    void boundary_layer_added(TreeBoundaryLayerData* bl);
    void boundary_layer_removed(TreeBoundaryLayerData* bl);

    /// A new record; one that is deleted on return. An `owner` that dies with its mesh records
    /// is no more than a key then.
    void mesh_data_added(TreeMeshData* md, TreeData* owner);
    void mesh_data_removed(TreeMeshData* md, TreeData* owner);

    /// Comes before all records of the kind are deleted.
    void about_to_clear_boundary_layers();
    void about_to_clear_sizing_sources();

    /// A new record; one that has left.
    void sizing_source_added(TreeSizingSourceData* bl);
    void sizing_source_removed(TreeSizingSourceData* bl);

    /// Comes before all records of the kind are deleted.
    void about_to_clear_mesh_data();

    /// A new record; one that has left with all its links.
    void exodus_entity_added(TreeExodusData* exodus);
    void exodus_entity_removed(TreeExodusData* exodus);
    void fea_bc_added(TreeFeaBCData* fea_bc);
    void fea_bc_removed(TreeFeaBCData* fea_bc);
    void cfd_bc_added(TreeCfdBCData* cfd_bc);

    /// It has left with all its links. Unlike other records, it is deleted by the event loop;
    /// one that became another kind is read once more before, and may be linked again.
    void cfd_bc_removed(TreeCfdBCData* cfd_bc);

    /// A set was added to a condition, or taken out. Records that die leave silently.
    void exodus_added_to_fea_bc(TreeFeaBCData* bc, TreeExodusData* exo);
    void exodus_added_to_cfd_bc(TreeCfdBCData* bc, TreeExodusData* exo);
    void exodus_removed_from_fea_bc(TreeFeaBCData* bc, TreeExodusData* exo);
    void exodus_removed_from_cfd_bc(TreeCfdBCData* bc, TreeExodusData* exo);

    /// A new record; one that has left.
    void material_added(TreeMaterialData* mat);
    void material_removed(TreeMaterialData* mat);

    /// Comes before all records of the kind are deleted.
    void about_to_clear_exodus();
    void about_to_clear_fea();
    void about_to_clear_cfd();
    void about_to_clear_material();

    /// These records, at least one, became selected in the kernel, or stopped being selected.
    /// A refresh tells again what is selected; nothing tells that the selection is empty.
    void selection_changed(const std::vector<TreeData*>& entities, bool selected);

private:
    void create_geom_model();
    void create_group_model();
    void create_mesh_model();
    void create_sim_model();
    void create_observer();
    void hand_models_to_observer();

    TreeGeomModel* m_geom_model = nullptr;
    TreeGroupModel* m_group_model = nullptr;
    TreeMeshModel* m_mesh_model = nullptr;
    TreeSimModel* m_sim_model = nullptr;
    TreeKestoObserver* m_observer = nullptr;
};
