#pragma once

#include "support/ItemLedger.hpp"
#include "support/ModelSpy.hpp"
#include "support/TreeReference.hpp"

#include <cstdint>
#include <memory>
#include <QStringList>
#include <random>
#include <span>
#include <treemodel/entity/EntityIconFactory.hpp>
#include <treemodel/entity/EntityItemData.hpp>
#include <treemodel/entity/EntityModel.hpp>
#include <vector>

/// Numbers made of bytes, for as long as there are any, and then random ones that are the same
/// for one seed on every platform.
class RandomSource
{
public:
    /// The bytes are not owned.
    explicit RandomSource(unsigned seed, std::span<const std::uint8_t> bytes = {})
        : m_engine(seed)
        , m_bytes(bytes)
    {
    }

    int below(int bound)
    {
        unsigned number = m_bytes.empty() ? unsigned(m_engine()) : 0;
        for (unsigned reach = 1; reach < unsigned(bound) && !m_bytes.empty(); reach <<= 8) {
            number = number << 8 | m_bytes.front();
            m_bytes = m_bytes.subspan(1);
        }
        return int(number % unsigned(bound));
    }
    bool chance(int percent) { return below(100) < percent; }

    template <class Container>
    const auto& pick(const Container& from)
    {
        return *(std::begin(from) + below(int(std::size(from))));
    }

private:
    std::mt19937 m_engine;
    std::span<const std::uint8_t> m_bytes;
};

/// Something that hangs on the model and has to stay right while the model changes.
class RandomObserver
{
public:
    virtual ~RandomObserver() = default;

    /// Does something of its own, such as to select a row, and says what. May do nothing.
    virtual QString stir(RandomSource& random, const TreeReference& reference);

    /// The first difference from what the reference makes expect; empty if there is none.
    virtual QString differences(const TreeReference& reference) = 0;
};

/// A random sequence of operations on an EntityModel, each made on a plain reference
/// tree as well. After each the two are compared through all that the model
/// offers: results, signals, structure, order, cells, hidden items, deletions.
class RandomSequence
{
public:
    explicit RandomSequence(const RandomSource& random);
    ~RandomSequence();

    EntityModel* model() { return m_model.get(); }
    RandomSource& random() { return m_random; }

    void attach(std::unique_ptr<RandomObserver> observer);

    /// Puts that many items under one parent before the first step.
    void crowd(int count);

    /// Makes that many steps and destroys the model. Returns the first difference and the
    /// steps up to the one that brought it about; empty if all is well.
    QString run(int steps);

    const TreeReference& reference() const { return m_reference; }

private:
    using Node = TreeReference::Node;
    using Facts = TreeReference::Facts;

    class Icons;

    struct Shared
    {
        std::unique_ptr<EntityItemData> data;
        std::shared_ptr<Facts> facts;
    };
    struct Step
    {
        int weight;
        void (RandomSequence::*make)();
    };

    static const std::vector<Step>& steps();

    void add_top_level();
    void add_child();
    void add_under_stranger();
    void add_again();
    void make_outside();
    void move();
    void remove();
    void change_facts();
    void change_name();
    void update_only();
    void hide();
    void show();
    void clear_category();
    void clear_all();
    void sort();
    void edit();

    Node* make_item(int depth);
    EntityItem* new_item(std::shared_ptr<Facts>& facts, EntityItemList* list);
    QString random_name();
    int random_id();
    EntityItem* new_shared(std::shared_ptr<Facts>& facts, EntityItemList* list);
    Node* any_of(const std::vector<Node*>& nodes);
    Node* any_node();
    Node* any_held_node();
    EntityItem* root_item() const;
    void announce(Node* node);

    void say(const QString& step);
    void expect(bool holds, const QString& otherwise);
    void expect_result(bool result, bool expected);
    QString check();
    QString check_signals();
    QString check_deletions() const;
    QString check_visible(const std::vector<Node*>& nodes, const QModelIndex& parent) const;
    QString check_cells(const Node* node, const QModelIndex& index) const;
    QString check_hidden(const Node* node) const;
    QString check_lookups();
    QString check_shared() const;
    QString finish();
    QString describe(const std::vector<ModelEvent>& events) const;
    QString label(const void* item) const;

    RandomSource m_random;
    ItemLedger m_ledger;
    TreeReference m_reference;
    std::unique_ptr<Icons> m_icons;
    std::vector<Shared> m_shared;
    std::vector<std::unique_ptr<RandomObserver>> m_observers;
    std::unique_ptr<EntityModel> m_model;
    std::unique_ptr<ModelSpy> m_spy;
    QStringList m_log;
    QString m_fault;
    int m_made = 0;
    size_t m_crowd = 0;
};
