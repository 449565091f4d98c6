#include <browser/editing/KernelEditor.hpp>

#include <algorithm>
#include <embedded/EmbeddedKernel.hpp>
#include <iterator>
#include <map>
#include <stdexcept>
#include <treemodel/kernel/TreeModel.hpp>
#include <treemodel/treedata/TreeGeometryData.hpp>
#include <unordered_set>
#include <utility>

namespace {

struct KindRange
{
    EntityKind first;
    EntityKind last;

    bool has(EntityKind kind) const { return first <= kind && kind <= last; }
};

constexpr KindRange members{EntityKind::VERTEX, EntityKind::GROUP};
constexpr KindRange mesh_controls{EntityKind::SIZING_SOURCE, EntityKind::BOUNDARY_LAYER};
constexpr KindRange sets{EntityKind::BLOCK, EntityKind::NODESET};
constexpr KindRange condition_sets{EntityKind::SIDESET, EntityKind::NODESET};
constexpr KindRange conditions{EntityKind::FORCE, EntityKind::WALL};

bool is_one_line(const QString& text)
{
    return std::none_of(text.begin(), text.end(), [](QChar character) {
        return character.category() == QChar::Other_Control ||
               character.category() == QChar::Separator_Line ||
               character.category() == QChar::Separator_Paragraph;
    });
}

// The name as the kernel holds it, without the mark that the mirror adds.
QString name_in_kernel(TreeData* record, const QString& name)
{
    const QString mark = QStringLiteral(" (v)");
    auto* geometry = dynamic_cast<TreeGeometryData*>(record);
    const bool is_marked = geometry && geometry->is_virtual() && name.endsWith(mark);
    return (is_marked ? name.chopped(mark.size()) : name).trimmed();
}

// "Block 3"
QString default_name(const KernelEntity& entity)
{
    QString text = entity.text();
    text[0] = text[0].toUpper();
    return text;
}

std::vector<TreeData*> each_once(const std::vector<TreeData*>& records)
{
    std::unordered_set<TreeData*> seen;
    std::vector<TreeData*> result;
    std::copy_if(records.begin(), records.end(), std::back_inserter(result),
        [&seen](TreeData* record) { return seen.insert(record).second; });
    return result;
}

std::vector<int> ids_of(const std::vector<KernelEntity>& entities, EntityKind kind)
{
    std::vector<int> ids;
    for (const KernelEntity& entity : entities) {
        if (entity.kind == kind) {
            ids.push_back(entity.id);
        }
    }
    return ids;
}

} // namespace

/// What an operation needs of each record, and what it says of those that have it not.
struct KernelEditor::Requirement
{
    bool (*is_met_by)(EntityKind kind);
    const char* refusal;

    static const Requirement to_be_named;
    static const Requirement to_be_hidden;
    static const Requirement to_be_removed;
    static const Requirement to_be_in_a_group;
    static const Requirement to_be_a_condition;
    static const Requirement to_bear_conditions;
};

const KernelEditor::Requirement KernelEditor::Requirement::to_be_named{
    [](EntityKind kind) { return !mesh_controls.has(kind); },
    QT_TRANSLATE_NOOP("KernelEditor", "Of this kind nothing has a name of its own: %1."),
};
const KernelEditor::Requirement KernelEditor::Requirement::to_be_hidden{
    [](EntityKind kind) { return members.has(kind) || sets.has(kind); },
    QT_TRANSLATE_NOOP("KernelEditor", "This cannot be shown or hidden: %1."),
};
const KernelEditor::Requirement KernelEditor::Requirement::to_be_removed{
    [](EntityKind /*kind*/) { return true; },
    "",
};
const KernelEditor::Requirement KernelEditor::Requirement::to_be_in_a_group{
    [](EntityKind kind) { return members.has(kind); },
    QT_TRANSLATE_NOOP("KernelEditor", "Only geometry and groups can be members, and not %1."),
};
const KernelEditor::Requirement KernelEditor::Requirement::to_be_a_condition{
    [](EntityKind kind) { return conditions.has(kind); },
    QT_TRANSLATE_NOOP("KernelEditor", "This is no boundary condition: %1."),
};
const KernelEditor::Requirement KernelEditor::Requirement::to_bear_conditions{
    [](EntityKind kind) { return condition_sets.has(kind); },
    QT_TRANSLATE_NOOP(
        "KernelEditor", "A boundary condition applies to sidesets and nodesets, and not to %1."),
};

KernelEditor::KernelEditor(EmbeddedKernel& kernel, TreeModel& mirror, QObject* parent)
    : QObject(parent)
    , m_kernel(kernel)
    , m_show_only(kernel, mirror)
{
    connect(&mirror, &TreeModel::about_to_clear_geometry, this, &KernelEditor::forget_visibility);
}

bool KernelEditor::rename(TreeData* record, const QString& name)
{
    Entities entities;
    if (!take({record}, Requirement::to_be_named, entities)) {
        return false;
    }
    if (entities.empty()) {
        return refuse(tr("This row has no name of its own."));
    }
    if (!is_one_line(name)) {
        return refuse(tr("A name is one line of text."));
    }
    const std::string kernel_name = name_in_kernel(record, name).toStdString();
    return run([&] { m_kernel.rename(entities[0].kind, entities[0].id, kernel_name); });
}

bool KernelEditor::set_visible(const Records& records, bool is_visible)
{
    Entities entities;
    return take(records, Requirement::to_be_hidden, entities) && run([&] {
        for (const auto& [kind, id] : entities) {
            m_kernel.set_visible(kind, id, is_visible);
        }
    });
}

