#pragma once

#include <map>
#include <QObject>
#include <treemodel/models/LinkMap.hpp>
#include <treemodel/treedata/TreeGroupData.hpp>
#include <treemodel/treemodel_export.hpp>
#include <vector>

/// Owns the groups and holds the links to their members, which may be records of
/// any model, groups included, and in any number of groups.
///
/// The models of the members know nothing of groups: a member that dies leaves
/// its groups silently. Signals are emitted inside the operation that causes them.
class TREEMODEL_EXPORT TreeGroupModel : public QObject
{
    Q_OBJECT

public:
    TreeGroupModel();

    /// Does what clear() does, signal included, and deletes the records that
    /// change_group_id() displaced.
    ~TreeGroupModel() override;

    /// Gives back the group of that id, renamed by TreeData::set_name() if its name() is
    /// another. A new group emits group_added(). Null if a receiver has removed it.
    TreeGroupData* add_group(const QString& name, int id);

    /// Takes the group out of the model with the links to its members, emits
    /// group_removed() and deletes it, upon which it leaves the groups it is in.
    /// The members stay. An unknown id does nothing.
    void remove_group(int id);

    /// Moves a group to a new id by TreeData::set_id(), also to its own. Its links stay.
    /// A group that has `new_id` leaves the model, silently and alive until the model goes.
    /// An unknown `old_id` does nothing.
    void change_group_id(int old_id, int new_id);

    /// Null if there is none.
    TreeGroupData* find_group(int id);

    /// All groups by ascending id.
    std::vector<TreeGroupData*> groups();

    /// Makes `child`, not owned, a member and emits group_child_added(), unless it is one
    /// or one of them is null. A group may be its own member.
    void add_group_child(TreeGroupData* group, TreeData* child);

    /// Ends a membership and emits group_child_removed(), unless there is none.
    void remove_group_child(TreeGroupData* group, TreeData* child);

    /// In the order of the records' addresses. Empty for null.
    std::vector<TreeData*> find_group_children(TreeGroupData* group);
    std::vector<TreeGroupData*> find_groups_for_child(TreeData* child);

    /// Emits about_to_clear(), then drops all links and deletes all groups by ascending
    /// id, with no further signal of the model. The members stay.
    void clear();

Q_SIGNALS:
    /// A new group stands in the model.
    void group_added(TreeGroupData* group);

    /// The group has left the model and lost its members; it is deleted on return.
    void group_removed(TreeGroupData* group);

    /// A membership was made or ended. The end of either record ends it silently.
    void group_child_added(TreeGroupData* group, TreeData* child);
    void group_child_removed(TreeGroupData* group, TreeData* child);

    /// Nothing has changed yet; all groups are deleted on return.
    void about_to_clear();

private Q_SLOTS:
    void group_child_destroyed(TreeData* child);

private:
    bool associate_group(TreeGroupData* group, TreeData* child);
    bool disassociate_group(TreeGroupData* group, TreeData* child);
    void clear_associations(TreeGroupData* group);
    void watch(TreeData* child);
    void unwatch(TreeData* child);

    // A link stands in both link maps, and no entry there is empty. A child is
    // watched, once, for as long as it has an entry.
    std::map<int, TreeGroupData*> m_group_map;
    LinkMap<TreeGroupData, TreeData> m_group_children_map;
    LinkMap<TreeData, TreeGroupData> m_child_groups_map;
};
