#include <browser/editing/KernelEntity.hpp>

#include <browser/items/ItemKind.hpp>
#include <treemodel/treedata/TreeData.hpp>

QString KernelEntity::text() const
{
    return QString::fromStdString(entity_word(kind)) + u' ' + QString::number(id);
}

std::optional<KernelEntity> kernel_entity(TreeData* record)
{
    if (!record) {
        return std::nullopt;
    }
    const std::optional<EntityKind> kind = entity_kind(item_kind_info(item_kind(record)).word);
    return kind ? std::optional<KernelEntity>({*kind, record->id()}) : std::nullopt;
}
