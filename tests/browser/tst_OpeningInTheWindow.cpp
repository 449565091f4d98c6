#include <browser/KernelSession.hpp>
#include <browser/window/MainWindow.hpp>
#include <browser/window/MeshDialog.hpp>
#include <memory>
#include <QDoubleSpinBox>
#include <QDragEnterEvent>
#include <QDropEvent>
#include <QLineEdit>
#include <QMenu>
#include <QMessageBox>
#include <QMimeData>
#include <QProgressBar>
#include <QPushButton>
#include <QSettings>
#include <QSignalSpy>
#include <QStatusBar>
#include <QTemporaryDir>
#include <QTest>

// Files come into the window through a helper program that does what the "CAD file" tells it.
class tst_OpeningInTheWindow : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();
    void cleanup();

    void openedFileReplacesTheModel();
    void addedFileLeavesTheModel();
    void fileDroppedOnTheWindowIsOpened();
    void fileDroppedOnATextBoxIsForTheWindow();
    void anythingElseIsNotAccepted_data();
    void anythingElseIsNotAccepted();
    void unreadableFileIsToldAndNothingIsLost();
    void progressIsShownAndCancelLosesNothing();
    void nextFileEndsTheOneBefore();
    void openingAndMeshingShowTheirOwnProgress();
    void namesOfFilesAreNoMarkup();
    void warningsAreShown();
    void scriptRunsOnlyAfterAQuestion();
    void namedPartsBecomeSetsIfWanted();
    void openedModelIsMeshed();
    void proposedElementSizeIsARoundPartOfTheModel_data();
    void proposedElementSizeIsARoundPartOfTheModel();
    void elementSizeIsKeptUntilTheNextModel();
    void cancelledMeshLeavesNothing();
    void meshThatCountedNothingLeavesNoGroup();
    void modelThatIsReplacedTakesItsMeshAlong();
    void openedFilesAreRecent();
    void unreadableFileIsNotRecent();
    void recentFilesAreKeptLatestFirst();

private:
    QString script(const QStringList& commands, const QString& name = "script.step");
    void open(const QString& file);
    QString body_name(int id) const;
    QStringList recent_menu() const;
    MeshDialog* ask_to_mesh() const;

    QTemporaryDir m_folder;
    std::unique_ptr<KernelSession> session;
    std::unique_ptr<MainWindow> window;
};

void tst_OpeningInTheWindow::initTestCase()
{
    QCoreApplication::setOrganizationName("treemodel");
    QCoreApplication::setApplicationName("tst_OpeningInTheWindow");
    QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, m_folder.path());
}

void tst_OpeningInTheWindow::init()
{
    QSettings().clear();
    session = std::make_unique<KernelSession>();
    session->kernel().create_body({}, "Old");
    window = std::make_unique<MainWindow>(*session);
    window->files().opening().job().set_helper_folder(SCRIPTED_HELPER_DIR);
    window->show();
}

void tst_OpeningInTheWindow::cleanup()
{
    window.reset();
    session.reset();
}

QString tst_OpeningInTheWindow::script(const QStringList& commands, const QString& name)
{
    QFile file(m_folder.filePath(name));
    if (!file.open(QIODevice::WriteOnly)) {
        qFatal("Cannot write %s", qPrintable(file.fileName()));
    }
    file.write("ISO-10303-21;\n" + commands.join('\n').toUtf8() + '\n');
    return file.fileName();
}

void tst_OpeningInTheWindow::open(const QString& file)
{
    QSignalSpy finished(&window->files().opening().job(), &ImportJob::finished);
    window->files().open(file, FileOpening::Replace);
    QVERIFY(finished.wait());
}

QString tst_OpeningInTheWindow::body_name(int id) const
{
    TreeGeometryData* const body = session->mirror().find_geometry(TreeGeometryData::BODY, id);
    return body ? body->name() : QString();
}

