#pragma once

#include <QWidget>

class QLabel;
class QProgressBar;

/// Shows how far a task is, on one line, with a button to cancel it. Hidden while there is
/// no task.
class ProgressStrip : public QWidget
{
    Q_OBJECT

public:
    explicit ProgressStrip(QWidget* parent = nullptr);

    void begin(const QString& task);

    /// `fraction` goes from 0 to 1 and is below 0 while it is unknown.
    void set_progress(const QString& stage, double fraction);
    void end();

Q_SIGNALS:
    void cancel_clicked();

private:
    QLabel* m_text;
    QProgressBar* m_bar;
    QString m_task;
};
