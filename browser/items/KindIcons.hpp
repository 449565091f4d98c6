#pragma once

#include <treemodel/entity/EntityIconFactory.hpp>

/// The icons of the tree's rows, one drawing for each kind; a sheet body has one of its own.
///
/// They lie in the resources of the browser, with the mark that EntityModel shows for what is
/// invisible, and need Qt's SVG plugins.
class KindIcons : public EntityIconFactory
{
public:
    /// Makes sure that the resources are there.
    KindIcons();

    /// Empty for an item of a kind that is not the tree's.
    const char* getIconPath(EntityItem* item) override;
};
