#pragma once

#include <QString>
#include <treemodel/entity/EntityTypeRange.hpp>
#include <vector>

class EntityItem;
class QWidget;

/// A client of the tree that owns blocks of type numbers and may offer views of its
/// category. The front end implements it; the library calls none of the view operations.
class TREEMODEL_EXPORT EntityCategoryManager
{
public:
    virtual ~EntityCategoryManager();

    /// Shifts the client's type numbers by `delta`. Shifts add up.
    void set_offset(int delta);

    /// The views of the category. The defaults offer none and leave their arguments alone.
    virtual int get_number_of_views() const;
    virtual void get_view_label(int view, QString& label) const;
    virtual QWidget* create_view_widget(int view, bool& flag);
    virtual void activate_view(int view, QWidget* widget, const std::vector<EntityItem*>& items);
    virtual void deactivate_view(int view);

protected:
    /// The blocks of type numbers, for subclasses to fill.
    EntityTypeRange type_range;
};
