#include "KernelRunner.hpp"

#include <algorithm>
#include <QStringList>
#include <stdexcept>

namespace {

constexpr int kind_count = int(EntityKind::WALL) + 1;
constexpr int geometry_kinds = 5;
constexpr int first_condition = int(EntityKind::FORCE);

EntityKind any_kind(const KernelStep& step)
{
    return EntityKind(step.kind % kind_count);
}
EntityKind geometry_kind(const KernelStep& step)
{
    return EntityKind(step.kind % geometry_kinds);
}
EntityKind parent_kind(const KernelStep& step)
{
    return EntityKind(1 + step.kind % (geometry_kinds - 1));
}
EntityKind set_kind(const KernelStep& step)
{
    return EntityKind(int(EntityKind::BLOCK) + step.kind % 3);
}
EntityKind condition_kind(const KernelStep& step)
{
    return EntityKind(first_condition + step.kind % (kind_count - first_condition));
}

// Kinds that share one range of ids count as one.
EntityKind range_of(EntityKind kind)
{
    if (kind >= EntityKind::AXIS) {
        return EntityKind::AXIS;
    }
    return kind == EntityKind::MEDIUM ? EntityKind::MATERIAL : kind;
}

std::string name(std::uint32_t number)
{
    static const std::array<std::string, 6> names{
        "", "Lid", "Geh\xc3\xa4use", "Foo (v)", "Surface 1", "Entity 2"};
    return names[number % names.size()];
}

QString text(EntityKind kind, int id)
{
    return QStringLiteral("%1 %2").arg(QString::fromStdString(entity_word(kind))).arg(id);
}

/// One of each geometric kind above a few vertices, with one group in another.
ModelData small_model(const KernelStep& step)
{
    ModelData model;
    model.vertices.resize(1 + step.first % 3);
    model.vertices[0].is_virtual = step.kind % 2;
    model.curves.resize(2);
    model.curves[0].children = {1};
    model.surfaces.resize(1);
    model.surfaces[0].children = {2, 1};
    model.volumes.resize(1);
    model.volumes[0].children = {1};
    model.volumes[0].is_sheet = step.second % 2;
    model.bodies.resize(2);
    model.bodies[0].children = {1};
    model.bodies[1].children = {1};
    model.bodies[1].name = name(step.second);
    model.groups.resize(2);
    model.groups[0].groups = {2};
    model.groups[1].bodies = {1};
    model.groups[1].vertices = {1};
    return model;
}

std::map<EntityKind, int> counts(const ModelData& model)
{
    return {
        {EntityKind::VERTEX, int(model.vertices.size())},
        {EntityKind::CURVE, int(model.curves.size())},
        {EntityKind::SURFACE, int(model.surfaces.size())},
        {EntityKind::VOLUME, int(model.volumes.size())},
        {EntityKind::BODY, int(model.bodies.size())},
        {EntityKind::GROUP, int(model.groups.size())},
    };
}

} // namespace

