#pragma once

#include <browser/editing/FilterWalk.hpp>
#include <chrono>
#include <optional>
#include <QObject>
#include <QTimer>

/// Searches the items of a model for a text, in slices between which the event loop runs, and
/// does so again within moments after the items have changed. It must be told of that.
class FilterSearch : public QObject
{
    Q_OBJECT

public:
    /// Without a text. Keeps the reference.
    explicit FilterSearch(const EntityModel& items, QObject* parent = nullptr);

    QString text() const { return m_text; }

    /// True if there is a text.
    bool is_active() const { return !m_text.isEmpty(); }

    /// Begins a search, the first slice of it at once. An empty text finds everything at once, with
    /// no hit among no rows.
    void set_text(const QString& text);

    /// How long a slice takes, at least; 4 ms at first.
    void set_slice(std::chrono::nanoseconds slice) { m_slice = slice; }

    /// False while a new search would find something else.
    bool is_settled() const { return !m_walk && !m_timer.isActive(); }

    /// Ends the search at once.
    void settle();

    /// What the last search found, and among how many rows; headings do not count.
    int hits() const { return m_hits; }
    int rows() const { return m_rows; }

    /// Rows have come, values have changed, or rows are about to go or to move.
    void note_inserted(const EntityItem* parent, int first, int count);
    void note_changed();
    void note_leaving();

Q_SIGNALS:
    /// A search has ended. The receiver may take what it found.
    void found(ShownRows& shown);

private:
    void begin();
    void proceed();
    void finish();

    const EntityModel& m_items;
    QString m_text;
    int m_hits = 0;
    int m_rows = 0;
    std::chrono::nanoseconds m_slice = std::chrono::milliseconds(4);
    std::optional<FilterWalk> m_walk; // The search under way
    bool m_is_outdated = false;       // The search under way has missed something
    QTimer m_timer;                   // To the next slice, or the next search
};
