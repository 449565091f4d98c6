#include <browser/window/SignalMonitor.hpp>

#include <browser/window/SignalTap.hpp>
#include <QFontMetrics>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QLocale>
#include <QScrollBar>
#include <QSortFilterProxyModel>
#include <QStyle>
#include <QToolButton>
#include <QTreeView>
#include <QVBoxLayout>

SignalMonitor::SignalMonitor(TreeModel& mirror, QWidget* parent)
    : QWidget(parent)
    , m_mirror(mirror)
    , m_filter(new QSortFilterProxyModel(this))
{
    m_filter->setSourceModel(&m_log);
    m_filter->setFilterKeyColumn(SignalLog::Signal);
    m_filter->setFilterCaseSensitivity(Qt::CaseInsensitive);

    auto* const layout = new QVBoxLayout(this);
    layout->setContentsMargins({});
    layout->addWidget(create_controls());
    layout->addWidget(create_table());
    connect(&m_log, &SignalLog::heard_changed, this, &SignalMonitor::show_count);
    show_count();
}

SignalMonitor::~SignalMonitor() = default;

QWidget* SignalMonitor::create_controls()
{
    auto* const name = new QLineEdit;
    name->setObjectName("signal_name");
    name->setAcceptDrops(false); // A file that is dropped here is for the window
    name->setPlaceholderText(tr("Signal name"));
    name->setClearButtonEnabled(true);
    connect(name, &QLineEdit::textChanged, m_filter, &QSortFilterProxyModel::setFilterFixedString);

    m_pause = new QToolButton;
    m_pause->setObjectName("pause");
    m_pause->setText(tr("Pause"));
    m_pause->setCheckable(true);
    connect(m_pause, &QToolButton::toggled, this, &SignalMonitor::listen_if_wanted);

    auto* const clear = new QToolButton;
    clear->setObjectName("clear");
    clear->setText(tr("Clear"));
    connect(clear, &QToolButton::clicked, &m_log, &SignalLog::clear);

    m_count = new QLabel;

    auto* const controls = new QWidget;
    auto* const layout = new QHBoxLayout(controls);
    layout->setContentsMargins(4, 4, 4, 0);
    layout->addWidget(name, 1);
    layout->addWidget(m_pause);
    layout->addWidget(clear);
    layout->addWidget(m_count);
    return controls;
}

QTreeView* SignalMonitor::create_table()
{
    m_table = new QTreeView;
    m_table->setModel(m_filter);
    m_table->setRootIsDecorated(false);
    m_table->setUniformRowHeights(true);
    m_table->setAlternatingRowColors(true);
    m_table->setSelectionMode(QAbstractItemView::ExtendedSelection);
    const int digit = fontMetrics().horizontalAdvance(QLatin1Char('0'));
    m_table->header()->resizeSection(SignalLog::Time, 11 * digit);
    m_table->header()->resizeSection(SignalLog::Sender, 17 * digit);
    m_table->header()->resizeSection(SignalLog::Signal, 22 * digit);

    // The end is followed while it is in view.
    connect(m_filter, &QAbstractItemModel::rowsAboutToBeInserted, this, &SignalMonitor::follow_end);
    return m_table;
}

void SignalMonitor::showEvent(QShowEvent* event)
{
    QWidget::showEvent(event);
    listen_if_wanted();
}

void SignalMonitor::hideEvent(QHideEvent* event)
{
    QWidget::hideEvent(event);
    listen_if_wanted();
}

void SignalMonitor::listen_if_wanted()
{
    const bool wanted = isVisible() && !m_pause->isChecked();
    if (wanted == bool(m_tap)) {
        return;
    }
    m_tap = wanted ? std::make_unique<SignalTap>(m_mirror, m_log) : nullptr;
}

void SignalMonitor::follow_end()
{
    const QScrollBar* const bar = m_table->verticalScrollBar();
    if (bar->value() == bar->maximum()) {
        QMetaObject::invokeMethod(m_table, &QTreeView::scrollToBottom, Qt::QueuedConnection);
    }
}

void SignalMonitor::show_count()
{
    m_count->setText(tr("%1 signals").arg(QLocale().toString(m_log.heard())));
}
