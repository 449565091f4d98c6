#include "ItemRows.hpp"

#include <algorithm>
#include <browser/items/MirrorItems.hpp>
#include <QSet>
#include <treemodel/entity/EntityModel.hpp>
#include <treemodel/kernel/TreeModel.hpp>

namespace {

QString row_text(const EntityItem* item)
{
    const auto word = QString::fromStdString(item_kind_info(ItemKind(item->getType())).word);
    return QStringLiteral("%1 <%2 %3>%4")
        .arg(item->getDisplayName(), word)
        .arg(item->getId())
        .arg(item->isVisible() ? QString() : QStringLiteral(" hidden"));
}

QStringList indented(QStringList lines)
{
    for (QString& line : lines) {
        line.prepend("  ");
    }
    return lines;
}

QStringList tree_of(EntityItem* item, bool sorted)
{
    std::vector<QStringList> children;
    children.reserve(std::size_t(item->childCount()));
    for (int row = 0; row < item->childCount(); ++row) {
        children.push_back(tree_of(item->getChild(row), sorted));
    }
    if (sorted) {
        std::sort(children.begin(), children.end());
    }
    QStringList result{row_text(item)};
    for (const QStringList& child : children) {
        result += indented(child);
    }
    return result;
}

QStringList all_rows(const EntityModel& model, bool sorted)
{
    QStringList result;
    for (int row = 0; row < model.rowCount(); ++row) {
        result += tree_of(model.getEntity(model.index(row, 0)), sorted);
    }
    return result;
}

QSet<TreeData*> records_of(TreeModel& mirror)
{
    QSet<TreeData*> result;
    const MirrorRecords records(mirror);
    for (int kind = 0; kind < int(ItemKind::FirstCategory); ++kind) {
        for (TreeData* record : records.all(ItemKind(kind))) {
            result.insert(record);
        }
    }
    for (TreeMeshData* mesh : mirror.mesh_data()) {
        result.insert(mesh);
    }
    return result;
}

bool is_in_order(EntityItem* first, EntityItem* second, int column, Qt::SortOrder order)
{
    if (order == Qt::DescendingOrder) {
        std::swap(first, second);
    }
    return column == 0 ? first->getDisplayName() <= second->getDisplayName()
                       : !entity_compare_by_type_id(second, first);
}

QString fault_below(EntityItem* item, const MirrorItems& join, const QSet<TreeData*>& records,
    int column, Qt::SortOrder order)
{
    QSet<EntityItemData*> seen;
    for (int row = 0; row < item->childCount(); ++row) {
        EntityItem* child = item->getChild(row);
        if (row > 0 && !is_in_order(item->getChild(row - 1), child, column, order)) {
            return row_text(child) + " stands in a wrong place";
        }
        if (seen.contains(child->getData())) {
            return row_text(child) + " stands there twice";
        }
        seen.insert(child->getData());
        TreeData* record = join.record(child);
        if (record && !records.contains(record)) {
            return row_text(child) + " shows a record that is not there";
        }
        QString fault = fault_below(child, join, records, column, order);
        if (!fault.isEmpty()) {
            return fault;
        }
    }
    return {};
}

} // namespace

QStringList ItemRows::rows(const EntityModel& model)
{
    return all_rows(model, false);
}

QStringList ItemRows::rows(EntityItem* item)
{
    return tree_of(item, false);
}

QStringList ItemRows::sorted_rows(const EntityModel& model)
{
    return all_rows(model, true);
}

QString ItemRows::fault(const MirrorItems& join, int column, Qt::SortOrder order)
{
    const QSet<TreeData*> records = records_of(join.mirror());
    const EntityModel& model = join.items();
    for (int row = 0; row < model.rowCount(); ++row) {
        QString fault =
            fault_below(model.getEntity(model.index(row, 0)), join, records, column, order);
        if (!fault.isEmpty()) {
            return fault;
        }
    }
    return {};
}
