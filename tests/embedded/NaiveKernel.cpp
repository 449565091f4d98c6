#include "NaiveKernel.hpp"

#include <algorithm>
#include <QMap>
#include <treemodel/kernel/KestoInterface.hpp>

namespace {

constexpr std::array geometry_downwards{EntityKind::BODY, EntityKind::VOLUME, EntityKind::SURFACE,
    EntityKind::CURVE, EntityKind::VERTEX};

EntityKind moved(EntityKind kind, int levels)
{
    return static_cast<EntityKind>(static_cast<int>(kind) + levels);
}

template <typename Ids>
QString text(const Ids& ids)
{
    QStringList words;
    for (const int id : ids) {
        words << QString::number(id);
    }
    return words.join(u' ');
}

QString line(EntityKind kind, int id, const std::string& name, bool visible, bool is_virtual,
    bool holds_virtual, bool is_sheet, bool is_free, const QString& children)
{
    return QStringLiteral("%1 %2 '%3'%4%5%6%7%8: %9")
        .arg(QString::fromStdString(entity_word(kind)))
        .arg(id)
        .arg(QString::fromStdString(name), visible ? QString() : QStringLiteral(" hidden"),
            is_virtual ? QStringLiteral(" virtual") : QString(),
            holds_virtual ? QStringLiteral(" holds virtual") : QString(),
            is_sheet ? QStringLiteral(" sheet") : QString(),
            is_free ? QStringLiteral(" free") : QString(), children);
}

QString group_line(int id, const std::string& name, bool visible, const QStringList& members)
{
    return QStringLiteral("group %1 '%2'%3: %4")
        .arg(id)
        .arg(QString::fromStdString(name), visible ? QString() : QStringLiteral(" hidden"),
            members.join(QStringLiteral(" / ")));
}

} // namespace

int NaiveKernel::create(EntityKind kind, const std::vector<int>& children, const std::string& name)
{
    auto& entities = m_entities[kind];
    const int id = entities.empty() ? 1 : entities.rbegin()->first + 1;
    entities[id].name = name;
    entities[id].children = children;
    return id;
}

void NaiveKernel::relate(EntityKind parent_kind, int parent, int child)
{
    m_entities[parent_kind][parent].children.push_back(child);
}

void NaiveKernel::unrelate(EntityKind parent_kind, int parent, int child)
{
    std::erase(m_entities[parent_kind][parent].children, child);
}

void NaiveKernel::set_sheet(int volume, bool is_sheet)
{
    m_entities[EntityKind::VOLUME][volume].is_sheet = is_sheet;
}

void NaiveKernel::set_virtual(EntityKind kind, int id, bool is_virtual)
{
    m_entities[kind][id].is_virtual = is_virtual;
}

void NaiveKernel::rename(EntityKind kind, int id, const std::string& name)
{
    m_entities[kind][id].name = name;
}

void NaiveKernel::renumber(EntityKind kind, int id, int new_id)
{
    if (id == new_id) {
        return;
    }
    auto node = m_entities[kind].extract(id);
    node.key() = new_id;
    m_entities[kind].insert(std::move(node));
    if (kind < EntityKind::BODY) {
        for (auto& [parent, entity] : m_entities[moved(kind, 1)]) {
            std::replace(entity.children.begin(), entity.children.end(), id, new_id);
        }
    }
    for (auto& [group, entity] : m_entities[EntityKind::GROUP]) {
        if (entity.members[kind].erase(id) > 0) {
            entity.members[kind].insert(new_id);
        }
    }
}

void NaiveKernel::set_visible(EntityKind kind, int id, bool is_visible)
{
    m_entities[kind][id].visible = is_visible;
}

void NaiveKernel::remove(EntityKind kind, int id)
{
    const std::vector<int> children = m_entities[kind][id].children;
    m_entities[kind].erase(id);
    if (kind < EntityKind::BODY) {
        for (auto& [parent, entity] : m_entities[moved(kind, 1)]) {
            std::erase(entity.children, id);
        }
    }
    for (auto& [group, entity] : m_entities[EntityKind::GROUP]) {
        entity.members[kind].erase(id);
    }
    for (const int child : children) {
        if (parents(moved(kind, -1), child).empty()) {
            remove(moved(kind, -1), child);
        }
    }
}

void NaiveKernel::add_to_group(int group, EntityKind kind, const std::vector<int>& ids)
{
    m_entities[EntityKind::GROUP][group].members[kind].insert(ids.begin(), ids.end());
}

void NaiveKernel::remove_from_group(int group, EntityKind kind, const std::vector<int>& ids)
{
    for (const int id : ids) {
        m_entities[EntityKind::GROUP][group].members[kind].erase(id);
    }
}

