#include <treemodel/treedata/TreeFeaBCData.hpp>

#include <QMetaType>
#include <treemodel/treedata/KindTable.hpp>

namespace {

struct FeaKind
{
    KindWord word;
    const char* default_name;
};

constexpr KindTable<TreeFeaBCData::FEAType, FeaKind, 11> kinds{
    {{
        {{"force"}, QT_TRANSLATE_NOOP("TreeFeaBCData", "Force")},
        {{"acceleration"}, QT_TRANSLATE_NOOP("TreeFeaBCData", "Acceleration")},
        {{"velocity"}, QT_TRANSLATE_NOOP("TreeFeaBCData", "Velocity")},
        {{"pressure"}, QT_TRANSLATE_NOOP("TreeFeaBCData", "Pressure")},
        {{"temperature"}, QT_TRANSLATE_NOOP("TreeFeaBCData", "Temperature")},
        {{"displacement"}, QT_TRANSLATE_NOOP("TreeFeaBCData", "Displacement")},
        {{"constraint"}, QT_TRANSLATE_NOOP("TreeFeaBCData", "Constraint")},
        {{"convection"}, QT_TRANSLATE_NOOP("TreeFeaBCData", "Convection")},
        {{"heatflux"}, QT_TRANSLATE_NOOP("TreeFeaBCData", "HeatFlux")},
        {{"contact region"}, QT_TRANSLATE_NOOP("TreeFeaBCData", "Contact Region")},
        {{"contact pair"}, QT_TRANSLATE_NOOP("TreeFeaBCData", "Contact Pair")},
    }},
    {{""}, QT_TRANSLATE_NOOP("TreeFeaBCData", "FEA BC")},
};

} // namespace

TreeFeaBCData::TreeFeaBCData(FEAType type, int id)
    : TreeData(id)
    , m_fea_bc_type(type)
{
    qRegisterMetaType<TreeFeaBCData*>();
}

TreeFeaBCData::FEAType TreeFeaBCData::fea_bc_type()
{
    return m_fea_bc_type;
}

bool TreeFeaBCData::string_to_type(const std::string& text, FEAType& type)
{
    return kinds.find(text, type);
}

std::string TreeFeaBCData::type_to_string(FEAType type)
{
    return std::string(kinds[type].word.usual);
}

QString TreeFeaBCData::default_name()
{
    return tr(kinds[m_fea_bc_type].default_name);
}
