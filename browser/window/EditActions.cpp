#include <browser/window/EditActions.hpp>

#include <algorithm>
#include <array>
#include <browser/window/ActionRow.hpp>
#include <browser/window/EntityView.hpp>
#include <browser/window/SelectionCounts.hpp>
#include <browser/window/TreePane.hpp>
#include <embedded/EmbeddedKernel.hpp>
#include <QMenu>
#include <QMessageBox>
#include <QPointer>
#include <QPushButton>

namespace {

// When an action of the Edit menu can be used.
enum class Needs {
    Nothing,
    SomethingSelected,
    SomethingToRestore,
};

// How a new entity of a kind from `first` to `last` comes about.
struct Creator
{
    ItemKind first;
    ItemKind last;
    bool (*create)(KernelEditor& editor, EntityKind kind, const KernelEditor::Records& records);
};

constexpr std::array creators{
    Creator{ItemKind::Group, ItemKind::Group,
        [](KernelEditor& editor, EntityKind, const KernelEditor::Records& records) {
            return editor.create_group(records, EditActions::tr("New group"));
        }},
    Creator{ItemKind::SizingSource, ItemKind::SizingSource,
        [](KernelEditor& editor, EntityKind, const KernelEditor::Records&) {
            return editor.create_sizing_source();
        }},
    Creator{ItemKind::BoundaryLayer, ItemKind::BoundaryLayer,
        [](KernelEditor& editor, EntityKind, const KernelEditor::Records&) {
            return editor.create_boundary_layer();
        }},
    Creator{ItemKind::Block, ItemKind::Nodeset,
        [](KernelEditor& editor, EntityKind kind, const KernelEditor::Records& records) {
            return editor.create_set(kind, records);
        }},
    Creator{ItemKind::Force, ItemKind::Wall,
        [](KernelEditor& editor, EntityKind kind, const KernelEditor::Records& records) {
            return editor.create_condition(kind, records);
        }},
    Creator{ItemKind::Material, ItemKind::Material,
        [](KernelEditor& editor, EntityKind, const KernelEditor::Records&) {
            return editor.create_material();
        }},
    Creator{ItemKind::Medium, ItemKind::Medium,
        [](KernelEditor& editor, EntityKind, const KernelEditor::Records&) {
            return editor.create_medium();
        }},
};

// The kinds of the Create menu that stand in it by themselves, with their shortcuts.
struct CreateRow
{
    ItemKind kind;
    const char* text;
    const char* shortcut;
};

constexpr std::array create_rows{
    CreateRow{ItemKind::Group, QT_TRANSLATE_NOOP("EditActions", "&Group"), "Ctrl+G"},
    CreateRow{ItemKind::Block, QT_TRANSLATE_NOOP("EditActions", "&Block"), "Ctrl+Shift+B"},
    CreateRow{ItemKind::Sideset, QT_TRANSLATE_NOOP("EditActions", "&Sideset"), "Ctrl+Shift+S"},
    CreateRow{ItemKind::Nodeset, QT_TRANSLATE_NOOP("EditActions", "&Nodeset"), "Ctrl+Shift+N"},
    CreateRow{ItemKind::SizingSource, QT_TRANSLATE_NOOP("EditActions", "Si&zing Source"), ""},
    CreateRow{ItemKind::BoundaryLayer, QT_TRANSLATE_NOOP("EditActions", "Boundary &Layer"), ""},
    CreateRow{ItemKind::Material, QT_TRANSLATE_NOOP("EditActions", "&Material"), ""},
    CreateRow{ItemKind::Medium, QT_TRANSLATE_NOOP("EditActions", "Me&dium"), ""},
};

QString capitalised(QString text)
{
    text[0] = text[0].toUpper();
    return text;
}

} // namespace

struct EditActions::Row
{
    ActionRow<EditActions> action;
    Needs needs = Needs::Nothing;
};