QStringList tst_OpeningInTheWindow::recent_menu() const
{
    for (QMenu* menu : window->findChildren<QMenu*>()) {
        if (menu->title() == "Open &Recent") {
            Q_EMIT menu->aboutToShow();
            QStringList texts;
            for (const QAction* action : menu->actions()) {
                texts << action->text();
            }
            return texts;
        }
    }
    return {};
}

MeshDialog* tst_OpeningInTheWindow::ask_to_mesh() const
{
    window->findChild<QAction*>("mesh")->trigger();
    return window->findChild<MeshDialog*>();
}

void tst_OpeningInTheWindow::openedFileReplacesTheModel()
{
    const QString file = script({"model New"});
    open(file);
    QCOMPARE(body_name(1), "New");
    QCOMPARE(session->mirror().geometry(TreeGeometryData::BODY).size(), 1u);
    QCOMPARE(window->windowFilePath(), file);
}

void tst_OpeningInTheWindow::addedFileLeavesTheModel()
{
    QSignalSpy opened(&window->files().opening(), &FileOpening::opened);
    window->files().opening().open(script({"model New"}), FileOpening::Add);
    QVERIFY(opened.wait());
    QCOMPARE(body_name(1), "Old");
    QCOMPARE(body_name(2), "New");
    QCOMPARE(window->windowFilePath(), QString());
}

