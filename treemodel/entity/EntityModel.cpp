#include <treemodel/entity/EntityModel.hpp>

#include <QFile>
#include <treemodel/entity/EntityCategories.hpp>
#include <treemodel/prefetch.hpp>
#include <vector>

namespace {

constexpr int name_column = 0;
constexpr int id_column = 1;
constexpr int column_count = 2;
constexpr int prefetch_distance = 8; // Siblings ahead of one that is read
constexpr const char* invisible_icon = ":/kestogui/light/invisible.svg";

/// The topmost item above `item`, which may be `item` itself.
EntityItem* top_of(EntityItem* item)
{
    while (EntityItem* parent = item->getParentEntity()) {
        item = parent;
    }
    return item;
}

bool stands_under(const EntityItem* item, const EntityItem* ancestor)
{
    while (item && item != ancestor) {
        item = item->getParentEntity();
    }
    return item;
}

/// Goes through the subtree of `top` as EntityItem::getNext() does, but knows the row of the
/// item that it stands at without a search, unless someone has moved that meanwhile.
class SubtreeWalk
{
public:
    explicit SubtreeWalk(EntityItem* top)
        : m_top(top)
        , m_item(top)
    {
    }

    /// Null at the end.
    EntityItem* item() const { return m_item; }

    /// The row of item() in its parent, -1 if it has none.
    int row() const
    {
        const EntityItem* parent = m_item->getParentEntity();
        if (!parent) {
            return -1;
        }
        const bool is_known = !m_rows.empty() && parent->getChild(m_rows.back()) == m_item;
        return is_known ? m_rows.back() : parent->getChildIndex(m_item);
    }

    void next()
    {
        if (EntityItem* child = m_item->getChild(0)) {
            stand_at(child, 0);
            return;
        }
        while (m_item && m_item != m_top) {
            const int next_row = row() + 1;
            leave();
            EntityItem* sibling = m_item ? m_item->getChild(next_row) : nullptr;
            if (sibling) {
                prefetch(m_item->getChild(next_row + prefetch_distance));
                stand_at(sibling, next_row);
                return;
            }
        }
        m_item = nullptr;
    }

private:
    void stand_at(EntityItem* item, int row)
    {
        m_item = item;
        m_rows.push_back(row);
    }

    void leave()
    {
        m_item = m_item->getParentEntity();
        if (!m_rows.empty()) {
            m_rows.pop_back();
        }
    }

    EntityItem* m_top;
    EntityItem* m_item;
    std::vector<int> m_rows; // Of m_item and the items above it, below m_top
};

} // namespace

EntityModel::EntityModel(QObject* parent)
    : QAbstractItemModel(parent)
    , m_rootItem(new SimpleItem(-1, 0, new EntityCategories))
{
}

EntityModel::~EntityModel()
{
    clear();
    delete m_rootItem;
}

void EntityModel::setIcons(EntityIconFactory* icons)
{
    m_icons = icons;
    m_sharedIcons.clear();
}

QModelIndex EntityModel::index(int row, int column, const QModelIndex& parent) const
{
    if (column < 0 || column >= column_count) {
        return {};
    }
    const EntityItem* item = m_rootItem;
    if (parent.isValid()) {
        item = getEntity(parent);
    }
    EntityItem* child = item ? item->getChild(row) : nullptr;
    if (!child) {
        return {};
    }
    // Readers go on from row to row, over items that lie about in memory.
    prefetch(item->getChild(row + prefetch_distance));
    return createIndex(row, column, child);
}

QModelIndex EntityModel::parent(const QModelIndex& child) const
{
    const EntityItem* item = getEntity(child);
    EntityItem* parent = item ? item->getParentEntity() : nullptr;
    return parent ? indexOf(parent, name_column) : QModelIndex();
}

int EntityModel::rowCount(const QModelIndex& parent) const
{
    if (!parent.isValid()) {
        return m_rootItem->childCount();
    }
    return owns(parent) && parent.column() == name_column ? getEntity(parent)->childCount() : 0;
}

int EntityModel::columnCount(const QModelIndex& /*parent*/) const
{
    return column_count;
}

QVariant EntityModel::data(const QModelIndex& index, int role) const
{
    EntityItem* item = getEntity(index);
    if (!item) {
        return {};
    }
    return index.column() == name_column ? nameData(item, role) : idData(item, role);
}

bool EntityModel::setData(const QModelIndex& index, const QVariant& value, int /*role*/)
{
    EntityItem* item = getEntity(index);
    if (item && index.column() == name_column) {
        const QString text = value.toString();
        if (text != item->getName()) {
            Q_EMIT nameEdited(item, text);
        }
    }
    return false;
}

