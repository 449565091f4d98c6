#include "KernelScript.hpp"

#include <algorithm>
#include <array>
#include <random>
#include <stdexcept>

/// Runs steps on one kernel.
class KernelScript::Runner
{
public:
    explicit Runner(EmbeddedKernel& kernel)
        : m_kernel(kernel)
    {
    }

    /// Gives back what was done; empty if the kernel refused it.
    QString run(const Step& step)
    {
        const Operation& operation = operations[step.operation % operations.size()];
        try {
            return QLatin1String(operation.name) + ' ' + (this->*operation.run)(step);
        } catch (const std::invalid_argument&) {
            return {};
        }
    }

private:
    struct Operation
    {
        const char* name;
        QString (Runner::*run)(const Step&);
    };

    static constexpr int kind_count = int(EntityKind::WALL) + 1;
    static constexpr int geometry_kinds = 5;
    static constexpr int first_condition = int(EntityKind::FORCE);

    static EntityKind any_kind(const Step& step) { return EntityKind(step.kind % kind_count); }
    static EntityKind geometry_kind(const Step& step)
    {
        return EntityKind(step.kind % geometry_kinds);
    }
    static EntityKind parent_kind(const Step& step)
    {
        return EntityKind(1 + step.kind % (geometry_kinds - 1));
    }
    static EntityKind set_kind(const Step& step)
    {
        return EntityKind(int(EntityKind::BLOCK) + step.kind % 3);
    }
    static EntityKind condition_kind(const Step& step)
    {
        return EntityKind(first_condition + step.kind % (kind_count - first_condition));
    }

    // Kinds that share one range of ids count as one.
    static EntityKind range_of(EntityKind kind)
    {
        if (kind >= EntityKind::AXIS) {
            return EntityKind::AXIS;
        }
        return kind == EntityKind::MEDIUM ? EntityKind::MATERIAL : kind;
    }

    // Mostly an id in use, now and then one that is not.
    int id(EntityKind kind, std::uint32_t number)
    {
        return 1 + int(number % unsigned(m_highest[range_of(kind)] + 1));
    }

    std::vector<int> few_ids(EntityKind kind, std::uint32_t number)
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

    static std::string name(std::uint32_t number)
    {
        static const std::array<std::string, 6> names{
            "", "Lid", "Geh\xc3\xa4use", "Foo (v)", "Surface 1", "Entity 2"};
        return names[number % names.size()];
    }

    QString created(EntityKind kind, int id)
    {
        m_highest[range_of(kind)] = std::max(m_highest[range_of(kind)], id);
        return text(kind, id);
    }

    static QString text(EntityKind kind, int id)
    {
        return QStringLiteral("%1 %2").arg(QString::fromStdString(entity_word(kind))).arg(id);
    }

