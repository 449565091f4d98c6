#pragma once

#include <browser/window/SignalLog.hpp>
#include <memory>
#include <QWidget>

class QLabel;
class QLineEdit;
class QSortFilterProxyModel;
class QToolButton;
class QTreeView;
class SignalTap;
class TreeModel;

/// Lists each signal of a TreeModel and of its records as it is emitted.
///
/// It listens only while it is shown and not paused; otherwise it costs nothing.
class SignalMonitor : public QWidget
{
    Q_OBJECT

public:
    /// Keeps the reference.
    explicit SignalMonitor(TreeModel& mirror, QWidget* parent = nullptr);
    ~SignalMonitor() override;

    const SignalLog& log() const { return m_log; }

protected:
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;

private:
    QWidget* create_controls();
    QTreeView* create_table();
    void listen_if_wanted();
    void follow_end();
    void show_count();

    TreeModel& m_mirror;
    SignalLog m_log;
    std::unique_ptr<SignalTap> m_tap; // While it listens
    QSortFilterProxyModel* m_filter;
    QTreeView* m_table;
    QToolButton* m_pause;
    QLabel* m_count;
};
