#pragma once

#include <QPointer>
#include <treemodel/entity/EntityCategoryManager.hpp>

class MirrorItems;
class PropertiesView;

/// The browser as a client of the tree: owns the type numbers of ItemKind as blocks, and offers
/// the view of the properties.
class CategoryManager : public EntityCategoryManager
{
public:
    /// `join` must outlive the manager and its views.
    explicit CategoryManager(MirrorItems& join);

    /// Geometry, groups, mesh, sets, FEA conditions, CFD conditions, materials, categories.
    const EntityTypeRange& type_blocks() const { return type_range; }

    int get_number_of_views() const override;
    void get_view_label(int view, QString& label) const override;

    /// A new view without a parent, for the caller to own; `flag` then tells that it wants to
    /// be activated with each new selection. Null, and `flag` untouched, for an unknown view.
    QWidget* create_view_widget(int view, bool& flag) override;

    /// Has the view show these items, until the next call or deactivate_view(). `widget` is one
    /// that create_view_widget() made.
    void activate_view(int view, QWidget* widget, const std::vector<EntityItem*>& items) override;

    /// The view activated last shows nothing any more.
    void deactivate_view(int view) override;

private:
    MirrorItems& m_join;
    QPointer<PropertiesView> m_active;
};
