#include <treemodel/models/TreeGroupModel.hpp>

#include <QScopeGuard>
#include <treemodel/models/DeathWatch.hpp>
#include <treemodel/models/RecordMaps.hpp>
#include <treemodel/treedata/RecordDeaths.hpp>

namespace {

const DeathWatch& death_watch()
{
    static const DeathWatch watch(
        TreeGroupModel::staticMetaObject, "group_child_destroyed(TreeData*)");
    return watch;
}

} // namespace

TreeGroupModel::TreeGroupModel() = default;

TreeGroupModel::~TreeGroupModel()
{
    clear();
    delete_displaced_records(this);
}

TreeGroupData* TreeGroupModel::add_group(const QString& name, int id)
{
    const quint64 deaths = RecordDeaths::count();
    const auto [group, is_new] = find_or_add_record(m_group_map, id, name, id);
    if (is_new) {
        Q_EMIT group_added(group);
    } else if (name != group->name()) {
        group->set_name(name);
    }
    return deaths == RecordDeaths::count() ? group : find_group(id);
}

void TreeGroupModel::remove_group(int id)
{
    if (const auto group = take_record(m_group_map, id)) {
        // The members, and those that receivers add meanwhile.
        const auto unlink = qScopeGuard([&] { clear_associations(group.get()); });
        clear_associations(group.get());
        Q_EMIT group_removed(group.get());
    }
}

void TreeGroupModel::change_group_id(int old_id, int new_id)
{
    change_record_id(m_group_map, old_id, new_id, this);
}

TreeGroupData* TreeGroupModel::find_group(int id)
{
    return find_record(m_group_map, id);
}

std::vector<TreeGroupData*> TreeGroupModel::groups()
{
    return all_records(m_group_map);
}

void TreeGroupModel::add_group_child(TreeGroupData* group, TreeData* child)
{
    if (associate_group(group, child)) {
        Q_EMIT group_child_added(group, child);
    }
}

void TreeGroupModel::remove_group_child(TreeGroupData* group, TreeData* child)
{
    if (group && child && disassociate_group(group, child)) {
        Q_EMIT group_child_removed(group, child);
    }
}

std::vector<TreeData*> TreeGroupModel::find_group_children(TreeGroupData* group)
{
    return m_group_children_map.find(group);
}

std::vector<TreeGroupData*> TreeGroupModel::find_groups_for_child(TreeData* child)
{
    return m_child_groups_map.find(child);
}

void TreeGroupModel::clear()
{
    Q_EMIT about_to_clear();
    m_group_children_map.clear();
    for (TreeData* child : m_child_groups_map.records()) {
        unwatch(child);
    }
    m_child_groups_map.clear();
    delete_records(m_group_map, [this](TreeGroupData* group) { clear_associations(group); });
}

// The child is no more than a key here: of the record only its TreeData is left.
void TreeGroupModel::group_child_destroyed(TreeData* child)
{
    for (TreeGroupData* group : find_groups_for_child(child)) {
        disassociate_group(group, child);
    }
}

bool TreeGroupModel::associate_group(TreeGroupData* group, TreeData* child)
{
    if (!RecordDeaths::is_alive(group) || !RecordDeaths::is_alive(child)) {
        return false;
    }
    const bool is_first_group = !m_child_groups_map.contains(child);
    m_child_groups_map.insert(child, group);
    if (is_first_group) {
        watch(child);
    }
    return m_group_children_map.insert(group, child);
}

bool TreeGroupModel::disassociate_group(TreeGroupData* group, TreeData* child)
{
    const bool child_left = m_group_children_map.erase(group, child);
    m_group_children_map.forget_unlinked(group);
    m_child_groups_map.erase(child, group);
    if (m_child_groups_map.forget_unlinked(child)) {
        unwatch(child);
    }
    return child_left;
}

void TreeGroupModel::clear_associations(TreeGroupData* group)
{
    for (TreeData* child : find_group_children(group)) {
        disassociate_group(group, child);
    }
}

void TreeGroupModel::watch(TreeData* child)
{
    death_watch().connect(child, this);
}

void TreeGroupModel::unwatch(TreeData* child)
{
    death_watch().disconnect(child, this);
}
