#include <browser/items/RecordItemData.hpp>

#include <algorithm>
#include <browser/items/RecordItem.hpp>
#include <iterator>
#include <treemodel/treedata/TreeData.hpp>

namespace {

constexpr int crowd = 64; // So many nodes are as quickly searched as set aside

// Element counts are told apart by their types; the number is none of the kernel's ids.
int shown_id(TreeData* record, ItemKind kind)
{
    return is_element_count(kind) ? 0 : record->id();
}

} // namespace

RecordItemData::RecordItemData(TreeData* record)
    : EntityItemData(0, 0)
    , m_record(record)
{
    read_keys();
    read_visibility();
}

std::vector<EntityItem*> RecordItemData::places()
{
    std::vector<EntityItem*> result = remaining_aside();
    const std::vector<EntityItem*> others = listed();
    result.insert(result.end(), others.begin(), others.end());
    return result;
}

bool RecordItemData::read_keys()
{
    const ItemKind kind = item_kind(m_record);
    const int id = shown_id(m_record, kind);
    const bool id_changed = id != getId();
    setId(id);
    const bool type_changed = setType(int(kind));
    return setName(m_record->name()) || id_changed || type_changed;
}

bool RecordItemData::read_visibility()
{
    return setVisible(m_record->is_visible());
}

bool RecordItemData::is_crowded() const
{
    return m_place_count > crowd;
}

void RecordItemData::set_places_aside()
{
    m_is_set_aside = true;
    m_aside = listed();
    list_only({});
}

void RecordItemData::put_places_back()
{
    list_only(places());
    m_is_set_aside = false;
    m_aside.clear();
    m_gone.clear();
}

std::vector<EntityItem*> RecordItemData::remaining_aside() const
{
    std::vector<EntityItem*> result;
    result.reserve(m_aside.size());
    std::copy_if(m_aside.begin(), m_aside.end(), std::back_inserter(result),
        [this](EntityItem* item) { return !m_gone.contains(item); });
    return result;
}

std::vector<EntityItem*> RecordItemData::listed()
{
    std::vector<EntityItem*> result;
    iterateItems([&result](EntityItem* item) { result.push_back(item); });
    return result;
}

void RecordItemData::list_only(const std::vector<EntityItem*>& items)
{
    EntityItemData with_those(getType(), getId());
    with_those.setName(getName());
    with_those.setVisible(isVisible());
    for (EntityItem* item : items) {
        with_those.addItem(item);
    }
    EntityItemData::operator=(with_those);
}

EntityItem* RecordItemData::last_place()
{
    while (!m_aside.empty() && m_gone.contains(m_aside.back())) {
        m_aside.pop_back();
    }
    if (!m_aside.empty()) {
        return m_aside.back();
    }
    const std::vector<EntityItem*> others = listed();
    return others.empty() ? nullptr : others.back();
}

void RecordItemData::place_destroyed(RecordItem* place)
{
    --m_place_count;
    if (m_home == place) {
        m_home = nullptr;
    }
    if (m_is_set_aside) {
        m_gone.insert(place);
    }
}
