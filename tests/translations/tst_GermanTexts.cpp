#include <functional>
#include <memory>
#include <QCoreApplication>
#include <QTest>
#include <QTranslator>
#include <treemodel/entity/EntityModel.hpp>
#include <treemodel/treedata/TreeBodyData.hpp>
#include <treemodel/treedata/TreeBoundaryLayerData.hpp>
#include <treemodel/treedata/TreeCfdBCData.hpp>
#include <treemodel/treedata/TreeExodusData.hpp>
#include <treemodel/treedata/TreeFeaBCData.hpp>
#include <treemodel/treedata/TreeGroupData.hpp>
#include <treemodel/treedata/TreeMaterialData.hpp>
#include <treemodel/treedata/TreeMeshData.hpp>
#include <treemodel/treedata/TreeSizingSourceData.hpp>

using Make = std::function<std::unique_ptr<TreeData>()>;
Q_DECLARE_METATYPE(Make)

/// The texts of the library under its German catalogue, as a front end installs it.
class tst_GermanTexts : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();

    void defaultNameIsGerman_data();
    void defaultNameIsGerman();
    void headersOfTheItemModelAreGerman();
    void nameOfItsOwnIsNotTranslated();

private:
    QTranslator m_translator;
};

void tst_GermanTexts::initTestCase()
{
    QVERIFY2(m_translator.load(QLocale(QLocale::German), "treemodel", "_", CATALOGUES),
        "there is no German catalogue");
    QVERIFY(QCoreApplication::installTranslator(&m_translator));
}

void tst_GermanTexts::defaultNameIsGerman_data()
{
    QTest::addColumn<Make>("make");
    QTest::addColumn<QString>("name");
    const auto row = [](const QString& name, Make make) {
        QTest::addRow("%s", qPrintable(name)) << make << name;
    };

    row("Objekt 7", [] { return std::make_unique<TreeData>(7); });
    row("Objekt 8", [] { return std::make_unique<TreeGroupData>("", 8); });
    row("Körper 3", [] { return std::make_unique<TreeBodyData>(3); });
    row("Grenzschicht", [] { return std::make_unique<TreeBoundaryLayerData>(3); });
    row("Größenquelle 3", [] { return std::make_unique<TreeSizingSourceData>(3); });
    row("Werkstoff", [] { return std::make_unique<TreeMaterialData>(3, false); });
    row("Medium", [] { return std::make_unique<TreeMaterialData>(3, true); });
    row("Strömungsrandbedingung",
        [] { return std::make_unique<TreeCfdBCData>(TreeCfdBCData::WALL, 3); });

    const char* const geometry[] = {
        "Punkt 3", "Kurve 3", "Fläche 3", "Volumen 3", "Körper 3", "Geometrie 3"};
    for (int type = 0; type < int(std::size(geometry)); ++type) {
        row(geometry[type], [type] {
            return std::make_unique<TreeGeometryData>(TreeGeometryData::GeometryType(type), 3);
        });
    }

    const char* const sets[] = {"Block 3", "Seitenmenge 3", "Knotenmenge 3", "Menge 3"};
    for (int type = 0; type < int(std::size(sets)); ++type) {
        row(sets[type], [type] {
            return std::make_unique<TreeExodusData>(TreeExodusData::ExodusType(type), 3);
        });
    }

    const char* const conditions[] = {"Kraft", "Beschleunigung", "Geschwindigkeit", "Druck",
        "Temperatur", "Verschiebung", "Zwangsbedingung", "Konvektion", "Wärmestrom",
        "Kontaktbereich", "Kontaktpaar", "Randbedingung"};
    for (int type = 0; type < int(std::size(conditions)); ++type) {
        row(conditions[type],
            [type] { return std::make_unique<TreeFeaBCData>(TreeFeaBCData::FEAType(type), 3); });
    }

    const char* const one[] = {"1 Hexaeder", "1 Tetraeder", "1 Keil", "1 Pyramide", "1 Kugel",
        "1 Dreieck", "1 Viereck", "1 Kante", "1 Knoten", "1 Element"};
    const char* const many[] = {"12 Hexaeder", "12 Tetraeder", "12 Keile", "12 Pyramiden",
        "12 Kugeln", "12 Dreiecke", "12 Vierecke", "12 Kanten", "12 Knoten", "12 Elemente"};
    for (int type = 0; type < int(std::size(one)); ++type) {
        row(one[type],
            [type] { return std::make_unique<TreeMeshData>(TreeMeshData::MeshType(type), 1); });
        row(many[type],
            [type] { return std::make_unique<TreeMeshData>(TreeMeshData::MeshType(type), 12); });
    }
}

void tst_GermanTexts::defaultNameIsGerman()
{
    QFETCH(Make, make);
    QFETCH(QString, name);
    QCOMPARE(make()->name(), name);
}

void tst_GermanTexts::headersOfTheItemModelAreGerman()
{
    const EntityModel items;
    QCOMPARE(items.headerData(0, Qt::Horizontal).toString(), QString("Name"));
    QCOMPARE(items.headerData(1, Qt::Horizontal).toString(), QString("Nr."));
}

void tst_GermanTexts::nameOfItsOwnIsNotTranslated()
{
    TreeFeaBCData condition(TreeFeaBCData::FORCE, 3);
    condition.set_name("Force");
    QCOMPARE(condition.name(), QString("Force"));
}

QTEST_GUILESS_MAIN(tst_GermanTexts)
#include "tst_GermanTexts.moc"
