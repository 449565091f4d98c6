#pragma once

#include <array>
#include <map>
#include <QObject>
#include <treemodel/models/LinkMap.hpp>
#include <treemodel/treedata/TreeCfdBCData.hpp>
#include <treemodel/treedata/TreeExodusData.hpp>
#include <treemodel/treedata/TreeFeaBCData.hpp>
#include <treemodel/treedata/TreeMaterialData.hpp>
#include <treemodel/treemodel_export.hpp>
#include <vector>

/// Owns what a simulation is set up with: exodus entities (blocks, sidesets,
/// nodesets), finite-element and fluid boundary conditions, and materials; and holds
/// the links between the boundary conditions and the exodus entities they apply to.
///
/// Ids are unique per ExodusType and per FEAType, over all fluid boundary conditions,
/// and over materials and media. ExodusType and FEAType are not checked: one out of range
/// is undefined. To remove by an unknown id does nothing. Signals are emitted inside the
/// operation that causes them.
///
/// Operations that add give null if a receiver of their signal has removed the record.
class TREEMODEL_EXPORT TreeSimModel : public QObject
{
    Q_OBJECT

public:
    TreeSimModel();

    /// Does what clear() does, signals included, and deletes the records that a change
    /// of id displaced.
    ~TreeSimModel() override;

    /// Gives back the entity of that type and id. A new one emits exodus_entity_added().
    TreeExodusData* add_exodus(TreeExodusData::ExodusType type, int id);

    /// Takes the record out of the model with all its links, emits
    /// exodus_entity_removed() and deletes it.
    void remove_exodus(TreeExodusData::ExodusType type, int id);

    /// Null if there is none.
    TreeExodusData* find_exodus(TreeExodusData::ExodusType type, int id);

    /// The entities of the type by ascending id.
    std::vector<TreeExodusData*> exodus_entities(TreeExodusData::ExodusType type);

    /// Emits about_to_clear_exodus(), then deletes all exodus entities and drops all
    /// links, with no further signal of the model.
    void clear_exodus();

    /// Gives back the condition of that type and id. A new one emits fea_bc_added().
    TreeFeaBCData* add_fea_bc(TreeFeaBCData::FEAType type, int id);

    /// Takes the record out of the model with all its links, emits fea_bc_removed() and
    /// deletes it.
    void remove_fea_bc(TreeFeaBCData::FEAType type, int id);

    /// Moves a condition to a new id by TreeData::set_id(), also to its own. Its links stay.
    /// One that has `new_id` leaves the model, silently and alive until the model goes.
    /// An unknown `old_id` does nothing.
    void change_fea_bc_id(TreeFeaBCData::FEAType type, int old_id, int new_id);

    /// Null if there is none.
    TreeFeaBCData* find_fea_bc(TreeFeaBCData::FEAType type, int id);

    /// The conditions of the type by ascending id.
    std::vector<TreeFeaBCData*> fea_bcs(TreeFeaBCData::FEAType type);

    /// Emits about_to_clear_fea(), then deletes all finite-element boundary conditions with
    /// their links, with no further signal of the model.
    void clear_fea();

    /// Gives back the condition of that id, of whatever type it is and stays. A new one emits
    /// cfd_bc_added().
    TreeCfdBCData* add_cfd_bc(TreeCfdBCData::CFDType type, int id);

    /// Takes the record out of the model with all its links, emits cfd_bc_removed() and
    /// leaves it to QObject::deleteLater(). Links that it is given until then go with it.
    void remove_cfd_bc(int id);

    /// As change_fea_bc_id().
    void change_cfd_bc_id(int old_id, int new_id);

    /// Null if there is none.
    TreeCfdBCData* find_cfd_bc(int id);

    /// The conditions of the type by ascending id.
    std::vector<TreeCfdBCData*> cfd_bcs(TreeCfdBCData::CFDType type);

    /// Emits about_to_clear_cfd(), then deletes all fluid boundary conditions, at once, with
    /// their links, with no further signal of the model.
    void clear_cfd();

    /// Gives back the material of that id, of whatever kind it is and stays. A new one emits
    /// material_added().
    TreeMaterialData* add_material(int id, bool is_cfd);

    /// Takes the record out of the model, emits material_removed() and deletes it.
    void remove_material(int id);

