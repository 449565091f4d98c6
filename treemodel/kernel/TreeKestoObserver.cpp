#include <treemodel/kernel/TreeKestoObserver.hpp>

TreeKestoObserver::TreeKestoObserver(QObject* parent)
    : QObject(parent)
{
}

TreeKestoObserver::~TreeKestoObserver() = default;

void TreeKestoObserver::set_geom_model(TreeGeomModel* model)
{
    m_geom_model = model;
}
