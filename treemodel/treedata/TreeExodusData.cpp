#include <treemodel/treedata/TreeExodusData.hpp>

#include <QMetaType>
#include <treemodel/treedata/KindTable.hpp>

namespace {

struct ExodusKind
{
    KindWord word;
    const char* default_name;
};

constexpr KindTable<TreeExodusData::ExodusType, ExodusKind, 3> kinds{
    {{
        {{"block"}, QT_TRANSLATE_NOOP("TreeExodusData", "Block %1")},
        {{"sideset"}, QT_TRANSLATE_NOOP("TreeExodusData", "Sideset %1")},
        {{"nodeset"}, QT_TRANSLATE_NOOP("TreeExodusData", "Nodeset %1")},
    }},
    {{""}, QT_TRANSLATE_NOOP("TreeExodusData", "Exodus %1")},
};

} // namespace

TreeExodusData::TreeExodusData(ExodusType type, int id)
    : TreeData(id)
    , m_exodus_type(type)
{
    qRegisterMetaType<TreeExodusData*>();
}

TreeExodusData::ExodusType TreeExodusData::exodus_type()
{
    return m_exodus_type;
}

bool TreeExodusData::is_lite()
{
    return m_lite;
}

void TreeExodusData::set_lite(bool is_lite)
{
    if (is_lite == m_lite) {
        return;
    }
    m_lite = is_lite;
    Q_EMIT lite_status_changed(is_lite);
}

bool TreeExodusData::string_to_type(const std::string& text, ExodusType& type)
{
    return kinds.find(text, type);
}

std::string TreeExodusData::type_to_string(ExodusType type)
{
    return std::string(kinds[type].word.usual);
}

QString TreeExodusData::default_name()
{
    return tr(kinds[m_exodus_type].default_name).arg(id());
}
