#include "support/ModelSpy.hpp"

#include <algorithm>
#include <iterator>
#include <utility>

struct ModelSpy::Row
{
    const void* item = nullptr;
    QList<QVariant> cells;
    std::vector<std::unique_ptr<Row>> children;

    int count() const { return int(children.size()); }
};

struct ModelSpy::Pending
{
    ModelEvent event;
    Row* parent = nullptr;
    Row* destination = nullptr;
};

ModelSpy::ModelSpy(QAbstractItemModel* model, QObject* parent)
    : QObject(parent)
    , m_model(model)
    , m_root(read({}))
{
    using Model = QAbstractItemModel;
    using Event = ModelEvent;
    const auto rows = [this](auto step, Event::Kind kind) {
        return [this, step, kind](const QModelIndex& at, int first, int last) {
            (this->*step)({kind, at.internalPointer(), first, last}, at, {});
        };
    };
    const auto moves = [this](auto step) {
        return [this, step](
                   const QModelIndex& at, int first, int last, const QModelIndex& to, int row) {
            (this->*step)(
                {Event::Moved, at.internalPointer(), first, last, to.internalPointer(), row}, at,
                to);
        };
    };
    const auto refuse = [this] { fault("the columns change"); };

    connect(model, &Model::rowsAboutToBeInserted, this, rows(&ModelSpy::begin, Event::Inserted));
    connect(model, &Model::rowsInserted, this, rows(&ModelSpy::end, Event::Inserted));
    connect(model, &Model::rowsAboutToBeRemoved, this, rows(&ModelSpy::begin, Event::Removed));
    connect(model, &Model::rowsRemoved, this, rows(&ModelSpy::end, Event::Removed));
    connect(model, &Model::rowsAboutToBeMoved, this, moves(&ModelSpy::begin));
    connect(model, &Model::rowsMoved, this, moves(&ModelSpy::end));
    connect(model, &Model::layoutAboutToBeChanged, this, &ModelSpy::begin_layout);
    connect(model, &Model::layoutChanged, this, &ModelSpy::end_layout);
    connect(model, &Model::modelAboutToBeReset, this, [this] { begin({Event::Reset}, {}, {}); });
    connect(model, &Model::modelReset, this, [this] { end({Event::Reset}, {}, {}); });
    connect(model, &Model::dataChanged, this, &ModelSpy::change_cells);
    connect(model, &Model::columnsAboutToBeInserted, this, refuse);
    connect(model, &Model::columnsAboutToBeRemoved, this, refuse);
    connect(model, &Model::columnsAboutToBeMoved, this, refuse);
}

ModelSpy::~ModelSpy() = default;

std::vector<ModelEvent> ModelSpy::take_events()
{
    return std::exchange(m_events, {});
}

QString ModelSpy::differences() const
{
    if (!m_fault.isEmpty()) {
        return m_fault;
    }
    if (m_pending) {
        return "a change is announced and never made";
    }
    return compare(*m_root, {}, true);
}

void ModelSpy::begin(
    const ModelEvent& event, const QModelIndex& parent, const QModelIndex& destination)
{
    if (m_pending) {
        return fault("a change begins inside another one");
    }
    m_pending = std::make_unique<Pending>(Pending{event, find(parent), find(destination)});
    if (!m_pending->parent || !m_pending->destination) {
        return fault("a change is announced under an index that is no row of the model");
    }
    check_range(*m_pending);
    const QString difference = compare(*m_root, {}, false);
    if (!difference.isEmpty()) {
        fault("in the signal before a change, " + difference);
    }
}

