#include <treemodel/kernel/TreeKestoObserver.hpp>

#include <QMetaType>

TreeKestoObserver::TreeKestoObserver(QObject* parent)
    : QObject(parent)
{
    qRegisterMetaType<std::vector<TreeData*>>();
}

TreeKestoObserver::~TreeKestoObserver() = default;

void TreeKestoObserver::set_geom_model(TreeGeomModel* model)
{
    m_geom_model = model;
}

void TreeKestoObserver::set_group_model(TreeGroupModel* model)
{
    m_group_model = model;
}

void TreeKestoObserver::set_mesh_model(TreeMeshModel* model)
{
    m_mesh_model = model;
}

void TreeKestoObserver::set_sim_model(TreeSimModel* model)
{
    m_sim_model = model;
}