const std::vector<EditActions::Row>& EditActions::rows()
{
    static const std::vector<Row> rows{
        {{"rename", QT_TR_NOOP("&Rename"), "F2", &EditActions::rename}, Needs::SomethingSelected},
        {{"delete", QT_TR_NOOP("&Delete…"), "Del", &EditActions::ask_to_delete,
             ":/treebrowser/window/delete.svg"},
            Needs::SomethingSelected},
        {{"copy", QT_TR_NOOP("&Copy as Text"), "Ctrl+C", &EditActions::copy},
            Needs::SomethingSelected},
        {},
        {{"show", QT_TR_NOOP("&Show"), "Ctrl+Shift+H", &EditActions::show,
             ":/treebrowser/window/show.svg"},
            Needs::SomethingSelected},
        {{"hide", QT_TR_NOOP("&Hide"), "Ctrl+H", &EditActions::hide,
             ":/treebrowser/window/hide.svg"},
            Needs::SomethingSelected},
        {{"show_only", QT_TR_NOOP("Show &Only These"), "Ctrl+I", &EditActions::show_only,
             ":/treebrowser/window/isolate.svg"},
            Needs::SomethingSelected},
        {{"restore", QT_TR_NOOP("Show as &Before"), "Ctrl+Shift+I", &EditActions::restore,
             ":/treebrowser/window/restore.svg"},
            Needs::SomethingToRestore},
        {},
        {{"apply_condition", QT_TR_NOOP("&Apply Condition to These Sets"), "",
             &EditActions::apply_condition},
            Needs::SomethingSelected},
        {{"refresh", QT_TR_NOOP("Re&fresh"), "F5", &EditActions::refresh}, Needs::Nothing},
    };
    return rows;
}

EditActions::EditActions(EmbeddedKernel& kernel, TreePane& tree, TreeModel& mirror)
    : QObject(&tree)
    , m_kernel(kernel)
    , m_tree(tree)
    , m_editor(kernel, mirror)
{
    make_edit_actions();
    make_create_actions();
    connect(&tree.items(), &EntityModel::nameEdited, this, &EditActions::rename_item);
    connect(&m_editor, &KernelEditor::failed, this, &EditActions::refused);
    connect(&m_editor, &KernelEditor::can_restore_visibility_changed, this,
        &EditActions::enable_actions);
    connect(&tree.selection(), &SelectionLink::records_changed, this, &EditActions::enable_actions);
    enable_actions();
}

void EditActions::make_edit_actions()
{
    for (const Row& row : rows()) {
        QAction* const action = make_action(this, row.action);
        action->setShortcutContext(Qt::WidgetWithChildrenShortcut);
        m_tree.view()->addAction(action);
        m_edit_actions << action;
    }
}

void EditActions::make_create_actions()
{
    for (const CreateRow& row : create_rows) {
        QAction* const action = make_create_action(row.kind);
        action->setText(tr(row.text));
        action->setShortcut(QKeySequence(QLatin1String(row.shortcut)));
        action->setShortcutContext(Qt::WidgetWithChildrenShortcut);
        m_tree.view()->addAction(action);
    }
    for (int kind = int(ItemKind::Force); kind <= int(ItemKind::Wall); ++kind) {
        make_create_action(ItemKind(kind));
    }
}

QAction* EditActions::make_create_action(ItemKind kind)
{
    const ItemKindInfo& info = item_kind_info(kind);
    auto* const action =
        new QAction(QIcon(QString::fromStdString(info.icon)), capitalised(info.name), this);
    action->setObjectName(QStringLiteral("create_%1").arg(QString::fromStdString(info.word)));
    connect(action, &QAction::triggered, this, [this, kind] { create(kind); });
    m_create_actions.insert(kind, action);
    return action;
}

void EditActions::fill_edit_menu(QMenu* menu) const
{
    menu->addActions(m_edit_actions);
}

