#include <treemodel/entity/EntityModelInterface.hpp>

EntityModelInterface::~EntityModelInterface() = default;

void EntityModelInterface::create_new_item_action(EntityItem* /*item*/, int /*type*/,
    QMenu* /*menu*/, const QString& /*text*/, const char* /*icon_path*/)
{
}

void EntityModelInterface::create_refresh_action(QMenu* /*menu*/) {}

void EntityModelInterface::create_rename_action(QMenu* /*menu*/) {}

void EntityModelInterface::create_collapse_action(QMenu* /*menu*/) {}
