#pragma once

#include <cstddef>
#include <functional>
#include <QList>
#include <QString>
#include <string>
#include <treemodel/entity/EntityItem.hpp>
#include <treemodel/entity/KestoIdList.hpp>
#include <treemodel/entity/KestoTypeSelection.hpp>
#include <treemodel/treemodel_export.hpp>
#include <vector>

/// @file

/// A selection as ids grouped by type, with the type and the id of the item under which
/// it was made. A plain value, without a link to any model.
///
/// Several records of one type may stand side by side; where one is looked for, the first counts.
class TREEMODEL_EXPORT KestoSelection
{
public:
    /// The number of ids in all records, duplicates counted.
    std::size_t size() const;

    /// The first record of that type; null if there is none.
    const KestoTypeSelection* get_list(int type) const;

    /// Calls `visit` for each record in order, or for those of a type from `first` to
    /// `last`, both included.
    void iterate(std::function<void(const KestoTypeSelection&)> visit) const;
    void iterate(int first, int last, std::function<void(const KestoTypeSelection&)> visit) const;

    /// Appends `id` to the first record of that type. Returns true if there was none and
    /// a new one, without a name, was opened for it.
    bool add_entity(int type, int id);

    /// Names the first record of that type, if there is one.
    void set_type_name(int type, const std::string& name);

    /// Removes all records of that type.
    void remove_entities(int type);

    /// Subtracts `delta` from the owner's type and the type of every record: the way back from
    /// the numbers of a shared tree to a client's own. See EntityCategoryManager::set_offset().
    void remove_type_offset(int delta);

    /// The records in the order in which they were opened.
    std::vector<KestoTypeSelection> lists;

    /// The item under which the selection was made; -1 for none.
    int owner_type = -1;
    int owner_id = -1;
};

/// Sets the owner of `selection` and appends a record for each run of items of one type,
/// named by `model`. Within a run, an id equal to the one before it is dropped, and so is a
/// leading -1. Nothing is sorted or merged, so pass the items sorted by type.
///
/// `owner` must not be null, and `model` may be only if there are no items. First items of
/// type -1 go to the last record that `selection` holds, and there must be one.
TREEMODEL_EXPORT void convert_tree_selection(EntityModelInterface* model, const EntityItem* owner,
    const std::vector<EntityItem*>& items, KestoSelection& selection);
TREEMODEL_EXPORT void convert_tree_selection(EntityModelInterface* model,
    const EntityItemData* owner, const std::vector<EntityItemData*>& items,
    KestoSelection& selection);

/// Appends the ids of the items of that type to `ids`, in order, as numbers or as decimal text.
TREEMODEL_EXPORT void get_tree_entity_ids(
    const std::vector<EntityItem*>& items, int type, std::vector<int>& ids);
TREEMODEL_EXPORT void get_tree_entity_ids(
    const std::vector<EntityItem*>& items, int type, QList<QString>& ids);
