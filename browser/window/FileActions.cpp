#include <browser/window/FileActions.hpp>

#include <browser/window/ActionRow.hpp>
#include <browser/window/MeshDialog.hpp>
#include <browser/window/ProgressStrip.hpp>
#include <importers/ContentRule.hpp>
#include <QCoreApplication>
#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QMenu>
#include <QMessageBox>
#include <QPushButton>
#include <QSettings>

namespace {

constexpr const char* sets_key = "files/makes_sets";

// A box that closes itself and its memory, and that nobody waits for.
QMessageBox* create_box(
    const char* name, QMessageBox::Icon icon, const QString& text, QWidget* window)
{
    auto* const box = new QMessageBox(
        icon, QCoreApplication::applicationName(), text, QMessageBox::NoButton, window);
    box->setObjectName(name);
    box->setAttribute(Qt::WA_DeleteOnClose);
    box->setTextFormat(Qt::PlainText); // Names of files may look like markup
    return box;
}

} // namespace

FileActions::FileActions(EmbeddedKernel& kernel, QWidget* window)
    : QObject(window)
    , m_opening_progress(new ProgressStrip(window))
    , m_meshing_progress(new ProgressStrip(window))
    , m_window(window)
    , m_opening(kernel)
    , m_meshing(kernel)
    , m_mesh(new QAction(tr("&Mesh This Model…"), this))
    , m_makes_sets(new QAction(tr("&Sets from Named Parts of Meshes"), this))
{
    m_mesh->setObjectName("mesh");
    m_mesh->setEnabled(false);
    connect(m_mesh, &QAction::triggered, this, &FileActions::ask_to_mesh);
    m_makes_sets->setObjectName("makes_sets");
    m_makes_sets->setCheckable(true);
    connect(m_makes_sets, &QAction::toggled, &m_opening.job(), &ImportJob::set_makes_sets);

    connect(&m_recent_files, &RecentFiles::chosen, this, &FileActions::open_recent);
    follow_opening();
    follow_meshing();
}

void FileActions::fill_menu(QMenu* menu)
{
    using Row = ActionRow<FileActions>;
    static constexpr std::array rows{
        Row{"open", QT_TR_NOOP("&Open…"), "Ctrl+O", &FileActions::choose_file_to_open,
            ":/treebrowser/window/open.svg"},
        Row{"add", QT_TR_NOOP("&Add File…"), "Ctrl+Shift+O", &FileActions::choose_file_to_add},
    };
    add_actions(menu, this, std::span<const Row>(rows));
    QMenu* const recent = menu->addMenu(tr("Open &Recent"));
    recent->setToolTipsVisible(true);
    m_recent_files.fill(recent);
    menu->addAction(m_makes_sets);
    menu->addSeparator();
    menu->addAction(m_mesh);
}

void FileActions::open(const QString& file, FileOpening::Mode mode)
{
    if (ContentRule::of(file).reader == ContentRule::Script) {
        ask_for_trust(file, mode);
    } else {
        m_opening.open(file, mode);
    }
}

void FileActions::set_makes_sets(bool makes_sets)
{
    m_makes_sets->setChecked(makes_sets);
}

void FileActions::restore()
{
    set_makes_sets(QSettings().value(sets_key).toBool());
}

void FileActions::save() const
{
    QSettings().setValue(sets_key, m_makes_sets->isChecked());
}

void FileActions::follow(HelperTask& task, HelperJob& job, ProgressStrip& progress)
{
    progress.follow(job);
    connect(&task, &HelperTask::failed, this, &FileActions::show_error);
    connect(&task, &HelperTask::cancelled, this, &FileActions::told);
}

void FileActions::follow_opening()
{
    m_opening_progress->setObjectName("opening_progress");
    follow(m_opening, m_opening.job(), *m_opening_progress);
    connect(&m_opening, &FileOpening::started, this,
        [this] { m_opening_progress->begin(QFileInfo(m_opening.file()).fileName()); });
    connect(&m_opening, &FileOpening::opened, this, &FileActions::take_in_opened);
}

