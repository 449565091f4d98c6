#include <browser/window/BranchText.hpp>

#include <algorithm>
#include <vector>

namespace {

// The rows from the top level down to an index.
using RowPath = std::vector<int>;

struct Line
{
    RowPath path;
    QModelIndex index;
};

RowPath row_path(QModelIndex index)
{
    RowPath result;
    for (; index.isValid(); index = index.parent()) {
        result.push_back(index.row());
    }
    std::reverse(result.begin(), result.end());
    return result;
}

std::vector<Line> selected_lines(const QItemSelection& selection)
{
    std::vector<Line> result;
    for (const QItemSelectionRange& range : selection) {
        RowPath path = row_path(range.parent());
        path.push_back(0);
        for (int row = range.top(); row <= range.bottom(); ++row) {
            path.back() = row;
            result.push_back({path, range.model()->index(row, 0, range.parent())});
        }
    }
    std::sort(result.begin(), result.end(),
        [](const Line& left, const Line& right) { return left.path < right.path; });
    return result;
}

} // namespace

QString branch_text(
    const QItemSelection& selection, const std::function<QString(const QModelIndex& index)>& line)
{
    constexpr qsizetype spaces_per_level = 2;
    const std::vector<Line> lines = selected_lines(selection);
    const auto shallowest = std::min_element(lines.begin(), lines.end(),
        [](const Line& left, const Line& right) { return left.path.size() < right.path.size(); });
    QString result;
    for (const Line& entry : lines) {
        const auto level = static_cast<qsizetype>(entry.path.size() - shallowest->path.size());
        result += QString(level * spaces_per_level, QLatin1Char(' ')) + line(entry.index) +
                  QLatin1Char('\n');
    }
    return result;
}
