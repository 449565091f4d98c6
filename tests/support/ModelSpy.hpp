#pragma once

#include <memory>
#include <QAbstractItemModel>
#include <QObject>
#include <QStringList>
#include <vector>

/// One change that a model announced. Parents are told by the internal pointers of
/// their indexes, null for the invalid one.
struct ModelEvent
{
    enum Kind { Inserted, Removed, Moved, Changed, LaidOut, Reset };

    Kind kind;
    const void* parent = nullptr;
    int first = -1;
    int last = -1;
    const void* destination = nullptr;
    int destination_row = -1;

    bool operator==(const ModelEvent&) const = default;
};

/// Rebuilds the tree of a model from what the model's signals say, and nothing else:
/// rows are read when they are announced, and moved about as announced after that.
///
/// Checks on the way that signals come in pairs, that their ranges fit the rows that
/// stand, and that the model shows the old tree in every signal before a change and the
/// new one in every signal after it. The model must keep one internal pointer per row.
class ModelSpy : public QObject
{
    Q_OBJECT

public:
    /// Reads the whole model once. Not owned.
    explicit ModelSpy(QAbstractItemModel* model, QObject* parent = nullptr);
    ~ModelSpy() override;

    /// The changes since the last call, in order.
    std::vector<ModelEvent> take_events();

    /// The first thing that went wrong in a signal, or the first difference between the
    /// rebuilt tree and the model, cells included. Empty if there is none.
    QString differences() const;

private:
    struct Row;
    struct Pending;

    void begin(const ModelEvent& event, const QModelIndex& parent, const QModelIndex& destination);
    void end(const ModelEvent& event, const QModelIndex& parent, const QModelIndex& destination);
    void begin_layout(
        const QList<QPersistentModelIndex>& parents, QAbstractItemModel::LayoutChangeHint hint);
    void end_layout(
        const QList<QPersistentModelIndex>& parents, QAbstractItemModel::LayoutChangeHint hint);
    void change_cells(
        const QModelIndex& top_left, const QModelIndex& bottom_right, const QList<int>& roles);

    void check_range(const Pending& pending);
    void apply(const Pending& pending, const QModelIndex& parent, const QModelIndex& destination);
    void insert_rows(const Pending& pending, const QModelIndex& parent);
    void remove_rows(const Pending& pending);
    void move_rows(const Pending& pending, const QModelIndex& destination);
    void reorder_rows(Row& parent, const QModelIndex& index);

    Row* find(const QModelIndex& index) const;
    std::unique_ptr<Row> read(const QModelIndex& index) const;
    void read_cells(Row& row, const QModelIndex& index) const;
    QString compare(const Row& row, const QModelIndex& index, bool with_cells) const;
    void fault(const QString& text);

    QAbstractItemModel* m_model;
    std::unique_ptr<Row> m_root;
    std::unique_ptr<Pending> m_pending;
    std::vector<ModelEvent> m_events;
    QString m_fault;
};
