#pragma once

#include <browser/editing/KernelEditor.hpp>
#include <browser/items/ItemKind.hpp>
#include <QHash>
#include <QObject>

class EmbeddedKernel;
class EntityItem;
class QAction;
class QMenu;
class TreePane;

/// What a person can do to the model by means of the tree, as actions: to the selected records, and
/// new entities out of them.
class EditActions : public QObject
{
    Q_OBJECT

public:
    /// Keeps the references. The shortcuts work while the tree has the keyboard.
    EditActions(EmbeddedKernel& kernel, TreePane& tree, TreeModel& mirror);

    void fill_edit_menu(QMenu* menu) const;
    void fill_create_menu(QMenu* menu) const;

    /// By its name in the table: "rename", "delete".
    QAction* action(const char* name) const;

    /// The action that makes a new entity of that kind out of what is selected; null if
    /// there is none.
    QAction* create_action(ItemKind kind) const;

Q_SIGNALS:
    /// An operation was refused; nothing has changed.
    void refused(const QString& sentence);

private:
    struct Row;
    static const std::vector<Row>& rows();

    void make_edit_actions();
    void make_create_actions();
    QAction* make_create_action(ItemKind kind);
    void rename_item(EntityItem* item, const QString& name);
    void enable_actions();
    KernelEditor::Records selected() const;

    // The operations of the table.
    void rename();
    void show();
    void hide();
    void show_only();
    void restore();
    void ask_to_delete();
    void apply_condition();
    void copy();
    void refresh();
    void create(ItemKind kind);

    EmbeddedKernel& m_kernel;
    TreePane& m_tree;
    KernelEditor m_editor;
    QList<QAction*> m_edit_actions;
    QHash<ItemKind, QAction*> m_create_actions;
};
