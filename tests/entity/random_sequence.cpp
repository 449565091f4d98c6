#include "entity/random_sequence.hpp"

#include <algorithm>
#include <functional>
#include <limits>
#include <QIcon>
#include <QSignalSpy>
#include <treemodel/entity/EntityCategory.hpp>
#include <treemodel/entity/EntityModelInterface.hpp>
#include <treemodel/entity/SharedItem.hpp>
#include <treemodel/entity/SimpleItem.hpp>
#include <treemodel/entity/SortedEntityList.hpp>
#include <treemodel/entity/SortedTypeIdList.hpp>

namespace {

/// An item of a front end's own class that keeps to the defaults of the base.
class PlainItem : public EntityItem
{
public:
    PlainItem(const QString& display, EntityItemList* list)
        : EntityItem(list)
        , m_display(display)
    {
    }

    const QString& getName() const override { return m_name; }
    const QString& getDisplayName() const override { return m_display; }
    bool setDisplay(const QString& display) override
    {
        return std::exchange(m_display, display) != display;
    }

private:
    QString m_name;
    QString m_display;
};

// Few values, so that ties are frequent; long common beginnings, code units that sort
// other than code points and letters of other languages, zeros that count.
const std::vector<QString>& names()
{
    static const std::vector<QString> all = {
        "",
        "a",
        "b",
        "B",
        "Z",
        QString("a") + QChar(0),
        QString("a") + QChar(0) + QChar(0),
        "Volume",
        "Volume 2",
        "Volume 10",
        "Volume 10 (v)",
        "Volume 1000000000000000001",
        "Volume 1000000000000000002",
        QString(QChar(0xFFFD)),
        QString::fromUtf8("\xF0\x9F\x98\x80"),
        QString::fromUtf8("\xC3\xA4"),
        QString::fromUtf8("\xE4\xBD\x93 2"),
        QString::fromUtf8("\xE9\x9D\xA2 1"),
        "abc",
        "abcd",
        "abcdefgh",
        "abcdefgi",
        "abcdefghi",
    };
    return all;
}

// Small trees meet the rare cases sooner than large ones.
constexpr size_t few_nodes = 60;

constexpr int lowest = std::numeric_limits<int>::min();
constexpr int highest = std::numeric_limits<int>::max();
constexpr int ids[] = {lowest, -3, -1, 0, 0, 1, 2, 3, 5, 8, 13, 21, 1000, highest};
constexpr int types[] = {lowest, -2, -1, 0, 1, 2, 3, highest};
constexpr int places[] = {lowest, -5, -2, -1, 0, 1, 2, highest};

EntityItemList* new_list(TreeReference::Order order)
{
    switch (order) {
    case TreeReference::Insertion:
        return new EntityItemList;
    case TreeReference::NameOrId:
        return new SortedEntityList;
    case TreeReference::NameOrTypeId:
        return new SortedTypeIdList;
    default:
        return nullptr;
    }
}

QString quoted(const QString& text)
{
    return '"' + QString(text).replace(QChar(0), "\\0") + '"';
}

QString yes_no(bool value)
{
    return value ? "true" : "false";
}

/// Hands on each node of the data that is told to update its model.
class Updater : public EntityModelInterface
{
public:
    explicit Updater(std::function<void(EntityItem*)> update)
        : m_update(std::move(update))
    {
    }

    void update_item(EntityItem* item) override { m_update(item); }
    const std::string& get_type_name(int) override { return m_name; }

private:
    std::function<void(EntityItem*)> m_update;
    std::string m_name;
};

} // namespace

QString RandomObserver::stir(RandomSource&, const TreeReference&)
{
    return {};
}

class RandomSequence::Icons : public EntityIconFactory
{
public:
    const char* getIconPath(EntityItem* item) override
    {
        asked.push_back(item);
        return ":/marks/item.svg";
    }

    std::vector<const EntityItem*> asked;
};

