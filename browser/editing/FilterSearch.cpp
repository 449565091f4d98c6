#include <browser/editing/FilterSearch.hpp>

#include <utility>

using namespace std::chrono_literals;

namespace {

constexpr auto endless = 24h;
// From a change of the items to the search that heeds it.
constexpr auto search_delay = 250ms;

} // namespace

FilterSearch::FilterSearch(const EntityModel& items, QObject* parent)
    : QObject(parent)
    , m_items(items)
{
    m_timer.setSingleShot(true);
    connect(&m_timer, &QTimer::timeout, this, &FilterSearch::proceed);
}

void FilterSearch::set_text(const QString& text)
{
    if (text == m_text) {
        return;
    }
    m_text = text;
    m_walk.reset();
    m_timer.stop();
    if (is_active()) {
        proceed();
    } else {
        m_hits = 0;
        m_rows = 0;
        ShownRows everything;
        Q_EMIT found(everything);
    }
}

void FilterSearch::settle()
{
    if (is_settled()) {
        return;
    }
    m_timer.stop();
    if (!m_walk || m_is_outdated) {
        begin();
    }
    m_walk->run(endless);
    finish();
}

void FilterSearch::note_inserted(const EntityItem* parent, int first, int count)
{
    if (m_walk) {
        m_walk->rows_inserted(parent, first, count);
    }
    note_changed();
}

void FilterSearch::note_changed()
{
    if (m_walk) {
        m_is_outdated = true;
    } else if (is_active() && !m_timer.isActive()) {
        m_timer.start(search_delay);
    }
}

void FilterSearch::note_leaving()
{
    if (m_walk) {
        m_walk.reset();
        m_timer.stop();
    }
    note_changed();
}

void FilterSearch::begin()
{
    m_is_outdated = false;
    m_walk.emplace(m_items, m_text);
}

void FilterSearch::proceed()
{
    if (!m_walk) {
        begin();
    }
    if (m_walk->run(m_slice)) {
        finish();
    } else {
        m_timer.start(0);
    }
}

void FilterSearch::finish()
{
    m_hits = m_walk->hits();
    m_rows = m_walk->rows();
    ShownRows shown = std::move(m_walk->shown());
    m_walk.reset();
    if (std::exchange(m_is_outdated, false)) {
        m_timer.start(search_delay);
    }
    Q_EMIT found(shown);
}
