#include "NotificationLog.hpp"

#include <embedded/EmbeddedKernel.hpp>
#include <QTest>
#include <stdexcept>

using namespace KestoInterface;

namespace {

using Ids = std::vector<int>;
using enum EntityKind;

MaterialInterface* materials()
{
    return dynamic_cast<MaterialInterface*>(get_interface("Material"));
}

// "1 solid, 2 medium"
QString material_list()
{
    QStringList texts;
    for (MaterialHandle handle : materials()->material_ids()) {
        texts << QStringLiteral("%1 %2")
                     .arg(materials()->material_id(handle))
                     .arg(materials()->material_is_medium(handle) ? QStringLiteral("medium")
                                                                  : QStringLiteral("solid"));
    }
    return texts.join(QStringLiteral(", "));
}

} // namespace

class tst_EmbeddedSetup : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void meshControlsAreToldAndListed();
    void setIsToldListedAndReadable_data();
    void setIsToldListedAndReadable();
    void liteSetAnswersLite();
    void materialsAndMediaShareTheirIds();
    void materialBecomesAMedium();
    void everyConditionHasItsWordAndCode_data();
    void everyConditionHasItsWordAndCode();
    void unknownCodeOfAConditionAnswersEmpty();
    void fluidConditionsShareTheirIds();
    void conditionNamesItsSets();
    void conditionOfAFluidBecomesAnotherOne();
    void deletedSetLeavesItsConditions();
    void setsDeletedAtOnceTellEachConditionOnce();
    void renumberedSetStaysInItsConditions();
    void nameOfASetupEntityIsToldAsAChange();
    void newIdIsToldAndKeepsTheRest();
    void nonsenseIsRefusedAndChangesNothing_data();
    void nonsenseIsRefusedAndChangesNothing();
};

void tst_EmbeddedSetup::meshControlsAreToldAndListed()
{
    EmbeddedKernel kernel;
    NotificationLog log;
    kernel.create_sizing_source();
    kernel.create_sizing_source();
    kernel.create_boundary_layer();
    kernel.remove(SIZING_SOURCE, 1);
    kernel.create_sizing_source();
    QCOMPARE(log.take(), QStringLiteral("sizing_source_created 1, sizing_source_created 2, "
                                        "boundary_layer_created 1, sizing_source_deleted 1, "
                                        "sizing_source_created 3"));
    QCOMPARE(sizing_source_ids(), (Ids{2, 3}));
    QCOMPARE(get_boundary_layer_id_list(), Ids{1});
    kernel.remove(BOUNDARY_LAYER, 1);
    QCOMPARE(log.take(), QStringLiteral("boundary_layer_deleted 1"));
}

void tst_EmbeddedSetup::setIsToldListedAndReadable_data()
{
    QTest::addColumn<EntityKind>("kind");
    QTest::addColumn<QString>("word");
    QTest::newRow("block") << BLOCK << QStringLiteral("block");
    QTest::newRow("sideset") << SIDESET << QStringLiteral("sideset");
    QTest::newRow("nodeset") << NODESET << QStringLiteral("nodeset");
}

void tst_EmbeddedSetup::setIsToldListedAndReadable()
{
    QFETCH(EntityKind, kind);
    QFETCH(QString, word);
    const std::string type = word.toStdString();
    EmbeddedKernel kernel;
    NotificationLog log;
    std::string name_inside;
    log.on_event = [&](const QString&) { name_inside = get_exodus_entity_name(type, 1); };

    QCOMPARE(kernel.create_set(kind, "Inlet"), 1);
    QCOMPARE(log.take(), QStringLiteral("exodus_entity_modified %1 1 create").arg(word));
    QCOMPARE(name_inside, std::string("Inlet"));
    const Ids listed = kind == BLOCK     ? get_block_id_list()
                       : kind == SIDESET ? get_sideset_id_list()
                                         : get_nodeset_id_list();
    QCOMPARE(listed, Ids{1});
    QVERIFY(is_visible(type, 1));

    kernel.set_visible(kind, 1, false);
    QCOMPARE(log.take(), QStringLiteral("exodus_visibility_changed %1 1").arg(word));
    QVERIFY(!is_visible(type, 1));

    kernel.remove(kind, 1);
    QCOMPARE(log.take(), QStringLiteral("exodus_entity_modified %1 1 delete").arg(word));
}

