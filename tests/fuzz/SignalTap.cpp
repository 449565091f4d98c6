#include "SignalTap.hpp"

#include <QMetaMethod>
#include <treemodel/kernel/TreeModel.hpp>

SignalTap::SignalTap(TreeModel& mirror, std::function<void()> callback)
    : m_callback(std::move(callback))
{
    follow_additions(mirror);
    tap(&mirror);
}

void SignalTap::call()
{
    m_callback();
}

void SignalTap::follow_additions(TreeModel& mirror)
{
    connect(&mirror, &TreeModel::geometry_added, this, &SignalTap::watch);
    connect(&mirror, &TreeModel::group_added, this, &SignalTap::watch);
    connect(&mirror, &TreeModel::mesh_data_added, this, &SignalTap::watch);
    connect(&mirror, &TreeModel::sizing_source_added, this, &SignalTap::watch);
    connect(&mirror, &TreeModel::boundary_layer_added, this, &SignalTap::watch);
    connect(&mirror, &TreeModel::exodus_entity_added, this, &SignalTap::watch);
    connect(&mirror, &TreeModel::fea_bc_added, this, &SignalTap::watch);
    connect(&mirror, &TreeModel::cfd_bc_added, this, &SignalTap::watch);
    connect(&mirror, &TreeModel::material_added, this, &SignalTap::watch);
}

void SignalTap::watch(TreeData* record)
{
    tap(record);
}

void SignalTap::tap(QObject* sender)
{
    static const QMetaMethod slot = staticMetaObject.method(staticMetaObject.indexOfSlot("call()"));
    const QMetaObject* const declaring = sender->metaObject();
    for (int i = QObject::staticMetaObject.methodCount(); i < declaring->methodCount(); ++i) {
        const QMetaMethod method = declaring->method(i);
        if (method.methodType() == QMetaMethod::Signal && method.name() != "treedata_destroyed") {
            connect(sender, method, this, slot);
        }
    }
}