void FileActions::follow_meshing()
{
    m_meshing_progress->setObjectName("meshing_progress");
    follow(m_meshing, m_meshing.job(), *m_meshing_progress);
    connect(&m_meshing, &ModelMeshing::started, this, [this] {
        m_meshing_progress->begin(tr("Mesh of %1").arg(QFileInfo(m_model_file).fileName()));
        m_mesh->setEnabled(false);
    });
    connect(&m_meshing.job(), &HelperJob::finished, this,
        [this] { m_mesh->setEnabled(!m_model_file.isEmpty()); });
    connect(&m_meshing, &ModelMeshing::meshed, this,
        [this] { Q_EMIT told(tr("Meshed %1").arg(QDir::toNativeSeparators(m_model_file))); });
}

void FileActions::choose_file_to_open()
{
    choose_file(tr("Open a Model"), FileOpening::Replace);
}

void FileActions::choose_file_to_add()
{
    choose_file(tr("Add a Model"), FileOpening::Add);
}

void FileActions::choose_file(const QString& title, FileOpening::Mode mode)
{
    auto* const dialog = new QFileDialog(m_window, title);
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->setFileMode(QFileDialog::ExistingFile);
    dialog->setNameFilters({tr("Models and meshes (*.step *.stp *.iges *.igs *.brep *.msh *.mesh "
                               "*.vtk *.bdf *.nas *.geo)"),
        tr("All files (*)")});
    const QStringList recent = m_recent_files.files();
    if (!recent.isEmpty()) {
        dialog->setDirectory(QFileInfo(recent.constFirst()).absolutePath());
    }
    connect(dialog, &QFileDialog::fileSelected, this,
        [this, mode](const QString& file) { open(file, mode); });
    dialog->open();
}

void FileActions::open_recent(const QString& file)
{
    open(file, FileOpening::Replace);
}

void FileActions::ask_for_trust(const QString& file, FileOpening::Mode mode)
{
    QMessageBox* const box = create_box("trust", QMessageBox::Warning,
        tr("%1 is a script. Run it?").arg(QFileInfo(file).fileName()), m_window);
    box->setInformativeText(tr("A script can do to your files whatever you can. Run it only if you "
                               "know where it comes from."));
    box->addButton(tr("&Run Script"), QMessageBox::AcceptRole);
    box->setDefaultButton(box->addButton(QMessageBox::Cancel));
    connect(box, &QMessageBox::accepted, this,
        [this, file, mode] { m_opening.open(file, mode, true); });
    box->open();
}

void FileActions::take_in_opened(FileOpening::Mode mode)
{
    const QString file = m_opening.file();
    m_recent_files.add(file);
    if (mode == FileOpening::Replace) {
        m_meshing.reset();
        m_model_file = ContentRule::of(file).reader == ContentRule::Cad ? file : QString();
        m_element_size = MeshDialog::size_for(m_opening.job().extent());
        m_mesh->setEnabled(!m_model_file.isEmpty());
    }
    Q_EMIT opened(mode);
    Q_EMIT told(tr("Opened %1").arg(QDir::toNativeSeparators(file)));
    show_warnings();
}

void FileActions::show_warnings()
{
    const QStringList warnings = m_opening.warnings();
    if (warnings.isEmpty()) {
        return;
    }
    QMessageBox* const box = create_box("warnings", QMessageBox::Warning,
        tr("Some of %1 was left out or repaired.").arg(QFileInfo(m_opening.file()).fileName()),
        m_window);
    box->setInformativeText(warnings.constFirst());
    if (warnings.size() > 1) {
        box->setDetailedText(warnings.join(QLatin1Char('\n')));
    }
    box->addButton(QMessageBox::Ok);
    box->open();
}

void FileActions::show_error(const QString& sentence)
{
    QMessageBox* const box = create_box("error", QMessageBox::Critical, sentence, m_window);
    box->addButton(QMessageBox::Ok);
    box->open();
}

void FileActions::ask_to_mesh()
{
    auto* const dialog = new MeshDialog(m_element_size, m_window);
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    connect(&m_opening, &FileOpening::opened, dialog, &QDialog::reject);
    connect(dialog, &QDialog::accepted, this, [this, dialog] {
        m_element_size = dialog->options().element_size;
        m_meshing.start(m_model_file, dialog->options());
    });
    dialog->open();
}
