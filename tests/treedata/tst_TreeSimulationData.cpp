#include <QTest>
#include <support/EventLog.hpp>
#include <support/SignalRecorder.hpp>
#include <treemodel/treedata/TreeCfdBCData.hpp>
#include <treemodel/treedata/TreeExodusData.hpp>
#include <treemodel/treedata/TreeFeaBCData.hpp>
#include <treemodel/treedata/TreeMaterialData.hpp>

using ExodusType = TreeExodusData::ExodusType;
using FEAType = TreeFeaBCData::FEAType;
using CFDType = TreeCfdBCData::CFDType;

/// The records that a simulation is set up with.
class tst_TreeSimulationData : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void exodusTypeHasItsWordAndDefaultName_data();
    void exodusTypeHasItsWordAndDefaultName();
    void feaTypeHasItsWordAndDefaultName_data();
    void feaTypeHasItsWordAndDefaultName();
    void cfdTypeHasItsWordAndTheCommonDefaultName_data();
    void cfdTypeHasItsWordAndTheCommonDefaultName();
    void unknownWordLeavesTheTypeAlone_data();
    void unknownWordLeavesTheTypeAlone();
    void wordWithAZeroByteIsUnknown();

    void newIdRenamesAnUnnamedBlock();
    void newIdOfUnnamedConditionsEmitsTheSameNameAgain();
    void liteStatusEmitsOnChangeOnly();
    void cfdFlagEmitsAlways();
    void cfdFlagChangesTheDefaultNameSilently();
    void valuesAreStoredBeforeTheirSignals();
    void pointerTypesAreKnownToTheMetaTypeSystem();
};

namespace {

void add_kind_columns()
{
    QTest::addColumn<int>("type");
    QTest::addColumn<QString>("word");
    QTest::addColumn<QString>("name");
}

void add_kind(int type, const char* word, const char* name)
{
    QTest::addRow("%d %s", type, word) << type << word << name;
}

// A word that is empty belongs to no type, so only the way to the word exists.
template <typename Record, typename Type>
void check_kind(Type type, const QString& word)
{
    QCOMPARE(QString::fromStdString(Record::type_to_string(type)), word);
    const auto other = Type(type == 0);
    Type found = other;
    QCOMPARE(Record::string_to_type(word.toStdString(), found), !word.isEmpty());
    QCOMPARE(int(found), int(word.isEmpty() ? other : type));
}

} // namespace

void tst_TreeSimulationData::exodusTypeHasItsWordAndDefaultName_data()
{
    add_kind_columns();
    add_kind(TreeExodusData::BLOCK, "block", "Block 4");
    add_kind(TreeExodusData::SIDESET, "sideset", "Sideset 4");
    add_kind(TreeExodusData::NODESET, "nodeset", "Nodeset 4");
    add_kind(3, "", "Exodus 4");
    add_kind(-1, "", "Exodus 4");
}

void tst_TreeSimulationData::exodusTypeHasItsWordAndDefaultName()
{
    QFETCH(int, type);
    QFETCH(QString, word);
    check_kind<TreeExodusData>(ExodusType(type), word);
    TreeExodusData record(ExodusType(type), 4);
    QCOMPARE(int(record.exodus_type()), type);
    QTEST(record.name(), "name");
    QVERIFY(!record.is_lite());
}

void tst_TreeSimulationData::feaTypeHasItsWordAndDefaultName_data()
{
    add_kind_columns();
    add_kind(TreeFeaBCData::FORCE, "force", "Force");
    add_kind(TreeFeaBCData::ACCELERATION, "acceleration", "Acceleration");
    add_kind(TreeFeaBCData::VELOCITY, "velocity", "Velocity");
    add_kind(TreeFeaBCData::PRESSURE, "pressure", "Pressure");
    add_kind(TreeFeaBCData::TEMPERATURE, "temperature", "Temperature");
    add_kind(TreeFeaBCData::DISPLACEMENT, "displacement", "Displacement");
    add_kind(TreeFeaBCData::CONSTRAINT, "constraint", "Constraint");
    add_kind(TreeFeaBCData::CONVECTION, "convection", "Convection");
    add_kind(TreeFeaBCData::HEATFLUX, "heatflux", "HeatFlux");
    add_kind(TreeFeaBCData::CONTACT_REGION, "contact region", "Contact Region");
    add_kind(TreeFeaBCData::CONTACT_PAIR, "contact pair", "Contact Pair");
    add_kind(11, "", "FEA BC");
    add_kind(-1, "", "FEA BC");
}

