#include <importers/ContentRule.hpp>

#include <array>
#include <importers/FileContent.hpp>
#include <QCoreApplication>
#include <QFile>

namespace {

constexpr ContentRule unreadable(const char* reason)
{
    return {ContentRule::None, reason};
}

constexpr ContentRule readable(ContentRule::Reader reader)
{
    return {reader, nullptr};
}

// Indexed by FileContent.
constexpr std::array rules{
    unreadable(QT_TRANSLATE_NOOP("ContentRule", "there is no such file")),
    unreadable(QT_TRANSLATE_NOOP("ContentRule", "it is a directory")),
    unreadable(QT_TRANSLATE_NOOP("ContentRule", "it is a device, not a file")),
    unreadable(QT_TRANSLATE_NOOP("ContentRule", "it may not be read")),
    unreadable(QT_TRANSLATE_NOOP("ContentRule", "the file is empty")),
    unreadable(QT_TRANSLATE_NOOP(
        "ContentRule", "its content is none of STEP, IGES, BREP, MSH, Medit, VTK and Nastran")),
    readable(ContentRule::Cad),
    readable(ContentRule::Cad),
    readable(ContentRule::Cad),
    readable(ContentRule::Mesh),
    readable(ContentRule::Mesh),
    readable(ContentRule::Mesh),
    readable(ContentRule::Mesh),
    readable(ContentRule::Script),
};

} // namespace

const ContentRule& ContentRule::of(const QString& file)
{
    const auto content = look_at_file(QFile::encodeName(file).toStdString());
    return rules[static_cast<std::size_t>(content)];
}

QString ContentRule::reason_text() const
{
    return QCoreApplication::translate("ContentRule", reason);
}
