#pragma once

#include <QPointer>
#include <QTreeWidget>
#include <treemodel/treedata/TreeData.hpp>
#include <vector>

class EntityItem;
class MirrorItems;

/// What there is to say of the selected records, one branch for each, and the first ones only if
/// they are many. Follows the mirror; a record that leaves it leaves the view.
class PropertiesView : public QTreeWidget
{
    Q_OBJECT

public:
    /// `join` must outlive the view.
    explicit PropertiesView(MirrorItems& join, QWidget* parent = nullptr);

    /// Shows the records of these items, each once; categories have none. The items are
    /// not kept.
    void show_items(const std::vector<EntityItem*>& items);

protected:
    void showEvent(QShowEvent* event) override;

private:
    void read();
    void add_record(TreeData* record);

    MirrorItems& m_join;
    std::vector<QPointer<TreeData>> m_records;
    bool m_is_outdated = false;
};
