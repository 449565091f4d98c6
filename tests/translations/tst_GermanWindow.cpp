#include <browser/items/ItemKind.hpp>
#include <browser/KernelSession.hpp>
#include <browser/window/MainWindow.hpp>
#include <browser/window/SelectionCounts.hpp>
#include <browser/window/Translations.hpp>
#include <memory>
#include <QFile>
#include <QLocale>
#include <QMenu>
#include <QMenuBar>
#include <QRegularExpression>
#include <QSettings>
#include <QTemporaryDir>
#include <QTest>
#include <QXmlStreamReader>

namespace {

// What a text is filled with, in any order: "%1 %L2".
QStringList placeholders(const QString& text)
{
    static const QRegularExpression placeholder("%L?\\d");
    QStringList found;
    for (auto matches = placeholder.globalMatch(text); matches.hasNext();) {
        found << matches.next().captured();
    }
    found.sort();
    return found;
}

} // namespace

/// The window of the browser in German.
class tst_GermanWindow : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();

    void menusAreGerman();
    void shortcutsOfAMenuDiffer();
    void kindsAreCountedInGerman();
    void recordWithoutANameIsGerman();
    void translationKeepsWhatIsFilledIn();

private:
    QTemporaryDir m_folder;
    std::unique_ptr<KernelSession> m_session;
    std::unique_ptr<MainWindow> m_window;
};

void tst_GermanWindow::initTestCase()
{
    QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, m_folder.path());
    install_translations(QLocale(QLocale::German));
    m_session = std::make_unique<KernelSession>();
    m_window = std::make_unique<MainWindow>(*m_session);
}

void tst_GermanWindow::menusAreGerman()
{
    QStringList titles;
    for (const QAction* action : m_window->menuBar()->actions()) {
        titles << action->text();
    }
    QCOMPARE(titles, (QStringList{"&Datei", "&Bearbeiten", "&Erzeugen", "&Ansicht", "&Hilfe"}));
    QCOMPARE(m_window->findChild<QAction*>("open")->text(), "&Öffnen …");
    QCOMPARE(m_window->findChild<QAction*>("delete")->text(), "&Löschen …");
    QCOMPARE(m_window->findChild<QAction*>("create_force")->text(), "Kraft");
}

void tst_GermanWindow::shortcutsOfAMenuDiffer()
{
    static const QRegularExpression mnemonic("&(\\w)");
    for (const QMenu* menu : m_window->menuBar()->findChildren<QMenu*>()) {
        QStringList letters;
        for (const QAction* action : menu->actions()) {
            const QString letter = mnemonic.match(action->text()).captured(1).toLower();
            if (!letter.isEmpty()) {
                letters << letter;
            }
        }
        const QString text = menu->title() + ": " + letters.join(' ');
        QVERIFY2(letters.removeDuplicates() == 0, qPrintable(text));
    }
}

void tst_GermanWindow::kindsAreCountedInGerman()
{
    m_session->kernel().create_body({m_session->kernel().create_volume()});
    TreeModel& mirror = m_session->mirror();
    TreeData* const body = mirror.find_geometry(TreeGeometryData::BODY, 1);
    TreeData* const volume = mirror.find_geometry(TreeGeometryData::VOLUME, 1);
    QCOMPARE(SelectionCounts({body, volume}).text(), "1 Körper, 1 Volumen");
    QCOMPARE(item_kind_info(ItemKind::Wall).name, "Wand");
    QCOMPARE(item_kind_info(ItemKind::Wall).word, std::string("wall"));
}

void tst_GermanWindow::recordWithoutANameIsGerman()
{
    const int id = m_session->kernel().create_vertex();
    QCOMPARE(m_session->mirror().find_geometry(TreeGeometryData::VERTEX, id)->name(), "Punkt 1");
}

void tst_GermanWindow::translationKeepsWhatIsFilledIn()
{
    QFile file(CATALOGUE);
    QVERIFY(file.open(QIODevice::ReadOnly));
    QXmlStreamReader xml(&file);
    QString source;
    int compared = 0;
    while (!xml.atEnd()) {
        xml.readNext();
        if (xml.isStartElement() && xml.name() == QLatin1String("source")) {
            source = xml.readElementText();
        } else if (xml.isStartElement() && xml.name() == QLatin1String("translation")) {
            const QString translation = xml.readElementText();
            QVERIFY2(!translation.isEmpty(), qPrintable(source));
            QVERIFY2(placeholders(translation) == placeholders(source), qPrintable(translation));
            QVERIFY2(translation.contains('&') == source.contains('&'), qPrintable(translation));
            ++compared;
        }
    }
    QVERIFY2(!xml.hasError(), qPrintable(xml.errorString()));
    QVERIFY(compared > 200);
}

QTEST_MAIN(tst_GermanWindow)
#include "tst_GermanWindow.moc"
