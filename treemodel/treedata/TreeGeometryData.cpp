#include <treemodel/treedata/TreeGeometryData.hpp>

#include <QMetaType>
#include <QPointer>
#include <treemodel/treedata/KindTable.hpp>

namespace {

using GeometryType = TreeGeometryData::GeometryType;

struct GeometryKind
{
    KindWord word;
    const char* label;
};

constexpr KindTable<GeometryType, GeometryKind, 5> kinds{
    {{
        {{"vertex"}, QT_TRANSLATE_NOOP("TreeGeometryData", "Vertex ")},
        {{"curve"}, QT_TRANSLATE_NOOP("TreeGeometryData", "Curve ")},
        {{"surface"}, QT_TRANSLATE_NOOP("TreeGeometryData", "Surface ")},
        {{"volume"}, QT_TRANSLATE_NOOP("TreeGeometryData", "Volume ")},
        {{"body", "sheet body"}, QT_TRANSLATE_NOOP("TreeGeometryData", "Body ")},
    }},
    {{""}, QT_TRANSLATE_NOOP("TreeGeometryData", "Geometry ")},
};

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
    return kinds.find(text, type);
}

std::string TreeGeometryData::type_to_string(GeometryType type)
{
    return std::string(kinds[type].word.usual);
}

QString TreeGeometryData::default_name()
{
    QString text = tr(kinds[m_geometry_type].label) + QString::number(id());
    if (m_is_virtual) {
        text += virtual_suffix;
    }
    return text;
}

QString TreeGeometryData::base_name()
{
    return tr(kinds[m_geometry_type].label);
}