void tst_OpeningInTheWindow::fileDroppedOnTheWindowIsOpened()
{
    QMimeData data;
    data.setUrls({QUrl::fromLocalFile(script({"model Dropped"}))});
    QDragEnterEvent enter({50, 50}, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(window.get(), &enter);
    QVERIFY(enter.isAccepted());

    QSignalSpy opened(&window->files().opening(), &FileOpening::opened);
    QDropEvent drop({50, 50}, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(window.get(), &drop);
    QVERIFY(opened.wait());
    QCOMPARE(body_name(1), "Dropped");
}

void tst_OpeningInTheWindow::fileDroppedOnATextBoxIsForTheWindow()
{
    const auto boxes = window->findChildren<QLineEdit*>();
    QVERIFY(!boxes.isEmpty());
    for (const QLineEdit* box : boxes) {
        QVERIFY2(!box->acceptDrops(), "the path would be typed into the box");
    }
}

void tst_OpeningInTheWindow::anythingElseIsNotAccepted_data()
{
    QTest::addColumn<QList<QUrl>>("urls");
    QTest::newRow("text") << QList<QUrl>();
    QTest::newRow("two files") << QList<QUrl>{QUrl("file:///a.step"), QUrl("file:///b.step")};
    QTest::newRow("a web page") << QList<QUrl>{QUrl("https://example.org/a.step")};
}

void tst_OpeningInTheWindow::anythingElseIsNotAccepted()
{
    QFETCH(QList<QUrl>, urls);
    QMimeData data;
    data.setText("Dear diary");
    data.setUrls(urls);
    QDragEnterEvent enter({50, 50}, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    enter.ignore();
    QApplication::sendEvent(window.get(), &enter);
    QVERIFY(!enter.isAccepted());
}

void tst_OpeningInTheWindow::unreadableFileIsToldAndNothingIsLost()
{
    const QString file = script({"failure the moon is full"});
    open(file);
    const auto* const box = window->findChild<QMessageBox*>("error");
    QVERIFY(box);
    QCOMPARE(box->text(), QStringLiteral("Cannot import \"%1\": the moon is full.").arg(file));
    QCOMPARE(body_name(1), "Old");
    QCOMPARE(window->windowFilePath(), QString());
}

void tst_OpeningInTheWindow::progressIsShownAndCancelLosesNothing()
{
    const auto* const bar = window->findChild<QProgressBar*>();
    QVERIFY(!bar->isVisible());

    window->files().open(script({"progress 2 0.5", "hang"}), FileOpening::Replace);
    QTRY_COMPARE(bar->value() * 2, bar->maximum());
    QVERIFY(bar->isVisible());

    QTest::mouseClick(window->findChild<QPushButton*>("cancel"), Qt::LeftButton);
    QVERIFY(!bar->isVisible());
    QVERIFY(!window->files().opening().job().is_running());
    QVERIFY2(window->statusBar()->currentMessage().endsWith("was cancelled."),
        qPrintable(window->statusBar()->currentMessage()));
    QCOMPARE(body_name(1), "Old");
    QVERIFY(!window->findChild<QMessageBox*>());
}

void tst_OpeningInTheWindow::nextFileEndsTheOneBefore()
{
    const auto* const bar = window->findChild<QProgressBar*>();
    window->files().open(script({"progress 2 0.5", "hang"}), FileOpening::Replace);
    QTRY_COMPARE(bar->value() * 2, bar->maximum());

    open(script({"model New"}, "next.step"));
    QCOMPARE(body_name(1), "New");
    QVERIFY(!bar->isVisible());
}

void tst_OpeningInTheWindow::openingAndMeshingShowTheirOwnProgress()
{
    auto* const opening = window->findChild<QWidget*>("opening_progress");
    auto* const meshing = window->findChild<QWidget*>("meshing_progress");
    window->files().meshing().start(script({}, "mesh.step"), {.element_size = 1});
    window->files().open(script({"progress 2 0.5", "hang"}), FileOpening::Add);
    QVERIFY(opening->isVisible());
    QVERIFY(meshing->isVisible());

    window->files().meshing().job().cancel();
    QVERIFY2(opening->isVisible(), "the end of the mesh hid the progress of the file");
    QVERIFY(!meshing->isVisible());

    QTest::mouseClick(opening->findChild<QPushButton*>("cancel"), Qt::LeftButton);
    QVERIFY(!opening->isVisible());
    QVERIFY(!window->files().opening().job().is_running());
}

void tst_OpeningInTheWindow::namesOfFilesAreNoMarkup()
{
    open(script({"failure the moon is full"}, "<b>bold<b>.step"));
    auto* const box = window->findChild<QMessageBox*>("error");
    QVERIFY(box);
    QCOMPARE(box->textFormat(), Qt::PlainText);
    QVERIFY2(box->text().contains("<b>bold<b>.step"), qPrintable(box->text()));
}

void tst_OpeningInTheWindow::warningsAreShown()
{
    open(script({"warning A face was torn.", "warning An edge was lost.", "model New"}));
    const auto* const box = window->findChild<QMessageBox*>("warnings");
    QVERIFY(box);
    QCOMPARE(box->informativeText(), "A face was torn.");
    QCOMPARE(box->detailedText(), "A face was torn.\nAn edge was lost.");
    QCOMPARE(body_name(1), "New");
}

void tst_OpeningInTheWindow::scriptRunsOnlyAfterAQuestion()
{
    QFile file(m_folder.filePath("model.geo"));
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write("Point(1) = {0, 0, 0, 1};\n");
    file.close();

    window->files().open(file.fileName(), FileOpening::Replace);
    auto* box = window->findChild<QMessageBox*>("trust");
    QVERIFY2(box, "nobody asked");
    QVERIFY(!window->files().opening().job().is_running());
    QTest::keyClick(box, Qt::Key_Escape);
    QVERIFY(!window->files().opening().job().is_running());
    QTRY_VERIFY(!window->findChild<QMessageBox*>());

    window->files().open(file.fileName(), FileOpening::Replace);
    box = window->findChild<QMessageBox*>("trust");
    for (QAbstractButton* button : box->buttons()) {
        if (box->buttonRole(button) == QMessageBox::AcceptRole) {
            QTest::mouseClick(button, Qt::LeftButton);
            break;
        }
    }
    // As far as to the helper program, which is not there.
    QTRY_VERIFY(window->findChild<QMessageBox*>("error"));
    const QString error = window->findChild<QMessageBox*>("error")->text();
    QVERIFY2(error.contains("treemodel-import-mesh"), qPrintable(error));
}

void tst_OpeningInTheWindow::namedPartsBecomeSetsIfWanted()
{
    auto* const action = window->findChild<QAction*>("makes_sets");
    QVERIFY(!action->isChecked());
    action->trigger();
    window->close();

    window = std::make_unique<MainWindow>(*session);
    window->restore_state();
    QVERIFY(window->findChild<QAction*>("makes_sets")->isChecked());
}

void tst_OpeningInTheWindow::openedModelIsMeshed()
{
#ifndef MESH_HELPER_DIR
    QSKIP("the helper program that makes meshes is not built");
#else
    const auto* const mesh = window->findChild<QAction*>("mesh");
    QVERIFY(!mesh->isEnabled());
    window->files().opening().job().set_helper_folder(MESH_HELPER_DIR);
    window->files().meshing().job().set_helper_folder(MESH_HELPER_DIR);
    open(EXAMPLE_MODELS_DIR "/pile.brep");
    QVERIFY(mesh->isEnabled());

    MeshDialog* const dialog = ask_to_mesh();
    QVERIFY(dialog);
    dialog->findChild<QDoubleSpinBox*>()->setValue(1000);
    QSignalSpy meshed(&window->files().meshing(), &ModelMeshing::meshed);
    QTest::keyClick(dialog, Qt::Key_Return);
    QVERIFY(meshed.wait(60'000));

    TreeGroupData* const group = session->mirror().find_group(1);
    QVERIFY(group);
    QCOMPARE(group->name(), "Mesh");
    const auto counts = session->mirror().find_mesh_data(group);
    QVERIFY(!counts.empty());
    QVERIFY(counts.front()->element_count() > 0);
    QVERIFY(mesh->isEnabled());
#endif
}

void tst_OpeningInTheWindow::proposedElementSizeIsARoundPartOfTheModel_data()
{
    QTest::addColumn<double>("extent");
    QTest::addColumn<double>("size");
    QTest::newRow("unknown") << 0.0 << 1.0;
    QTest::newRow("exact") << 400.0 << 10.0;
    QTest::newRow("rounded down") << 550.0 << 10.0;
    QTest::newRow("rounded up") << 570.0 << 20.0;
    QTest::newRow("fifty") << 2000.0 << 50.0;
    QTest::newRow("next power") << 2900.0 << 100.0;
    QTest::newRow("small") << 0.008 << 0.0002;
    QTest::newRow("smaller than can be entered") << 1e-9 << 1e-6;
    QTest::newRow("larger than can be entered") << 1e12 << 1e6;
}

void tst_OpeningInTheWindow::proposedElementSizeIsARoundPartOfTheModel()
{
    QFETCH(double, extent);
    QFETCH(double, size);
    open(script({QStringLiteral("frame 7 %1").arg(extent), "model New"}));

    const MeshDialog* const dialog = ask_to_mesh();

    QVERIFY(dialog);
    QCOMPARE(dialog->options().element_size, size);
}

void tst_OpeningInTheWindow::elementSizeIsKeptUntilTheNextModel()
{
    open(script({"frame 7 400", "model One"}));
    MeshDialog* dialog = ask_to_mesh();
    dialog->findChild<QDoubleSpinBox*>()->setValue(3);
    dialog->accept();
    window->files().meshing().job().cancel();
    QTRY_VERIFY(!window->findChild<MeshDialog*>());

    dialog = ask_to_mesh();
    QCOMPARE(dialog->options().element_size, 3.0);
    dialog->reject();
    QTRY_VERIFY(!window->findChild<MeshDialog*>());

    open(script({"frame 7 4000", "model Two"}, "two.step"));
    QCOMPARE(ask_to_mesh()->options().element_size, 100.0);
}

void tst_OpeningInTheWindow::cancelledMeshLeavesNothing()
{
#ifndef MESH_HELPER_DIR
    QSKIP("the helper program that makes meshes is not built");
#else
    window->files().opening().job().set_helper_folder(MESH_HELPER_DIR);
    window->files().meshing().job().set_helper_folder(MESH_HELPER_DIR);
    open(EXAMPLE_MODELS_DIR "/pile.brep");
    window->files().meshing().start(EXAMPLE_MODELS_DIR "/pile.brep", {.element_size = 1000});
    QSignalSpy counted(&window->files().meshing().job(), &MeshJob::counted);
    QVERIFY(counted.wait(60'000));
    QVERIFY(!session->mirror().mesh_data().empty());

    auto* const strip = window->findChild<QWidget*>("meshing_progress");
    QTest::mouseClick(strip->findChild<QPushButton*>("cancel"), Qt::LeftButton);
    QVERIFY(session->mirror().mesh_data().empty());
    QVERIFY2(session->mirror().groups().empty(), "the group of the whole mesh is left, empty");
    QVERIFY(!strip->isVisible());
#endif
}

void tst_OpeningInTheWindow::meshThatCountedNothingLeavesNoGroup()
{
    ModelMeshing& meshing = window->files().meshing();
    meshing.start(script({}), {.element_size = 1});
    meshing.job().cancel();
    QVERIFY(session->mirror().groups().empty());

    QSignalSpy failed(&meshing, &ModelMeshing::failed);
    meshing.start(m_folder.filePath("missing.step"), {.element_size = 1});
    QVERIFY(failed.wait());
    QVERIFY(session->mirror().groups().empty());
}

void tst_OpeningInTheWindow::modelThatIsReplacedTakesItsMeshAlong()
{
#ifndef MESH_HELPER_DIR
    QSKIP("the helper program that makes meshes is not built");
#else
    ModelMeshing& meshing = window->files().meshing();
    window->files().opening().job().set_helper_folder(MESH_HELPER_DIR);
    meshing.job().set_helper_folder(MESH_HELPER_DIR);
    open(EXAMPLE_MODELS_DIR "/pile.brep");
    QSignalSpy meshed(&meshing, &ModelMeshing::meshed);
    meshing.start(EXAMPLE_MODELS_DIR "/pile.brep", {.element_size = 1000});
    QVERIFY(meshed.wait(60'000));

    // While the next mesh is being made.
    meshing.start(EXAMPLE_MODELS_DIR "/pile.brep", {.element_size = 1000});
    meshing.job().set_helper_folder(SCRIPTED_HELPER_DIR);
    window->files().opening().job().set_helper_folder(SCRIPTED_HELPER_DIR);
    open(script({"model New"}));
    QVERIFY(!meshing.job().is_running());
    QVERIFY2(session->mirror().groups().empty(), "the new model got the counts of the old one");
    QVERIFY(session->mirror().mesh_data().empty());
#endif
}

void tst_OpeningInTheWindow::openedFilesAreRecent()
{
    QCOMPARE(recent_menu(), QStringList("No files yet"));
    open(script({"model One"}, "one.step"));
    open(script({"model Two"}, "two.step"));
    QCOMPARE(recent_menu().mid(0, 2), (QStringList{"two.step", "one.step"}));

    // And open again.
    QSignalSpy opened(&window->files().opening(), &FileOpening::opened);
    for (QAction* action : window->findChildren<QAction*>()) {
        if (action->text() == "one.step") {
            action->trigger();
            break;
        }
    }
    QVERIFY(opened.wait());
    QCOMPARE(body_name(1), "One");
    QCOMPARE(recent_menu().mid(0, 2), (QStringList{"one.step", "two.step"}));
}

void tst_OpeningInTheWindow::unreadableFileIsNotRecent()
{
    open(script({"failure the moon is full"}));
    QCOMPARE(recent_menu(), QStringList("No files yet"));
}

void tst_OpeningInTheWindow::recentFilesAreKeptLatestFirst()
{
    RecentFiles recent;
    for (int i = 0; i < RecentFiles::MaxFiles + 2; ++i) {
        recent.add(QStringLiteral("/models/%1.step").arg(i));
    }
    recent.add("/models/5.step");

    const QStringList files = RecentFiles().files();
    QCOMPARE(files.size(), RecentFiles::MaxFiles);
    QCOMPARE(files.mid(0, 3), (QStringList{"/models/5.step", "/models/9.step", "/models/8.step"}));
    QCOMPARE(files.count("/models/5.step"), 1);
}

QTEST_MAIN(tst_OpeningInTheWindow)
#include "tst_OpeningInTheWindow.moc"