RandomSequence::RandomSequence(const RandomSource& random)
    : m_random(random)
    , m_icons(std::make_unique<Icons>())
    , m_model(std::make_unique<EntityModel>())
    , m_spy(std::make_unique<ModelSpy>(m_model.get()))
{
    if (m_random.chance(50)) {
        m_model->setIcons(m_icons.get());
        say("a model with an icon factory");
    } else {
        m_icons.reset();
        say("a model without an icon factory");
    }
}

RandomSequence::~RandomSequence()
{
    m_spy.reset();
    m_model.reset();
    for (Node* node : m_reference.outside()) {
        delete node->item;
    }
}

void RandomSequence::attach(std::unique_ptr<RandomObserver> observer)
{
    m_observers.push_back(std::move(observer));
}

void RandomSequence::crowd(int count)
{
    Node* parent = make_item(0);
    while (
        parent->order != TreeReference::NameOrId && parent->order != TreeReference::NameOrTypeId) {
        parent = make_item(0);
    }
    say("add " + parent->label + " at top level");
    expect_result(
        m_model->addEntity(nullptr, parent->item), m_reference.addEntity(nullptr, parent));
    say(QString("add %1 items under it").arg(count));
    for (int i = 0; i < count; ++i) {
        Node* node = make_item(0);
        const bool added = m_model->addEntity(parent->item, node->item);
        expect_result(added, m_reference.addEntity(parent, node));
    }
    m_crowd = size_t(count);
}

QString RandomSequence::run(int count)
{
    int total = 0;
    for (const Step& step : steps()) {
        total += step.weight;
    }
    QString difference;
    for (int i = 0; i < count && difference.isEmpty(); ++i) {
        int lot = m_random.below(total);
        auto step = steps().begin();
        while (lot >= step->weight) {
            lot -= (step++)->weight;
        }
        const bool is_full = m_reference.nodes().size() > few_nodes + m_crowd;
        is_full ? remove() : (this->*step->make)();
        difference = check();
    }
    if (difference.isEmpty()) {
        difference = finish();
    }
    return difference.isEmpty() ? QString()
                                : QString("%1\nafter\n  %2").arg(difference, m_log.join("\n  "));
}

const std::vector<RandomSequence::Step>& RandomSequence::steps()
{
    using Self = RandomSequence;
    static const std::vector<Step> all = {
        {10, &Self::add_top_level},
        {40, &Self::add_child},
        {2, &Self::add_under_stranger},
        {4, &Self::add_again},
        {2, &Self::make_outside},
        {20, &Self::move},
        {9, &Self::remove},
        {16, &Self::change_name},
        {16, &Self::change_facts},
        {3, &Self::update_only},
        {5, &Self::hide},
        {7, &Self::show},
        {2, &Self::clear_category},
        {1, &Self::clear_all},
        {12, &Self::sort},
        {4, &Self::edit},
    };
    return all;
}

void RandomSequence::add_top_level()
{
    Node* node = make_item(m_random.below(3));
    say("add " + node->label + " at top level");
    const bool added = m_model->addEntity(nullptr, node->item);
    expect_result(added, m_reference.addEntity(nullptr, node));
}

void RandomSequence::add_child()
{
    Node* parent = any_held_node();
    if (!parent) {
        return add_top_level();
    }
    Node* node = make_item(m_random.below(2));
    say("add " + node->label + " under " + parent->label);
    const bool added = m_model->addEntity(parent->item, node->item);
    expect_result(added, m_reference.addEntity(parent, node));
}

void RandomSequence::add_under_stranger()
{
    Node* node = make_item(0);
    EntityItem* stranger = root_item();
    QString name = "the root itself";
    for (const Node* outside : m_reference.outside()) {
        if (outside != node && m_random.chance(50)) {
            stranger = outside->item;
            name = outside->label + ", which is outside";
        }
    }
    if (!stranger) {
        return say("leave " + node->label + " outside");
    }
    say("add " + node->label + " under " + name);
    expect_result(m_model->addEntity(stranger, node->item), false);
    m_reference.destroy(node);
}

