#pragma once

#include <QHash>
#include <QMetaMethod>
#include <QObject>
#include <support/EventLog.hpp>
#include <vector>

class TreeData;
class TreeMeshData;

/// Writes every signal of the objects that it watches into an EventLog, with its
/// arguments: `geometry_added(surface 5, volume 2)`, or for a record
/// `surface 5: name_changed(Lid)`. A mesh record is told by its owner: `hex of group 3`.
///
/// Records that a watched signal speaks of are watched from then on.
class SignalRecorder : public QObject
{
public:
    explicit SignalRecorder(EventLog& log);
    ~SignalRecorder() override;

    /// Watches all signals that the object's own class and its bases declare,
    /// those of QObject apart.
    void watch(QObject* sender);

    int qt_metacall(QMetaObject::Call call, int id, void** arguments) override;

private:
    struct Connection
    {
        QObject* sender;
        QMetaMethod signal;
    };

    void record(const Connection& connection, void** arguments);
    QString text_of(const QMetaType& type, const void* value);
    QString name_of(QObject* object);
    void name_mesh_record(TreeMeshData* record, TreeData* owner);

    EventLog& m_log;
    std::vector<Connection> m_connections;
    // The last known text of each record: a dying one is no more than a TreeData.
    QHash<QObject*, QString> m_watched;
};