// Creation stands more often than removal, so that a model grows.
const std::array<KernelRunner::Operation, 38> KernelRunner::operations{{
    {"create", &KernelRunner::create_geometry},
    {"create", &KernelRunner::create_geometry},
    {"create", &KernelRunner::create_geometry},
    {"create", &KernelRunner::create_geometry},
    {"create", &KernelRunner::create_geometry},
    {"create sheet", &KernelRunner::create_sheet},
    {"create", &KernelRunner::create_other},
    {"create", &KernelRunner::create_other},
    {"create", &KernelRunner::create_condition},
    {"set sets of", &KernelRunner::set_condition_sets},
    {"relate", &KernelRunner::relate},
    {"relate", &KernelRunner::relate},
    {"unrelate", &KernelRunner::unrelate},
    {"set sheet of", &KernelRunner::set_sheet},
    {"set virtual", &KernelRunner::set_virtual},
    {"set virtual", &KernelRunner::set_virtual},
    {"add to", &KernelRunner::add_to_group},
    {"add to", &KernelRunner::add_to_group},
    {"take from", &KernelRunner::remove_from_group},
    {"count in", &KernelRunner::set_counts},
    {"set lite", &KernelRunner::set_lite},
    {"turn", &KernelRunner::change_kind},
    {"rename", &KernelRunner::rename},
    {"rename", &KernelRunner::rename},
    {"renumber", &KernelRunner::renumber},
    {"renumber", &KernelRunner::renumber},
    {"show or hide", &KernelRunner::set_visible},
    {"show or hide", &KernelRunner::set_visible},
    {"select", &KernelRunner::select},
    {"deselect", &KernelRunner::deselect},
    {"select none", &KernelRunner::select_none},
    {"run", &KernelRunner::run_command},
    {"remove", &KernelRunner::remove},
    {"remove at once", &KernelRunner::remove_many},
    {"import", &KernelRunner::import_model},
    {"open", &KernelRunner::open_model},
    {"replace", &KernelRunner::replace_model},
    {"clear", &KernelRunner::clear},
}};

QString KernelRunner::run(const KernelStep& step)
{
    const Operation& operation = operations[step.operation % operations.size()];
    try {
        return QLatin1String(operation.name) + ' ' + (this->*operation.run)(step);
    } catch (const std::invalid_argument&) {
        return {};
    }
}

// Mostly an id in use, now and then one that is not.
int KernelRunner::id(EntityKind kind, std::uint32_t number)
{
    return 1 + int(number % unsigned(m_highest[range_of(kind)] + 1));
}

std::vector<int> KernelRunner::few_ids(EntityKind kind, std::uint32_t number)
{
    std::vector<int> ids;
    for (; number % 4 != 0; number /= 4) {
        const int candidate = id(kind, number / 4);
        if (std::find(ids.begin(), ids.end(), candidate) == ids.end()) {
            ids.push_back(candidate);
        }
    }
    return ids;
}

QString KernelRunner::created(EntityKind kind, int id)
{
    m_highest[range_of(kind)] = std::max(m_highest[range_of(kind)], id);
    return text(kind, id);
}

QString KernelRunner::create_geometry(const KernelStep& step)
{
    const EntityKind kind = geometry_kind(step);
    const std::string called = name(step.second);
    switch (kind) {
    case EntityKind::VERTEX:
        return created(kind, m_kernel.create_vertex(called));
    case EntityKind::CURVE:
        return created(
            kind, m_kernel.create_curve(few_ids(EntityKind::VERTEX, step.first), called));
    case EntityKind::SURFACE:
        return created(
            kind, m_kernel.create_surface(few_ids(EntityKind::CURVE, step.first), called));
    case EntityKind::VOLUME:
        return created(
            kind, m_kernel.create_volume(few_ids(EntityKind::SURFACE, step.first), called));
    default:
        return created(kind, m_kernel.create_body(few_ids(EntityKind::VOLUME, step.first), called));
    }
}

QString KernelRunner::create_sheet(const KernelStep& step)
{
    const int body =
        m_kernel.create_sheet_body(few_ids(EntityKind::SURFACE, step.first), name(step.second));
    ++m_highest[EntityKind::VOLUME];
    return created(EntityKind::BODY, body);
}

QString KernelRunner::create_other(const KernelStep& step)
{
    switch (step.first % 6) {
    case 0:
        return created(EntityKind::GROUP, m_kernel.create_group(name(step.second)));
    case 1:
        return created(EntityKind::SIZING_SOURCE, m_kernel.create_sizing_source());
    case 2:
        return created(EntityKind::BOUNDARY_LAYER, m_kernel.create_boundary_layer());
    case 3:
        return created(EntityKind::MATERIAL, m_kernel.create_material(name(step.second)));
    case 4:
        return created(EntityKind::MEDIUM, m_kernel.create_medium(name(step.second)));
    default:
        return created(set_kind(step),
            m_kernel.create_set(set_kind(step), name(step.second), step.second % 2));
    }
}