bool KernelEditor::show_only(const Records& records)
{
    Entities entities;
    if (!take(records, Requirement::to_be_hidden, entities)) {
        return false;
    }
    if (entities.empty()) {
        return refuse(tr("Nothing is selected that could be shown alone."));
    }
    const bool could_restore = can_restore_visibility();
    const bool is_done = run([&] { m_show_only.show(records); });
    if (!could_restore) {
        Q_EMIT can_restore_visibility_changed(true);
    }
    return is_done;
}

bool KernelEditor::restore_visibility()
{
    if (!can_restore_visibility()) {
        return refuse(tr("All is shown and hidden as it was."));
    }
    const bool is_done = run([this] { m_show_only.restore(); });
    Q_EMIT can_restore_visibility_changed(false);
    return is_done;
}

// All records go; those that come after them have nothing to be brought back to.
void KernelEditor::forget_visibility()
{
    if (can_restore_visibility()) {
        m_show_only.forget();
        Q_EMIT can_restore_visibility_changed(false);
    }
}

bool KernelEditor::remove(const Records& records)
{
    Entities entities;
    if (!take(records, Requirement::to_be_removed, entities)) {
        return false;
    }
    std::vector<std::pair<EntityKind, int>> removed;
    removed.reserve(entities.size());
    for (const auto& [kind, id] : entities) {
        removed.emplace_back(kind, id);
    }
    return run([&] { m_kernel.remove(removed); });
}

bool KernelEditor::create_group(const Records& records, const QString& name)
{
    Entities entities;
    return take(records, Requirement::to_be_in_a_group, entities) &&
           run([&] { fill_group(m_kernel.create_group(name.toStdString()), entities); });
}

bool KernelEditor::create_set(EntityKind kind, const Records& records, const QString& name)
{
    Entities entities;
    return take(records, Requirement::to_be_in_a_group, entities) && run([&] {
        const int id = m_kernel.create_set(kind, name.toStdString());
        if (!entities.empty()) {
            const QString set_name = name.isEmpty() ? default_name({kind, id}) : name;
            fill_group(m_kernel.create_group(set_name.toStdString()), entities);
        }
    });
}

bool KernelEditor::create_condition(EntityKind kind, const Records& records, const QString& name)
{
    Entities entities;
    return take(records, Requirement::to_bear_conditions, entities) && run([&] {
        m_kernel.create_condition(kind, ids_of(entities, EntityKind::SIDESET),
            ids_of(entities, EntityKind::NODESET), name.toStdString());
    });
}

bool KernelEditor::set_condition_sets(TreeData* condition, const Records& records)
{
    Entities changed;
    Entities entities;
    if (!take({condition}, Requirement::to_be_a_condition, changed) ||
        !take(records, Requirement::to_bear_conditions, entities)) {
        return false;
    }
    if (changed.empty()) {
        return refuse(tr("This row is no boundary condition."));
    }
    return run([&] {
        m_kernel.set_condition_sets(changed[0].kind, changed[0].id,
            ids_of(entities, EntityKind::SIDESET), ids_of(entities, EntityKind::NODESET));
    });
}

bool KernelEditor::create_material(const QString& name)
{
    return run([&] { m_kernel.create_material(name.toStdString()); });
}

bool KernelEditor::create_medium(const QString& name)
{
    return run([&] { m_kernel.create_medium(name.toStdString()); });
}

bool KernelEditor::create_sizing_source()
{
    return run([this] { m_kernel.create_sizing_source(); });
}

bool KernelEditor::create_boundary_layer()
{
    return run([this] { m_kernel.create_boundary_layer(); });
}

std::vector<EntityKind> KernelEditor::condition_kinds()
{
    std::vector<EntityKind> kinds;
    for (int kind = int(conditions.first); kind <= int(conditions.last); ++kind) {
        kinds.push_back(static_cast<EntityKind>(kind));
    }
    return kinds;
}

// The kernel refuses what makes no sense by this exception, with a sentence in it.
template <typename Operation>
bool KernelEditor::run(Operation operation)
{
    try {
        operation();
    } catch (const std::invalid_argument& refusal) {
        return refuse(QString::fromUtf8(refusal.what()));
    }
    return true;
}

bool KernelEditor::refuse(const QString& sentence)
{
    Q_EMIT failed(sentence);
    return false;
}

// Finds the entities of the records, each once and in their order.
bool KernelEditor::take(const Records& records, const Requirement& requirement, Entities& entities)
{
    QStringList unfit;
    for (TreeData* record : each_once(records)) {
        const std::optional<KernelEntity> entity = kernel_entity(record);
        if (entity && !requirement.is_met_by(entity->kind)) {
            unfit << entity->text();
        } else if (entity) {
            entities.push_back(*entity);
        }
    }
    constexpr int most = 3;
    if (unfit.size() > most) {
        unfit = unfit.mid(0, most) << QStringLiteral("…");
    }
    return unfit.isEmpty() || refuse(tr(requirement.refusal).arg(unfit.join(QStringLiteral(", "))));
}

void KernelEditor::fill_group(int group, const Entities& entities)
{
    std::map<EntityKind, std::vector<int>> ids;
    for (const auto& [kind, id] : entities) {
        ids[kind].push_back(id);
    }
    for (const auto& [kind, kind_ids] : ids) {
        m_kernel.add_to_group(group, kind, kind_ids);
    }
}
