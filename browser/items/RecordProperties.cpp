#include <browser/items/RecordProperties.hpp>

#include <algorithm>
#include <browser/items/MirrorRecords.hpp>
#include <QCoreApplication>
#include <QStringList>
#include <treemodel/kernel/TreeModel.hpp>
#include <treemodel/treedata/TreeBodyData.hpp>

namespace {

constexpr std::size_t shown_links = 12;

class Properties
{
    Q_DECLARE_TR_FUNCTIONS(RecordProperties)

public:
    Properties(TreeModel& mirror, TreeData* record)
        : m_mirror(mirror)
        , m_record(record)
    {
    }

    QList<RecordProperty> all()
    {
        add(tr("Name"), m_record->name());
        add(tr("Kind"), item_kind_info(item_kind(m_record)).name);
        if (auto* mesh = qobject_cast<TreeMeshData*>(m_record)) {
            add(tr("Elements"), QString::number(mesh->element_count()));
        } else {
            add(tr("Id"), QString::number(m_record->id()));
            add(tr("Visible"), m_record->is_visible() ? tr("yes") : tr("no"));
        }
        add(tr("Flags"), flags().join(", "));
        add_geometry_links();
        add(tr("Groups"), names(m_mirror.find_groups_for_child(m_record)));
        add_conditions();
        return m_result;
    }

private:
    void add(const QString& label, const QString& value)
    {
        if (!value.isEmpty()) {
            m_result.append({label, value});
        }
    }

    QStringList flags() const
    {
        QStringList result;
        const auto add_if = [&result](bool is_set, const QString& flag) {
            if (is_set) {
                result.append(flag);
            }
        };
        if (auto* geometry = qobject_cast<TreeGeometryData*>(m_record)) {
            add_if(geometry->is_virtual(), tr("virtual"));
        }
        if (auto* body = qobject_cast<TreeBodyData*>(m_record)) {
            add_if(body->is_sheet_body(), tr("sheet body"));
            add_if(body->is_multi_volume(), tr("several volumes"));
        }
        if (auto* exodus = qobject_cast<TreeExodusData*>(m_record)) {
            add_if(exodus->is_lite(), tr("lite"));
        }
        return result;
    }

    void add_geometry_links()
    {
        if (auto* geometry = qobject_cast<TreeGeometryData*>(m_record)) {
            add(tr("Parents"), names(m_mirror.find_geometry_parents(geometry)));
        }
        std::vector<TreeData*> children;
        for (const MirrorRecords::Entry& entry : MirrorRecords(m_mirror).children(m_record, true)) {
            children.push_back(entry.record);
        }
        add(tr("Children"), names(children));
    }

    void add_conditions()
    {
        if (auto* exodus = qobject_cast<TreeExodusData*>(m_record)) {
            std::vector<TreeData*> conditions;
            const auto append = [&conditions](const auto& records) {
                conditions.insert(conditions.end(), records.begin(), records.end());
            };
            append(m_mirror.find_fea_from_exodus(exodus));
            append(m_mirror.find_cfd_from_exodus(exodus));
            add(tr("Conditions"), names(conditions));
        }
    }

    // By kind and id, as the tree has them.
    template <typename Record>
    static QString names(const std::vector<Record*>& records)
    {
        std::vector<MirrorRecords::Entry> entries(records.size());
        std::transform(records.begin(), records.end(), entries.begin(), MirrorRecords::entry);
        std::sort(entries.begin(), entries.end());
        QStringList result;
        for (std::size_t i = 0; i < std::min(entries.size(), shown_links); ++i) {
            result.append(entries[i].record->name());
        }
        if (entries.size() > shown_links) {
            result.append(tr("and %1 more").arg(entries.size() - shown_links));
        }
        return result.join(", ");
    }

    TreeModel& m_mirror;
    TreeData* m_record;
    QList<RecordProperty> m_result;
};

} // namespace

QList<RecordProperty> record_properties(TreeModel& mirror, TreeData* record)
{
    return Properties(mirror, record).all();
}
