#pragma once

#include <QStringList>
#include <set>
#include <treemodel/entity/EntityItem.hpp>
#include <utility>

/// Which items are alive. An item enters by its constructor and leaves in its
/// destructor, so that an item deleted twice, or never, is seen.
class ItemLedger
{
public:
    void enter(const EntityItem* item);
    void leave(const EntityItem* item);

    const std::set<const EntityItem*>& alive() const { return m_alive; }

    /// What went wrong so far, one line each; empty if nothing.
    const QStringList& faults() const { return m_faults; }

private:
    std::set<const EntityItem*> m_alive;
    QStringList m_faults;
};

/// An item of class `Item` that keeps its line in a ledger. The ledger must outlive it.
template <class Item>
class LedgerItem : public Item
{
public:
    template <class... Arguments>
    explicit LedgerItem(ItemLedger& ledger, Arguments&&... arguments)
        : Item(std::forward<Arguments>(arguments)...)
        , m_ledger(ledger)
    {
        m_ledger.enter(this);
    }

    ~LedgerItem() override { m_ledger.leave(this); }

private:
    ItemLedger& m_ledger;
};
