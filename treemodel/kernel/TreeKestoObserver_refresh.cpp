// The full refresh, and the events too broad to follow entity by entity.

#include <treemodel/kernel/TreeKestoObserver.hpp>
#include <treemodel/models/TreeGeomModel.hpp>
#include <treemodel/models/TreeGroupModel.hpp>
#include <treemodel/models/TreeMeshModel.hpp>
#include <treemodel/models/TreeSimModel.hpp>

void TreeKestoObserver::notify_model_refresh_requested()
{
    refresh_model(false);
}

// Only the groups are read again; the rest comes with the events that follow.
void TreeKestoObserver::notify_model_reset()
{
    clear_models();
    refresh_groups();
}

void TreeKestoObserver::notify_model_replaced()
{
    refresh_model(true);
}

void TreeKestoObserver::notify_kes_file_opened(std::string /*file*/)
{
    refresh_model(true);
}

// Groups look geometry up, and boundary conditions look sets up: the order is binding.
void TreeKestoObserver::refresh_model(bool clear)
{
    if (clear) {
        clear_models();
    }
    refresh_geometry();
    refresh_groups();
    refresh_mesh();
    refresh_simulation();
}

void TreeKestoObserver::clear_models()
{
    m_geom_model->clear();
    m_group_model->clear();
    m_mesh_model->clear();
    m_sim_model->clear();
}
