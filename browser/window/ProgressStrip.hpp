#pragma once

#include <QWidget>

class HelperJob;
class QLabel;
class QProgressBar;
class QPushButton;

/// Shows how far a task is, on one line, with a button to cancel it. Hidden while there is
/// no task.
class ProgressStrip : public QWidget
{
    Q_OBJECT

public:
    explicit ProgressStrip(QWidget* parent = nullptr);

    /// Shows the progress of a job, cancels it, and hides when it has finished.
    void follow(HelperJob& job);

    /// A run of the job has begun, for what `task` says.
    void begin(const QString& task);

private:
    void set_progress(const QString& stage, double fraction);

    QPushButton* m_cancel;
    QLabel* m_text;
    QProgressBar* m_bar;
    QString m_task;
};