    QString create_geometry(const Step& step)
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
            return created(
                kind, m_kernel.create_body(few_ids(EntityKind::VOLUME, step.first), called));
        }
    }

    QString create_sheet(const Step& step)
    {
        const int body =
            m_kernel.create_sheet_body(few_ids(EntityKind::SURFACE, step.first), name(step.second));
        ++m_highest[EntityKind::VOLUME];
        return created(EntityKind::BODY, body);
    }

    QString create_other(const Step& step)
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

    QString create_condition(const Step& step)
    {
        return created(
            condition_kind(step), m_kernel.create_condition(condition_kind(step),
                                      few_ids(EntityKind::SIDESET, step.first),
                                      few_ids(EntityKind::NODESET, step.second), name(step.first)));
    }

    QString set_condition_sets(const Step& step)
    {
        const int condition = id(condition_kind(step), step.kind);
        m_kernel.set_condition_sets(condition_kind(step), condition,
            few_ids(EntityKind::SIDESET, step.first), few_ids(EntityKind::NODESET, step.second));
        return text(condition_kind(step), condition);
    }

    QString relate(const Step& step)
    {
        const EntityKind kind = parent_kind(step);
        const int parent = id(kind, step.first);
        const int child = id(EntityKind(int(kind) - 1), step.second);
        m_kernel.relate(kind, parent, child);
        return text(kind, parent) + QStringLiteral(" to %1").arg(child);
    }

    QString unrelate(const Step& step)
    {
        const EntityKind kind = parent_kind(step);
        const int parent = id(kind, step.first);
        const int child = id(EntityKind(int(kind) - 1), step.second);
        m_kernel.unrelate(kind, parent, child);
        return text(kind, parent) + QStringLiteral(" from %1").arg(child);
    }

    QString set_sheet(const Step& step)
    {
        const int volume = id(EntityKind::VOLUME, step.first);
        m_kernel.set_sheet(volume, step.second % 2);
        return text(EntityKind::VOLUME, volume);
    }

    QString set_virtual(const Step& step)
    {
        const int entity = id(geometry_kind(step), step.first);
        m_kernel.set_virtual(geometry_kind(step), entity, step.second % 2);
        return text(geometry_kind(step), entity) + (step.second % 2 ? " on" : " off");
    }

    QString add_to_group(const Step& step)
    {
        const int group = id(EntityKind::GROUP, step.first);
        const EntityKind kind = EntityKind(step.kind % 6);
        m_kernel.add_to_group(group, kind, few_ids(kind, step.second));
        return text(EntityKind::GROUP, group);
    }

    QString remove_from_group(const Step& step)
    {
        const int group = id(EntityKind::GROUP, step.first);
        const EntityKind kind = EntityKind(step.kind % 6);
        m_kernel.remove_from_group(group, kind, few_ids(kind, step.second));
        return text(EntityKind::GROUP, group);
    }

    QString set_counts(const Step& step)
    {
        const int group = id(EntityKind::GROUP, step.first);
        ElementCounts counts;
        counts.hexes = int(step.second % 3);
        counts.nodes = int(step.second / 3 % 3);
        counts.spheres = int(step.second / 9 % 2);
        m_kernel.set_element_counts(group, counts);
        return text(EntityKind::GROUP, group);
    }

    QString set_lite(const Step& step)
    {
        const int set = id(set_kind(step), step.first);
        m_kernel.set_lite(set_kind(step), set, step.second % 2);
        return text(set_kind(step), set);
    }

    QString change_kind(const Step& step)
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

    QString rename(const Step& step)
    {
        const int entity = id(any_kind(step), step.first);
        m_kernel.rename(any_kind(step), entity, name(step.second));
        return text(any_kind(step), entity) + ' ' + QString::fromStdString(name(step.second));
    }

    QString renumber(const Step& step)
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

    QString set_visible(const Step& step)
    {
        const int entity = id(any_kind(step), step.first);
        m_kernel.set_visible(any_kind(step), entity, step.second % 2);
        return text(any_kind(step), entity);
    }

    QString select(const Step& step)
    {
        m_kernel.select(any_kind(step), few_ids(any_kind(step), step.first));
        return text(any_kind(step), 0);
    }

    QString remove(const Step& step)
    {
        const int entity = id(any_kind(step), step.first);
        m_kernel.remove(any_kind(step), entity);
        return text(any_kind(step), entity);
    }

    QString clear(const Step& step)
    {
        // Rarely: a script needs something to work on.
        if (step.first % 16 == 0) {
            m_kernel.clear();
            return QStringLiteral("all");
        }
        m_kernel.request_refresh();
        return QStringLiteral("nothing, but refresh");
    }

    // Creation stands more often than removal, so that a model grows.
    static constexpr std::array<Operation, 32> operations{{
        {"create", &Runner::create_geometry},
        {"create", &Runner::create_geometry},
        {"create", &Runner::create_geometry},
        {"create", &Runner::create_geometry},
        {"create", &Runner::create_geometry},
        {"create sheet", &Runner::create_sheet},
        {"create", &Runner::create_other},
        {"create", &Runner::create_other},
        {"create", &Runner::create_condition},
        {"set sets of", &Runner::set_condition_sets},
        {"relate", &Runner::relate},
        {"relate", &Runner::relate},
        {"unrelate", &Runner::unrelate},
        {"set sheet of", &Runner::set_sheet},
        {"set virtual", &Runner::set_virtual},
        {"set virtual", &Runner::set_virtual},
        {"add to", &Runner::add_to_group},
        {"add to", &Runner::add_to_group},
        {"take from", &Runner::remove_from_group},
        {"count in", &Runner::set_counts},
        {"set lite", &Runner::set_lite},
        {"turn", &Runner::change_kind},
        {"rename", &Runner::rename},
        {"rename", &Runner::rename},
        {"renumber", &Runner::renumber},
        {"renumber", &Runner::renumber},
        {"show or hide", &Runner::set_visible},
        {"show or hide", &Runner::set_visible},
        {"select", &Runner::select},
        {"remove", &Runner::remove},
        {"remove", &Runner::remove},
        {"clear", &Runner::clear},
    }};

    EmbeddedKernel& m_kernel;
    std::map<EntityKind, int> m_highest;
};

KernelScript KernelScript::random(unsigned seed, int length)
{
    std::mt19937 random(seed);
    KernelScript script;
    for (int i = 0; i < length; ++i) {
        script.m_steps.push_back({std::uint32_t(random()), std::uint32_t(random()),
            std::uint32_t(random()), std::uint32_t(random())});
    }
    return script;
}

QString KernelScript::run(
    int interval, const std::function<QString(EmbeddedKernel&)>& checkpoint) const
{
    EmbeddedKernel kernel;
    Runner runner(kernel);
    m_done.clear();
    QString wrong = checkpoint(kernel);
    for (std::size_t i = 0; i < m_steps.size() && wrong.isEmpty(); ++i) {
        if (const QString done = runner.run(m_steps[i]); !done.isEmpty()) {
            m_done << done;
        }
        if ((i + 1) % std::size_t(interval) == 0 || i + 1 == m_steps.size()) {
            wrong = checkpoint(kernel);
        }
    }
    return wrong;
}

KernelScript KernelScript::shortest(const std::function<bool(const KernelScript&)>& fails) const
{
    KernelScript best = *this;
    for (std::size_t chunk = best.m_steps.size() / 2; chunk > 0; chunk /= 2) {
        for (std::size_t begin = 0; begin < best.m_steps.size();) {
            KernelScript candidate = best;
            const auto first = candidate.m_steps.begin() + std::ptrdiff_t(begin);
            const auto count = std::min(chunk, best.m_steps.size() - begin);
            candidate.m_steps.erase(first, first + std::ptrdiff_t(count));
            if (fails(candidate)) {
                best = candidate;
            } else {
                begin += chunk;
            }
        }
    }
    fails(best); // leaves its text
    return best;
}