void tst_EmbeddedSetup::liteSetAnswersLite()
{
    EmbeddedKernel kernel;
    kernel.create_set(BLOCK);
    kernel.create_set(BLOCK, {}, true);
    QCOMPARE(get_exodus_entity_type("block", 1), std::string());
    QCOMPARE(get_exodus_entity_type("block", 2), std::string("lite"));
    NotificationLog log;
    kernel.set_lite(BLOCK, 1, true);
    kernel.set_lite(BLOCK, 1, true);
    QCOMPARE(log.take(), QStringLiteral("exodus_entity_modified block 1 modify"));
    QCOMPARE(get_exodus_entity_type("block", 1), std::string("lite"));
}

void tst_EmbeddedSetup::materialsAndMediaShareTheirIds()
{
    EmbeddedKernel kernel;
    NotificationLog log;
    QCOMPARE(kernel.create_material("Steel"), 1);
    QCOMPARE(kernel.create_medium("Water"), 2);
    QCOMPARE(kernel.create_material(), 3);
    QCOMPARE(log.take(), QStringLiteral("material_modified 1 create, medium_modified 2 create, "
                                        "material_modified 3 create"));
    QCOMPARE(material_list(), QStringLiteral("1 solid, 3 solid, 2 medium"));
    QCOMPARE(get_exodus_entity_name("material", 1), std::string("Steel"));
    QCOMPARE(get_exodus_entity_name("media", 2), std::string("Water"));
    QCOMPARE(get_exodus_entity_name("material", 2), std::string());
    QVERIFY_THROWS_EXCEPTION(std::invalid_argument, kernel.renumber(MATERIAL, 1, 2));

    kernel.remove(MEDIUM, 2);
    QCOMPARE(log.take(), QStringLiteral("medium_modified 2 delete"));
    QCOMPARE(material_list(), QStringLiteral("1 solid, 3 solid"));
}

void tst_EmbeddedSetup::materialBecomesAMedium()
{
    EmbeddedKernel kernel;
    kernel.create_material("Glass");
    NotificationLog log;
    kernel.change_kind(MATERIAL, 1, MEDIUM);
    QCOMPARE(log.take(), QStringLiteral("medium_modified 1 modify"));
    QCOMPARE(material_list(), QStringLiteral("1 medium"));
    QCOMPARE(get_exodus_entity_name("media", 1), std::string("Glass"));
    kernel.change_kind(MEDIUM, 1, MATERIAL);
    QCOMPARE(log.take(), QStringLiteral("material_modified 1 modify"));
}

void tst_EmbeddedSetup::everyConditionHasItsWordAndCode_data()
{
    QTest::addColumn<EntityKind>("kind");
    QTest::addColumn<QString>("notification");
    QTest::addColumn<int>("code");
    const auto newRow = [](EntityKind kind, const char* notification, int code) {
        QTest::newRow(notification) << kind << QString::fromLatin1(notification) << code;
    };
    newRow(FORCE, "fea_bc_modified force", 5);
    newRow(ACCELERATION, "fea_bc_modified acceleration", 1);
    newRow(VELOCITY, "fea_bc_modified velocity", 2);
    newRow(PRESSURE, "fea_bc_modified pressure", 6);
    newRow(TEMPERATURE, "fea_bc_modified temperature", 4);
    newRow(DISPLACEMENT, "fea_bc_modified displacement", 3);
    newRow(CONSTRAINT, "constraint_modified", 7);
    newRow(CONVECTION, "fea_bc_modified convection", 8);
    newRow(HEATFLUX, "fea_bc_modified heatflux", 9);
    newRow(CONTACT_REGION, "fea_bc_modified contact region", 10);
    newRow(CONTACT_PAIR, "fea_bc_modified contact pair", 40);
    newRow(AXIS, "bc_modified axis", 11);
    newRow(EXHAUSTFAN, "bc_modified exhaustfan", 12);
    newRow(FAN, "bc_modified fan", 13);
    newRow(INLETVENT, "bc_modified inletvent", 14);
    newRow(INTAKEFAN, "bc_modified intakefan", 15);
    newRow(EntityKind::INTERFACE, "bc_modified interface", 16);
    newRow(INTERIOR, "bc_modified interior", 17);
    newRow(MASSFLOWINLET, "bc_modified massflowinlet", 18);
    newRow(OUTFLOW, "bc_modified outflow", 19);
    newRow(OUTLETVENT, "bc_modified outletvent", 20);
    newRow(PERIODIC, "bc_modified periodic", 21);
    newRow(PERIODICSHADOW, "bc_modified periodicshadow", 22);
    newRow(POROUSJUMP, "bc_modified porousjump", 23);
    newRow(PRESSUREFARFIELD, "bc_modified pressurefarfield", 24);
    newRow(PRESSUREINLET, "bc_modified pressureinlet", 25);
    newRow(PRESSUREOUTLET, "bc_modified pressureoutlet", 26);
    newRow(RADIATOR, "bc_modified radiator", 27);
    newRow(SUPERSONICINFLOW, "bc_modified supersonicinflow", 28);
    newRow(SUPERSONICOUTFLOW, "bc_modified supersonicoutflow", 29);
    newRow(SYMMETRY, "bc_modified symmetry", 30);
    newRow(VELOCITYINLET, "bc_modified velocityinlet", 31);
    newRow(WALL, "bc_modified wall", 32);
}

