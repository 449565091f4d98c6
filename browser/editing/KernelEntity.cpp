#include <browser/editing/KernelEntity.hpp>

#include <algorithm>
#include <array>
#include <browser/items/ItemKind.hpp>
#include <treemodel/treedata/TreeData.hpp>

namespace {

/// Kinds that come in the same order in both enumerations.
struct Block
{
    ItemKind first;
    ItemKind last;
    EntityKind first_entity;

    constexpr bool has(ItemKind kind) const { return first <= kind && kind <= last; }
    constexpr EntityKind operator[](ItemKind kind) const
    {
        return static_cast<EntityKind>(int(first_entity) + int(kind) - int(first));
    }
};

constexpr std::array blocks{
    Block{ItemKind::Body, ItemKind::Body, EntityKind::BODY},
    Block{ItemKind::Volume, ItemKind::Volume, EntityKind::VOLUME},
    Block{ItemKind::Surface, ItemKind::Surface, EntityKind::SURFACE},
    Block{ItemKind::Curve, ItemKind::Curve, EntityKind::CURVE},
    Block{ItemKind::Vertex, ItemKind::Vertex, EntityKind::VERTEX},
    Block{ItemKind::Group, ItemKind::Group, EntityKind::GROUP},
    Block{ItemKind::SizingSource, ItemKind::BoundaryLayer, EntityKind::SIZING_SOURCE},
    Block{ItemKind::Block, ItemKind::Nodeset, EntityKind::BLOCK},
    Block{ItemKind::Force, ItemKind::Wall, EntityKind::FORCE},
    Block{ItemKind::Material, ItemKind::Medium, EntityKind::MATERIAL},
};

} // namespace

QString KernelEntity::text() const
{
    const QString word = QString::fromStdString(entity_word(kind)).replace(u'_', u' ');
    return word + u' ' + QString::number(id);
}

std::optional<KernelEntity> kernel_entity(TreeData* record)
{
    if (!record) {
        return std::nullopt;
    }
    const ItemKind kind = item_kind(record);
    const auto block = std::find_if(blocks.begin(), blocks.end(),
        [kind](const Block& candidate) { return candidate.has(kind); });
    if (block == blocks.end()) {
        return std::nullopt;
    }
    return KernelEntity{(*block)[kind], record->id()};
}
