#include <browser/window/RecentFiles.hpp>

#include <QDir>
#include <QFileInfo>
#include <QMenu>
#include <QSettings>

namespace {

constexpr const char* settings_key = "recent_files";

} // namespace

QStringList RecentFiles::files() const
{
    return QSettings().value(settings_key).toStringList();
}

void RecentFiles::add(const QString& file)
{
    const QString path = QFileInfo(file).absoluteFilePath();
    QStringList list = files();
    list.removeAll(path);
    list.prepend(path);
    set_files(list.mid(0, MaxFiles));
}

void RecentFiles::fill(QMenu* menu)
{
    connect(menu, &QMenu::aboutToShow, this, [this, menu] { rebuild(menu); });
    rebuild(menu);
}

void RecentFiles::rebuild(QMenu* menu)
{
    menu->clear();
    for (const QString& file : files()) {
        const QString name = QFileInfo(file).fileName().replace("&", "&&");
        QAction* const action = menu->addAction(name);
        action->setToolTip(QDir::toNativeSeparators(file));
        connect(action, &QAction::triggered, this, [this, file] { Q_EMIT chosen(file); });
    }
    if (menu->isEmpty()) {
        menu->addAction(tr("No files yet"))->setEnabled(false);
        return;
    }
    menu->addSeparator();
    connect(menu->addAction(tr("Forget These Files")), &QAction::triggered, this,
        [this] { set_files({}); });
}

void RecentFiles::set_files(const QStringList& files)
{
    QSettings().setValue(settings_key, files);
}
