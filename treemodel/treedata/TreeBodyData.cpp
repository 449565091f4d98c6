#include <treemodel/treedata/TreeBodyData.hpp>

#include <QMetaType>

TreeBodyData::TreeBodyData(int id)
    : TreeGeometryData(BODY, id)
{
    qRegisterMetaType<TreeBodyData*>();
}

bool TreeBodyData::is_sheet_body()
{
    return m_sheet_body;
}

void TreeBodyData::set_sheet_body(bool sheet_body)
{
    if (sheet_body == m_sheet_body) {
        return;
    }
    m_sheet_body = sheet_body;
    Q_EMIT sheet_body_changed(sheet_body);
}

bool TreeBodyData::is_multi_volume()
{
    return m_multi_volume;
}

void TreeBodyData::set_multi_volume(bool multi_volume)
{
    if (multi_volume == m_multi_volume) {
        return;
    }
    m_multi_volume = multi_volume;
    Q_EMIT multi_volume_changed(multi_volume);
}
