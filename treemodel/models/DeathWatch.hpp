#pragma once

#include <QMetaMethod>
#include <QObject>
#include <treemodel/treedata/TreeData.hpp>

/// Connects a record's treedata_destroyed() to a slot of a model. Internal.
///
/// The connections are those that SIGNAL() and SLOT() make. The names are looked
/// up once, though, and not for each of a million members.
class DeathWatch
{
public:
    DeathWatch(const QMetaObject& model, const char* slot)
        : m_slot(model.method(model.indexOfSlot(slot)))
    {
    }

    void connect(
        TreeData* record, QObject* model, Qt::ConnectionType type = Qt::AutoConnection) const
    {
        // No pointers to members, as the check takes them for.
        QObject::connect(record, m_signal, model, m_slot, type); // clazy:exclude=connect-non-signal
    }

    void disconnect(TreeData* record, QObject* model) const
    {
        QObject::disconnect(record, m_signal, model, m_slot);
    }

private:
    QMetaMethod m_signal = QMetaMethod::fromSignal(&TreeData::treedata_destroyed);
    QMetaMethod m_slot;
};