void RandomSequence::add_again()
{
    Node* node = any_held_node();
    if (!node || !node->parent || !m_reference.is_noticed(node)) {
        return add_child();
    }
    const bool top = node->parent->item == nullptr;
    say("add " + node->label + " again where it stands");
    expect_result(m_model->addEntity(top ? nullptr : node->parent->item, node->item), true);
}

void RandomSequence::make_outside()
{
    say("leave " + make_item(1)->label + " outside");
}

void RandomSequence::move()
{
    Node* node = m_random.chance(5) ? any_node() : any_held_node();
    Node* target = m_random.chance(5) ? any_node() : any_held_node();
    if (m_random.chance(5)) {
        target = nullptr;
    }
    if (!node || (target && m_reference.is_under(target, node))) {
        return add_child();
    }
    say("move " + node->label + " to " + (target ? target->label : "top level"));
    const bool there = m_model->moveEntity(node->item, target ? target->item : nullptr);
    expect_result(there, m_reference.moveEntity(node, target));
}

void RandomSequence::remove()
{
    Node* node = m_random.chance(5) ? any_node() : any_held_node();
    say("remove " + (node ? node->label : "nothing"));
    const bool removed = m_model->removeEntity(node ? node->item : nullptr);
    expect_result(removed, m_reference.removeEntity(node));
}

void RandomSequence::change_name()
{
    Node* node = any_node();
    if (!node) {
        return add_top_level();
    }
    EntityItemData* data = node->item->getData();
    auto* simple = dynamic_cast<SimpleItem*>(node->item);
    const bool label = m_random.chance(30) || !(data || simple);
    const QString text = random_name();
    say(QString(label ? "label %1 %2" : "name %1 %2").arg(node->label, quoted(text)));

    QString& known = label ? node->facts->display : node->facts->name;
    const bool differs = known != text;
    known = text;
    const bool changed = label  ? node->item->setDisplay(text)
                         : data ? data->setName(text)
                                : simple->setName(text);
    expect_result(changed, differs);
    announce(node);
}

void RandomSequence::change_facts()
{
    Node* node = any_node();
    if (!node) {
        return add_top_level();
    }
    Facts& facts = *node->facts;
    EntityItemData* data = node->item->getData();
    auto* simple = dynamic_cast<SimpleItem*>(node->item);
    const int id = random_id();
    const int type = m_random.pick(types);
    const bool flag = m_random.chance(50);
    say(QString("give %1 the id %2, the type %3 and the flag %4")
            .arg(node->label)
            .arg(id)
            .arg(type)
            .arg(yes_no(flag)));
    if (data) {
        data->setId(id);
        expect_result(data->setType(type), facts.type != type);
        expect_result(data->setVisible(flag), facts.visible != flag);
        facts.visible = flag;
    } else if (simple) {
        simple->setId(id);
        simple->setType(type);
        simple->setEditable(flag);
        facts.editable = flag;
    }
    if (data || simple) {
        facts.id = id;
        facts.type = type;
    }
    announce(node);
}

void RandomSequence::update_only()
{
    Node* node = any_node();
    say("update " + (node ? node->label : "nothing"));
    m_model->updateEntity(node ? node->item : nullptr);
    m_reference.updateEntity(node);
}

void RandomSequence::hide()
{
    Node* node = m_random.chance(10) ? any_node() : any_of(m_reference.top_level());
    say("hide " + (node ? node->label : "nothing"));
    m_model->hideCategory(node ? node->item : nullptr);
    m_reference.hideCategory(node);
}

void RandomSequence::show()
{
    Node* node = m_random.chance(10) ? any_node() : any_of(m_reference.hidden());
    say("show " + (node ? node->label : "nothing"));
    m_model->showCategory(node ? node->item : nullptr);
    m_reference.showCategory(node);
}

