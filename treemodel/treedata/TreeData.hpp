#pragma once

#include <QObject>
#include <QString>
#include <treemodel/treemodel_export.hpp>

/// Base of every mirrored kernel entity: an id, an optional name of its own, a
/// visibility flag, and the signals that tell of their changes.
///
/// A record is created and deleted only by its domain model and has no QObject
/// parent. A `TreeData*` is the common handle across models.
class TREEMODEL_EXPORT TreeData : public QObject
{
    Q_OBJECT

public:
    /// `id` is the entity's id in the kernel, unique only within its kind.
    explicit TreeData(int id);

    /// Emits treedata_destroyed() first. A slot that throws ends the process.
    ~TreeData() override;

    /// The id in the kernel, or that of the last set_id().
    int id();

    /// Stores the id, emits id_changed() even if the value is the same, then
    /// name_changed() with the new default name if the record has no name of its own.
    void set_id(int new_id);

    /// The record's own name, or the translated default name if that is empty.
    QString name();

    /// Stores the name and emits name_changed() with it, if it differs from the stored one.
    /// An empty name is stored and emitted as such; name() then gives the default name,
    /// so receivers that show the name call name().
    virtual void set_name(const QString& name);

    /// True until set_visible() says otherwise.
    bool is_visible();

    /// Stores the value and emits visible_changed(), also for the same value.
    void set_visible(bool visible);

Q_SIGNALS:
    /// Emitted after the value is stored, so that receivers read the new one.
    void id_changed(int new_id);
    void name_changed(QString name);
    void visible_changed(bool new_vis);

    /// Emitted once, by the destructor. The sender is no more than a TreeData by
    /// then: use it as a key, or call id(), is_visible() and name() on it. The models
    /// treat it as null where something new would point to it.
    void treedata_destroyed(TreeData*);

protected:
    /// A record that starts with a name of its own.
    TreeData(const QString& name, int id);

    /// True if the record has a name of its own, so that name() is not the default name.
    bool has_own_name();

    /// What name() gives for a record without a name of its own.
    virtual QString default_name();

private:
    int m_id;
    QString m_name;
    bool m_visible = true;
};
