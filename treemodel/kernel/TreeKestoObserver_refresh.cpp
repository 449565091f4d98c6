// The full refresh, and the events too broad to follow entity by entity.

#include <treemodel/kernel/TreeKestoObserver.hpp>
#include <treemodel/models/TreeGeomModel.hpp>

void TreeKestoObserver::refresh_model(bool clear)
{
    if (clear) {
        clear_models();
    }
    refresh_geometry();
}

void TreeKestoObserver::notify_model_refresh_requested()
{
    refresh_model(false);
}

void TreeKestoObserver::notify_model_reset()
{
    clear_models();
}

void TreeKestoObserver::notify_kes_file_opened(std::string /*file*/)
{
    refresh_model(true);
}

void TreeKestoObserver::clear_models()
{
    m_geom_model->clear();
}
