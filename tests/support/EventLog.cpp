#include <support/EventLog.hpp>

#include <algorithm>

QStringList EventLog::take_only(const QStringList& beginnings)
{
    QStringList result = take();
    result.removeIf([&beginnings](const QString& event) {
        return std::none_of(beginnings.begin(), beginnings.end(),
            [&event](const QString& beginning) { return event.startsWith(beginning); });
    });
    return result;
}
