#include <browser/window/SignalLog.hpp>

#include <algorithm>
#include <array>
#include <iterator>

namespace {

// Indexed by SignalLog::Column.
constexpr std::array titles{
    QT_TRANSLATE_NOOP("SignalLog", "Time / ms"),
    QT_TRANSLATE_NOOP("SignalLog", "Sender"),
    QT_TRANSLATE_NOOP("SignalLog", "Signal"),
    QT_TRANSLATE_NOOP("SignalLog", "Arguments"),
};

} // namespace

SignalLog::SignalLog(int capacity, QObject* parent)
    : QAbstractTableModel(parent)
    , m_capacity(static_cast<std::size_t>(capacity))
{
    m_clock.start();
    m_take_in_timer.setSingleShot(true);
    connect(&m_take_in_timer, &QTimer::timeout, this, &SignalLog::take_in);
}

void SignalLog::append(const QString& sender, const QString& signal, const QString& arguments)
{
    m_waiting.push_back({m_clock.nsecsElapsed(), sender, signal, arguments});
    if (m_waiting.size() > m_capacity) {
        m_waiting.pop_front();
    }
    ++m_heard;
    if (!m_take_in_timer.isActive()) {
        m_take_in_timer.start(0);
    }
}

void SignalLog::clear()
{
    beginResetModel();
    m_rows.clear();
    m_waiting.clear();
    m_heard = 0;
    m_clock.restart();
    m_take_in_timer.stop();
    endResetModel();
    Q_EMIT heard_changed();
}

int SignalLog::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(m_rows.size());
}

int SignalLog::columnCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : ColumnCount;
}

QVariant SignalLog::data(const QModelIndex& index, int role) const
{
    if (!checkIndex(index, CheckIndexOption::IndexIsValid)) {
        return {};
    }
    if (role == Qt::TextAlignmentRole && index.column() == Time) {
        return int(Qt::AlignRight | Qt::AlignVCenter);
    }
    if (role != Qt::DisplayRole && role != Qt::ToolTipRole) {
        return {};
    }
    const Entry& entry = m_rows[static_cast<std::size_t>(index.row())];
    switch (index.column()) {
    case Time:
        return QString::number(double(entry.nanoseconds) / 1e6, 'f', 3);
    case Sender:
        return entry.sender;
    case Signal:
        return entry.signal;
    default:
        return entry.arguments;
    }
}

QVariant SignalLog::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole) {
        return {};
    }
    return tr(titles[static_cast<std::size_t>(section)]);
}

void SignalLog::take_in()
{
    const std::size_t total = m_rows.size() + m_waiting.size();
    if (total > m_capacity) {
        const auto surplus = static_cast<std::ptrdiff_t>(total - m_capacity);
        beginRemoveRows({}, 0, static_cast<int>(surplus) - 1);
        m_rows.erase(m_rows.begin(), m_rows.begin() + surplus);
        endRemoveRows();
    }
    if (!m_waiting.empty()) {
        beginInsertRows({}, rowCount(), rowCount() + static_cast<int>(m_waiting.size()) - 1);
        std::move(m_waiting.begin(), m_waiting.end(), std::back_inserter(m_rows));
        m_waiting.clear();
        endInsertRows();
    }
    Q_EMIT heard_changed();
}
