#pragma once

#include <deque>
#include <QAbstractTableModel>
#include <QElapsedTimer>
#include <QTimer>

/// The signals heard last, one a row, the newest at the end, as a table of time, sender,
/// signal and arguments.
///
/// Rows come in with the event loop, all that were heard since in one insertion, so that
/// a burst of signals costs a view no more than one.
class SignalLog : public QAbstractTableModel
{
    Q_OBJECT

public:
    enum Column : int {
        Time,
        Sender,
        Signal,
        Arguments,
        ColumnCount,
    };

    /// Keeps the last `capacity` signals.
    explicit SignalLog(int capacity = 10'000, QObject* parent = nullptr);

    /// Adds a row, with the time that has passed since clear().
    void append(const QString& sender, const QString& signal, const QString& arguments);

    /// Removes all rows and begins to count the time anew.
    void clear();

    /// How many signals were heard since clear(), those included that are no longer rows.
    qint64 heard() const { return m_heard; }

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
    QVariant headerData(
        int section, Qt::Orientation orientation, int role = Qt::DisplayRole) const override;

Q_SIGNALS:
    /// Rows were added or cleared.
    void heard_changed();

private:
    struct Entry
    {
        qint64 nanoseconds;
        QString sender;
        QString signal;
        QString arguments;
    };

    void take_in();

    std::size_t m_capacity;
    std::deque<Entry> m_rows;
    std::deque<Entry> m_waiting; // Heard, but no rows yet
    qint64 m_heard = 0;
    QElapsedTimer m_clock;
    QTimer m_take_in_timer;
};
