#pragma once

#include <browser/items/RecordItemData.hpp>
#include <treemodel/entity/SharedItem.hpp>

class RecordItem;

/// The nodes whose children are not yet what the mirror says, first come first served. A node
/// that is destroyed leaves by itself.
class FillQueue
{
public:
    FillQueue() = default;
    Q_DISABLE_COPY_MOVE(FillQueue)

    /// Null if the queue is empty.
    RecordItem* first() const { return m_first; }
    int size() const { return m_size; }

    /// All nodes that were made for this queue and live, waiting or not.
    int node_count() const { return m_node_count; }

    /// A node that waits already keeps its place.
    void append(RecordItem* item);
    void remove(RecordItem* item);

    /// Puts a waiting node before all others.
    void bring_forward(RecordItem* item);

    /// Puts it there and has awaited() give it until it is filled or destroyed; null then.
    void await(RecordItem* item);
    RecordItem* awaited() const { return m_awaited; }

private:
    friend class RecordItem;

    RecordItem* m_first = nullptr;
    RecordItem* m_last = nullptr;
    RecordItem* m_awaited = nullptr;
    int m_size = 0;
    int m_node_count = 0;
};

/// One place of a record in the tree.
class RecordItem : public SharedItem
{
public:
    /// Keeps the references. A node that does not `open` has no children but element counts.
    RecordItem(RecordItemData& data, FillQueue& queue, bool opens);
    ~RecordItem() override;
    Q_DISABLE_COPY_MOVE(RecordItem)

    RecordItemData& data() const { return m_record_data; }
    bool opens() const { return m_opens; }
    bool is_waiting() const { return m_is_waiting; }

    /// True if the kernel can rename the record.
    bool isEditable() const override;

private:
    friend class FillQueue;

    RecordItemData& m_record_data;
    FillQueue& m_queue;
    RecordItem* m_previous = nullptr; // In the queue
    RecordItem* m_next = nullptr;
    bool m_is_waiting = false;
    const bool m_opens;
};