void EditActions::fill_create_menu(QMenu* menu) const
{
    for (const CreateRow& row : create_rows) {
        menu->addAction(create_action(row.kind));
    }
    menu->addSeparator();
    const auto add_conditions = [&](Category category, ItemKind first, ItemKind last) {
        const ItemKindInfo& info = item_kind_info(item_kind(category));
        QMenu* const conditions =
            menu->addMenu(QIcon(QString::fromStdString(info.icon)), info.plural);
        for (int kind = int(first); kind <= int(last); ++kind) {
            conditions->addAction(create_action(ItemKind(kind)));
        }
    };
    add_conditions(Category::FeaConditions, ItemKind::Force, ItemKind::ContactPair);
    add_conditions(Category::CfdConditions, ItemKind::Axis, ItemKind::Wall);
}

QAction* EditActions::action(const char* name) const
{
    return findChild<QAction*>(QLatin1String(name), Qt::FindDirectChildrenOnly);
}

QAction* EditActions::create_action(ItemKind kind) const
{
    return m_create_actions.value(kind);
}

void EditActions::rename_item(EntityItem* item, const QString& name)
{
    m_editor.rename(m_tree.join().record(item), name);
}

void EditActions::enable_actions()
{
    // Indexed by Needs.
    const std::array is_met{true, !selected().empty(), m_editor.can_restore_visibility()};
    for (int i = 0; i < m_edit_actions.size(); ++i) {
        const Needs needs = rows()[static_cast<std::size_t>(i)].needs;
        m_edit_actions[i]->setEnabled(is_met[static_cast<std::size_t>(needs)]);
    }
}

KernelEditor::Records EditActions::selected() const
{
    return m_tree.selection().records();
}

void EditActions::rename()
{
    if (!m_tree.rename()) {
        Q_EMIT refused(tr("This row has no name of its own."));
    }
}

void EditActions::show()
{
    m_editor.set_visible(selected(), true);
}

void EditActions::hide()
{
    m_editor.set_visible(selected(), false);
}

void EditActions::show_only()
{
    m_editor.show_only(selected());
}

void EditActions::restore()
{
    m_editor.restore_visibility();
}

void EditActions::ask_to_delete()
{
    const KernelEditor::Records records = selected();
    auto* const box = new QMessageBox(QMessageBox::Question, tr("Delete"),
        tr("Delete %1?").arg(SelectionCounts(records).text()), QMessageBox::Cancel, &m_tree);
    box->setObjectName("delete");
    box->setAttribute(Qt::WA_DeleteOnClose);
    box->setInformativeText(tr("This cannot be undone."));
    box->setDefaultButton(box->addButton(tr("Delete"), QMessageBox::AcceptRole));
    // Whatever is selected, and whatever has gone, by the time of the answer.
    const QList<QPointer<TreeData>> asked(records.begin(), records.end());
    connect(box, &QMessageBox::accepted, this, [this, asked] {
        KernelEditor::Records present(asked.begin(), asked.end());
        std::erase(present, nullptr);
        if (!present.empty()) {
            m_editor.remove(present);
        }
    });
    box->open();
}

void EditActions::apply_condition()
{
    KernelEditor::Records sets = selected();
    const auto condition = std::partition(sets.begin(), sets.end(), [](TreeData* record) {
        return item_kind(record) < ItemKind::Force || item_kind(record) > ItemKind::Wall;
    });
    if (sets.end() - condition != 1) {
        Q_EMIT refused(tr("Select one boundary condition and the sets that it is to apply to."));
        return;
    }
    TreeData* const record = *condition;
    sets.pop_back();
    m_editor.set_condition_sets(record, sets);
}

void EditActions::copy()
{
    m_tree.copy();
}

void EditActions::refresh()
{
    m_kernel.request_refresh();
}

void EditActions::create(ItemKind kind)
{
    const auto creator = std::find_if(creators.begin(), creators.end(),
        [kind](const Creator& entry) { return entry.first <= kind && kind <= entry.last; });
    creator->create(m_editor, *entity_kind(item_kind_info(kind).word), selected());
}
