#include <browser/items/KindIcons.hpp>

#include <browser/items/RecordItem.hpp>
#include <QtGlobal>
#include <treemodel/treedata/TreeBodyData.hpp>

namespace {

bool is_sheet_body(EntityItem* item)
{
    const auto* place = dynamic_cast<RecordItem*>(item);
    auto* body = place ? qobject_cast<TreeBodyData*>(place->data().record()) : nullptr;
    return body && body->is_sheet_body();
}

} // namespace

KindIcons::KindIcons()
{
    Q_INIT_RESOURCE(treebrowser_icons);
}

const char* KindIcons::getIconPath(EntityItem* item)
{
    const int type = item->getType();
    if (type < 0 || type >= item_kind_count) {
        return "";
    }
    if (ItemKind(type) == ItemKind::Body && is_sheet_body(item)) {
        return ":/treebrowser/icons/sheet-body.svg";
    }
    return item_kind_info(ItemKind(type)).icon.c_str();
}
