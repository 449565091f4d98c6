#include <treemodel/entity/EntityCategory.hpp>

EntityCategory::EntityCategory(const QString& display, int type, int category, int preferredIndex)
    : SimpleItem(display, type, nullptr)
    , m_category(category)
    , m_preferredIndex(preferredIndex)
{
}

int EntityCategory::getCategory() const
{
    return m_category;
}

int EntityCategory::getPreferredIndex() const
{
    return m_preferredIndex;
}
