#pragma once

#include <array>
#include <QAction>
#include <QIcon>
#include <QKeySequence>
#include <QWidget>
#include <span>

/// One command of a table: how it is shown and reached, and what it does. `text` is translated in
/// the context of the owner's class; `shortcut` is a portable text; `icon` is a resource
/// path. A row without a name stands for a separator.
template <typename Owner>
struct ActionRow
{
    const char* name = nullptr;
    const char* text = nullptr;
    const char* shortcut = "";
    void (Owner::*run)() = nullptr;
    const char* icon = nullptr;
};

/// Makes the action of a row, as a child of `owner`. The row must live as long.
template <typename Owner>
QAction* make_action(Owner* owner, const ActionRow<Owner>& row)
{
    auto* const action = new QAction(owner);
    if (!row.name) {
        action->setSeparator(true);
        return action;
    }
    action->setObjectName(QLatin1String(row.name));
    action->setText(Owner::tr(row.text));
    action->setShortcut(QKeySequence(QLatin1String(row.shortcut)));
    if (row.icon) {
        action->setIcon(QIcon(QLatin1String(row.icon)));
    }
    QObject::connect(action, &QAction::triggered, owner, [owner, &row] { (owner->*row.run)(); });
    return action;
}

/// Makes the actions of a table and adds them to a menu or a bar.
template <typename Owner>
void add_actions(QWidget* menu, Owner* owner, std::span<const ActionRow<Owner>> rows)
{
    for (const ActionRow<Owner>& row : rows) {
        menu->addAction(make_action(owner, row));
    }
}