bool NaiveKernel::contains(EntityKind kind, int id) const
{
    const auto entities = m_entities.find(kind);
    return entities != m_entities.end() && entities->second.contains(id);
}

std::vector<int> NaiveKernel::ids(EntityKind kind) const
{
    std::vector<int> ids;
    if (const auto entities = m_entities.find(kind); entities != m_entities.end()) {
        for (const auto& [id, entity] : entities->second) {
            ids.push_back(id);
        }
    }
    return ids;
}

bool NaiveKernel::has_child(EntityKind parent_kind, int parent, int child) const
{
    const std::vector<int>& children = m_entities.at(parent_kind).at(parent).children;
    return std::find(children.begin(), children.end(), child) != children.end();
}

bool NaiveKernel::holds_group(int outer, int inner) const
{
    if (outer == inner) {
        return true;
    }
    const auto& members = m_entities.at(EntityKind::GROUP).at(outer).members;
    const auto groups = members.find(EntityKind::GROUP);
    return groups != members.end() && std::any_of(groups->second.begin(), groups->second.end(),
                                          [&](int group) { return holds_group(group, inner); });
}

std::vector<int> NaiveKernel::parents(EntityKind kind, int id) const
{
    std::vector<int> parents;
    if (kind < EntityKind::BODY) {
        for (const int parent : ids(moved(kind, 1))) {
            if (has_child(moved(kind, 1), parent, id)) {
                parents.push_back(parent);
            }
        }
    }
    return parents;
}

std::set<int> NaiveKernel::relatives(EntityKind kind, int id, EntityKind target) const
{
    if (kind == target) {
        return {id};
    }
    std::set<int> found;
    const bool upwards = target > kind;
    for (const int near : upwards ? parents(kind, id) : m_entities.at(kind).at(id).children) {
        found.merge(relatives(moved(kind, upwards ? 1 : -1), near, target));
    }
    return found;
}

bool NaiveKernel::holds_virtual(EntityKind kind, int id) const
{
    const Entity& entity = m_entities.at(kind).at(id);
    return entity.is_virtual ||
           std::any_of(entity.children.begin(), entity.children.end(),
               [&](int child) { return holds_virtual(moved(kind, -1), child); });
}

QStringList NaiveKernel::dump() const
{
    QStringList lines;
    for (const EntityKind kind : geometry_downwards) {
        for (const int id : ids(kind)) {
            const Entity& entity = m_entities.at(kind).at(id);
            lines << line(kind, id, entity.name, entity.visible, entity.is_virtual,
                holds_virtual(kind, id), entity.is_sheet,
                kind <= EntityKind::SURFACE && parents(kind, id).empty(), text(entity.children));
        }
    }
    for (const int id : ids(EntityKind::GROUP)) {
        const Entity& entity = m_entities.at(EntityKind::GROUP).at(id);
        QStringList members{{}, {}, {}, {}, {}, {}};
        for (const auto& [kind, member_ids] : entity.members) {
            members[static_cast<int>(kind)] = text(member_ids);
        }
        lines << group_line(id, entity.name, entity.visible, members);
    }
    return lines;
}

QStringList dump_of_boundary()
{
    using namespace KestoInterface;
    QStringList lines;
    for (const EntityKind kind : geometry_downwards) {
        const std::string& word = entity_word(kind);
        const std::vector<int> free = get_list_of_free_ref_entities(word);
        for (const int id : get_entities(word)) {
            lines << line(kind, id, get_entity_name(word, id, true), is_visible(word, id),
                is_virtual(word, id), contains_virtual(word, id),
                kind == EntityKind::VOLUME && is_sheet_body(id),
                std::find(free.begin(), free.end(), id) != free.end(),
                kind == EntityKind::VERTEX
                    ? QString()
                    : text(get_relatives(word, id, entity_word(moved(kind, -1)))));
        }
    }
    std::vector<std::string> names;
    std::vector<int> groups;
    group_list(names, groups);
    QMap<int, QString> group_lines;
    for (std::size_t i = 0; i < groups.size(); ++i) {
        std::array<std::vector<int>, 6> ids;
        int count = 0;
        get_group_children(groups[i], ids[5], ids[4], ids[3], ids[2], ids[1], ids[0], count, count,
            count, count, count, count, count, count, count);
        QStringList members;
        for (const std::vector<int>& list : ids) {
            members << text(list);
        }
        group_lines[groups[i]] =
            group_line(groups[i], names[i], is_visible("group", groups[i]), members);
    }
    return lines + group_lines.values();
}
