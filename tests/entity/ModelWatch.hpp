#pragma once

#include <QAbstractItemModelTester>
#include <QObject>
#include <QStringList>
#include <treemodel/entity/EntityModel.hpp>

/// Keeps an EntityModel under watch: Qt's model tester reports what it finds as a failure of
/// the running test, and every signal is noted, along with the tree that a reader sees
/// inside of it.
///
/// One finding of the tester is accepted, that on the flags of an invalid index: the model
/// answers selectable and enabled there by its contract.
class ModelWatch : public QObject
{
public:
    explicit ModelWatch(EntityModel* model);
    ~ModelWatch() override;

    /// The signals since the last call, which forgets them and their trees.
    QStringList take();

    /// What a reader saw inside each signal since the last take().
    const QStringList& trees() const { return m_trees; }

    /// The rows as a view reads them: "a(b c) d". A row whose parent() or row is not what it
    /// was reached by is marked with "!".
    static QString tree(const QAbstractItemModel& model, const QModelIndex& parent = {});

    // The notes that the changes leave, pairs apart from the change of cells.
    static QStringList insertion(const QString& parent, int row);
    static QStringList removal(const QString& parent, int first, int last);
    static QStringList move(const QString& from, int row, const QString& to, int target);
    static QStringList layout(const QString& parent);
    static QStringList reset();
    static QStringList cells(const QString& row);

private:
    void note(const QString& signal);

    EntityModel* m_model;
    QtMessageHandler m_previous_handler;
    QAbstractItemModelTester m_tester;
    QStringList m_notes;
    QStringList m_trees;
};
