#pragma once

#include <map>
#include <memory>
#include <QObject>
#include <treemodel/treedata/TreeBoundaryLayerData.hpp>
#include <treemodel/treedata/TreeMeshData.hpp>
#include <treemodel/treedata/TreeSizingSourceData.hpp>
#include <treemodel/treemodel_export.hpp>
#include <vector>

/// Owns the sizing sources and boundary layers, known by their ids, and the mesh
/// records, known by their owner and type.
///
/// The owner is a record of any model; its mesh records die with it. To remove by an unknown
/// id or owner does nothing. Signals are emitted inside the operation that causes them.
///
/// Operations that add give null if a receiver of their signal has removed the record.
class TREEMODEL_EXPORT TreeMeshModel : public QObject
{
    Q_OBJECT

public:
    TreeMeshModel();

    /// Does what clear() does, signals included.
    ~TreeMeshModel() override;

    /// Gives back the sizing source of that id. A new one emits sizing_source_added().
    TreeSizingSourceData* add_sizing_source(int id);

    /// Takes the record out of the model, emits sizing_source_removed() and deletes it.
    void remove_sizing_source(int id);

    /// Null if there is none.
    TreeSizingSourceData* find_sizing_source(int id);

    /// All sizing sources by ascending id.
    std::vector<TreeSizingSourceData*> sizing_sources();

    /// Gives back the boundary layer of that id. A new one emits boundary_layer_added().
    TreeBoundaryLayerData* add_boundary_layer(int id);

    /// Takes the record out of the model, emits boundary_layer_removed() and deletes it.
    void remove_boundary_layer(int id);

    /// Null if there is none.
    TreeBoundaryLayerData* find_boundary_layer(int id);

    /// All boundary layers by ascending id.
    std::vector<TreeBoundaryLayerData*> boundary_layers();

    /// Gives back the owner's record of that type, with the count set if it differs. A new
    /// one emits mesh_data_added(). Null for a null or dying owner. The owner is not owned.
    TreeMeshData* add_mesh_data(TreeMeshData::MeshType type, int element_count, TreeData* owner);

    /// Takes the record out of the model, emits mesh_data_removed() and deletes it.
    void remove_mesh_data(TreeMeshData::MeshType type, TreeData* owner);

    /// Null if there is none.
    TreeMeshData* find_mesh_data(TreeMeshData::MeshType type, TreeData* owner);

    /// All records, those of one type, those of one owner: owners in the order of their
    /// addresses, the records of an owner by ascending type.
    std::vector<TreeMeshData*> mesh_data();
    std::vector<TreeMeshData*> mesh_data(TreeMeshData::MeshType type);
    std::vector<TreeMeshData*> mesh_data(TreeData* owner);

    /// Each emits its about_to_clear_*(), then deletes the records of its kind, with no
    /// further signal of the model.
    void clear_sizing_sources();
    void clear_boundary_layers();
    void clear_mesh_data();

    /// Clears boundary layers, sizing sources and mesh records, in this order.
    void clear();

Q_SIGNALS:
    /// The new record stands in the model; the removed one has left it and is deleted on return.
    void sizing_source_added(TreeSizingSourceData* bl);
    void sizing_source_removed(TreeSizingSourceData* bl);
    void boundary_layer_added(TreeBoundaryLayerData* bl);
    void boundary_layer_removed(TreeBoundaryLayerData* bl);

    /// The new record stands in the model.
    void mesh_data_added(TreeMeshData* md, TreeData* owner);

    /// The record is deleted on return. If that is because the owner dies, the record
    /// still stands in the model and `owner` is no more than a key: receivers must not
    /// add or remove records of that owner.
    void mesh_data_removed(TreeMeshData* md, TreeData* owner);

    /// Nothing has changed yet; all records of the kind are deleted on return.
    void about_to_clear_sizing_sources();
    void about_to_clear_boundary_layers();
    void about_to_clear_mesh_data();

private Q_SLOTS:
    void mesh_data_owner_destroyed(TreeData* owner);

private:
    using MeshDataMap = std::map<int, TreeMeshData*>;

    MeshDataMap* mesh_data_of(TreeData* owner);
    std::unique_ptr<TreeMeshData> take_mesh_data(TreeMeshData::MeshType type, TreeData* owner);
    void announce_first_mesh_data(TreeMeshData* record, TreeData* owner);
    void drop_empty_entry(TreeData* owner);
    void watch(TreeData* owner);
    void unwatch(TreeData* owner);

    // An owner has an entry in the last map for as long as it has a record, and
    // is watched, once, for as long as it has an entry.
    std::map<int, TreeSizingSourceData*> m_sizing_source_map;
    std::map<int, TreeBoundaryLayerData*> m_boundary_layer_map;
    std::map<TreeData*, MeshDataMap> m_mesh_data_map;
};
