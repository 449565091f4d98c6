#include <treemodel/treedata/TreeMeshData.hpp>

#include <QMetaType>
#include <treemodel/treedata/KindTable.hpp>

namespace {

struct MeshKind
{
    const char* many;
    const char* one;
};

constexpr KindTable<TreeMeshData::MeshType, MeshKind, 9> kinds{
    {{
        {QT_TRANSLATE_NOOP("TreeMeshData", "%1 hex elements"),
            QT_TRANSLATE_NOOP("TreeMeshData", "1 hex element")},
        {QT_TRANSLATE_NOOP("TreeMeshData", "%1 tet elements"),
            QT_TRANSLATE_NOOP("TreeMeshData", "1 tet element")},
        {QT_TRANSLATE_NOOP("TreeMeshData", "%1 wedge elements"),
            QT_TRANSLATE_NOOP("TreeMeshData", "1 wedge element")},
        {QT_TRANSLATE_NOOP("TreeMeshData", "%1 pyramid elements"),
            QT_TRANSLATE_NOOP("TreeMeshData", "1 pyramid element")},
        {QT_TRANSLATE_NOOP("TreeMeshData", "%1 sphere elements"),
            QT_TRANSLATE_NOOP("TreeMeshData", "1 sphere element")},
        {QT_TRANSLATE_NOOP("TreeMeshData", "%1 tri elements"),
            QT_TRANSLATE_NOOP("TreeMeshData", "1 tri element")},
        {QT_TRANSLATE_NOOP("TreeMeshData", "%1 quad elements"),
            QT_TRANSLATE_NOOP("TreeMeshData", "1 quad element")},
        {QT_TRANSLATE_NOOP("TreeMeshData", "%1 edge elements"),
            QT_TRANSLATE_NOOP("TreeMeshData", "1 edge element")},
        {QT_TRANSLATE_NOOP("TreeMeshData", "%1 nodes"),
            QT_TRANSLATE_NOOP("TreeMeshData", "1 node")},
    }},
    {QT_TRANSLATE_NOOP("TreeMeshData", "%1 mesh elements"),
        QT_TRANSLATE_NOOP("TreeMeshData", "1 mesh element")},
};

} // namespace

TreeMeshData::TreeMeshData(MeshType type, int element_count)
    : TreeData(type)
    , m_mesh_type(type)
    , m_element_count(element_count)
{
    qRegisterMetaType<TreeMeshData*>();
}

TreeMeshData::MeshType TreeMeshData::mesh_type()
{
    return m_mesh_type;
}

int TreeMeshData::element_count()
{
    return m_element_count;
}

void TreeMeshData::set_element_count(int num_elements)
{
    m_element_count = num_elements;
    Q_EMIT element_count_changed(num_elements);
}

QString TreeMeshData::default_name()
{
    const MeshKind& kind = kinds[m_mesh_type];
    return m_element_count == 1 ? tr(kind.one) : tr(kind.many).arg(m_element_count);
}
