#include <treemodel/treedata/TreeGeometryData.hpp>

#include <algorithm>
#include <array>
#include <QMetaType>
#include <QPointer>

namespace {

struct GeometryKind
{
    const char* word;
    const char* label;
};

// Indexed by GeometryType.
constexpr std::array<GeometryKind, 5> geometry_kinds{{
    {"vertex", QT_TRANSLATE_NOOP("TreeGeometryData", "Vertex ")},
    {"curve", QT_TRANSLATE_NOOP("TreeGeometryData", "Curve ")},
    {"surface", QT_TRANSLATE_NOOP("TreeGeometryData", "Surface ")},
    {"volume", QT_TRANSLATE_NOOP("TreeGeometryData", "Volume ")},
    {"body", QT_TRANSLATE_NOOP("TreeGeometryData", "Body ")},
}};

constexpr GeometryKind unknown_kind{"", QT_TRANSLATE_NOOP("TreeGeometryData", "Geometry ")};

const GeometryKind& kind_of(TreeGeometryData::GeometryType type)
{
    const auto index = static_cast<std::size_t>(type);
    return index < geometry_kinds.size() ? geometry_kinds[index] : unknown_kind;
}

const QLatin1String virtual_suffix(" (v)");

} // namespace

TreeGeometryData::TreeGeometryData(GeometryType type, int id)
    : TreeData(id)
    , m_geometry_type(type)
{
    qRegisterMetaType<TreeGeometryData*>();
}

TreeGeometryData::GeometryType TreeGeometryData::geometry_type()
{
    return m_geometry_type;
}

bool TreeGeometryData::is_virtual()
{
    return m_is_virtual;
}

void TreeGeometryData::set_virtual(bool is_virtual)
{
    if (is_virtual == m_is_virtual) {
        return;
    }
    m_is_virtual = is_virtual;
    const QPointer<TreeGeometryData> self(this);
    Q_EMIT virtual_changed(is_virtual);
    if (!self) {
        return;
    }
    if (has_own_name()) {
        set_name(name());
    } else {
        Q_EMIT name_changed(name());
    }
}

void TreeGeometryData::set_name(const QString& name)
{
    const bool has_suffix = name.endsWith(virtual_suffix);
    if (has_suffix == m_is_virtual) {
        TreeData::set_name(name);
    } else if (m_is_virtual) {
        TreeData::set_name(name + virtual_suffix);
    } else {
        TreeData::set_name(name.chopped(virtual_suffix.size()));
    }
}

bool TreeGeometryData::string_to_type(const std::string& text, GeometryType& type)
{
    if (text == "sheet body") {
        type = BODY;
        return true;
    }
    const auto kind = std::find_if(geometry_kinds.begin(), geometry_kinds.end(),
        [&text](const GeometryKind& candidate) { return text == candidate.word; });
    if (kind == geometry_kinds.end()) {
        return false;
    }
    type = static_cast<GeometryType>(kind - geometry_kinds.begin());
    return true;
}

std::string TreeGeometryData::type_to_string(GeometryType type)
{
    return kind_of(type).word;
}

QString TreeGeometryData::default_name()
{
    QString text = tr(kind_of(m_geometry_type).label) + QString::number(id());
    if (m_is_virtual) {
        text += virtual_suffix;
    }
    return text;
}

QString TreeGeometryData::base_name()
{
    return tr(kind_of(m_geometry_type).label);
}
