#pragma once

#include "support/ModelSpy.hpp"

#include <map>
#include <memory>
#include <QString>
#include <QStringList>
#include <treemodel/entity/EntityItem.hpp>
#include <vector>

/// A plain second writing of the item tree: what a model of these items should hold after
/// each operation, what the operation should return and what it should announce.
///
/// It searches and sorts by walking, never by halving, and keeps everything in vectors.
/// Where the rules leave the place of a row open (rows that tie after a sort, a
/// search in rows that are out of order), it takes over the row that the real item
/// has, provided that the rules allow it.
class TreeReference
{
public:
    /// The class of list that a node carries.
    enum Order { NoList, Insertion, NameOrId, NameOrTypeId, Category };

    struct Node;

    /// What a node shows. Nodes over one EntityItemData share it.
    struct Facts
    {
        QString display;
        QString name;
        int type = -1;
        int id = 0;
        int category = -1;
        int preferred_index = -1;
        bool editable = false;
        bool visible = true;
        std::vector<Node*> nodes; ///< In order of their making. Not owned.

        const QString& shown() const { return name.isEmpty() ? display : name; }
    };

    struct Node
    {
        EntityItem* item = nullptr; ///< Not owned, and not read where it may be deleted.
        std::shared_ptr<Facts> facts;
        Order order = NoList;
        Node* parent = nullptr;
        std::vector<Node*> children;
        QString label; ///< Tells the node apart in a report.
    };

    TreeReference();
    ~TreeReference();

    /// A node outside the tree.
    Node* create(EntityItem* item, std::shared_ptr<Facts> facts, Order order, QString label);

    /// Hangs an outside node under another one, last.
    void hang(Node* parent, Node* child);

    /// Forgets an outside node and its subtree.
    void destroy(Node* node);

    /// The operations of EntityModel under the same names. To be called after the real ones.
    /// A null `parent` is the top level; the root itself is no node.
    bool addEntity(Node* parent, Node* child);
    bool moveEntity(Node* node, Node* new_parent);
    bool removeEntity(Node* node);
    void updateEntity(Node* node);
    void hideCategory(Node* node);
    void showCategory(Node* node);
    void clearCategory(Node* node);
    void clear();
    void sort(int column, bool ascending);

    /// What the operations since the last call should have announced.
    std::vector<ModelEvent> take_events();

    /// A place that the real tree took over against the rules; empty if none.
    QString fault() const { return m_fault; }

    /// How many places were told by the rules alone, and how many were left open by them.
    int told_places() const { return m_told; }
    int open_places() const { return m_open; }

    const std::vector<Node*>& top_level() const { return m_root.children; }
    const std::vector<Node*>& hidden() const { return m_hidden; }

    /// Every node in some order that depends on nothing but the operations so far.
    std::vector<Node*> nodes() const;

    /// Every node that stands under no other and not at top level or among the hidden.
    std::vector<Node*> outside() const;

    bool is_visible(const Node* node) const;
    bool is_hidden(const Node* node) const;
    bool is_under(const Node* node, const Node* ancestor) const;

    /// True if the list that holds the node would notice that it is to be added again.
    bool is_noticed(const Node* node) const;

    /// The node's row among its parent's children.
    static int row(const Node* node);

    /// The node after this one from the top down in the subtree under `top`; null at the end.
    static const Node* next(const Node* node, const Node* top);

    Node* find(const EntityItem* item) const;

private:
    static constexpr int already_there = -2;

    bool goes_before(const Node* a, const Node* b, Order order) const;
    int insert_row(const Node* target, const Node* node);
    int updated_row(const Node* node);
    int lower_bound(const std::vector<Node*>& nodes, const Node* node, Order order, int first,
        int last, bool& told) const;
    void sort_children(Node* node);
    const void* key(const Node* node) const;
    void place(Node* target, int row, Node* node);
    void take_out(Node* node);

    Node m_root;
    std::vector<Node*> m_hidden;
    std::vector<std::unique_ptr<Node>> m_nodes;
    std::map<const EntityItem*, Node*> m_by_item;
    std::vector<ModelEvent> m_events;
    int m_column = 1;
    bool m_ascending = true;
    int m_told = 0;
    int m_open = 0;
    QString m_fault;
};
