#include <browser/items/RecordItem.hpp>

void FillQueue::append(RecordItem* item)
{
    if (item->m_is_waiting) {
        return;
    }
    item->m_is_waiting = true;
    item->m_previous = m_last;
    item->m_next = nullptr;
    (m_last ? m_last->m_next : m_first) = item;
    m_last = item;
    ++m_size;
}

void FillQueue::remove(RecordItem* item)
{
    if (!item->m_is_waiting) {
        return;
    }
    item->m_is_waiting = false;
    if (m_awaited == item) {
        m_awaited = nullptr;
    }
    (item->m_previous ? item->m_previous->m_next : m_first) = item->m_next;
    (item->m_next ? item->m_next->m_previous : m_last) = item->m_previous;
    --m_size;
}

void FillQueue::bring_forward(RecordItem* item)
{
    if (!item->m_is_waiting || item == m_first) {
        return;
    }
    remove(item);
    item->m_is_waiting = true;
    item->m_previous = nullptr;
    item->m_next = m_first;
    (m_first ? m_first->m_previous : m_last) = item;
    m_first = item;
    ++m_size;
}

void FillQueue::await(RecordItem* item)
{
    bring_forward(item);
    m_awaited = item->is_waiting() ? item : nullptr;
}

RecordItem::RecordItem(RecordItemData& data, FillQueue& queue, bool opens)
    : SharedItem(&data, nullptr)
    , m_record_data(data)
    , m_queue(queue)
    , m_opens(opens)
{
    m_record_data.place_created();
    ++m_queue.m_node_count;
}

RecordItem::~RecordItem()
{
    m_queue.remove(this);
    --m_queue.m_node_count;
    m_record_data.place_destroyed(this);
}

bool RecordItem::isEditable() const
{
    return item_kind_info(m_record_data.kind()).can_be_renamed;
}