void RandomSequence::clear_category()
{
    Node* node = any_node();
    say("clear the children of " + (node ? node->label : "nothing"));
    m_model->clearCategory(node ? node->item : nullptr);
    m_reference.clearCategory(node);
}

void RandomSequence::clear_all()
{
    say("clear the model");
    m_model->clear();
    m_reference.clear();
}

void RandomSequence::sort()
{
    const int column = m_random.chance(10) ? 2 : m_random.below(2);
    const bool ascending = m_random.chance(50);
    say(QString("sort by column %1, ascending %2").arg(column).arg(yes_no(ascending)));
    m_model->sort(column, ascending ? Qt::AscendingOrder : Qt::DescendingOrder);
    m_reference.sort(column, ascending);
}

void RandomSequence::edit()
{
    Node* node = any_held_node();
    if (!node) {
        return add_top_level();
    }
    const QString text = m_random.chance(30) ? node->facts->name : m_random.pick(names());
    const int column = m_random.below(2);
    say(QString("edit %1 in column %2 to %3").arg(node->label).arg(column).arg(quoted(text)));
    const QModelIndex index = m_model->index(node->item).siblingAtColumn(column);
    QSignalSpy requests(m_model.get(), &EntityModel::nameEdited);
    expect_result(m_model->setData(index, text), false);
    const bool asks = index.isValid() && column == 0 && text != node->facts->name;
    expect(requests.size() == (asks ? 1 : 0), "the edit asked for a name too often or not at all");
    if (asks && requests.size() == 1) {
        expect(requests[0][0].value<EntityItem*>() == node->item, "the edit names another item");
        expect(requests[0][1].toString() == text, "the edit asks for another name");
    }
}

RandomSequence::Node* RandomSequence::make_item(int depth)
{
    constexpr TreeReference::Order orders[] = {TreeReference::NoList, TreeReference::Insertion,
        TreeReference::NameOrId, TreeReference::NameOrId, TreeReference::NameOrTypeId,
        TreeReference::NameOrTypeId};
    const TreeReference::Order order = m_random.pick(orders);
    std::shared_ptr<Facts> facts;
    EntityItem* item = new_item(facts, new_list(order));
    const QString name = QString("#%1 (%2, type %3, id %4)")
                             .arg(++m_made)
                             .arg(quoted(facts->shown()))
                             .arg(facts->type)
                             .arg(facts->id);
    Node* node = m_reference.create(item, facts, order, name);
    for (int i = 0; depth > 0 && order != TreeReference::NoList && i < m_random.below(4); ++i) {
        Node* child = make_item(depth - 1);
        expect(item->insertChild(i, child->item) == child->item, "an item refused a child");
        m_reference.hang(node, child);
    }
    return node;
}

QString RandomSequence::random_name()
{
    const QString& name = m_random.pick(names());
    return m_random.chance(50) ? name : name + m_random.pick(names());
}

int RandomSequence::random_id()
{
    return m_random.chance(50) ? m_random.pick(ids) : m_random.below(5000) - 1000;
}

EntityItem* RandomSequence::new_item(std::shared_ptr<Facts>& facts, EntityItemList* list)
{
    const QString text = random_name();
    const int type = m_random.pick(types);
    const int id = random_id();
    facts = std::make_shared<Facts>();
    switch (m_random.below(10)) {
    case 0:
        facts->display = text;
        return new LedgerItem<PlainItem>(m_ledger, text, list);
    case 1:
    case 2:
        facts->display = text;
        facts->type = type;
        return new LedgerItem<SimpleItem>(m_ledger, text, type, list);
    case 3:
    case 4:
        facts->type = type;
        facts->id = id;
        return new LedgerItem<SimpleItem>(m_ledger, type, id, list);
    case 5:
    case 6: {
        facts->display = text;
        facts->type = type;
        facts->category = m_random.pick(places);
        facts->preferred_index = m_random.pick(places);
        auto* category = new LedgerItem<EntityCategory>(
            m_ledger, text, type, facts->category, facts->preferred_index);
        category->setList(list);
        return category;
    }
    default:
        return new_shared(facts, list);
    }
}

