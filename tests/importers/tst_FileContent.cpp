#include <importers/FileContent.hpp>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>

namespace {

QByteArray iges_line(const QByteArray& text, char section, const QByteArray& number)
{
    return text.leftJustified(72) + section + number.rightJustified(7) + '\n';
}

} // namespace

class tst_FileContent : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void contentTellsTheFormat_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<QByteArray>("bytes");
        QTest::addColumn<int>("content");

        const auto row = [](const char* what, const char* name, const QByteArray& bytes,
                             FileContent content) {
            QTest::newRow(what) << QString::fromLatin1(name) << bytes << int(content);
        };
        row("step", "a.step", "ISO-10303-21;\nHEADER;", FileContent::Step);
        row("step under another name", "a.igs", "ISO-10303-21;\nHEADER;", FileContent::Step);
        row("step without a suffix", "a", "ISO-10303-21;HEADER;", FileContent::Step);
        row("step after blanks", "a.step", "\r\n  ISO-10303-21;", FileContent::Step);
        row("step after a mark", "a.step", "\xef\xbb\xbfISO-10303-21;", FileContent::Step);
        row("iges", "a.iges", iges_line("text", 'S', "1"), FileContent::Iges);
        row("iges with zeros", "a.stp", iges_line({}, 'S', "0000001"), FileContent::Iges);
        row("brep", "a.brep", "DBRep_DrawableShape\n\nCASCADE Topology V1", FileContent::Brep);
        row("brep of one shape", "a.txt", "\nCASCADE Topology V3, (c)", FileContent::Brep);
        row("msh", "a.step", "$MeshFormat\n4.1 0 8\n", FileContent::Msh);
        row("msh in a script's name", "a.geo", "$MeshFormat\n4.1 0 8\n", FileContent::Msh);
        row("medit", "a.mesh", " MeshVersionFormatted 2\n", FileContent::Medit);
        row("medit after comments", "a.mesh", "# by hand\n\n# again\nMeshVersionFormatted 1",
            FileContent::Medit);
        row("vtk", "a.vtk", "# vtk DataFile Version 3.0\n", FileContent::Vtk);
        row("nastran", "a.bdf", "$ by hand\nGRID,1,0,0.,0.,0.\n", FileContent::Nastran);
        row("nastran with a mark", "a.nas", "BEGIN BULK\nGRID*", FileContent::Nastran);
        row("script", "a.geo", "Point(1) = {0, 0, 0};\n", FileContent::GmshScript);
        row("written script", "a.geo_unrolled", "cl__1 = 1;\n", FileContent::GmshScript);
        row("script in another name", "a.msh", "Point(1) = {0, 0, 0};\n", FileContent::Foreign);
        row("no text in a script's name", "a.geo", QByteArray("P\0", 2), FileContent::Foreign);
        row("nothing in a script's name", "a.geo", "", FileContent::Empty);
        row("nothing but comments", "a.mesh", "# a\n# b", FileContent::Foreign);
        row("nothing", "a.step", "", FileContent::Empty);
        row("text", "a.step", "this is not a step file\n", FileContent::Foreign);
        row("part of the mark", "a.step", "ISO-10303", FileContent::Foreign);
        row("mark too late", "a.step", "x ISO-10303-21;", FileContent::Foreign);
        row("iges line of another section", "a.iges", iges_line("text", 'G', "1"),
            FileContent::Foreign);
        row("iges line without a number", "a.iges", iges_line("text", 'S', "one"),
            FileContent::Foreign);
        row("blanks", "a.brep", QByteArray(5000, ' '), FileContent::Foreign);
        row("zeros", "a.brep", QByteArray(5000, '\0'), FileContent::Foreign);
    }

    void contentTellsTheFormat()
    {
        QFETCH(QString, name);
        QFETCH(QByteArray, bytes);
        QFETCH(int, content);

        QCOMPARE(int(look_at_file(write(name, bytes))), content);
    }

    void placesThatHoldNoFileAreTold()
    {
        QCOMPARE(look_at_file(write("a", "x").parent_path()), FileContent::Directory);
        QCOMPARE(look_at_file(write("a", "x").parent_path() / "none"), FileContent::Missing);
        QCOMPARE(look_at_file(write("a", "x") / "beneath_a_file"), FileContent::Missing);
        QCOMPARE(look_at_file({}), FileContent::Missing);
        QCOMPARE(look_at_file("/dev/null"), FileContent::NotRegular);
    }

    void missingEndIsNoticed_data()
    {
        QTest::addColumn<int>("format");
        QTest::addColumn<QByteArray>("bytes");
        QTest::addColumn<bool>("has_end");

        const auto row = [](const char* what, FileContent format, const QByteArray& bytes,
                             bool has_end) {
            QTest::newRow(what) << int(format) << bytes << has_end;
        };
        const QByteArray filling(200'000, ' ');
        row("step", FileContent::Step, "ISO-10303-21;" + filling + "END-ISO-10303-21;\n", true);
        row("signed step", FileContent::Step, "END-ISO-10303-21;\nSIGNATURE;x;ENDSEC;\n", true);
        row("step that stops", FileContent::Step, "ISO-10303-21;\nDATA;\n#1=A();\n", false);
        row("step that stops in its end", FileContent::Step, "ENDSEC;\nEND-ISO-103", false);
        row("iges", FileContent::Iges, filling + iges_line("S1G1", 'T', "1") + "\n\n", true);
        row("iges that stops", FileContent::Iges, iges_line("0,1;", 'P', "12"), false);
        row("iges that stops in its end", FileContent::Iges, iges_line({}, 'T', "1").left(75),
            false);
        row("brep", FileContent::Brep, filling + "+2 0 +1 0 *\n\n+1 0 \n", true);
        row("drawn brep", FileContent::Brep, "+2 0 *\n\n-12 3\n0\n", true);
        row("brep that stops", FileContent::Brep, "+2 0 *\n\nCo\n\n1100000\n+2 0 ", false);
        row("brep that stops after a shape", FileContent::Brep, "+2 0 *\n", false);
        row("brep without shapes", FileContent::Brep, "TShapes 0\n+1 0\n", false);
        row("nothing", FileContent::Brep, "", false);
        row("msh", FileContent::Msh, filling + "\n$EndElements\n\n", true);
        row("msh that stops", FileContent::Msh, "$Elements\n12\n1 2 3\n", false);
        row("msh that stops in its end", FileContent::Msh, "1 2 3\n$En", false);
        row("vtk, which has no end", FileContent::Vtk, "# vtk\n1 2", true);
    }

    void missingEndIsNoticed()
    {
        QFETCH(int, format);
        QFETCH(QByteArray, bytes);
        QFETCH(bool, has_end);

        QCOMPARE(has_end_mark(write("file", bytes), static_cast<FileContent>(format)), has_end);
    }

private:
    std::filesystem::path write(const QString& name, const QByteArray& bytes) const
    {
        QFile file(m_folder.filePath(name));
        if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size()) {
            qFatal("cannot write %s", qPrintable(file.fileName()));
        }
        return file.fileName().toStdString();
    }

    QTemporaryDir m_folder;
};

QTEST_GUILESS_MAIN(tst_FileContent)
#include "tst_FileContent.moc"
