#include "PlainMirror.hpp"

#include <algorithm>
#include <array>

using namespace KestoInterface;

namespace {

constexpr std::array geometry{EntityKind::VERTEX, EntityKind::CURVE, EntityKind::SURFACE,
    EntityKind::VOLUME, EntityKind::BODY};

} // namespace

QStringList PlainMirror::dump() const
{
    QStringList lines;
    for (const auto& [entity, picture] : m_pictures) {
        QString line = QStringLiteral("%1 %2 '%3' visible %4 virtual %5 sheet %6:")
                           .arg(QString::fromStdString(entity_word(entity.first)))
                           .arg(entity.second)
                           .arg(QString::fromStdString(picture.name))
                           .arg(picture.visible)
                           .arg(picture.holds_virtual)
                           .arg(picture.is_sheet);
        for (const auto& [kind, children] : picture.children) {
            std::vector<int> ids = children;
            std::sort(ids.begin(), ids.end());
            for (const int id : ids) {
                line +=
                    QStringLiteral(" %1 %2").arg(QString::fromStdString(entity_word(kind))).arg(id);
            }
        }
        lines << line;
    }
    return lines;
}

QStringList PlainMirror::dump_of_kernel()
{
    PlainMirror fresh;
    fresh.unregister_observer();
    fresh.read_everything();
    return fresh.dump();
}

void PlainMirror::notify_entity_id_changed(std::string type, int old_id, int new_id)
{
    const EntityKind kind = entity_kind(type).value();
    auto node = m_pictures.extract({kind, old_id});
    if (!node.empty()) {
        node.key().second = new_id;
        m_pictures.insert(std::move(node));
    }
    for (auto& [entity, picture] : m_pictures) {
        std::vector<int>& ids = picture.children[kind];
        std::replace(ids.begin(), ids.end(), old_id, new_id);
    }
}

PlainMirror::Picture PlainMirror::picture(EntityKind kind, int id)
{
    const std::string& word = entity_word(kind);
    Picture picture;
    picture.name = get_entity_name(word, id, kind != EntityKind::GROUP);
    picture.visible = is_visible(word, id);
    picture.holds_virtual = contains_virtual(word, id);
    picture.is_sheet = kind == EntityKind::VOLUME && is_sheet_body(id);
    if (kind == EntityKind::GROUP) {
        int count = 0;
        auto& of = picture.children;
        get_group_children(id, of[EntityKind::GROUP], of[EntityKind::BODY], of[EntityKind::VOLUME],
            of[EntityKind::SURFACE], of[EntityKind::CURVE], of[EntityKind::VERTEX], count, count,
            count, count, count, count, count, count, count);
    } else if (kind != EntityKind::VERTEX) {
        const auto below = static_cast<EntityKind>(static_cast<int>(kind) - 1);
        picture.children[below] = get_relatives(word, id, entity_word(below));
    }
    return picture;
}

void PlainMirror::read(EntityKind kind, int id)
{
    m_pictures[{kind, id}] = picture(kind, id);
}

void PlainMirror::reread(const std::string& type, int id)
{
    const EntityKind kind = entity_kind(type).value();
    if (const auto known = m_pictures.find({kind, id}); known != m_pictures.end()) {
        known->second = picture(kind, id);
    }
}

void PlainMirror::forget(EntityKind kind, int id)
{
    m_pictures.erase({kind, id});
    for (auto& [entity, picture] : m_pictures) {
        std::erase(picture.children[kind], id);
    }
}

void PlainMirror::read_everything()
{
    m_pictures.clear();
    for (const EntityKind kind : geometry) {
        for (const int id : get_entities(entity_word(kind))) {
            read(kind, id);
        }
    }
    std::vector<std::string> names;
    std::vector<int> groups;
    group_list(names, groups);
    for (const int group : groups) {
        read(EntityKind::GROUP, group);
    }
}
