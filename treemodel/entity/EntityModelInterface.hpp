#pragma once

#include <string>
#include <treemodel/treemodel_export.hpp>

class EntityItem;
class QMenu;
class QString;

/// The front end's own model object, as items and selections reach it. The front end
/// implements it.
class TREEMODEL_EXPORT EntityModelInterface
{
public:
    virtual ~EntityModelInterface();

    /// What `item` shows has changed; called by EntityItemData::updateModel() for each of its
    /// nodes.
    virtual void update_item(EntityItem* item) = 0;

    /// The name of a type of items. The reference must hold until the caller has copied it.
    virtual const std::string& get_type_name(int type) = 0;

    /// Add entries to a menu of the front end. The defaults add none.
    virtual void create_new_item_action(
        EntityItem* item, int type, QMenu* menu, const QString& text, const char* icon_path);
    virtual void create_refresh_action(QMenu* menu);
    virtual void create_rename_action(QMenu* menu);
    virtual void create_collapse_action(QMenu* menu);
};
