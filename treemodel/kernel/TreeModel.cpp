#include <treemodel/kernel/TreeModel.hpp>

#include <treemodel/kernel/TreeKestoObserver.hpp>
#include <treemodel/models/TreeGeomModel.hpp>

TreeModel::TreeModel()
    : m_geom_model(new TreeGeomModel)
    , m_observer(new TreeKestoObserver(nullptr))
{
    connect(m_geom_model, &TreeGeomModel::geometry_added, this, &TreeModel::geometry_added);
    connect(m_geom_model, &TreeGeomModel::geometry_removed, this, &TreeModel::geometry_removed);
    connect(m_geom_model, &TreeGeomModel::association_added, this, &TreeModel::geometry_associated);
    connect(m_geom_model, &TreeGeomModel::association_removed, this,
        &TreeModel::geometry_disassociated);
    connect(
        m_geom_model, &TreeGeomModel::about_to_clear, this, &TreeModel::about_to_clear_geometry);

    m_observer->set_geom_model(m_geom_model);
}

TreeModel::~TreeModel()
{
    delete m_geom_model;
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