void tst_EmbeddedSetup::everyConditionHasItsWordAndCode()
{
    QFETCH(EntityKind, kind);
    QFETCH(QString, notification);
    QFETCH(int, code);
    EmbeddedKernel kernel;
    NotificationLog log;

    QCOMPARE(kernel.create_condition(kind, {}, {}, "Load"), 1);
    kernel.rename(kind, 1, "Other");
    QCOMPARE(log.take(),
        notification + QStringLiteral(" 1 create, ") + notification + QStringLiteral(" 1 modify"));
    QCOMPARE(get_exodus_entity_name(entity_word(kind), 1), std::string("Other"));
    for (int other = -1; other <= 45; ++other) {
        QCOMPARE(get_bc_id_list(static_cast<KI_BCTypes>(other)), other == code ? Ids{1} : Ids{});
    }
    kernel.remove(kind, 1);
    QCOMPARE(log.take(), notification + QStringLiteral(" 1 delete"));
}

void tst_EmbeddedSetup::unknownCodeOfAConditionAnswersEmpty()
{
    EmbeddedKernel kernel;
    kernel.create_set(SIDESET);
    kernel.create_condition(FORCE, {1});
    QCOMPARE(get_sideset_id_list_for_bc(static_cast<KI_BCTypes>(-1), 1), Ids{});
    QCOMPARE(get_sideset_id_list_for_bc(BC_FORCE, 2), Ids{});
    QCOMPARE(get_sideset_id_list_for_bc(BC_FORCE, -1), Ids{});
    QCOMPARE(get_sideset_id_list_for_bc(BC_PRESSURE, 1), Ids{});
}

void tst_EmbeddedSetup::fluidConditionsShareTheirIds()
{
    EmbeddedKernel kernel;
    QCOMPARE(kernel.create_condition(WALL), 1);
    QCOMPARE(kernel.create_condition(AXIS), 2);
    QCOMPARE(kernel.create_condition(WALL), 3);
    QCOMPARE(kernel.create_condition(FORCE), 1);
    QCOMPARE(kernel.create_condition(PRESSURE), 1);
    QCOMPARE(get_bc_id_list(BC_WALL), (Ids{1, 3}));
    QVERIFY_THROWS_EXCEPTION(std::invalid_argument, kernel.renumber(AXIS, 2, 3));
    kernel.renumber(FORCE, 1, 3);
    QCOMPARE(get_bc_id_list(BC_FORCE), Ids{3});
}

void tst_EmbeddedSetup::conditionNamesItsSets()
{
    EmbeddedKernel kernel;
    for (int i = 0; i < 5; ++i) {
        kernel.create_set(SIDESET);
        kernel.create_set(NODESET);
    }
    kernel.create_condition(CONTACT_PAIR, {5, 2}, {5});
    QCOMPARE(get_sideset_id_list_for_bc(BC_CONTACT_PAIR, 1), (Ids{5, 2}));
    QCOMPARE(get_nodeset_id_list_for_bc(BC_CONTACT_PAIR, 1), Ids{5});

    NotificationLog log;
    kernel.set_condition_sets(CONTACT_PAIR, 1, {2}, {1, 4});
    kernel.set_condition_sets(CONTACT_PAIR, 1, {2}, {1, 4});
    QCOMPARE(log.take(), QStringLiteral("fea_bc_modified contact pair 1 modify"));
    QCOMPARE(get_sideset_id_list_for_bc(BC_CONTACT_PAIR, 1), Ids{2});
    QCOMPARE(get_nodeset_id_list_for_bc(BC_CONTACT_PAIR, 1), (Ids{1, 4}));
}

