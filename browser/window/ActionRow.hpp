#pragma once

#include <array>
#include <QAction>
#include <QCoreApplication>
#include <QIcon>
#include <QKeySequence>
#include <QWidget>
#include <span>

/// One command of a table: how it is shown and reached, and what it does. `text` is
/// translated in the context of the owner's class; `shortcut` is a portable text; `icon` is a
/// resource path. A row without a name stands for a separator.
template <typename Owner>
struct ActionRow
{
    const char* name = nullptr;
    const char* text = nullptr;
    const char* shortcut = "";
    void (Owner::*run)() = nullptr;
    const char* icon = "";
};

/// Makes the actions of a table, as children of `owner`, and adds them to a menu or a bar.
template <typename Owner>
void add_actions(QWidget* menu, Owner* owner, std::span<const ActionRow<Owner>> rows)
{
    for (const ActionRow<Owner>& row : rows) {
        auto* const action = new QAction(owner);
        menu->addAction(action);
        if (!row.name) {
            action->setSeparator(true);
            continue;
        }
        action->setObjectName(QLatin1String(row.name));
        action->setText(Owner::tr(row.text));
        action->setShortcut(QKeySequence(QLatin1String(row.shortcut)));
        action->setIcon(QIcon(QLatin1String(row.icon)));
        QObject::connect(
            action, &QAction::triggered, owner, [owner, &row] { (owner->*row.run)(); });
    }
}