QString KernelRunner::create_condition(const KernelStep& step)
{
    return created(condition_kind(step),
        m_kernel.create_condition(condition_kind(step), few_ids(EntityKind::SIDESET, step.first),
            few_ids(EntityKind::NODESET, step.second), name(step.first)));
}

QString KernelRunner::set_condition_sets(const KernelStep& step)
{
    const int condition = id(condition_kind(step), step.kind);
    m_kernel.set_condition_sets(condition_kind(step), condition,
        few_ids(EntityKind::SIDESET, step.first), few_ids(EntityKind::NODESET, step.second));
    return text(condition_kind(step), condition);
}

QString KernelRunner::relate(const KernelStep& step)
{
    const EntityKind kind = parent_kind(step);
    const int parent = id(kind, step.first);
    const int child = id(EntityKind(int(kind) - 1), step.second);
    m_kernel.relate(kind, parent, child);
    return text(kind, parent) + QStringLiteral(" to %1").arg(child);
}

QString KernelRunner::unrelate(const KernelStep& step)
{
    const EntityKind kind = parent_kind(step);
    const int parent = id(kind, step.first);
    const int child = id(EntityKind(int(kind) - 1), step.second);
    m_kernel.unrelate(kind, parent, child);
    return text(kind, parent) + QStringLiteral(" from %1").arg(child);
}

QString KernelRunner::set_sheet(const KernelStep& step)
{
    const int volume = id(EntityKind::VOLUME, step.first);
    m_kernel.set_sheet(volume, step.second % 2);
    return text(EntityKind::VOLUME, volume);
}

QString KernelRunner::set_virtual(const KernelStep& step)
{
    const int entity = id(geometry_kind(step), step.first);
    m_kernel.set_virtual(geometry_kind(step), entity, step.second % 2);
    return text(geometry_kind(step), entity) + (step.second % 2 ? " on" : " off");
}

QString KernelRunner::add_to_group(const KernelStep& step)
{
    const int group = id(EntityKind::GROUP, step.first);
    const EntityKind kind = EntityKind(step.kind % 6);
    m_kernel.add_to_group(group, kind, few_ids(kind, step.second));
    return text(EntityKind::GROUP, group);
}

QString KernelRunner::remove_from_group(const KernelStep& step)
{
    const int group = id(EntityKind::GROUP, step.first);
    const EntityKind kind = EntityKind(step.kind % 6);
    m_kernel.remove_from_group(group, kind, few_ids(kind, step.second));
    return text(EntityKind::GROUP, group);
}

QString KernelRunner::set_counts(const KernelStep& step)
{
    const int group = id(EntityKind::GROUP, step.first);
    ElementCounts counts;
    counts.hexes = int(step.second % 3);
    counts.nodes = int(step.second / 3 % 3);
    counts.spheres = int(step.second / 9 % 2);
    m_kernel.set_element_counts(group, counts);
    return text(EntityKind::GROUP, group);
}

QString KernelRunner::set_lite(const KernelStep& step)
{
    const int set = id(set_kind(step), step.first);
    m_kernel.set_lite(set_kind(step), set, step.second % 2);
    return text(set_kind(step), set);
}

QString KernelRunner::change_kind(const KernelStep& step)
{
    const EntityKind kind = any_kind(step);
    const EntityKind new_kind = EntityKind(step.second % kind_count);
    const int entity = id(kind, step.first);
    m_kernel.change_kind(kind, entity, new_kind);
    // A fluid boundary condition that is replaced by one of another kind is read
    // with its next event only.
    m_kernel.request_refresh();
    return text(kind, entity) + QStringLiteral(" to ") + text(new_kind, entity);
}

QString KernelRunner::rename(const KernelStep& step)
{
    const int entity = id(any_kind(step), step.first);
    m_kernel.rename(any_kind(step), entity, name(step.second));
    return text(any_kind(step), entity) + ' ' + QString::fromStdString(name(step.second));
}