    /// Null if there is none.
    TreeMaterialData* find_material(int id);

    /// The media, or the materials, by ascending id.
    std::vector<TreeMaterialData*> materials(bool is_cfd);

    /// Emits about_to_clear_material(), then deletes all materials and media, with no
    /// further signal of the model.
    void clear_material();

    /// Links the two and emits exodus_added_to_fea(), unless they are linked or one is null.
    void fea_add_exodus(TreeFeaBCData* bc, TreeExodusData* exodus);

    /// Unlinks the two and emits exodus_removed_from_fea(), unless they are not linked.
    void fea_remove_exodus(TreeFeaBCData* bc, TreeExodusData* exodus);

    /// Links the two and emits exodus_added_to_cfd(), unless they are linked or one is null.
    void cfd_add_exodus(TreeCfdBCData* bc, TreeExodusData* exodus);

    /// Unlinks the two and emits exodus_removed_from_cfd(), unless they are not linked.
    void cfd_remove_exodus(TreeCfdBCData* bc, TreeExodusData* exodus);

    /// The records linked to this one, in the order of their addresses. Empty for null.
    std::vector<TreeExodusData*> find_exodus_from_fea(TreeFeaBCData* bc);
    std::vector<TreeExodusData*> find_exodus_from_cfd(TreeCfdBCData* bc);
    std::vector<TreeFeaBCData*> find_fea_from_exodus(TreeExodusData* exodus);
    std::vector<TreeCfdBCData*> find_cfd_from_exodus(TreeExodusData* exodus);

    /// Clears exodus entities, finite-element and fluid boundary conditions and
    /// materials, in this order.
    void clear();

Q_SIGNALS:
    /// Added: the new record stands in the model. Removed: the record has left the model
    /// and lost its links; it is deleted on return, a fluid boundary condition later.
    void exodus_entity_added(TreeExodusData* exodus);
    void exodus_entity_removed(TreeExodusData* exodus);
    void fea_bc_added(TreeFeaBCData* fea_bc);
    void fea_bc_removed(TreeFeaBCData* fea_bc);
    void cfd_bc_added(TreeCfdBCData* cfd_bc);
    void cfd_bc_removed(TreeCfdBCData* cfd_bc);

    /// A link was made or ended. The end of either record ends it silently.
    void exodus_added_to_fea(TreeFeaBCData* bc, TreeExodusData* exo);
    void exodus_removed_from_fea(TreeFeaBCData* bc, TreeExodusData* exo);
    void exodus_added_to_cfd(TreeCfdBCData* bc, TreeExodusData* exo);
    void exodus_removed_from_cfd(TreeCfdBCData* bc, TreeExodusData* exo);

    /// The new record stands in the model; the removed one has left it and is deleted on return.
    void material_added(TreeMaterialData* mat);
    void material_removed(TreeMaterialData* mat);

    /// Nothing has changed yet; all records of the kind are deleted on return.
    void about_to_clear_exodus();
    void about_to_clear_fea();
    void about_to_clear_cfd();
    void about_to_clear_material();

private:
    using ExodusMap = std::map<int, TreeExodusData*>;
    using FeaMap = std::map<int, TreeFeaBCData*>;

    ExodusMap& exodus_map_from_type(TreeExodusData::ExodusType type);
    FeaMap& fea_map_from_type(TreeFeaBCData::FEAType type);

    bool associate_bc(TreeData* bc, TreeExodusData* exodus);
    bool disassociate_bc(TreeData* bc, TreeExodusData* exodus);
    void clear_associations(TreeData* record);
    void clear_exodus_associations(TreeExodusData* exodus);
    void clear_bc_associations(TreeData* bc);
    template <typename Record>
    Q_DECL_HIDDEN void delete_linked_records(std::map<int, Record*>& records);

    std::array<ExodusMap, 3> m_exodus_maps; // indexed by ExodusType
    std::array<FeaMap, 11> m_fea_maps;      // indexed by FEAType
    std::map<int, TreeCfdBCData*> m_cfd_map;
    std::map<int, TreeMaterialData*> m_material_map;
    LinkMap<TreeData, TreeExodusData> m_bc_exodus_map;
    LinkMap<TreeExodusData, TreeData> m_exodus_bc_map;
};