void ModelSpy::end(
    const ModelEvent& event, const QModelIndex& parent, const QModelIndex& destination)
{
    const auto pending = std::exchange(m_pending, nullptr);
    if (!m_fault.isEmpty()) {
        return;
    }
    if (!pending || pending->event != event) {
        return fault("the signal after a change differs from the one before it");
    }
    m_events.push_back(event);
    apply(*pending, parent, destination);
    const QString difference = compare(*m_root, {}, false);
    if (!difference.isEmpty()) {
        return fault("in the signal after a change, " + difference);
    }
    if (event.kind == ModelEvent::Reset) {
        return;
    }
    if (find(parent) != pending->parent || find(destination) != pending->destination) {
        fault("the indexes of the signal after a change name other rows than before it");
    }
}

void ModelSpy::begin_layout(
    const QList<QPersistentModelIndex>& parents, QAbstractItemModel::LayoutChangeHint hint)
{
    if (parents.size() != 1 || hint != QAbstractItemModel::VerticalSortHint) {
        return fault("a new layout is announced for other than one parent's rows");
    }
    begin({ModelEvent::LaidOut, parents.first().internalPointer()}, parents.first(), {});
}

void ModelSpy::end_layout(
    const QList<QPersistentModelIndex>& parents, QAbstractItemModel::LayoutChangeHint hint)
{
    if (parents.size() != 1 || hint != QAbstractItemModel::VerticalSortHint) {
        return fault("a new layout is told for other than one parent's rows");
    }
    end({ModelEvent::LaidOut, parents.first().internalPointer()}, parents.first(), {});
}

void ModelSpy::change_cells(
    const QModelIndex& top_left, const QModelIndex& bottom_right, const QList<int>& roles)
{
    const QModelIndex parent = top_left.parent();
    Row* row = find(top_left.siblingAtColumn(0));
    if (m_pending) {
        return fault("cells change inside another change");
    }
    if (!row || parent != bottom_right.parent() || top_left.row() != bottom_right.row()) {
        return fault("the changed cells are not of one row of the model");
    }
    if (top_left.column() != 0 || bottom_right.column() != m_model->columnCount(parent) - 1) {
        return fault("the changed cells are not the whole row");
    }
    if (!roles.isEmpty()) {
        return fault("a change of cells names roles");
    }
    m_events.push_back(
        {ModelEvent::Changed, parent.internalPointer(), top_left.row(), bottom_right.row()});
    read_cells(*row, top_left);
}

void ModelSpy::check_range(const Pending& pending)
{
    const ModelEvent& event = pending.event;
    if (event.kind == ModelEvent::Reset || event.kind == ModelEvent::LaidOut) {
        return;
    }
    const int end = event.kind == ModelEvent::Inserted ? event.first : event.last + 1;
    if (event.first < 0 || event.last < event.first || end > pending.parent->count()) {
        fault(QString("rows %1 to %2 are announced where %3 stand")
                  .arg(event.first)
                  .arg(event.last)
                  .arg(pending.parent->count()));
    }
    if (event.kind == ModelEvent::Moved &&
        (event.destination_row < 0 || event.destination_row > pending.destination->count())) {
        fault("rows are to move where there is no place for them");
    }
}

void ModelSpy::apply(
    const Pending& pending, const QModelIndex& parent, const QModelIndex& destination)
{
    switch (pending.event.kind) {
    case ModelEvent::Inserted:
        return insert_rows(pending, parent);
    case ModelEvent::Removed:
        return remove_rows(pending);
    case ModelEvent::Moved:
        return move_rows(pending, destination);
    case ModelEvent::LaidOut:
        return reorder_rows(*pending.parent, parent);
    case ModelEvent::Reset:
        m_root = read({});
        return;
    case ModelEvent::Changed:
        return;
    }
}

void ModelSpy::insert_rows(const Pending& pending, const QModelIndex& parent)
{
    auto& rows = pending.parent->children;
    for (int row = pending.event.first; row <= pending.event.last; ++row) {
        rows.insert(rows.begin() + row, read(m_model->index(row, 0, parent)));
    }
}

void ModelSpy::remove_rows(const Pending& pending)
{
    auto& rows = pending.parent->children;
    rows.erase(rows.begin() + pending.event.first, rows.begin() + pending.event.last + 1);
}