QString KernelRunner::renumber(const KernelStep& step)
{
    const EntityKind kind = any_kind(step);
    const int entity = id(kind, step.first);
    const int new_id = 1 + int(step.second % unsigned(m_highest[range_of(kind)] + 3));
    m_kernel.renumber(kind, entity, new_id);
    const bool is_followed = kind <= EntityKind::GROUP || kind >= EntityKind::FORCE;
    if (!is_followed) {
        m_kernel.request_refresh();
    }
    created(kind, new_id);
    return text(kind, entity) + QStringLiteral(" to %1").arg(new_id);
}

QString KernelRunner::set_visible(const KernelStep& step)
{
    const int entity = id(any_kind(step), step.first);
    m_kernel.set_visible(any_kind(step), entity, step.second % 2);
    return text(any_kind(step), entity);
}

QString KernelRunner::select(const KernelStep& step)
{
    m_kernel.select(any_kind(step), few_ids(any_kind(step), step.first));
    return text(any_kind(step), 0);
}

QString KernelRunner::deselect(const KernelStep& step)
{
    m_kernel.deselect(any_kind(step), few_ids(any_kind(step), step.first));
    return text(any_kind(step), 0);
}

QString KernelRunner::select_none(const KernelStep& /*step*/)
{
    m_kernel.select_none();
    return QStringLiteral("at all");
}

QString KernelRunner::run_command(const KernelStep& step)
{
    const EntityKind kind = any_kind(step);
    std::string line = "select " + entity_word(kind);
    for (const int one : few_ids(kind, step.first)) {
        line += ' ' + std::to_string(one);
    }
    line += step.second % 2 ? " remove" : "";
    return QString::fromStdString(line) + (m_kernel.run_command(line) ? "" : " in vain");
}

QString KernelRunner::remove(const KernelStep& step)
{
    const int entity = id(any_kind(step), step.first);
    m_kernel.remove(any_kind(step), entity);
    return text(any_kind(step), entity);
}

// Some of one kind, and before or after them one of another.
QString KernelRunner::remove_many(const KernelStep& step)
{
    const EntityKind kind = any_kind(step);
    const auto other = EntityKind((step.kind + step.second) % 6);
    std::vector<std::pair<EntityKind, int>> entities;
    for (const int one : few_ids(kind, step.first)) {
        entities.emplace_back(kind, one);
    }
    entities.insert(
        step.second % 2 ? entities.begin() : entities.end(), {other, id(other, step.second)});
    m_kernel.remove(entities);
    QStringList texts;
    for (const auto& [one_kind, one] : entities) {
        texts << text(one_kind, one);
    }
    return texts.join(QStringLiteral(", "));
}

QString KernelRunner::import_model(const KernelStep& step)
{
    const ModelData model = small_model(step);
    m_kernel.import_model(model);
    for (const auto& [kind, count] : counts(model)) {
        m_highest[kind] += count;
    }
    return QStringLiteral("a small model");
}

QString KernelRunner::open_model(const KernelStep& step)
{
    m_highest = counts(small_model(step));
    m_kernel.open_model(small_model(step), "small.step");
    return QStringLiteral("a small model");
}

QString KernelRunner::replace_model(const KernelStep& step)
{
    m_highest = counts(small_model(step));
    m_kernel.replace_model(small_model(step));
    return QStringLiteral("all by a small model");
}

QString KernelRunner::clear(const KernelStep& step)
{
    // Rarely: a script needs something to work on.
    if (step.first % 16 == 0) {
        m_highest.clear();
        m_kernel.clear();
        return QStringLiteral("all");
    }
    if (step.first % 2) {
        m_kernel.report_geometry_repair();
        return QStringLiteral("nothing, but repair");
    }
    m_kernel.request_refresh();
    return QStringLiteral("nothing, but refresh");
}
