#include <treemodel/kernel/TreeModel.hpp>

#include <treemodel/kernel/TreeKestoObserver.hpp>
#include <treemodel/models/TreeGeomModel.hpp>
#include <treemodel/models/TreeGroupModel.hpp>
#include <treemodel/models/TreeMeshModel.hpp>
#include <treemodel/models/TreeSimModel.hpp>

TreeModel::TreeModel()
{
    create_geom_model();
    create_group_model();
    create_mesh_model();
    create_sim_model();
    create_observer();
}

// Groups and mesh records first, which point to records of the other models; the
// observer, which points to all models, last.
TreeModel::~TreeModel()
{
    // Answer in place of the models that have gone: the signals of those that are still
    // to go reach receivers, which may query.
    TreeGroupModel no_groups;
    TreeMeshModel no_mesh;
    TreeGeomModel no_geometry;
    TreeSimModel no_simulation;
    const auto replace = [this](auto*& model, auto* stand_in) {
        delete model;
        model = stand_in;
        hand_models_to_observer();
    };
    replace(m_group_model, &no_groups);
    replace(m_mesh_model, &no_mesh);
    replace(m_geom_model, &no_geometry);
    replace(m_sim_model, &no_simulation);
    delete m_observer;
}

void TreeModel::connect_to_kesto()
{
    m_observer->register_observer();
}

void TreeModel::disconnect_from_kesto()
{
    m_observer->unregister_observer();
}

void TreeModel::refresh_model(bool clear)
{
    m_observer->refresh_model(clear);
}

void TreeModel::select_entities(const std::vector<TreeData*>& entities, bool selected)
{
    m_observer->select_entities(entities, selected);
}

std::vector<TreeGeometryData*> TreeModel::geometry(TreeGeometryData::GeometryType type)
{
    return m_geom_model->geometry_data(type);
}

TreeGeometryData* TreeModel::find_geometry(TreeGeometryData::GeometryType type, int id)
{
    return m_geom_model->find_geometry(type, id);
}

std::vector<TreeGeometryData*> TreeModel::find_geometry_children(TreeGeometryData* parent)
{
    return m_geom_model->find_geometry_children(parent);
}

std::vector<TreeGeometryData*> TreeModel::find_geometry_parents(TreeGeometryData* child)
{
    return m_geom_model->find_geometry_parents(child);
}

std::vector<TreeGroupData*> TreeModel::groups()
{
    return m_group_model->groups();
}

TreeGroupData* TreeModel::find_group(int id)
{
    return m_group_model->find_group(id);
}

std::vector<TreeData*> TreeModel::find_group_children(TreeGroupData* group)
{
    return m_group_model->find_group_children(group);
}

std::vector<TreeGroupData*> TreeModel::find_groups_for_child(TreeData* child)
{
    return m_group_model->find_groups_for_child(child);
}

std::vector<TreeBoundaryLayerData*> TreeModel::boundary_layers()
{
    return m_mesh_model->boundary_layers();
}

std::vector<TreeSizingSourceData*> TreeModel::sizing_sources()
{
    return m_mesh_model->sizing_sources();
}

std::vector<TreeMeshData*> TreeModel::mesh_data()
{
    return m_mesh_model->mesh_data();
}

TreeSizingSourceData* TreeModel::find_sizing_source(int id)
{
    return m_mesh_model->find_sizing_source(id);
}

TreeBoundaryLayerData* TreeModel::find_boundary_layer(int id)
{
    return m_mesh_model->find_boundary_layer(id);
}

TreeMeshData* TreeModel::find_mesh_data(TreeMeshData::MeshType type, TreeData* owner)
{
    return m_mesh_model->find_mesh_data(type, owner);
}

std::vector<TreeMeshData*> TreeModel::find_mesh_data(TreeMeshData::MeshType type)
{
    return m_mesh_model->mesh_data(type);
}

std::vector<TreeMeshData*> TreeModel::find_mesh_data(TreeData* owner)
{
    return m_mesh_model->mesh_data(owner);
}

std::vector<TreeExodusData*> TreeModel::exodus_entities(TreeExodusData::ExodusType type)
{
    return m_sim_model->exodus_entities(type);
}

std::vector<TreeFeaBCData*> TreeModel::fea_bcs(TreeFeaBCData::FEAType type)
{
    return m_sim_model->fea_bcs(type);
}

std::vector<TreeCfdBCData*> TreeModel::cfd_bcs(TreeCfdBCData::CFDType type)
{
    return m_sim_model->cfd_bcs(type);
}

std::vector<TreeMaterialData*> TreeModel::materials(bool cfd)
{
    return m_sim_model->materials(cfd);
}

TreeExodusData* TreeModel::find_exodus(TreeExodusData::ExodusType type, int id)
{
    return m_sim_model->find_exodus(type, id);
}

TreeFeaBCData* TreeModel::find_fea_bc(TreeFeaBCData::FEAType type, int id)
{
    return m_sim_model->find_fea_bc(type, id);
}

TreeCfdBCData* TreeModel::find_cfd_bc(int id)
{
    return m_sim_model->find_cfd_bc(id);
}

TreeMaterialData* TreeModel::find_material(int id)
{
    return m_sim_model->find_material(id);
}

std::vector<TreeFeaBCData*> TreeModel::find_fea_from_exodus(TreeExodusData* exodus)
{
    return m_sim_model->find_fea_from_exodus(exodus);
}

std::vector<TreeCfdBCData*> TreeModel::find_cfd_from_exodus(TreeExodusData* exodus)
{
    return m_sim_model->find_cfd_from_exodus(exodus);
}

