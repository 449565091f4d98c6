#pragma once

#include <QAbstractItemModelTester>
#include <QStringList>

/// What Qt's model tester finds in an EntityModel, collected instead of printed. One of them at
/// a time. The finding on the flags of an invalid index is passed over: the model answers
/// selectable and enabled there by its contract.
class ModelFindings
{
public:
    explicit ModelFindings(QAbstractItemModel& model);
    ~ModelFindings();
    Q_DISABLE_COPY_MOVE(ModelFindings)

    /// The first finding; empty if there is none.
    QString first() const;

private:
    QtMessageHandler m_previous_handler;
    QAbstractItemModelTester m_tester;
};
