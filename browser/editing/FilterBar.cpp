#include <browser/editing/FilterBar.hpp>

#include <browser/editing/EntityFilter.hpp>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QShortcut>
#include <QTreeView>

using namespace std::chrono_literals;

namespace {

// From the last key to the search.
constexpr auto typing_pause = 200ms;

} // namespace

FilterBar::FilterBar(EntityFilter& rows, QTreeView& view, QWidget* parent)
    : QWidget(parent)
    , m_rows(rows)
    , m_view(view)
    , m_open_rows(rows, view)
    , m_edit(new QLineEdit)
    , m_counts(new QLabel)
{
    m_edit->setPlaceholderText(tr("Filter"));
    m_edit->setClearButtonEnabled(true);
    m_edit->setAcceptDrops(false); // A file that is dropped here is for the window
    m_counts->hide();

    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins({});
    layout->addWidget(m_edit);
    layout->addWidget(m_counts);
    setFocusProxy(m_edit);
    make_shortcuts();

    m_pause.setSingleShot(true);
    m_pause.setInterval(typing_pause);
    connect(&m_pause, &QTimer::timeout, this, &FilterBar::apply);
    connect(m_edit, &QLineEdit::textChanged, this, &FilterBar::begin_pause);
    connect(&rows, &EntityFilter::paths_found, this, &FilterBar::open);
    connect(&rows, &EntityFilter::filtered, this, &FilterBar::show_counts);
}

void FilterBar::make_shortcuts()
{
    const auto shortcut = [this](const QKeySequence& keys, QWidget* where,
                              Qt::ShortcutContext context, auto action) {
        auto* made = new QShortcut(keys, where);
        made->setContext(context);
        connect(made, &QShortcut::activated, this, action);
    };
    const auto go_to_view = [this] {
        apply();
        m_view.setFocus(Qt::ShortcutFocusReason);
    };
    shortcut(QKeySequence::Find, this, Qt::WindowShortcut, &FilterBar::focus);
    shortcut(Qt::Key_Escape, this, Qt::WidgetWithChildrenShortcut, &FilterBar::clear);
    shortcut(Qt::Key_Escape, &m_view, Qt::WidgetShortcut, &FilterBar::clear);
    shortcut(Qt::Key_Down, m_edit, Qt::WidgetShortcut, go_to_view);
    connect(m_edit, &QLineEdit::returnPressed, this, go_to_view);
}

void FilterBar::set_text(const QString& text)
{
    m_edit->setText(text);
    apply();
}

void FilterBar::focus()
{
    m_edit->setFocus(Qt::ShortcutFocusReason);
    m_edit->selectAll();
}

void FilterBar::begin_pause(const QString& text)
{
    if (text.isEmpty()) {
        apply();
    } else {
        m_pause.start();
    }
}

void FilterBar::apply()
{
    m_pause.stop();
    const QString text = m_edit->text();
    if (text.isEmpty() && m_rows.is_active()) {
        // Before the change of layout that ends the filter, and the opening after it: the
        // view then lays out its rows once.
        m_view.collapseAll();
        m_rows.set_text({});
        m_open_rows.restore();
        return;
    }
    if (!text.isEmpty() && !m_rows.is_active()) {
        m_open_rows.save();
    }
    m_rows.set_text(text);
}

void FilterBar::clear()
{
    m_edit->clear();
    m_view.setFocus(Qt::ShortcutFocusReason);
}

void FilterBar::open(const QModelIndexList& paths)
{
    for (const QModelIndex& index : paths) {
        m_view.expand(index);
    }
}

void FilterBar::show_counts(int hits, int rows)
{
    m_counts->setText(tr("%L1 of %L2").arg(hits).arg(rows));
    m_counts->setVisible(m_rows.is_active());
}
