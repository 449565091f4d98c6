#include <treemodel/treedata/TreeCfdBCData.hpp>

#include <QMetaType>
#include <treemodel/treedata/KindTable.hpp>

namespace {

struct CfdKind
{
    KindWord word;
};

constexpr KindTable<TreeCfdBCData::CFDType, CfdKind, 22> kinds{
    {{
        {"axis"},
        {"exhaustfan"},
        {"fan"},
        {"inletvent"},
        {"intakefan"},
        {"interface"},
        {"interior"},
        {"massflowinlet"},
        {"outflow"},
        {"outletvent"},
        {"periodic"},
        {"periodicshadow"},
        {"porousjump"},
        {"pressurefarfield"},
        {"pressureinlet"},
        {"pressureoutlet"},
        {"radiator"},
        {"supersonicinflow"},
        {"supersonicoutflow"},
        {"symmetry"},
        {"velocityinlet"},
        {"wall"},
    }},
    {""},
};

} // namespace

TreeCfdBCData::TreeCfdBCData(CFDType type, int id)
    : TreeData(id)
    , m_cfd_bc_type(type)
{
    qRegisterMetaType<TreeCfdBCData*>();
}

TreeCfdBCData::CFDType TreeCfdBCData::cfd_bc_type()
{
    return m_cfd_bc_type;
}

bool TreeCfdBCData::string_to_type(const std::string& text, CFDType& type)
{
    return kinds.find(text, type);
}

std::string TreeCfdBCData::type_to_string(CFDType type)
{
    return std::string(kinds[type].word.usual);
}

QString TreeCfdBCData::default_name()
{
    return tr("cfd_bc");
}