void tst_EmbeddedSetup::conditionOfAFluidBecomesAnotherOne()
{
    EmbeddedKernel kernel;
    kernel.create_set(SIDESET);
    kernel.create_condition(WALL, {1}, {}, "Side");
    NotificationLog log;
    kernel.change_kind(WALL, 1, AXIS);
    QCOMPARE(log.take(), QStringLiteral("bc_modified axis 1 modify"));
    QCOMPARE(get_bc_id_list(BC_WALL), Ids{});
    QCOMPARE(get_bc_id_list(BC_AXIS), Ids{1});
    QCOMPARE(get_sideset_id_list_for_bc(BC_AXIS, 1), Ids{1});
    QCOMPARE(get_exodus_entity_name("axis", 1), std::string("Side"));
}

void tst_EmbeddedSetup::setsDeletedAtOnceTellEachConditionOnce()
{
    EmbeddedKernel kernel;
    for (int i = 0; i < 3; ++i) {
        kernel.create_set(SIDESET);
    }
    kernel.create_set(NODESET);
    kernel.create_condition(FORCE, {1, 2, 3}, {1});
    kernel.create_condition(PRESSURE, {1});
    kernel.create_condition(WALL, {3});
    NotificationLog log;
    kernel.remove({{SIDESET, 3}, {NODESET, 1}, {PRESSURE, 1}, {SIDESET, 1}});
    QCOMPARE(log.take(),
        QStringLiteral(
            "exodus_entity_modified sideset 3 delete, "
            "exodus_entity_modified nodeset 1 delete, fea_bc_modified pressure 1 delete, "
            "exodus_entity_modified sideset 1 delete, fea_bc_modified force 1 modify, "
            "bc_modified wall 1 modify"));
    QCOMPARE(get_sideset_id_list_for_bc(BC_FORCE, 1), Ids{2});
    QCOMPARE(get_nodeset_id_list_for_bc(BC_FORCE, 1), Ids{});
}

void tst_EmbeddedSetup::deletedSetLeavesItsConditions()
{
    EmbeddedKernel kernel;
    kernel.create_set(SIDESET);
    kernel.create_set(NODESET);
    kernel.create_condition(FORCE, {1}, {1});
    kernel.create_condition(PRESSURE);
    kernel.create_condition(WALL, {1});
    NotificationLog log;
    kernel.remove(SIDESET, 1);
    QCOMPARE(log.take(),
        QStringLiteral("exodus_entity_modified sideset 1 delete, fea_bc_modified force 1 modify, "
                       "bc_modified wall 1 modify"));
    QCOMPARE(get_sideset_id_list_for_bc(BC_FORCE, 1), Ids{});
    QCOMPARE(get_nodeset_id_list_for_bc(BC_FORCE, 1), Ids{1});
}

void tst_EmbeddedSetup::renumberedSetStaysInItsConditions()
{
    EmbeddedKernel kernel;
    kernel.create_set(SIDESET);
    kernel.create_set(NODESET);
    kernel.create_set(BLOCK);
    kernel.create_condition(FORCE, {1}, {1});
    NotificationLog log;
    kernel.renumber(SIDESET, 1, 8);
    kernel.renumber(BLOCK, 1, 9);
    QCOMPARE(
        log.take(), QStringLiteral("entity_id_changed sideset 1 8, entity_id_changed block 1 9"));
    QCOMPARE(get_sideset_id_list_for_bc(BC_FORCE, 1), Ids{8});
    QCOMPARE(get_nodeset_id_list_for_bc(BC_FORCE, 1), Ids{1});
}

void tst_EmbeddedSetup::nameOfASetupEntityIsToldAsAChange()
{
    EmbeddedKernel kernel;
    kernel.create_set(NODESET);
    kernel.create_material();
    kernel.create_medium();
    kernel.create_sizing_source();
    NotificationLog log;
    kernel.rename(NODESET, 1, "Tips");
    kernel.rename(MATERIAL, 1, "Steel");
    kernel.rename(MEDIUM, 2, "Air");
    kernel.rename(SIZING_SOURCE, 1, "Fine");
    QCOMPARE(log.take(),
        QStringLiteral("exodus_entity_modified nodeset 1 modify, material_modified 1 modify, "
                       "medium_modified 2 modify, entity_name_changed sizing_source 1"));
}

