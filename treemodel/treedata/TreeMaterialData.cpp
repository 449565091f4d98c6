#include <treemodel/treedata/TreeMaterialData.hpp>

#include <QMetaType>

TreeMaterialData::TreeMaterialData(int id, bool is_cfd)
    : TreeData(id)
    , m_cfd(is_cfd)
{
    qRegisterMetaType<TreeMaterialData*>();
}

bool TreeMaterialData::is_cfd()
{
    return m_cfd;
}

void TreeMaterialData::set_cfd(bool is_cfd)
{
    m_cfd = is_cfd;
    Q_EMIT cfd_flag_changed(is_cfd);
}

QString TreeMaterialData::default_name()
{
    return m_cfd ? tr("Media") : tr("Material");
}
