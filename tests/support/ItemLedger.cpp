#include "support/ItemLedger.hpp"

void ItemLedger::enter(const EntityItem* item)
{
    if (!m_alive.insert(item).second) {
        m_faults.append("an item was constructed where another one is alive");
    }
}

void ItemLedger::leave(const EntityItem* item)
{
    if (m_alive.erase(item) == 0) {
        m_faults.append("an item was deleted that is not alive");
    }
}
