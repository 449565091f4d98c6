#include <browser/window/SelectionCounts.hpp>

#include <numeric>
#include <QLocale>
#include <QStringList>

SelectionCounts::SelectionCounts(const std::vector<TreeData*>& records)
    : m_total(static_cast<int>(records.size()))
{
    for (TreeData* record : records) {
        ++m_counts[static_cast<std::size_t>(item_kind(record))];
    }
}

int SelectionCounts::between(ItemKind first, ItemKind last) const
{
    return std::accumulate(m_counts.begin() + int(first), m_counts.begin() + int(last) + 1, 0);
}

QString SelectionCounts::text() const
{
    QStringList parts;
    for (int kind = 0; kind < item_kind_count; ++kind) {
        const int count = m_counts[static_cast<std::size_t>(kind)];
        if (count > 0) {
            const ItemKindInfo& info = item_kind_info(ItemKind(kind));
            parts << QStringLiteral("%1 %2").arg(
                QLocale().toString(count), count == 1 ? info.name : info.plural);
        }
    }
    return parts.join(QLatin1String(", "));
}