std::vector<TreeExodusData*> TreeModel::find_exodus_from_cfd(TreeCfdBCData* bc)
{
    return m_sim_model->find_exodus_from_cfd(bc);
}

std::vector<TreeExodusData*> TreeModel::find_exodus_from_fea(TreeFeaBCData* bc)
{
    return m_sim_model->find_exodus_from_fea(bc);
}

void TreeModel::create_mesh_model()
{
    m_mesh_model = new TreeMeshModel;
    connect(
        m_mesh_model, &TreeMeshModel::boundary_layer_added, this, &TreeModel::boundary_layer_added);
    connect(m_mesh_model, &TreeMeshModel::boundary_layer_removed, this,
        &TreeModel::boundary_layer_removed);
    connect(m_mesh_model, &TreeMeshModel::mesh_data_added, this, &TreeModel::mesh_data_added);
    connect(m_mesh_model, &TreeMeshModel::mesh_data_removed, this, &TreeModel::mesh_data_removed);
    connect(
        m_mesh_model, &TreeMeshModel::sizing_source_added, this, &TreeModel::sizing_source_added);
    connect(m_mesh_model, &TreeMeshModel::sizing_source_removed, this,
        &TreeModel::sizing_source_removed);
    connect(m_mesh_model, &TreeMeshModel::about_to_clear_sizing_sources, this,
        &TreeModel::about_to_clear_sizing_sources);
    connect(m_mesh_model, &TreeMeshModel::about_to_clear_boundary_layers, this,
        &TreeModel::about_to_clear_boundary_layers);
    connect(m_mesh_model, &TreeMeshModel::about_to_clear_mesh_data, this,
        &TreeModel::about_to_clear_mesh_data);
}

void TreeModel::create_sim_model()
{
    m_sim_model = new TreeSimModel;
    connect(m_sim_model, &TreeSimModel::exodus_entity_added, this, &TreeModel::exodus_entity_added);
    connect(
        m_sim_model, &TreeSimModel::exodus_entity_removed, this, &TreeModel::exodus_entity_removed);
    connect(m_sim_model, &TreeSimModel::fea_bc_added, this, &TreeModel::fea_bc_added);
    connect(m_sim_model, &TreeSimModel::fea_bc_removed, this, &TreeModel::fea_bc_removed);
    connect(m_sim_model, &TreeSimModel::cfd_bc_added, this, &TreeModel::cfd_bc_added);
    connect(m_sim_model, &TreeSimModel::cfd_bc_removed, this, &TreeModel::cfd_bc_removed);
    connect(
        m_sim_model, &TreeSimModel::exodus_added_to_fea, this, &TreeModel::exodus_added_to_fea_bc);
    connect(m_sim_model, &TreeSimModel::exodus_removed_from_fea, this,
        &TreeModel::exodus_removed_from_fea_bc);
    connect(
        m_sim_model, &TreeSimModel::exodus_added_to_cfd, this, &TreeModel::exodus_added_to_cfd_bc);
    connect(m_sim_model, &TreeSimModel::exodus_removed_from_cfd, this,
        &TreeModel::exodus_removed_from_cfd_bc);
    connect(m_sim_model, &TreeSimModel::material_added, this, &TreeModel::material_added);
    connect(m_sim_model, &TreeSimModel::material_removed, this, &TreeModel::material_removed);
    connect(
        m_sim_model, &TreeSimModel::about_to_clear_exodus, this, &TreeModel::about_to_clear_exodus);
    connect(m_sim_model, &TreeSimModel::about_to_clear_fea, this, &TreeModel::about_to_clear_fea);
    connect(m_sim_model, &TreeSimModel::about_to_clear_cfd, this, &TreeModel::about_to_clear_cfd);
    connect(m_sim_model, &TreeSimModel::about_to_clear_material, this,
        &TreeModel::about_to_clear_material);
}

void TreeModel::create_geom_model()
{
    m_geom_model = new TreeGeomModel;
    connect(m_geom_model, &TreeGeomModel::geometry_added, this, &TreeModel::geometry_added);
    connect(m_geom_model, &TreeGeomModel::geometry_removed, this, &TreeModel::geometry_removed);
    connect(m_geom_model, &TreeGeomModel::association_added, this, &TreeModel::geometry_associated);
    connect(m_geom_model, &TreeGeomModel::association_removed, this,
        &TreeModel::geometry_disassociated);
    connect(
        m_geom_model, &TreeGeomModel::about_to_clear, this, &TreeModel::about_to_clear_geometry);
}

void TreeModel::create_group_model()
{
    m_group_model = new TreeGroupModel;
    connect(m_group_model, &TreeGroupModel::group_added, this, &TreeModel::group_added);
    connect(m_group_model, &TreeGroupModel::group_removed, this, &TreeModel::group_removed);
    connect(m_group_model, &TreeGroupModel::group_child_added, this, &TreeModel::group_child_added);
    connect(
        m_group_model, &TreeGroupModel::group_child_removed, this, &TreeModel::group_child_removed);
    connect(
        m_group_model, &TreeGroupModel::about_to_clear, this, &TreeModel::about_to_clear_groups);
}

void TreeModel::create_observer()
{
    m_observer = new TreeKestoObserver(nullptr);
    hand_models_to_observer();
    connect(m_observer, &TreeKestoObserver::selection_changed, this, &TreeModel::selection_changed);
}

void TreeModel::hand_models_to_observer()
{
    m_observer->set_geom_model(m_geom_model);
    m_observer->set_group_model(m_group_model);
    m_observer->set_mesh_model(m_mesh_model);
    m_observer->set_sim_model(m_sim_model);
}
