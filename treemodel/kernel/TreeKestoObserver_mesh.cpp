// Mesh controls: sizing sources and boundary layers, of which the kernel tells
// nothing but their ids.

#include <treemodel/kernel/IdSet.hpp>
#include <treemodel/kernel/TreeKestoObserver.hpp>
#include <treemodel/models/TreeMeshModel.hpp>

#include <set>

namespace {

// Compares first and changes then, so that an id on both sides is not touched.
template <typename Record>
void reconcile(TreeMeshModel& model, std::vector<Record*> (TreeMeshModel::*records)(),
    std::vector<int> (*kernel_ids)(), Record* (TreeMeshModel::*add)(int),
    void (TreeMeshModel::*remove)(int))
{
    IdSet unconfirmed((model.*records)());
    std::set<int> new_ids;
    for (const int id : kernel_ids()) {
        if (!unconfirmed.take(id)) {
            new_ids.insert(id);
        }
    }
    for (const int id : new_ids) {
        (model.*add)(id);
    }
    for (const int id : unconfirmed.rest()) {
        (model.*remove)(id);
    }
}

} // namespace

void TreeKestoObserver::notify_boundary_layer_created(int id)
{
    m_mesh_model->add_boundary_layer(id);
}

void TreeKestoObserver::notify_boundary_layer_deleted(int id)
{
    m_mesh_model->remove_boundary_layer(id);
}

void TreeKestoObserver::notify_sizing_source_created(int id)
{
    m_mesh_model->add_sizing_source(id);
}

void TreeKestoObserver::notify_sizing_source_deleted(int id)
{
    m_mesh_model->remove_sizing_source(id);
}

void TreeKestoObserver::refresh_mesh()
{
    reconcile(*m_mesh_model, &TreeMeshModel::sizing_sources, KestoInterface::sizing_source_ids,
        &TreeMeshModel::add_sizing_source, &TreeMeshModel::remove_sizing_source);
    reconcile(*m_mesh_model, &TreeMeshModel::boundary_layers,
        KestoInterface::get_boundary_layer_id_list, &TreeMeshModel::add_boundary_layer,
        &TreeMeshModel::remove_boundary_layer);
    report_kernel_selection([](const std::string& word) {
        return word == "sizing_source" || word == "boundary_layer";
    });
}
