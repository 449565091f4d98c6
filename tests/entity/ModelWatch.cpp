#include "ModelWatch.hpp"

#include <QTest>
#include <utility>

namespace {

QtMessageHandler next_handler = nullptr;

/// Turns the findings of the model tester into failures, all but the one accepted.
void report_finding(QtMsgType type, const QMessageLogContext& context, const QString& message)
{
    if (qstrcmp(context.category, "qt.modeltest") != 0) {
        next_handler(type, context, message);
    } else if (!message.startsWith("FAIL! flags == Qt::ItemIsDropEnabled || flags == 0 ")) {
        QTest::qFail(qPrintable(message), __FILE__, __LINE__);
    }
}

QtMessageHandler install()
{
    next_handler = qInstallMessageHandler(report_finding);
    return next_handler;
}

QString name_of(const QModelIndex& index)
{
    return index.isValid() ? index.data().toString() : QString("root");
}

QString rows(const QModelIndex& parent, int first, int last)
{
    return QString("%1 %2-%3").arg(name_of(parent)).arg(first).arg(last);
}

QString rows_to(const QModelIndex& from, int first, int last, const QModelIndex& to, int target)
{
    return QString("%1 to %2 %3").arg(rows(from, first, last), name_of(to)).arg(target);
}

QString layout_of(
    const QList<QPersistentModelIndex>& parents, QAbstractItemModel::LayoutChangeHint hint)
{
    QStringList names;
    for (const QPersistentModelIndex& parent : parents) {
        names.append(name_of(parent));
    }
    return names.join(',') +
           (hint == QAbstractItemModel::VerticalSortHint ? "" : " without the hint of a sort");
}

QString cells_of(
    const QModelIndex& top_left, const QModelIndex& bottom_right, const QList<int>& roles)
{
    const bool is_row = top_left.siblingAtColumn(1) == bottom_right && top_left.column() == 0;
    return name_of(top_left) + (is_row ? "" : " beyond one row") +
           (roles.isEmpty() ? "" : " for some roles");
}

} // namespace

ModelWatch::ModelWatch(EntityModel* model)
    : m_model(model)
    , m_previous_handler(install())
    , m_tester(model, QAbstractItemModelTester::FailureReportingMode::Warning)
{
    using Model = QAbstractItemModel;
    const auto watch_rows = [this](auto signal, const char* name) {
        connect(
            m_model, signal, this, [this, name](const QModelIndex& parent, int first, int last) {
                note(QString("%1 %2").arg(name, rows(parent, first, last)));
            });
    };
    const auto watch_move = [this](auto signal, const char* name) {
        connect(m_model, signal, this,
            [this, name](
                const QModelIndex& from, int first, int last, const QModelIndex& to, int target) {
                note(QString("%1 %2").arg(name, rows_to(from, first, last, to, target)));
            });
    };
    const auto watch_layout = [this](auto signal, const char* name) {
        connect(m_model, signal, this,
            [this, name](
                const QList<QPersistentModelIndex>& parents, Model::LayoutChangeHint hint) {
                note(QString("%1 %2").arg(name, layout_of(parents, hint)));
            });
    };
    watch_rows(&Model::rowsAboutToBeInserted, "rowsAboutToBeInserted");
    watch_rows(&Model::rowsInserted, "rowsInserted");
    watch_rows(&Model::rowsAboutToBeRemoved, "rowsAboutToBeRemoved");
    watch_rows(&Model::rowsRemoved, "rowsRemoved");
    watch_move(&Model::rowsAboutToBeMoved, "rowsAboutToBeMoved");
    watch_move(&Model::rowsMoved, "rowsMoved");
    watch_layout(&Model::layoutAboutToBeChanged, "layoutAboutToBeChanged");
    watch_layout(&Model::layoutChanged, "layoutChanged");
    connect(m_model, &Model::modelAboutToBeReset, this, [this] { note("modelAboutToBeReset"); });
    connect(m_model, &Model::modelReset, this, [this] { note("modelReset"); });
    connect(m_model, &Model::dataChanged, this,
        [this](const QModelIndex& from, const QModelIndex& to, const QList<int>& roles) {
            note("dataChanged " + cells_of(from, to, roles));
        });
    connect(m_model, &EntityModel::nameEdited, this,
        [this](const EntityItem* item, const QString& name) {
            note(QString("nameEdited %1: %2").arg(item->getDisplayName(), name));
        });
}

ModelWatch::~ModelWatch()
{
    qInstallMessageHandler(m_previous_handler);
}

QStringList ModelWatch::take()
{
    m_trees.clear();
    return std::exchange(m_notes, {});
}

QString ModelWatch::tree(const QAbstractItemModel& model, const QModelIndex& parent)
{
    QStringList rows;
    for (int row = 0; row < model.rowCount(parent); ++row) {
        const QModelIndex index = model.index(row, 0, parent);
        QString text = index.data().toString();
        if (model.parent(index) != parent || index.row() != row) {
            text += '!';
        }
        if (model.hasChildren(index)) {
            text += '(' + tree(model, index) + ')';
        }
        rows.append(text);
    }
    return rows.join(' ');
}

QStringList ModelWatch::insertion(const QString& parent, int row)
{
    const auto place = QString("%1 %2-%2").arg(parent).arg(row);
    return {"rowsAboutToBeInserted " + place, "rowsInserted " + place};
}

QStringList ModelWatch::removal(const QString& parent, int first, int last)
{
    const auto place = QString("%1 %2-%3").arg(parent).arg(first).arg(last);
    return {"rowsAboutToBeRemoved " + place, "rowsRemoved " + place};
}

QStringList ModelWatch::move(const QString& from, int row, const QString& to, int target)
{
    const auto way = QString("%1 %2-%2 to %3 %4").arg(from).arg(row).arg(to).arg(target);
    return {"rowsAboutToBeMoved " + way, "rowsMoved " + way};
}

QStringList ModelWatch::layout(const QString& parent)
{
    return {"layoutAboutToBeChanged " + parent, "layoutChanged " + parent};
}

QStringList ModelWatch::reset()
{
    return {"modelAboutToBeReset", "modelReset"};
}

QStringList ModelWatch::cells(const QString& row)
{
    return {"dataChanged " + row};
}

void ModelWatch::note(const QString& signal)
{
    m_notes.append(signal);
    m_trees.append(tree(*m_model));
}
