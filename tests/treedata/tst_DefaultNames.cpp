#include <functional>
#include <memory>
#include <QCoreApplication>
#include <QTest>
#include <QTranslator>
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

/// Translates a text into "context/text", so that a name tells where it came from.
class ContextTranslator : public QTranslator
{
public:
    bool isEmpty() const override { return false; }

    QString translate(const char* context, const char* text, const char*, int) const override
    {
        return QLatin1String(context) + QLatin1Char('/') + QLatin1String(text);
    }
};

class tst_DefaultNames : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void nameIsTranslatedInTheContextOfTheClassThatFormsIt_data();
    void nameIsTranslatedInTheContextOfTheClassThatFormsIt();
};

void tst_DefaultNames::nameIsTranslatedInTheContextOfTheClassThatFormsIt_data()
{
    QTest::addColumn<Make>("make");
    const auto row = [](const char* name, Make make) { QTest::newRow(name) << make; };
    row("TreeData/Entity 4", [] { return std::make_unique<TreeData>(4); });
    row("TreeData/Entity 4 ", [] { return std::make_unique<TreeGroupData>("", 4); });
    row("TreeGeometryData/Surface 4",
        [] { return std::make_unique<TreeGeometryData>(TreeGeometryData::SURFACE, 4); });
    row("TreeGeometryData/Body 4", [] { return std::make_unique<TreeBodyData>(4); });
    row("TreeMeshData/12 tet elements",
        [] { return std::make_unique<TreeMeshData>(TreeMeshData::TET, 12); });
    row("TreeMeshData/1 node",
        [] { return std::make_unique<TreeMeshData>(TreeMeshData::NODE, 1); });
    row("TreeSizingSourceData/Sizing Source 4",
        [] { return std::make_unique<TreeSizingSourceData>(4); });
    row("TreeBoundaryLayerData/Boundary Layer",
        [] { return std::make_unique<TreeBoundaryLayerData>(4); });
    row("TreeExodusData/Nodeset 4",
        [] { return std::make_unique<TreeExodusData>(TreeExodusData::NODESET, 4); });
    row("TreeFeaBCData/Contact Pair",
        [] { return std::make_unique<TreeFeaBCData>(TreeFeaBCData::CONTACT_PAIR, 4); });
    row("TreeCfdBCData/cfd_bc",
        [] { return std::make_unique<TreeCfdBCData>(TreeCfdBCData::WALL, 4); });
    row("TreeMaterialData/Material", [] { return std::make_unique<TreeMaterialData>(4, false); });
    row("TreeMaterialData/Media", [] { return std::make_unique<TreeMaterialData>(4, true); });
}

void tst_DefaultNames::nameIsTranslatedInTheContextOfTheClassThatFormsIt()
{
    QFETCH(Make, make);
    ContextTranslator translator;
    QVERIFY(QCoreApplication::installTranslator(&translator));
    const std::unique_ptr<TreeData> record = make();
    QCOMPARE(record->name(), QString(QTest::currentDataTag()).trimmed());
}

QTEST_GUILESS_MAIN(tst_DefaultNames)
#include "tst_DefaultNames.moc"