EntityItem* RandomSequence::new_shared(std::shared_ptr<Facts>& facts, EntityItemList* list)
{
    if (m_shared.empty() || m_random.chance(60)) {
        facts->type = m_random.pick(types);
        facts->id = random_id();
        facts->editable = true;
        facts->name = random_name();
        m_shared.push_back({std::make_unique<EntityItemData>(facts->type, facts->id), facts});
        m_shared.back().data->setName(facts->name);
    }
    const Shared& shared = m_random.pick(m_shared);
    facts = shared.facts;
    return new LedgerItem<SharedItem>(m_ledger, shared.data.get(), list);
}

RandomSequence::Node* RandomSequence::any_of(const std::vector<Node*>& nodes)
{
    return nodes.empty() ? nullptr : m_random.pick(nodes);
}

RandomSequence::Node* RandomSequence::any_node()
{
    return any_of(m_reference.nodes());
}

/// A node in the model, shown or hidden.
RandomSequence::Node* RandomSequence::any_held_node()
{
    std::vector<Node*> nodes = m_reference.nodes();
    std::erase_if(nodes, [this](const Node* node) {
        return !m_reference.is_visible(node) && !m_reference.is_hidden(node);
    });
    return any_of(nodes);
}

EntityItem* RandomSequence::root_item() const
{
    const auto& top = m_reference.top_level();
    return top.empty() ? nullptr : top.front()->item->getParentEntity();
}

/// Tells the model that the facts of a node have changed, the way a front end does.
void RandomSequence::announce(Node* node)
{
    EntityItemData* data = node->item->getData();
    if (!data) {
        m_model->updateEntity(node->item);
        m_reference.updateEntity(node);
        return;
    }
    // The reference follows at each step: where the rules leave a place open, it looks where the
    // model has put the item, and the next one of the same data may move it again.
    const std::vector<Node*>& nodes = node->facts->nodes;
    std::size_t told = 0;
    Updater updater([&](EntityItem* item) {
        m_model->updateEntity(item);
        const bool is_in_turn = told < nodes.size() && nodes[told]->item == item;
        expect(is_in_turn, "a node of shared data was updated out of its turn");
        if (is_in_turn) {
            m_reference.updateEntity(nodes[told]);
            ++told;
        }
    });
    data->updateModel(&updater);
    expect(told == nodes.size(), "a node of shared data was not updated");
}

void RandomSequence::say(const QString& step)
{
    m_log.append(QString("%1. %2").arg(m_log.size()).arg(step));
    if (qEnvironmentVariableIsSet("TREEMODEL_RANDOM_TRACE")) {
        qInfo().noquote() << m_log.last();
    }
}

void RandomSequence::expect(bool holds, const QString& otherwise)
{
    if (!holds && m_fault.isEmpty()) {
        m_fault = otherwise;
    }
}

void RandomSequence::expect_result(bool result, bool expected)
{
    expect(result == expected,
        QString("the result is %1, not %2").arg(yes_no(result), yes_no(expected)));
}

QString RandomSequence::check()
{
    QString difference = m_fault;
    const auto note = [&difference](const QString& text) {
        if (difference.isEmpty()) {
            difference = text;
        }
    };
    note(m_reference.fault());
    note(check_deletions());
    note(check_signals());
    note(check_visible(m_reference.top_level(), {}));
    for (const Node* node : m_reference.hidden()) {
        note(check_hidden(node));
    }
    note(check_lookups());
    note(check_shared());
    note(m_spy->differences());
    for (const auto& observer : m_observers) {
        note(observer->differences(m_reference));
        const QString act = observer->stir(m_random, m_reference);
        if (!act.isEmpty()) {
            say(act);
        }
        note(observer->differences(m_reference));
    }
    return difference;
}

