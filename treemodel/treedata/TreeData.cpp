#include <treemodel/treedata/TreeData.hpp>

#include <QMetaType>
#include <QPointer>
#include <treemodel/treedata/RecordDeaths.hpp>

TreeData::TreeData(int id)
    : TreeData(QString(), id)
{
}

TreeData::TreeData(const QString& name, int id)
    : m_id(id)
    , m_name(name)
{
    qRegisterMetaType<TreeData*>();
}

TreeData::~TreeData()
{
    const RecordDeaths::UnderWay death(this);
    Q_EMIT treedata_destroyed(this);
}

int TreeData::id()
{
    return m_id;
}

void TreeData::set_id(int new_id)
{
    m_id = new_id;
    const QPointer<TreeData> self(this);
    Q_EMIT id_changed(new_id);
    if (self && !has_own_name()) {
        Q_EMIT name_changed(default_name());
    }
}

QString TreeData::name()
{
    return has_own_name() ? m_name : default_name();
}

void TreeData::set_name(const QString& name)
{
    if (name == m_name) {
        return;
    }
    m_name = name;
    Q_EMIT name_changed(name);
}

bool TreeData::is_visible()
{
    return m_visible;
}

void TreeData::set_visible(bool visible)
{
    m_visible = visible;
    Q_EMIT visible_changed(visible);
}

bool TreeData::has_own_name()
{
    return !m_name.isEmpty();
}

QString TreeData::default_name()
{
    return tr("Entity %1").arg(m_id);
}
