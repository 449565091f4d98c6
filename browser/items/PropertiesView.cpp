#include <browser/items/PropertiesView.hpp>

#include <algorithm>
#include <browser/items/MirrorItems.hpp>
#include <browser/items/RecordProperties.hpp>
#include <QSet>
#include <QTextDocument>
#include <treemodel/entity/SortedTypeIdList.hpp>

namespace {

constexpr int shown_records = 50;

} // namespace

PropertiesView::PropertiesView(MirrorItems& join, QWidget* parent)
    : QTreeWidget(parent)
    , m_join(join)
{
    setHeaderLabels({tr("Property"), tr("Value")});
    setAccessibleName(tr("Properties of the selection"));
    setRootIsDecorated(false);
    setAlternatingRowColors(true);
    connect(&m_join, &MirrorItems::settled, this, &PropertiesView::read);
}

void PropertiesView::show_items(const std::vector<EntityItem*>& items)
{
    std::vector<EntityItem*> sorted = items;
    std::sort(sorted.begin(), sorted.end(), entity_compare_by_type_id);
    m_records.clear();
    QSet<TreeData*> seen;
    for (EntityItem* item : sorted) {
        TreeData* record = m_join.record(item);
        if (record && !seen.contains(record)) {
            seen.insert(record);
            m_records.emplace_back(record);
        }
    }
    read();
}

void PropertiesView::showEvent(QShowEvent* event)
{
    QTreeWidget::showEvent(event);
    if (m_is_outdated) {
        read();
    }
}

// A record lives a little longer than it stands in the mirror.
void PropertiesView::read()
{
    m_is_outdated = !isVisible();
    if (m_is_outdated) {
        return;
    }
    clear();
    std::erase_if(m_records, [this](TreeData* record) { return !record || !m_join.data(record); });
    for (TreeData* record : m_records) {
        if (topLevelItemCount() == shown_records) {
            const int others = int(m_records.size()) - shown_records;
            addTopLevelItem(new QTreeWidgetItem({tr("and %1 more").arg(others)}));
            break;
        }
        add_record(record);
    }
    expandAll();
    resizeColumnToContents(0);
}

void PropertiesView::add_record(TreeData* record)
{
    auto* branch = new QTreeWidgetItem({record->name()});
    for (const RecordProperty& property : record_properties(m_join.mirror(), record)) {
        auto* line = new QTreeWidgetItem({property.label, property.value});
        line->setToolTip(1, Qt::convertFromPlainText(property.value)); // A name may hold markup
        branch->addChild(line);
    }
    addTopLevelItem(branch);
    branch->setFirstColumnSpanned(true);
}