QString RandomSequence::check_signals()
{
    const QString announced = describe(m_spy->take_events());
    const QString expected = describe(m_reference.take_events());
    return announced == expected
               ? QString()
               : QString("the model announced [%1], not [%2]").arg(announced, expected);
}

QString RandomSequence::check_deletions() const
{
    if (!m_ledger.faults().isEmpty()) {
        return m_ledger.faults().first();
    }
    const auto nodes = m_reference.nodes();
    for (const Node* node : nodes) {
        if (!m_ledger.alive().contains(node->item)) {
            return node->label + " is deleted and should be alive";
        }
    }
    const size_t alive = m_ledger.alive().size();
    if (alive != nodes.size()) {
        return QString("%1 items are alive, not %2").arg(alive).arg(nodes.size());
    }
    return {};
}

QString RandomSequence::check_visible(
    const std::vector<Node*>& nodes, const QModelIndex& parent) const
{
    const int count = int(nodes.size());
    if (m_model->rowCount(parent) != count || m_model->columnCount(parent) != 2) {
        return QString("%1 has %2 rows, not %3")
            .arg(label(parent.internalPointer()))
            .arg(m_model->rowCount(parent))
            .arg(count);
    }
    for (int row = 0; row < count; ++row) {
        const Node* node = nodes[row];
        const QModelIndex index = m_model->index(row, 0, parent);
        if (m_model->getEntity(index) != node->item) {
            return QString("%1 stands in row %2 under %3, not %4")
                .arg(label(m_model->getEntity(index)))
                .arg(row)
                .arg(label(parent.internalPointer()), node->label);
        }
        bool hidden = true;
        if (!m_model->contains(node->item, hidden) || hidden ||
            m_model->index(node->item) != index || m_model->parent(index) != parent ||
            m_model->parent(index.siblingAtColumn(1)) != parent) {
            return node->label + " is not found where it stands";
        }
        QString difference = check_cells(node, index);
        if (difference.isEmpty()) {
            difference = check_visible(node->children, index);
        }
        if (!difference.isEmpty()) {
            return difference;
        }
    }
    return {};
}

QString RandomSequence::check_cells(const Node* node, const QModelIndex& index) const
{
    const Facts& facts = *node->facts;
    const QModelIndex second = m_model->index(index.row(), 1, index.parent());
    const QVariant number = facts.id > 0 ? QVariant(facts.id) : QVariant();
    if (index.data() != QVariant(facts.shown()) ||
        index.data(Qt::EditRole) != QVariant(facts.name) || second.data() != number ||
        second.data(Qt::EditRole) != number) {
        return node->label + " shows other texts than it has";
    }

    const Qt::ItemFlags base = Qt::ItemIsSelectable | Qt::ItemIsEnabled;
    if (index.flags() != (facts.editable ? base | Qt::ItemIsEditable : base) ||
        second.flags() != base) {
        return node->label + " has other flags than it should";
    }

    if (m_icons) {
        m_icons->asked.clear();
    }
    if (index.data(Qt::DecorationRole).userType() != QMetaType::QIcon ||
        second.data(Qt::DecorationRole).isValid()) {
        return node->label + " has an icon too few or too many";
    }
    const auto asked = std::vector<const EntityItem*>(facts.visible ? 1 : 0, node->item);
    if (m_icons && m_icons->asked != asked) {
        return node->label + " asks for its icon too often or not at all";
    }
    return {};
}

QString RandomSequence::check_hidden(const Node* node) const
{
    bool hidden = false;
    if (!m_model->contains(node->item, hidden) || !hidden || m_model->index(node->item).isValid()) {
        return node->label + " is not known as hidden";
    }
    if (node->item->childCount() != int(node->children.size())) {
        return QString("%1, hidden, has %2 children, not %3")
            .arg(node->label)
            .arg(node->item->childCount())
            .arg(node->children.size());
    }
    for (size_t row = 0; row < node->children.size(); ++row) {
        const Node* child = node->children[row];
        if (node->item->getChild(int(row)) != child->item) {
            return QString("row %1 under %2, hidden, is not %3")
                .arg(row)
                .arg(node->label, child->label);
        }
        if (child->item->getParentEntity() != node->item) {
            return child->label + ", hidden, has another parent than it should";
        }
        QString difference = check_hidden(child);
        if (!difference.isEmpty()) {
            return difference;
        }
    }
    return {};
}