void tst_TreeSimulationData::feaTypeHasItsWordAndDefaultName()
{
    QFETCH(int, type);
    QFETCH(QString, word);
    check_kind<TreeFeaBCData>(FEAType(type), word);
    TreeFeaBCData record(FEAType(type), 4);
    QCOMPARE(int(record.fea_bc_type()), type);
    QCOMPARE(record.id(), 4);
    QTEST(record.name(), "name");
}

void tst_TreeSimulationData::cfdTypeHasItsWordAndTheCommonDefaultName_data()
{
    add_kind_columns();
    add_kind(TreeCfdBCData::AXIS, "axis", "cfd_bc");
    add_kind(TreeCfdBCData::EXHAUSTFAN, "exhaustfan", "cfd_bc");
    add_kind(TreeCfdBCData::FAN, "fan", "cfd_bc");
    add_kind(TreeCfdBCData::INLETVENT, "inletvent", "cfd_bc");
    add_kind(TreeCfdBCData::INTAKEFAN, "intakefan", "cfd_bc");
    add_kind(TreeCfdBCData::INTERFACE, "interface", "cfd_bc");
    add_kind(TreeCfdBCData::INTERIOR, "interior", "cfd_bc");
    add_kind(TreeCfdBCData::MASSFLOWINLET, "massflowinlet", "cfd_bc");
    add_kind(TreeCfdBCData::OUTFLOW, "outflow", "cfd_bc");
    add_kind(TreeCfdBCData::OUTLETVENT, "outletvent", "cfd_bc");
    add_kind(TreeCfdBCData::PERIODIC, "periodic", "cfd_bc");
    add_kind(TreeCfdBCData::PERIODICSHADOW, "periodicshadow", "cfd_bc");
    add_kind(TreeCfdBCData::POROUSJUMP, "porousjump", "cfd_bc");
    add_kind(TreeCfdBCData::PRESSUREFARFIELD, "pressurefarfield", "cfd_bc");
    add_kind(TreeCfdBCData::PRESSUREINLET, "pressureinlet", "cfd_bc");
    add_kind(TreeCfdBCData::PRESSUREOUTLET, "pressureoutlet", "cfd_bc");
    add_kind(TreeCfdBCData::RADIATOR, "radiator", "cfd_bc");
    add_kind(TreeCfdBCData::SUPERSONICINFLOW, "supersonicinflow", "cfd_bc");
    add_kind(TreeCfdBCData::SUPERSONICOUTFLOW, "supersonicoutflow", "cfd_bc");
    add_kind(TreeCfdBCData::SYMMETRY, "symmetry", "cfd_bc");
    add_kind(TreeCfdBCData::VELOCITYINLET, "velocityinlet", "cfd_bc");
    add_kind(TreeCfdBCData::WALL, "wall", "cfd_bc");
    add_kind(22, "", "cfd_bc");
    add_kind(-1, "", "cfd_bc");
}

void tst_TreeSimulationData::cfdTypeHasItsWordAndTheCommonDefaultName()
{
    QFETCH(int, type);
    QFETCH(QString, word);
    check_kind<TreeCfdBCData>(CFDType(type), word);
    TreeCfdBCData record(CFDType(type), 4);
    QCOMPARE(int(record.cfd_bc_type()), type);
    QCOMPARE(record.id(), 4);
    QTEST(record.name(), "name");
}

void tst_TreeSimulationData::unknownWordLeavesTheTypeAlone_data()
{
    QTest::addColumn<QString>("word");
    for (const char* word : {"", "Block", "block ", " block", "blocks", "Force", "HeatFlux",
             "contactregion", "contact  pair", "Contact Pair", "cfd_bc", "Wall", "WALL", "fea bc",
             "material", "media", "group"}) {
        QTest::addRow("'%s'", word) << word;
    }
}

void tst_TreeSimulationData::unknownWordLeavesTheTypeAlone()
{
    QFETCH(QString, word);
    ExodusType exodus = TreeExodusData::NODESET;
    FEAType fea = TreeFeaBCData::CONTACT_PAIR;
    CFDType cfd = TreeCfdBCData::WALL;
    QVERIFY(!TreeExodusData::string_to_type(word.toStdString(), exodus));
    QVERIFY(!TreeFeaBCData::string_to_type(word.toStdString(), fea));
    QVERIFY(!TreeCfdBCData::string_to_type(word.toStdString(), cfd));
    QCOMPARE(exodus, TreeExodusData::NODESET);
    QCOMPARE(fea, TreeFeaBCData::CONTACT_PAIR);
    QCOMPARE(cfd, TreeCfdBCData::WALL);
}

