#include <treemodel/treedata/TreeSizingSourceData.hpp>

#include <QMetaType>

TreeSizingSourceData::TreeSizingSourceData(int id)
    : TreeData(id)
    , m_source_id(id)
{
    qRegisterMetaType<TreeSizingSourceData*>();
}

QString TreeSizingSourceData::default_name()
{
    return tr("Sizing Source ") + QString::number(m_source_id);
}
