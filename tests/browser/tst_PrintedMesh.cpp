#include <QProcess>
#include <QStringList>
#include <QTest>

// The program as a user calls it, on meshes.
class tst_PrintedMesh : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void elementsAreCountedInTheirGroups();
    void setsAreMadeOnDemand();
    void scriptIsRunOnDemand();

private:
    static QString mesh(const char* name)
    {
        return QStringLiteral(SAMPLE_MESHES) + QLatin1Char('/') + QLatin1String(name);
    }

    // What is printed, or the messages if nothing is.
    static QStringList printed(const QStringList& arguments)
    {
        QProcess process;
        process.start(QStringLiteral(TREEBROWSER), QStringList("--print") + arguments);
        if (!process.waitForFinished()) {
            qFatal("the program does not end");
        }
        const auto output = process.readAllStandardOutput();
        return QString::fromUtf8(output.isEmpty() ? process.readAllStandardError() : output)
            .trimmed()
            .split(QLatin1Char('\n'));
    }
};

void tst_PrintedMesh::elementsAreCountedInTheirGroups()
{
    const auto lines = printed({mesh("blocks_41.msh")});

    const auto start = lines.indexOf("Core  [group 2]");
    QCOMPARE(
        lines.mid(start + 2, 3), QStringList({QString::fromUtf8("├─ 24 tet elements  [elements 1]"),
                                     QString::fromUtf8("├─ 2 pyramid elements  [elements 3]"),
                                     QString::fromUtf8("└─ 15 nodes  [elements 8]")}));
}

void tst_PrintedMesh::setsAreMadeOnDemand()
{
    const QString counts("1 bodies, 3 volumes, 16 surfaces, 28 curves, 16 vertices, 7 groups");

    QCOMPARE(printed({mesh("blocks_41.msh")}).constLast(), counts);
    QCOMPARE(printed({"--sets", mesh("blocks_41.msh")}).constLast(),
        counts + ", 3 blocks, 2 sidesets, 2 nodesets");
}

void tst_PrintedMesh::scriptIsRunOnDemand()
{
    QVERIFY2(printed({mesh("sizing.geo")}).constLast().contains("--trusted"), "tells how");
    QCOMPARE(printed({"--trusted", mesh("sizing.geo")}).constLast(),
        "0 bodies, 0 volumes, 1 surfaces, 6 curves, 7 vertices, 2 groups, 4 sizing sources, "
        "1 boundary layers");
}

QTEST_GUILESS_MAIN(tst_PrintedMesh)
#include "tst_PrintedMesh.moc"
