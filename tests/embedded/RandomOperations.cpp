#include "RandomOperations.hpp"

#include <algorithm>
#include <functional>
#include <stdexcept>
#include <utility>

namespace {

EntityKind below_kind(EntityKind kind)
{
    return static_cast<EntityKind>(static_cast<int>(kind) - 1);
}

bool are_all_in(const NaiveKernel& naive, EntityKind kind, const std::vector<int>& ids)
{
    return std::all_of(ids.begin(), ids.end(), [&](int id) { return naive.contains(kind, id); });
}

} // namespace

int RandomOperations::id(const NaiveKernel& naive, EntityKind kind)
{
    const std::vector<int> ids = naive.ids(kind);
    if (ids.empty() || below(20) == 0) {
        return below(100) - 2;
    }
    return ids[static_cast<std::size_t>(below(static_cast<int>(ids.size())))];
}

std::vector<int> RandomOperations::some_ids(const NaiveKernel& naive, EntityKind kind)
{
    std::vector<int> ids;
    for (int i = below(4); i > 0; --i) {
        const int one = id(naive, kind);
        if (std::find(ids.begin(), ids.end(), one) == ids.end()) {
            ids.push_back(one);
        }
    }
    return ids;
}

QString RandomOperations::run(EmbeddedKernel& kernel, NaiveKernel& naive)
{
    QString text;
    bool makes_sense = false;
    std::function<void()> ask;
    std::function<void()> follow;
    const auto describe = [&text](const char* operation, EntityKind kind, auto... ids) {
        text = QString::fromLatin1(operation) + u' ' + QString::fromStdString(entity_word(kind));
        ((text += u' ' + QString::number(ids)), ...);
    };

    switch (below(15)) {
    case 0:
    case 1: {
        const EntityKind kind = geometry_kind();
        const std::vector<int> children =
            kind == EntityKind::VERTEX ? std::vector<int>() : some_ids(naive, below_kind(kind));
        describe("create", kind, children.size());
        makes_sense = children.empty() || are_all_in(naive, below_kind(kind), children);
        ask = [=, &kernel] {
            switch (kind) {
            case EntityKind::VERTEX:
                kernel.create_vertex("new");
                break;
            case EntityKind::CURVE:
                kernel.create_curve(children, "new");
                break;
            case EntityKind::SURFACE:
                kernel.create_surface(children, "new");
                break;
            case EntityKind::VOLUME:
                kernel.create_volume(children, "new");
                break;
            default:
                kernel.create_body(children, "new");
            }
        };
        follow = [=, &naive] { naive.create(kind, children, "new"); };
        break;
    }
    case 2: {
        const std::vector<int> surfaces = some_ids(naive, EntityKind::SURFACE);
        describe("create sheet", EntityKind::BODY, surfaces.size());
        makes_sense = are_all_in(naive, EntityKind::SURFACE, surfaces);
        ask = [=, &kernel] { kernel.create_sheet_body(surfaces, "sheet"); };
        follow = [=, &naive] {
            const int volume = naive.create(EntityKind::VOLUME, surfaces, {});
            naive.set_sheet(volume, true);
            naive.create(EntityKind::BODY, {volume}, "sheet");
        };
        break;
    }
    case 3:
    case 4: {
        const EntityKind kind = parent_kind();
        const int parent = id(naive, kind);
        const int child = id(naive, below_kind(kind));
        const bool relate = below(2) == 0;
        describe(relate ? "relate" : "unrelate", kind, parent, child);
        makes_sense = naive.contains(kind, parent) && naive.contains(below_kind(kind), child) &&
                      naive.has_child(kind, parent, child) != relate;
        ask = [=, &kernel] {
            relate ? kernel.relate(kind, parent, child) : kernel.unrelate(kind, parent, child);
        };
        follow = [=, &naive] {
            relate ? naive.relate(kind, parent, child) : naive.unrelate(kind, parent, child);
        };
        break;
    }
    case 5: {
        const int volume = id(naive, EntityKind::VOLUME);
        const bool is_sheet = below(2) == 0;
        describe("sheet", EntityKind::VOLUME, volume, is_sheet);
        makes_sense = naive.contains(EntityKind::VOLUME, volume);
        ask = [=, &kernel] { kernel.set_sheet(volume, is_sheet); };
        follow = [=, &naive] { naive.set_sheet(volume, is_sheet); };
        break;
    }
    case 6:
    case 7: {
        const EntityKind kind = any_kind();
        const int one = id(naive, kind);
        const bool is_virtual = below(2) == 0;
        describe("virtual", kind, one, is_virtual);
        makes_sense = kind != EntityKind::GROUP && naive.contains(kind, one);
        ask = [=, &kernel] { kernel.set_virtual(kind, one, is_virtual); };
        follow = [=, &naive] { naive.set_virtual(kind, one, is_virtual); };
        break;
    }
    case 8: {
        const EntityKind kind = any_kind();
        const int one = id(naive, kind);
        const std::string name = below(3) == 0 ? std::string() : std::to_string(below(3));
        describe("rename", kind, one);
        makes_sense = naive.contains(kind, one);
        ask = [=, &kernel] { kernel.rename(kind, one, name); };
        follow = [=, &naive] { naive.rename(kind, one, name); };
        break;
    }
    case 9: {
        const EntityKind kind = any_kind();
        const int one = id(naive, kind);
        const int new_id = below(200) - 1;
        describe("renumber", kind, one, new_id);
        makes_sense = naive.contains(kind, one) &&
                      (one == new_id || (new_id > 0 && !naive.contains(kind, new_id)));
        ask = [=, &kernel] { kernel.renumber(kind, one, new_id); };
        follow = [=, &naive] { naive.renumber(kind, one, new_id); };
        break;
    }
    case 10: {
        const EntityKind kind = any_kind();
        const int one = id(naive, kind);
        const bool is_visible = below(2) == 0;
        describe("visible", kind, one, is_visible);
        makes_sense = naive.contains(kind, one);
        ask = [=, &kernel] { kernel.set_visible(kind, one, is_visible); };
        follow = [=, &naive] { naive.set_visible(kind, one, is_visible); };
        break;
    }
    case 11: {
        const EntityKind kind = any_kind();
        const int one = id(naive, kind);
        describe("remove", kind, one);
        makes_sense = naive.contains(kind, one);
        ask = [=, &kernel] { kernel.remove(kind, one); };
        follow = [=, &naive] { naive.remove(kind, one); };
        break;
    }
    case 12: {
        std::vector<std::pair<EntityKind, int>> entities;
        text = QStringLiteral("remove at once");
        makes_sense = true;
        for (int i = below(5); i > 0; --i) {
            const EntityKind kind = any_kind();
            const int one = id(naive, kind);
            entities.emplace_back(kind, one);
            text +=
                QStringLiteral(" %1 %2").arg(QString::fromStdString(entity_word(kind))).arg(one);
            makes_sense = makes_sense && naive.contains(kind, one);
        }
        ask = [=, &kernel] { kernel.remove(entities); };
        follow = [=, &naive] {
            for (const auto& [kind, one] : entities) {
                if (naive.contains(kind, one)) {
                    naive.remove(kind, one);
                }
            }
        };
        break;
    }
    case 13: {
        describe("create", EntityKind::GROUP);
        makes_sense = true;
        ask = [=, &kernel] { kernel.create_group("group"); };
        follow = [=, &naive] { naive.create(EntityKind::GROUP, {}, "group"); };
        break;
    }
    default: {
        const int group = id(naive, EntityKind::GROUP);
        const EntityKind kind = any_kind();
        const std::vector<int> ids = some_ids(naive, kind);
        const bool add = below(3) > 0;
        describe(add ? "add to" : "remove from", EntityKind::GROUP, group, ids.size());
        makes_sense = naive.contains(EntityKind::GROUP, group) && are_all_in(naive, kind, ids) &&
                      !(add && kind == EntityKind::GROUP &&
                          std::any_of(ids.begin(), ids.end(),
                              [&](int inner) { return naive.holds_group(inner, group); }));
        ask = [=, &kernel] {
            add ? kernel.add_to_group(group, kind, ids)
                : kernel.remove_from_group(group, kind, ids);
        };
        follow = [=, &naive] {
            add ? naive.add_to_group(group, kind, ids) : naive.remove_from_group(group, kind, ids);
        };
    }
    }

    // The naive kernel goes first: an operation from inside a notification finds it as the kernel.
    if (makes_sense) {
        follow();
    }
    bool is_refused = false;
    try {
        ask();
    } catch (const std::invalid_argument&) {
        is_refused = true;
    }
    if (is_refused == makes_sense) {
        throw std::logic_error((makes_sense ? "refused: " : "taken: ") + text.toStdString());
    }
    return text;
}
