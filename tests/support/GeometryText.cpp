#include <support/GeometryText.hpp>

#include <algorithm>
#include <treemodel/kernel/TreeModel.hpp>
#include <treemodel/treedata/TreeBodyData.hpp>

namespace {

QString name_of(TreeGeometryData* record)
{
    return QString::fromStdString(TreeGeometryData::type_to_string(record->geometry_type())) +
           QLatin1Char(' ') + QString::number(record->id());
}

QString flags_text(TreeGeometryData* record)
{
    auto* body = qobject_cast<TreeBodyData*>(record);
    const std::pair<bool, const char*> flags[]{
        {!record->is_visible(), " hidden"},
        {record->is_virtual(), " virtual"},
        {body && body->is_sheet_body(), " sheet"},
        {body && body->is_multi_volume(), " multi"},
    };
    QString text;
    for (const auto& [is_set, word] : flags) {
        text += QLatin1String(is_set ? word : "");
    }
    return text;
}

QString links_text(const char* sign, const std::vector<TreeGeometryData*>& records)
{
    return records.empty() ? QString() : QLatin1String(sign) + sorted_names_of(records).join(", ");
}

} // namespace

QStringList names_of(const std::vector<TreeGeometryData*>& records)
{
    QStringList names;
    std::transform(records.begin(), records.end(), std::back_inserter(names), name_of);
    return names;
}

QStringList sorted_names_of(std::vector<TreeGeometryData*> records)
{
    std::sort(records.begin(), records.end(),
        [](TreeGeometryData* left, TreeGeometryData* right) { return left->id() < right->id(); });
    return names_of(records);
}

QStringList geometry_text(TreeModel& model)
{
    QStringList lines;
    for (const auto type : {TreeGeometryData::BODY, TreeGeometryData::VOLUME,
             TreeGeometryData::SURFACE, TreeGeometryData::CURVE, TreeGeometryData::VERTEX}) {
        for (TreeGeometryData* record : model.geometry(type)) {
            lines << name_of(record) + " '" + record->name() + '\'' + flags_text(record) +
                         links_text(" < ", model.find_geometry_parents(record)) +
                         links_text(" > ", model.find_geometry_children(record));
        }
    }
    return lines;
}
