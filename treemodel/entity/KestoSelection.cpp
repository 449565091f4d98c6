#include <treemodel/entity/KestoSelection.hpp>

#include <algorithm>
#include <treemodel/entity/EntityItem.hpp>

namespace {

template <typename Lists>
auto first_of_type(Lists& lists, int type)
{
    return std::find_if(lists.begin(), lists.end(),
        [type](const KestoTypeSelection& list) { return list.type == type; });
}

/// `Item` is an EntityItem or an EntityItemData: what has a type and an id.
template <typename Item>
void convert(EntityModelInterface* model, const Item* owner, const std::vector<Item*>& items,
    KestoSelection& selection)
{
    selection.owner_type = owner->getType();
    selection.owner_id = owner->getId();
    int last_type = -1;
    int last_id = -1;
    for (const Item* item : items) {
        const int type = item->getType();
        if (type != last_type) {
            selection.lists.emplace_back(model->get_type_name(type), type);
            last_type = type;
            last_id = -1;
        }
        const int id = item->getId();
        if (id != last_id) {
            Q_ASSERT(!selection.lists.empty());
            selection.lists.back().ids.push_back(id);
            last_id = id;
        }
    }
}

template <typename Append>
void visit_ids(const std::vector<EntityItem*>& items, int type, Append append)
{
    for (const EntityItem* item : items) {
        if (item->getType() == type) {
            append(item->getId());
        }
    }
}

} // namespace

std::size_t KestoSelection::size() const
{
    std::size_t total = 0;
    for (const KestoTypeSelection& list : lists) {
        total += list.ids.size();
    }
    return total;
}

const KestoTypeSelection* KestoSelection::get_list(int type) const
{
    const auto found = first_of_type(lists, type);
    return found == lists.end() ? nullptr : &*found;
}

void KestoSelection::iterate(std::function<void(const KestoTypeSelection&)> visit) const
{
    std::for_each(lists.begin(), lists.end(), visit);
}

void KestoSelection::iterate(
    int first, int last, std::function<void(const KestoTypeSelection&)> visit) const
{
    iterate([&](const KestoTypeSelection& list) {
        if (first <= list.type && list.type <= last) {
            visit(list);
        }
    });
}

bool KestoSelection::add_entity(int type, int id)
{
    const auto found = first_of_type(lists, type);
    const bool is_new = found == lists.end();
    KestoTypeSelection& list = is_new ? lists.emplace_back(type) : *found;
    list.ids.push_back(id);
    return is_new;
}

void KestoSelection::set_type_name(int type, const std::string& name)
{
    const auto found = first_of_type(lists, type);
    if (found != lists.end()) {
        found->type_name = name;
    }
}

void KestoSelection::remove_entities(int type)
{
    std::erase_if(lists, [type](const KestoTypeSelection& list) { return list.type == type; });
}

void KestoSelection::remove_type_offset(int delta)
{
    owner_type -= delta;
    for (KestoTypeSelection& list : lists) {
        list.type -= delta;
    }
}

void convert_tree_selection(EntityModelInterface* model, const EntityItem* owner,
    const std::vector<EntityItem*>& items, KestoSelection& selection)
{
    convert(model, owner, items, selection);
}

void convert_tree_selection(EntityModelInterface* model, const EntityItemData* owner,
    const std::vector<EntityItemData*>& items, KestoSelection& selection)
{
    convert(model, owner, items, selection);
}

void get_tree_entity_ids(const std::vector<EntityItem*>& items, int type, std::vector<int>& ids)
{
    visit_ids(items, type, [&ids](int id) { ids.push_back(id); });
}

void get_tree_entity_ids(const std::vector<EntityItem*>& items, int type, QList<QString>& ids)
{
    visit_ids(items, type, [&ids](int id) { ids.append(QString::number(id, 10)); });
}
