#include <browser/window/Screenshot.hpp>

#include <browser/window/MainWindow.hpp>
#include <browser/window/TreePane.hpp>
#include <QDir>
#include <QImageWriter>

namespace {

constexpr int look_each_milliseconds = 20;
// What follows the rows by a delay of its own, such as marking a selection, is then done.
constexpr int enough_looks = 20;

} // namespace

Screenshot::Screenshot(MainWindow& window, const QString& picture)
    : m_window(window)
    , m_picture(picture)
{
    connect(&m_wait_timer, &QTimer::timeout, this, &Screenshot::write_if_settled);
}

void Screenshot::take()
{
    m_wait_timer.start(look_each_milliseconds);
}

void Screenshot::write_if_settled()
{
    m_settled_looks = m_window.tree().is_settled() ? m_settled_looks + 1 : 0;
    if (m_settled_looks < enough_looks) {
        return;
    }
    m_wait_timer.stop();
    QImageWriter writer(m_picture);
    if (writer.write(m_window.grab().toImage())) {
        Q_EMIT taken();
    } else {
        Q_EMIT failed(tr("Cannot write the picture \"%1\": %2.")
                          .arg(QDir::toNativeSeparators(m_picture), writer.errorString()));
    }
}
