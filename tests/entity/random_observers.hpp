#pragma once

#include "entity/random_sequence.hpp"

#include <map>
#include <QAbstractItemModelTester>
#include <QPersistentModelIndex>
#include <QSortFilterProxyModel>
#include <QTreeView>
#include <set>

/// Persistent indexes in column 0: each follows its item for as long as that is shown.
class PersistentObserver : public RandomObserver
{
public:
    /// Not owned.
    explicit PersistentObserver(const EntityModel* model);

    QString stir(RandomSource& random, const TreeReference& reference) override;
    QString differences(const TreeReference& reference) override;

private:
    const EntityModel* m_model;
    std::map<EntityItem*, QPersistentModelIndex> m_indexes;
};

/// A view on the model with rows expanded and selected. Both stick to the items, and the
/// rows that the view shows are those under expanded parents, in the model's order.
class ViewObserver : public RandomObserver
{
public:
    /// Not owned.
    explicit ViewObserver(EntityModel* model);

    QString stir(RandomSource& random, const TreeReference& reference) override;
    QString differences(const TreeReference& reference) override;

private:
    using Nodes = std::vector<TreeReference::Node*>;

    void collect_shown(const Nodes& nodes, std::vector<EntityItem*>& items) const;

    EntityModel* m_model;
    QTreeView m_view;
    std::set<EntityItem*> m_expanded;
    std::set<EntityItem*> m_selected;
};

/// A proxy above the model, in the model's order or sorted by itself.
class ProxyObserver : public RandomObserver
{
public:
    /// Not owned.
    ProxyObserver(EntityModel* model, bool sorts);

    QString differences(const TreeReference& reference) override;

private:
    QString compare(const std::vector<TreeReference::Node*>& nodes, const QModelIndex& parent);

    QSortFilterProxyModel m_proxy;
    bool m_sorts;
};

/// Qt's own checks of a model. The one finding that is accepted is on the flags of the invalid
/// index, which this model answers like those of any other.
class TesterObserver : public RandomObserver
{
public:
    /// Not owned.
    explicit TesterObserver(EntityModel* model);
    ~TesterObserver() override;

    QString differences(const TreeReference& reference) override;

private:
    std::unique_ptr<QAbstractItemModelTester> m_tester;
};