void tst_EmbeddedSetup::newIdIsToldAndKeepsTheRest()
{
    EmbeddedKernel kernel;
    kernel.create_set(SIDESET);
    kernel.create_condition(HEATFLUX, {1}, {}, "Sun");
    NotificationLog log;
    kernel.renumber(HEATFLUX, 1, 70);
    QCOMPARE(log.take(), QStringLiteral("entity_id_changed heatflux 1 70"));
    QCOMPARE(get_bc_id_list(BC_HEATFLUX), Ids{70});
    QCOMPARE(get_exodus_entity_name("heatflux", 70), std::string("Sun"));
    QCOMPARE(get_sideset_id_list_for_bc(BC_HEATFLUX, 70), Ids{1});
}

void tst_EmbeddedSetup::nonsenseIsRefusedAndChangesNothing_data()
{
    QTest::addColumn<std::function<void(EmbeddedKernel&)>>("ask");
    QTest::addColumn<QString>("sentence");
    const auto newRow = [](const char* name, const std::function<void(EmbeddedKernel&)>& ask,
                            const char* sentence) {
        QTest::newRow(name) << ask << QString::fromLatin1(sentence);
    };
    using Kernel = EmbeddedKernel;

    newRow(
        "set that is none", [](Kernel& k) { k.create_set(SURFACE); },
        "A surface is no block, sideset or nodeset.");
    newRow(
        "lite that is no set", [](Kernel& k) { k.set_lite(FORCE, 1, true); },
        "A force is no block, sideset or nodeset.");
    newRow(
        "unknown lite", [](Kernel& k) { k.set_lite(BLOCK, 1, true); }, "There is no block 1.");
    newRow(
        "condition that is none", [](Kernel& k) { k.create_condition(BLOCK); },
        "A block is no boundary condition.");
    newRow(
        "unknown sideset", [](Kernel& k) { k.create_condition(WALL, {2}); },
        "There is no sideset 2.");
    newRow(
        "unknown nodeset", [](Kernel& k) { k.create_condition(WALL, {}, {1}); },
        "There is no nodeset 1.");
    newRow(
        "repeated sideset",
        [](Kernel& k) {
            k.set_condition_sets(FORCE, 1, {1, 1}, {});
        },
        "sideset 1 is named twice.");
    newRow(
        "unknown condition", [](Kernel& k) { k.set_condition_sets(PRESSURE, 1, {}, {}); },
        "There is no pressure 1.");
    newRow(
        "kind of other ids", [](Kernel& k) { k.change_kind(FORCE, 1, PRESSURE); },
        "force 1 cannot become a pressure.");
    newRow(
        "kind of unknown", [](Kernel& k) { k.change_kind(WALL, 1, AXIS); }, "There is no wall 1.");
    newRow(
        "geometry of a set", [](Kernel& k) { k.set_virtual(SIDESET, 1, true); },
        "A sideset is no geometry.");
    newRow(
        "set in a group", [](Kernel& k) { k.add_to_group(1, SIDESET, {1}); },
        "A sideset is nothing that a group holds.");
    newRow(
        "no kind", [](Kernel& k) { k.rename(static_cast<EntityKind>(99), 1, "x"); },
        "There is no entity 1 of an unknown kind.");
}

void tst_EmbeddedSetup::nonsenseIsRefusedAndChangesNothing()
{
    QFETCH(std::function<void(EmbeddedKernel&)>, ask);
    QFETCH(QString, sentence);
    EmbeddedKernel kernel;
    kernel.create_group();
    kernel.create_set(SIDESET);
    kernel.create_condition(FORCE, {1});
    NotificationLog log;

    try {
        ask(kernel);
        QFAIL("Nonsense was taken.");
    } catch (const std::invalid_argument& refusal) {
        QCOMPARE(QString::fromUtf8(refusal.what()), sentence);
    }
    QCOMPARE(log.take(), QString());
    QCOMPARE(get_sideset_id_list(), Ids{1});
    QCOMPARE(get_sideset_id_list_for_bc(BC_FORCE, 1), Ids{1});
    QCOMPARE(get_bc_id_list(BC_WALL), Ids{});
}

QTEST_GUILESS_MAIN(tst_EmbeddedSetup)
#include "tst_EmbeddedSetup.moc"