QVariant EntityModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal) {
        return {};
    }
    if (role == Qt::InitialSortOrderRole) {
        return static_cast<int>(Qt::AscendingOrder);
    }
    if (role == Qt::DisplayRole && section == name_column) {
        return tr("Name");
    }
    if (role == Qt::DisplayRole && section == id_column) {
        return tr("Id");
    }
    return {};
}

Qt::ItemFlags EntityModel::flags(const QModelIndex& index) const
{
    Qt::ItemFlags result = Qt::ItemIsSelectable | Qt::ItemIsEnabled;
    const EntityItem* item = getEntity(index);
    result.setFlag(Qt::ItemIsEditable, item && index.column() == name_column && item->isEditable());
    return result;
}

void EntityModel::sort(int column, Qt::SortOrder order)
{
    const bool ascending = order == Qt::AscendingOrder;
    if (column == m_sortColumn && ascending == m_sortAscending) {
        return;
    }
    m_sortColumn = column;
    m_sortAscending = ascending;
    for (SubtreeWalk walk(m_rootItem); walk.item(); walk.next()) {
        if (walk.item()->childCount() > 0) {
            const int row = walk.row();
            sortChildrenOf(
                walk.item(), row < 0 ? QModelIndex() : createIndex(row, name_column, walk.item()));
        }
    }
}

EntityItem* EntityModel::getEntity(const QModelIndex& index) const
{
    return owns(index) ? static_cast<EntityItem*>(index.internalPointer()) : nullptr;
}

QModelIndex EntityModel::index(EntityItem* item) const
{
    return regionOf(item) == Region::Visible ? indexOf(item, name_column) : QModelIndex();
}

bool EntityModel::contains(EntityItem* item, bool& hidden) const
{
    const Region region = regionOf(item);
    hidden = region == Region::Hidden;
    return region != Region::Unknown;
}

bool EntityModel::addEntity(EntityItem* parent, EntityItem* child)
{
    EntityItem* target = parent ? parent : m_rootItem;
    const Region region = parent ? regionOf(parent) : Region::Visible;
    const int row = region == Region::Unknown
                        ? -1
                        : target->findInsertIndex(child, m_sortColumn, m_sortAscending);
    if (row == -1) {
        delete child;
        return false;
    }
    if (row < 0) {
        return true;
    }
    insertEntity(target, row, child, region);
    return true;
}

bool EntityModel::moveEntity(EntityItem* item, EntityItem* newParent)
{
    if (!item) {
        return false;
    }
    EntityItem* target = newParent ? newParent : m_rootItem;
    if (item->getParentEntity() == target) {
        return true;
    }
    const Region from = regionOf(item);
    const Region to = regionOf(target);
    if (from == Region::Unknown || to == Region::Unknown) {
        return false;
    }
    const int row = target->findInsertIndex(item, m_sortColumn, m_sortAscending);
    if (row < 0) {
        return false;
    }
    Q_ASSERT(!stands_under(target, item));
    if (from == Region::Hidden) {
        takeHiddenEntity(item);
        insertEntity(target, row, item, to);
        return false;
    }
    EntityItem* source = item->getParentEntity();
    const int sourceRow = source->getChildIndex(item);
    const QModelIndex sourceIndex = indexOf(source, name_column);
    if (to == Region::Visible) {
        beginMoveRows(sourceIndex, sourceRow, sourceRow, indexOf(target, name_column), row);
        source->removeChild(sourceRow);
        target->insertChild(row, item);
        endMoveRows();
    } else {
        beginRemoveRows(sourceIndex, sourceRow, sourceRow);
        source->removeChild(sourceRow);
        target->insertChild(row, item);
        endRemoveRows();
    }
    return false;
}

bool EntityModel::removeEntity(EntityItem* item)
{
    const Region region = regionOf(item);
    if (region == Region::Unknown) {
        return false;
    }
    region == Region::Hidden ? takeHiddenEntity(item) : takeEntity(item);
    delete item;
    return true;
}

void EntityModel::updateEntity(EntityItem* item)
{
    if (regionOf(item) != Region::Visible) {
        return;
    }
    EntityItem* parent = item->getParentEntity();
    const int row = parent->getChildIndex(item);
    Q_ASSERT(row >= 0);
    const int target = parent->findUpdatedIndex(row, m_sortColumn, m_sortAscending);
    if (target == row) {
        Q_EMIT dataChanged(
            createIndex(row, name_column, item), createIndex(row, id_column, item), {});
        return;
    }
    const QModelIndex parentIndex = indexOf(parent, name_column);
    beginMoveRows(parentIndex, row, row, parentIndex, target);
    parent->m_list->moveChild(row, row < target ? target - 1 : target);
    endMoveRows();
}

