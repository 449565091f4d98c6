#pragma once

#include <QHash>
#include <QObject>
#include <QSet>
#include <QStringList>

class TreeData;
class TreeModel;

/// A front end that knows nothing but signals: it never queries the TreeModel, and looks
/// into a record only when the record is new or says that something of it changed.
class SignalPicture : public QObject
{
public:
    /// The mirror must be empty.
    explicit SignalPicture(TreeModel& mirror);

    /// As mirror_facts() has it.
    QStringList facts() const;

private:
    enum Domain : int {
        Geometry,
        Group,
        Mesh,
        SizingSource,
        BoundaryLayer,
        Exodus,
        Fea,
        Cfd,
        Material,
    };

    struct Entry
    {
        Domain domain;
        QString kind;
        int id;
        QString name;
        QSet<QString> flags;
    };
    using Link = std::pair<TreeData*, TreeData*>;

    void follow_geometry(TreeModel& mirror);
    void follow_groups_and_mesh(TreeModel& mirror);
    void follow_simulation(TreeModel& mirror);

    void add(Domain domain, TreeData* record);
    void follow_record(TreeData* record);
    void remove(TreeData* record);
    void clear(Domain domain);
    void link(TreeData* from, TreeData* to);
    void unlink(TreeData* from, TreeData* to);
    void set_flag(TreeData* record, const QString& flag, bool is_set);
    QString text_of(TreeData* record) const;

    QHash<TreeData*, Entry> m_entries;
    QSet<Link> m_links;
};
