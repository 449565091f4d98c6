#pragma once

#include <treemodel/treemodel_export.hpp>

class EntityItem;

/// Source of the row icons of an EntityModel. The front end implements it.
class TREEMODEL_EXPORT EntityIconFactory
{
public:
    virtual ~EntityIconFactory();

    /// The resource path, in UTF-8, of the icon for a visible item. The pointer need only
    /// live until the caller has copied the text.
    virtual const char* getIconPath(EntityItem* item) = 0;
};