void EntityModel::hideCategory(EntityItem* item)
{
    if (item && item->getParentEntity() == m_rootItem) {
        takeEntity(item);
        m_hiddenCategories.append(item);
    }
}

void EntityModel::showCategory(EntityItem* item)
{
    if (item && m_hiddenCategories.removeAll(item) > 0) {
        addEntity(nullptr, item);
    }
}

void EntityModel::clearCategory(EntityItem* item)
{
    const Region region = regionOf(item);
    if (region == Region::Unknown) {
        return;
    }
    if (region == Region::Hidden) {
        item->clear();
        return;
    }
    if (const int count = item->childCount(); count > 0) {
        beginRemoveRows(indexOf(item, name_column), 0, count - 1);
        item->clear();
        endRemoveRows();
    }
}

void EntityModel::clear()
{
    beginResetModel();
    m_rootItem->clear();
    qDeleteAll(m_hiddenCategories);
    m_hiddenCategories.clear();
    endResetModel();
}

bool EntityModel::owns(const QModelIndex& index) const
{
    return index.isValid() && index.model() == this;
}

EntityModel::Region EntityModel::regionOf(EntityItem* item) const
{
    EntityItem* top = item ? top_of(item) : nullptr;
    if (top == m_rootItem && item != m_rootItem) {
        return Region::Visible;
    }
    return m_hiddenCategories.contains(top) ? Region::Hidden : Region::Unknown;
}

QModelIndex EntityModel::indexOf(EntityItem* item, int column) const
{
    const EntityItem* parent = item->getParentEntity();
    const int row = parent ? parent->getChildIndex(item) : -1;
    return row < 0 ? QModelIndex() : createIndex(row, column, item);
}

QVariant EntityModel::nameData(EntityItem* item, int role) const
{
    switch (role) {
    case Qt::DisplayRole:
        return item->getDisplayName();
    case Qt::EditRole:
        return item->getName();
    case Qt::DecorationRole:
        return sharedIcon(
            m_icons && item->isVisible() ? m_icons->getIconPath(item) : invisible_icon);
    default:
        return {};
    }
}

QVariant EntityModel::idData(const EntityItem* item, int role) const
{
    const bool is_text = role == Qt::DisplayRole || role == Qt::EditRole;
    const int id = is_text ? item->getId() : 0;
    return id > 0 ? QVariant(id) : QVariant();
}

QIcon EntityModel::sharedIcon(const char* path) const
{
    const auto key = QByteArray::fromRawData(path, static_cast<qsizetype>(qstrlen(path)));
    if (const auto known = m_sharedIcons.constFind(key); known != m_sharedIcons.cend()) {
        return *known;
    }
    const QString file = QString::fromUtf8(path);
    QIcon icon(file);
    if (QFile::exists(file)) {
        m_sharedIcons.insert(QByteArray(path), icon);
    }
    return icon;
}

void EntityModel::sortChildrenOf(EntityItem* item, const QModelIndex& index)
{
    const QList<QPersistentModelIndex> parents{QPersistentModelIndex(index)};
    Q_EMIT layoutAboutToBeChanged(parents, VerticalSortHint);
    const int count = item->childCount();
    for (int row = 0; row < count; ++row) {
        item->getChild(row)->m_sortRow = row;
    }
    item->sortChildren(m_sortColumn, m_sortAscending);
    QModelIndexList before;
    QModelIndexList after;
    before.reserve(count);
    after.reserve(count);
    for (int row = 0; row < count; ++row) {
        EntityItem* child = item->getChild(row);
        before.append(createIndex(child->m_sortRow, name_column, child));
        after.append(createIndex(row, name_column, child));
    }
    changePersistentIndexList(before, after);
    Q_EMIT layoutChanged(parents, VerticalSortHint);
}

void EntityModel::insertEntity(EntityItem* parent, int row, EntityItem* item, Region region)
{
    if (region == Region::Hidden) {
        parent->insertChild(row, item);
        return;
    }
    beginInsertRows(indexOf(parent, name_column), row, row);
    parent->insertChild(row, item);
    endInsertRows();
}

void EntityModel::takeEntity(EntityItem* item)
{
    EntityItem* parent = item->getParentEntity();
    const int row = parent->getChildIndex(item);
    Q_ASSERT(row >= 0);
    beginRemoveRows(indexOf(parent, name_column), row, row);
    parent->removeChild(row);
    endRemoveRows();
}

void EntityModel::takeHiddenEntity(EntityItem* item)
{
    if (EntityItem* parent = item->getParentEntity()) {
        parent->removeChild(parent->getChildIndex(item));
    } else {
        m_hiddenCategories.removeAll(item);
    }
}