void ModelSpy::move_rows(const Pending& pending, const QModelIndex& destination)
{
    const ModelEvent& event = pending.event;
    auto& source = pending.parent->children;
    auto& target = pending.destination->children;
    const auto first = source.begin() + event.first;
    const auto last = source.begin() + event.last + 1;
    std::vector<std::unique_ptr<Row>> moved(
        std::make_move_iterator(first), std::make_move_iterator(last));
    source.erase(first, last);

    const bool downwards = &source == &target && event.destination_row > event.first;
    const int row = event.destination_row - (downwards ? int(moved.size()) : 0);
    // A move stands for new cells as well: views draw the moved rows again.
    for (int i = 0; i < int(moved.size()); ++i) {
        read_cells(*moved[i], m_model->index(row + i, 0, destination));
    }
    target.insert(target.begin() + row, std::make_move_iterator(moved.begin()),
        std::make_move_iterator(moved.end()));
}

void ModelSpy::reorder_rows(Row& parent, const QModelIndex& index)
{
    for (int row = 0; row < parent.count(); ++row) {
        const void* item = m_model->index(row, 0, index).internalPointer();
        const auto found = std::find_if(parent.children.begin() + row, parent.children.end(),
            [item](const auto& child) { return child->item == item; });
        if (found == parent.children.end()) {
            return fault("a new layout holds a row that did not stand there before");
        }
        std::iter_swap(parent.children.begin() + row, found);
    }
}

ModelSpy::Row* ModelSpy::find(const QModelIndex& index) const
{
    if (!index.isValid()) {
        return m_root.get();
    }
    if (index.column() != 0) {
        return nullptr;
    }
    const Row* parent = find(index.parent());
    if (!parent || index.row() >= parent->count()) {
        return nullptr;
    }
    Row* row = parent->children[index.row()].get();
    return row->item == index.internalPointer() ? row : nullptr;
}

std::unique_ptr<ModelSpy::Row> ModelSpy::read(const QModelIndex& index) const
{
    auto row = std::make_unique<Row>();
    row->item = index.internalPointer();
    if (index.isValid()) {
        read_cells(*row, index);
    }
    for (int i = 0; i < m_model->rowCount(index); ++i) {
        row->children.push_back(read(m_model->index(i, 0, index)));
    }
    return row;
}

void ModelSpy::read_cells(Row& row, const QModelIndex& index) const
{
    row.cells.clear();
    for (int column = 0; column < m_model->columnCount(index.parent()); ++column) {
        const QModelIndex cell = index.siblingAtColumn(column);
        row.cells.append(cell.data(Qt::DisplayRole));
        row.cells.append(cell.data(Qt::EditRole));
        row.cells.append(int(cell.flags()));
    }
}

QString ModelSpy::compare(const Row& row, const QModelIndex& index, bool with_cells) const
{
    const int count = m_model->rowCount(index);
    if (count != row.count()) {
        return QString("%1 rows stand under \"%2\" where the signals say %3")
            .arg(count)
            .arg(index.data().toString())
            .arg(row.count());
    }
    for (int i = 0; i < count; ++i) {
        const Row& child = *row.children[i];
        const QModelIndex at = m_model->index(i, 0, index);
        if (at.internalPointer() != child.item || at.parent() != index) {
            return QString("row %1 under \"%2\" is another one than the signals say")
                .arg(i)
                .arg(index.data().toString());
        }
        if (with_cells) {
            Row now;
            read_cells(now, at);
            if (now.cells != child.cells) {
                return QString(R"(row %1 under "%2" shows "%3" and no signal told that)")
                    .arg(i)
                    .arg(index.data().toString(), at.data().toString());
            }
        }
        QString below = compare(child, at, with_cells);
        if (!below.isEmpty()) {
            return below;
        }
    }
    return {};
}

void ModelSpy::fault(const QString& text)
{
    if (m_fault.isEmpty()) {
        m_fault = text;
    }
}
