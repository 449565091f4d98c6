#include <browser/editing/ShowOnly.hpp>

#include <browser/editing/KernelEntity.hpp>
#include <embedded/EmbeddedKernel.hpp>
#include <treemodel/kernel/TreeModel.hpp>
#include <unordered_set>

namespace {

using Records = std::vector<TreeData*>;

template <typename Record>
void append(Records& records, const std::vector<Record*>& more)
{
    records.insert(records.end(), more.begin(), more.end());
}

Records all_that_can_be_hidden(TreeModel& mirror)
{
    Records records;
    for (int type = TreeGeometryData::BODY; type >= TreeGeometryData::VERTEX; --type) {
        append(records, mirror.geometry(static_cast<TreeGeometryData::GeometryType>(type)));
    }
    append(records, mirror.groups());
    for (int type = TreeExodusData::BLOCK; type <= TreeExodusData::NODESET; ++type) {
        append(records, mirror.exodus_entities(static_cast<TreeExodusData::ExodusType>(type)));
    }
    return records;
}

/// Some records and what is shown with them.
class Shown
{
public:
    Shown(TreeModel& mirror, const Records& records)
        : m_mirror(mirror)
        , m_to_enter(records)
    {
        while (!m_to_enter.empty()) {
            enter(take(m_to_enter));
        }
    }

    bool contains(TreeData* record) const
    {
        return m_whole.contains(record) || m_holders.contains(record);
    }

private:
    static TreeData* take(Records& records)
    {
        TreeData* const record = records.back();
        records.pop_back();
        return record;
    }

    // A record that was asked for, or a member of one.
    void enter(TreeData* record)
    {
        if (!m_entered.insert(record).second) {
            return;
        }
        add_parts(record);
        add_holders(record);
        if (auto* group = dynamic_cast<TreeGroupData*>(record)) {
            append(m_to_enter, m_mirror.find_group_children(group));
        }
    }

    void add_parts(TreeData* top)
    {
        Records waiting{top};
        while (!waiting.empty()) {
            TreeData* const record = take(waiting);
            auto* geometry = dynamic_cast<TreeGeometryData*>(record);
            if (m_whole.insert(record).second && geometry) {
                append(waiting, m_mirror.find_geometry_children(geometry));
            }
        }
    }

    void add_holders(TreeData* bottom)
    {
        Records waiting{bottom};
        while (!waiting.empty()) {
            TreeData* const record = take(waiting);
            if (!m_holders.insert(record).second) {
                continue;
            }
            if (auto* geometry = dynamic_cast<TreeGeometryData*>(record)) {
                append(waiting, m_mirror.find_geometry_parents(geometry));
            }
            append(waiting, m_mirror.find_groups_for_child(record));
        }
    }

    TreeModel& m_mirror;
    Records m_to_enter;
    std::unordered_set<TreeData*> m_entered;
    std::unordered_set<TreeData*> m_whole;   // With all their parts
    std::unordered_set<TreeData*> m_holders; // Of the entered ones
};

} // namespace

ShowOnly::ShowOnly(EmbeddedKernel& kernel, TreeModel& mirror)
    : m_kernel(kernel)
    , m_mirror(mirror)
{
}

void ShowOnly::show(const Records& records)
{
    const Shown shown(m_mirror, records);
    const Records all = all_that_can_be_hidden(m_mirror);
    remember(all);
    std::vector<Former> wanted;
    for (TreeData* record : all) {
        const bool is_shown = shown.contains(record);
        if (record->is_visible() != is_shown) {
            wanted.push_back({record, is_shown});
        }
    }
    set_visible(wanted);
}

void ShowOnly::restore()
{
    set_visible(std::exchange(m_former, {}));
}

void ShowOnly::remember(const Records& records)
{
    std::unordered_set<const TreeData*> known;
    for (const Former& former : m_former) {
        known.insert(former.record);
    }
    for (TreeData* record : records) {
        if (!known.contains(record)) {
            m_former.push_back({record, record->is_visible()});
        }
    }
}

void ShowOnly::set_visible(const std::vector<Former>& wanted)
{
    // Who hears of one change may remove what the next one is about.
    for (const auto& [record, is_visible] : wanted) {
        if (record && record->is_visible() != is_visible) {
            const KernelEntity entity = *kernel_entity(record);
            m_kernel.set_visible(entity.kind, entity.id, is_visible);
        }
    }
}
