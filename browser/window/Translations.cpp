#include <browser/window/Translations.hpp>

#include <QCoreApplication>
#include <QLibraryInfo>
#include <QLocale>
#include <QTranslator>

namespace {

void install(const QLocale& locale, const char* name, const QString& folder)
{
    auto* const translator = new QTranslator(QCoreApplication::instance());
    if (translator->load(locale, QLatin1String(name), QStringLiteral("_"), folder)) {
        QCoreApplication::installTranslator(translator);
    } else {
        delete translator;
    }
}

} // namespace

void install_translations(const QLocale& locale)
{
    const QString own_folder = QStringLiteral(":/treebrowser/translations");
    install(locale, "qtbase", QLibraryInfo::path(QLibraryInfo::TranslationsPath));
    install(locale, "treemodel", own_folder);
    install(locale, "treebrowser", own_folder);
}