/// Looks for children and neighbours of one node through the item alone.
QString RandomSequence::check_lookups()
{
    const Node* node = any_node();
    if (!node) {
        return {};
    }
    const int id = m_random.pick(ids);
    const int type = m_random.pick(types);
    const EntityItem* by_id = nullptr;
    const EntityItem* by_both = nullptr;
    std::set<int> all;
    std::set<int> of_type;
    for (const Node* child : node->children) {
        all.insert(child->facts->id);
        if (!by_id && child->facts->id == id) {
            by_id = child->item;
        }
        if (child->facts->type != type) {
            continue;
        }
        of_type.insert(child->facts->id);
        if (!by_both && child->facts->id == id) {
            by_both = child->item;
        }
    }
    std::set<int> found;
    std::set<int> found_of_type;
    node->item->getChildIds(found);
    node->item->getChildIds(found_of_type, type);
    if (node->item->getChildById(id) != by_id || node->item->getChildById(id, type) != by_both ||
        found != all || found_of_type != of_type) {
        return "children are not found by their numbers under " + node->label;
    }

    const Node* walked = node;
    for (EntityItem* item = node->item; item; item = item->getNext(node->item)) {
        if (!walked || item != walked->item) {
            return "the walk under " + node->label + " comes to another item than it should";
        }
        walked = TreeReference::next(walked, node);
    }
    return walked ? "the walk under " + node->label + " ends too soon" : QString();
}

QString RandomSequence::check_shared() const
{
    for (const Shared& shared : m_shared) {
        std::vector<EntityItem*> items;
        shared.data->iterateItems([&items](EntityItem* item) { items.push_back(item); });
        const auto& nodes = shared.facts->nodes;
        const bool same = std::equal(items.begin(), items.end(), nodes.begin(), nodes.end(),
            [](const EntityItem* item, const Node* node) { return item == node->item; });
        if (!same || shared.data->itemsEmpty() != nodes.empty()) {
            return "shared data has other items than stand over it";
        }
    }
    return {};
}

/// The model's own end: a reset, and the deletion of all that it holds.
QString RandomSequence::finish()
{
    say("destroy the model");
    m_model.reset();
    m_reference.clear();
    const QString difference = check_signals();
    return difference.isEmpty() ? check_deletions() : difference;
}

QString RandomSequence::describe(const std::vector<ModelEvent>& events) const
{
    QStringList texts;
    for (const ModelEvent& event : events) {
        const QString rows =
            QString("%1-%2 under %3").arg(event.first).arg(event.last).arg(label(event.parent));
        switch (event.kind) {
        case ModelEvent::Inserted:
            texts.append("rows inserted " + rows);
            break;
        case ModelEvent::Removed:
            texts.append("rows removed " + rows);
            break;
        case ModelEvent::Moved:
            texts.append(QString("rows moved %1 before row %2 under %3")
                             .arg(rows)
                             .arg(event.destination_row)
                             .arg(label(event.destination)));
            break;
        case ModelEvent::Changed:
            texts.append("rows changed " + rows);
            break;
        case ModelEvent::LaidOut:
            texts.append("layout of " + label(event.parent));
            break;
        case ModelEvent::Reset:
            texts.append("reset");
            break;
        }
    }
    return texts.join(", ");
}

QString RandomSequence::label(const void* item) const
{
    if (!item) {
        return "the root";
    }
    for (const Node* node : m_reference.nodes()) {
        if (node->item == item) {
            return node->label;
        }
    }
    return "an unknown item";
}