void tst_TreeSimulationData::wordWithAZeroByteIsUnknown()
{
    ExodusType type = TreeExodusData::NODESET;
    QVERIFY(!TreeExodusData::string_to_type(std::string("block\0", 6), type));
    QVERIFY(!TreeExodusData::string_to_type(std::string(1, '\0'), type));
}

void tst_TreeSimulationData::newIdRenamesAnUnnamedBlock()
{
    TreeExodusData block(TreeExodusData::BLOCK, 4);
    EventLog log;
    SignalRecorder recorder(log);
    recorder.watch(&block);
    block.set_id(5);
    QCOMPARE(log.take(), QStringList({"block 5: id_changed(5)", "block 5: name_changed(Block 5)"}));
}

void tst_TreeSimulationData::newIdOfUnnamedConditionsEmitsTheSameNameAgain()
{
    TreeFeaBCData force(TreeFeaBCData::FORCE, 1);
    TreeCfdBCData wall(TreeCfdBCData::WALL, 1);
    EventLog log;
    SignalRecorder recorder(log);
    recorder.watch(&force);
    recorder.watch(&wall);
    force.set_id(2);
    wall.set_id(3);
    QCOMPARE(log.take(), QStringList({"force 2: id_changed(2)", "force 2: name_changed(Force)",
                             "wall 3: id_changed(3)", "wall 3: name_changed(cfd_bc)"}));
}

void tst_TreeSimulationData::liteStatusEmitsOnChangeOnly()
{
    TreeExodusData block(TreeExodusData::BLOCK, 4);
    EventLog log;
    SignalRecorder recorder(log);
    recorder.watch(&block);
    block.set_lite(false);
    block.set_lite(true);
    block.set_lite(true);
    block.set_lite(false);
    QCOMPARE(log.take(),
        QStringList({"block 4: lite_status_changed(true)", "block 4: lite_status_changed(false)"}));
}

void tst_TreeSimulationData::cfdFlagEmitsAlways()
{
    TreeMaterialData material(1, false);
    EventLog log;
    SignalRecorder recorder(log);
    recorder.watch(&material);
    material.set_cfd(false);
    material.set_cfd(true);
    material.set_cfd(true);
    QCOMPARE(log.take(),
        QStringList({"material 1: cfd_flag_changed(false)", "material 1: cfd_flag_changed(true)",
            "material 1: cfd_flag_changed(true)"}));
}

void tst_TreeSimulationData::cfdFlagChangesTheDefaultNameSilently()
{
    TreeMaterialData material(7, false);
    QVERIFY(!material.is_cfd());
    QCOMPARE(material.name(), "Material");
    EventLog log;
    SignalRecorder recorder(log);
    recorder.watch(&material);
    material.set_cfd(true);
    QCOMPARE(log.take(), QStringList("material 7: cfd_flag_changed(true)"));
    QCOMPARE(material.name(), "Media");
    QCOMPARE(TreeMaterialData(8, true).name(), "Media");
}

void tst_TreeSimulationData::valuesAreStoredBeforeTheirSignals()
{
    TreeExodusData block(TreeExodusData::BLOCK, 4);
    TreeMaterialData material(1, false);
    QStringList seen;
    connect(&block, &TreeExodusData::lite_status_changed, this,
        [&](bool lite) { seen << (block.is_lite() == lite ? "lite stored" : "lite not stored"); });
    connect(&material, &TreeMaterialData::cfd_flag_changed, this,
        [&](bool cfd) { seen << (material.is_cfd() == cfd ? "cfd stored" : "cfd not stored"); });
    block.set_lite(true);
    material.set_cfd(true);
    QCOMPARE(seen, QStringList({"lite stored", "cfd stored"}));
}

void tst_TreeSimulationData::pointerTypesAreKnownToTheMetaTypeSystem()
{
    TreeExodusData block(TreeExodusData::BLOCK, 4);
    TreeFeaBCData force(TreeFeaBCData::FORCE, 1);
    TreeCfdBCData wall(TreeCfdBCData::WALL, 1);
    TreeMaterialData material(1, false);
    QVERIFY(QMetaType::fromName("TreeExodusData*").isValid());
    QVERIFY(QMetaType::fromName("TreeFeaBCData*").isValid());
    QVERIFY(QMetaType::fromName("TreeCfdBCData*").isValid());
    QVERIFY(QMetaType::fromName("TreeMaterialData*").isValid());
}

QTEST_GUILESS_MAIN(tst_TreeSimulationData)
#include "tst_TreeSimulationData.moc"
