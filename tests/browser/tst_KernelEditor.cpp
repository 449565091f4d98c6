#include "JoinedModel.hpp"

#include <browser/editing/KernelEditor.hpp>
#include <NotificationLog.hpp>
#include <QSignalSpy>
#include <QTest>
#include <random>
#include <TestModels.hpp>

namespace {

using Records = KernelEditor::Records;

/// Two cubes in a row, which share surface 2, with one of each of the other kinds.
struct EditedModel : JoinedModel
{
    KernelEditor editor{kernel, mirror};
    QSignalSpy failed{&editor, &KernelEditor::failed};
    NotificationLog log;

    EditedModel()
    {
        kernel.open_model(lattice(2, 1, 1), "two.step");
        kernel.create_group("Bolts");
        kernel.add_to_group(1, EntityKind::VOLUME, {1});
        kernel.set_element_counts(1, {.tets = 12});
        kernel.create_set(EntityKind::BLOCK);
        kernel.create_set(EntityKind::SIDESET);
        kernel.create_set(EntityKind::SIDESET);
        kernel.create_set(EntityKind::NODESET);
        kernel.create_material("Steel");
        kernel.create_medium("Air");
        kernel.create_sizing_source();
        kernel.create_boundary_layer();
        for (const EntityKind kind : KernelEditor::condition_kinds()) {
            kernel.create_condition(kind);
        }
        log.take();
    }

    TreeData* group(int id) { return mirror.find_group(id); }
    TreeData* block(int id) { return mirror.find_exodus(TreeExodusData::BLOCK, id); }
    TreeData* sideset(int id) { return mirror.find_exodus(TreeExodusData::SIDESET, id); }
    TreeData* nodeset(int id) { return mirror.find_exodus(TreeExodusData::NODESET, id); }
    TreeData* material(int id) { return mirror.find_material(id); }
    TreeData* pressure(int id) { return mirror.find_fea_bc(TreeFeaBCData::PRESSURE, id); }
    TreeData* tets() { return mirror.mesh_data().front(); }

    /// The sentence of the one refusal; empty if there was none.
    QString refusal()
    {
        return failed.size() == 1 ? failed.takeFirst().at(0).toString() : QString();
    }

    Records all_that_can_be_hidden()
    {
        Records records;
        const auto append = [&records](const auto& more) {
            records.insert(records.end(), more.begin(), more.end());
        };
        using Geometry = TreeGeometryData;
        for (const Geometry::GeometryType type : {Geometry::BODY, Geometry::VOLUME,
                 Geometry::SURFACE, Geometry::CURVE, Geometry::VERTEX}) {
            append(mirror.geometry(type));
        }
        append(mirror.groups());
        using Exodus = TreeExodusData;
        for (const Exodus::ExodusType type : {Exodus::BLOCK, Exodus::SIDESET, Exodus::NODESET}) {
            append(mirror.exodus_entities(type));
        }
        return records;
    }

    /// What is shown of all that, as "body 1, volume 1".
    QString shown()
    {
        QStringList texts;
        for (TreeData* record : all_that_can_be_hidden()) {
            if (record->is_visible()) {
                texts << kernel_entity(record)->text();
            }
        }
        return texts.join(", ");
    }

    /// What a group holds, as "curve 1, volume 2".
    QString members(int id)
    {
        QStringList texts;
        for (TreeData* member : mirror.find_group_children(mirror.find_group(id))) {
            if (const auto entity = kernel_entity(member)) {
                texts << entity->text();
            }
        }
        texts.sort();
        return texts.join(", ");
    }

    QString sets_of(TreeFeaBCData* condition)
    {
        QStringList texts;
        for (TreeExodusData* set : mirror.find_exodus_from_fea(condition)) {
            texts << kernel_entity(set)->text();
        }
        texts.sort();
        return texts.join(", ");
    }
};

} // namespace

/// Each operation of a person, told by what comes back from the kernel.
class tst_KernelEditor : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void everyRecordNamesItsEntity();
    void elementCountIsNoEntity();

    void renamedRecordGetsItsNameFromTheKernel();
    void emptyNameGivesTheDefaultNameBack();
    void markOfAVirtualEntityIsNoPartOfItsName();
    void everyKindThatTheTreeOffersToRenameIsRenamed();
    void refusedNameChangesNothing_data();
    void refusedNameChangesNothing();
    void nameEditedInTheTreeIsCarriedOut();

    void hiddenAndShownRecordsAreTold();
    void whatCannotBeHiddenIsRefused();

    void onlyTheseAreShownWithTheirPartsAndHolders();
    void onlyAGroupIsShownWithItsMembers();
    void onlyASetIsShown();
    void visibilityIsRestoredExactly();
    void secondShowOnlyGoesBackToTheFirst();
    void whatIsRemovedMeanwhileIsNotMissed();
    void nothingToRestoreIsRefused();
    void nothingIsRestoredInAnotherModel();
    void visibilityIsRestoredAfterRandomChanges();

    void removedRecordsAreGone();
    void partGoesWithItsWhole();
    void removedMembersModifyTheirGroupOnce();
    void conditionOfFluidsGoesOnce();

    void groupHoldsWhatWasSelected();
    void whatIsNoMemberIsRefused();
    void setStandsBesideAGroupOfItsMembers_data();
    void setStandsBesideAGroupOfItsMembers();
    void conditionOfEveryKindAppliesToTheSets();
    void conditionIsGivenOtherSets();
    void conditionOnAnythingElseIsRefused();
    void materialMediumAndMeshControlsAreMade();
    void entitiesThatTheKernelHasNotAreRefused();
};

void tst_KernelEditor::everyRecordNamesItsEntity()
{
    EditedModel model;
    const auto text = [](TreeData* record) { return kernel_entity(record)->text(); };
    QCOMPARE(text(model.body(1)), QString("body 1"));
    QCOMPARE(text(model.volume(2)), QString("volume 2"));
    QCOMPARE(text(model.surface(3)), QString("surface 3"));
    QCOMPARE(text(model.curve(4)), QString("curve 4"));
    QCOMPARE(text(model.vertex(5)), QString("vertex 5"));
    QCOMPARE(text(model.group(1)), QString("group 1"));
    QCOMPARE(text(model.mirror.find_sizing_source(1)), QString("sizing source 1"));
    QCOMPARE(text(model.mirror.find_boundary_layer(1)), QString("boundary layer 1"));
    QCOMPARE(text(model.block(1)), QString("block 1"));
    QCOMPARE(text(model.sideset(2)), QString("sideset 2"));
    QCOMPARE(text(model.nodeset(1)), QString("nodeset 1"));
    QCOMPARE(text(model.material(1)), QString("material 1"));
    QCOMPARE(text(model.material(2)), QString("media 2"));
    for (int type = TreeFeaBCData::FORCE; type <= TreeFeaBCData::CONTACT_PAIR; ++type) {
        const auto fea_type = static_cast<TreeFeaBCData::FEAType>(type);
        QCOMPARE(text(model.mirror.find_fea_bc(fea_type, 1)),
            QString::fromStdString(TreeFeaBCData::type_to_string(fea_type)) + " 1");
    }
    for (int type = TreeCfdBCData::AXIS; type <= TreeCfdBCData::WALL; ++type) {
        QCOMPARE(text(model.mirror.find_cfd_bc(type + 1)),
            QString::fromStdString(
                TreeCfdBCData::type_to_string(static_cast<TreeCfdBCData::CFDType>(type))) +
                QString(" %1").arg(type + 1));
    }
}

void tst_KernelEditor::elementCountIsNoEntity()
{
    EditedModel model;
    QVERIFY(!kernel_entity(model.tets()));
    QVERIFY(!kernel_entity(nullptr));
}

void tst_KernelEditor::renamedRecordGetsItsNameFromTheKernel()
{
    EditedModel model;
    QVERIFY(model.editor.rename(model.surface(3), " Flange Ø30 "));
    QCOMPARE(model.surface(3)->name(), QString("Flange Ø30"));
    QCOMPARE(model.log.take(), QString("entity_name_changed surface 3"));
}

void tst_KernelEditor::emptyNameGivesTheDefaultNameBack()
{
    EditedModel model;
    model.editor.rename(model.group(1), "");
    QVERIFY(model.group(1)->name() != "Bolts");
    QVERIFY(model.failed.isEmpty());
}

void tst_KernelEditor::markOfAVirtualEntityIsNoPartOfItsName()
{
    EditedModel model;
    model.kernel.set_virtual(EntityKind::SURFACE, 3, true);
    model.editor.rename(model.surface(3), "Flange (v)");
    QCOMPARE(model.surface(3)->name(), QString("Flange (v)"));
    QCOMPARE(KestoInterface::get_entity_name("surface", 3, true), std::string("Flange"));
    model.editor.rename(model.surface(4), "Lid (v)");
    QCOMPARE(KestoInterface::get_entity_name("surface", 4, true), std::string("Lid (v)"));
}

void tst_KernelEditor::everyKindThatTheTreeOffersToRenameIsRenamed()
{
    EditedModel model;
    model.join.settle();
    int renamed = 0;
    for (EntityItem* item = model.join.category(Category::Geometry)->getParentEntity(); item;
         item = item->getNext(nullptr)) {
        TreeData* record = model.join.record(item);
        if (record && item->isEditable()) {
            const QString name = QString("Name %1").arg(++renamed);
            QVERIFY(model.editor.rename(record, name));
            QVERIFY2(record->name() == name, qPrintable(kernel_entity(record)->text()));
        } else if (record) {
            QVERIFY(!model.editor.rename(record, "Name"));
        }
    }
    QVERIFY(renamed > 60);
}

void tst_KernelEditor::refusedNameChangesNothing_data()
{
    QTest::addColumn<QString>("what");
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("sentence");

    QTest::newRow("two lines") << "body"
                               << "one\ntwo"
                               << "A name is one line of text.";
    QTest::newRow("zero character") << "body" << QString(QChar(0)) + "two"
                                    << "A name is one line of text.";
    QTest::newRow("mesh control") << "sizing source"
                                  << "Fine"
                                  << "Of this kind nothing has a name of its own: sizing source 1.";
    QTest::newRow("category") << "category"
                              << "Things"
                              << "This row has no name of its own.";
    QTest::newRow("element count") << "tets"
                                   << "Many"
                                   << "This row has no name of its own.";
}

void tst_KernelEditor::refusedNameChangesNothing()
{
    QFETCH(QString, what);
    QFETCH(QString, name);
    QFETCH(QString, sentence);
    EditedModel model;
    const QHash<QString, TreeData*> records{{"body", model.body(1)},
        {"sizing source", model.mirror.find_sizing_source(1)}, {"tets", model.tets()}};
    QVERIFY(!model.editor.rename(records.value(what), name));
    QCOMPARE(model.refusal(), sentence);
    QCOMPARE(model.log.take(), QString());
}

void tst_KernelEditor::nameEditedInTheTreeIsCarriedOut()
{
    EditedModel model;
    connect(&model.items, &EntityModel::nameEdited, &model.editor,
        [&model](EntityItem* item, const QString& name) {
            model.editor.rename(model.join.record(item), name);
        });
    const QModelIndex body = model.items.index(model.item(model.body(1)));
    QVERIFY(body.flags() & Qt::ItemIsEditable);
    model.items.setData(body, "Housing");
    model.join.settle();
    QCOMPARE(body.data().toString(), QString("Housing"));
    model.items.setData(body, "Hou\nsing");
    model.join.settle();
    QCOMPARE(body.data().toString(), QString("Housing"));
    QCOMPARE(model.failed.size(), 1);
}

void tst_KernelEditor::hiddenAndShownRecordsAreTold()
{
    EditedModel model;
    const Records records{model.surface(1), model.group(1), model.block(1), model.tets(), nullptr};
    QVERIFY(model.editor.set_visible(records, false));
    QCOMPARE(model.log.take(),
        QString("entity_visibility_changed surface 1, entity_visibility_changed group 1, "
                "exodus_visibility_changed block 1"));
    QVERIFY(!model.surface(1)->is_visible());
    QVERIFY(!model.block(1)->is_visible());
    QVERIFY(model.editor.set_visible(records, false));
    QCOMPARE(model.log.take(), QString());
    QVERIFY(model.editor.set_visible({model.surface(1)}, true));
    QVERIFY(model.surface(1)->is_visible());
}

void tst_KernelEditor::whatCannotBeHiddenIsRefused()
{
    EditedModel model;
    QVERIFY(!model.editor.set_visible({model.surface(1), model.material(1)}, false));
    QCOMPARE(model.refusal(), QString("This cannot be shown or hidden: material 1."));
    QVERIFY(!model.editor.set_visible(
        {model.material(1), model.material(2), model.pressure(1), model.mirror.find_cfd_bc(1)},
        false));
    QCOMPARE(model.refusal(),
        QString("This cannot be shown or hidden: material 1, media 2, pressure 1, …."));
    QCOMPARE(model.log.take(), QString());
}

void tst_KernelEditor::onlyTheseAreShownWithTheirPartsAndHolders()
{
    EditedModel model;
    QVERIFY(model.editor.show_only({model.surface(1)}));
    const QStringList shown = model.shown().split(", ");
    QCOMPARE(shown.filter("body"), QStringList{"body 1"});
    QCOMPARE(shown.filter("volume"), QStringList{"volume 1"});
    QCOMPARE(shown.filter("surface"), QStringList{"surface 1"});
    QCOMPARE(shown.filter("curve").size(), 4);
    QCOMPARE(shown.filter("vertex").size(), 4);
    QCOMPARE(shown.filter("group"), QStringList{"group 1"});
    QVERIFY(shown.filter("set").isEmpty());
    QVERIFY(shown.filter("block").isEmpty());
}

void tst_KernelEditor::onlyAGroupIsShownWithItsMembers()
{
    EditedModel model;
    model.kernel.create_group("Assembly");
    model.kernel.create_group("Other");
    model.kernel.add_to_group(2, EntityKind::GROUP, {1});
    QVERIFY(model.editor.show_only({model.group(1)}));
    const QStringList shown = model.shown().split(", ");
    QCOMPARE(shown.filter("body"), QStringList{"body 1"});
    QCOMPARE(shown.filter("volume"), QStringList{"volume 1"});
    QCOMPARE(shown.filter("surface").size(), 6);
    QCOMPARE(shown.filter("group"), QStringList({"group 1", "group 2"}));
}

void tst_KernelEditor::onlyASetIsShown()
{
    EditedModel model;
    QVERIFY(model.editor.show_only({model.sideset(2)}));
    QCOMPARE(model.shown(), QString("sideset 2"));
}

void tst_KernelEditor::visibilityIsRestoredExactly()
{
    EditedModel model;
    model.editor.set_visible({model.curve(1), model.volume(2), model.sideset(1)}, false);
    const QString before = model.shown();
    QSignalSpy can_restore(&model.editor, &KernelEditor::can_restore_visibility_changed);

    QVERIFY(model.editor.show_only({model.surface(1)}));
    QVERIFY2(model.shown().contains("curve 1"), "a part is shown though it was hidden");
    QCOMPARE(can_restore.takeFirst().at(0), QVariant(true));
    model.editor.set_visible({model.body(1), model.surface(1)}, false);
    model.editor.set_visible({model.surface(9)}, true);
    QVERIFY(model.editor.restore_visibility());

    QCOMPARE(model.shown(), before);
    QCOMPARE(can_restore.takeFirst().at(0), QVariant(false));
    QVERIFY(!model.editor.can_restore_visibility());
}

void tst_KernelEditor::secondShowOnlyGoesBackToTheFirst()
{
    EditedModel model;
    model.editor.set_visible({model.surface(4)}, false);
    const QString before = model.shown();
    model.editor.show_only({model.surface(1)});
    model.kernel.create_vertex();
    model.editor.show_only({model.surface(4)});
    QVERIFY(model.surface(4)->is_visible());
    QVERIFY(!model.surface(1)->is_visible());
    model.editor.restore_visibility();
    QCOMPARE(model.shown().remove(", vertex 13"), before);
    QVERIFY(model.vertex(13)->is_visible());
}

void tst_KernelEditor::whatIsRemovedMeanwhileIsNotMissed()
{
    EditedModel model;
    model.editor.show_only({model.volume(2)});
    model.kernel.remove(EntityKind::VOLUME, 1);
    model.kernel.renumber(EntityKind::SURFACE, 2, 50);
    QVERIFY(model.editor.restore_visibility());
    QVERIFY(model.failed.isEmpty());
    QVERIFY(model.surface(50)->is_visible());
    QVERIFY(model.group(1)->is_visible());
}

void tst_KernelEditor::nothingToRestoreIsRefused()
{
    EditedModel model;
    QVERIFY(!model.editor.restore_visibility());
    QVERIFY(!model.refusal().isEmpty());
    QVERIFY(!model.editor.show_only({}));
    QVERIFY(!model.refusal().isEmpty());
    QVERIFY(!model.editor.show_only({model.material(1)}));
    QVERIFY(!model.refusal().isEmpty());
    QVERIFY(!model.editor.can_restore_visibility());
}

void tst_KernelEditor::nothingIsRestoredInAnotherModel()
{
    EditedModel model;
    model.editor.show_only({model.surface(1)});
    QSignalSpy can_restore(&model.editor, &KernelEditor::can_restore_visibility_changed);

    model.kernel.clear();

    QVERIFY(!model.editor.can_restore_visibility());
    QCOMPARE(can_restore.size(), 1);
    QCOMPARE(can_restore.takeFirst().at(0), QVariant(false));
    QVERIFY(!model.editor.restore_visibility());
}

void tst_KernelEditor::visibilityIsRestoredAfterRandomChanges()
{
    std::mt19937 random(7);
    const auto below = [&random](int bound) {
        return std::uniform_int_distribution(0, bound - 1)(random);
    };
    for (int round = 0; round < 30; ++round) {
        EditedModel model;
        const auto some_surface = [&] { return model.surface(1 + below(11)); };
        for (int i = 0; i < 10; ++i) {
            model.editor.set_visible({some_surface(), model.curve(1 + below(20))}, below(2));
        }
        const QString before = model.shown();
        model.editor.show_only({some_surface()});
        for (int i = 0; i < 10; ++i) {
            model.editor.set_visible({some_surface(), model.curve(1 + below(20))}, below(2));
            if (below(4) == 0) {
                model.editor.show_only({some_surface(), model.volume(1)});
            }
        }
        model.editor.restore_visibility();
        QCOMPARE(model.shown(), before);
    }
}

void tst_KernelEditor::removedRecordsAreGone()
{
    EditedModel model;
    QVERIFY(model.editor.remove({model.group(1), model.block(1), model.material(2),
        model.mirror.find_boundary_layer(1), model.pressure(1)}));
    QCOMPARE(model.log.take(),
        QString("group_deleted 1, exodus_entity_modified block 1 delete, medium_modified 2 delete, "
                "boundary_layer_deleted 1, fea_bc_modified pressure 1 delete"));
    QVERIFY(!model.group(1));
    QVERIFY(!model.block(1));
    QVERIFY(!model.material(2));
}

void tst_KernelEditor::partGoesWithItsWhole()
{
    EditedModel model;
    QVERIFY(model.editor.remove({model.body(1), model.surface(1), model.vertex(1), model.body(1)}));
    QVERIFY(model.failed.isEmpty());
    QVERIFY(!model.surface(1));
    QVERIFY(KestoInterface::get_entities("vertex").empty());
}

void tst_KernelEditor::removedMembersModifyTheirGroupOnce()
{
    EditedModel model;
    model.kernel.add_to_group(1, EntityKind::VOLUME, {1, 2});
    model.log.take();
    QVERIFY(model.editor.remove({model.volume(2), model.volume(1)}));
    QCOMPARE(model.log.take().count("group_modified"), 1);
    QCOMPARE(model.members(1), QString());
}

void tst_KernelEditor::conditionOfFluidsGoesOnce()
{
    EditedModel model;
    TreeData* axis = model.mirror.find_cfd_bc(1);
    QVERIFY(model.editor.remove({axis, axis}));
    QVERIFY(model.failed.isEmpty());
    QVERIFY(!model.mirror.find_cfd_bc(1));
}

void tst_KernelEditor::groupHoldsWhatWasSelected()
{
    EditedModel model;
    QVERIFY(model.editor.create_group(
        {model.surface(2), model.body(1), model.group(1), model.surface(1), model.surface(2)},
        "Mixed"));
    QCOMPARE(model.group(2)->name(), QString("Mixed"));
    QCOMPARE(model.members(2), QString("body 1, group 1, surface 1, surface 2"));
    QVERIFY(model.editor.create_group({}));
    QCOMPARE(model.members(3), QString());
}

void tst_KernelEditor::whatIsNoMemberIsRefused()
{
    EditedModel model;
    QVERIFY(!model.editor.create_group({model.surface(2), model.block(1)}));
    QCOMPARE(model.refusal(), QString("Only geometry and groups can be members, and not block 1."));
    QVERIFY(!model.editor.create_set(EntityKind::BLOCK, {model.surface(2), model.pressure(1)}));
    QCOMPARE(
        model.refusal(), QString("Only geometry and groups can be members, and not pressure 1."));
    QCOMPARE(model.log.take(), QString());
}

void tst_KernelEditor::setStandsBesideAGroupOfItsMembers_data()
{
    QTest::addColumn<EntityKind>("kind");
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("group");
    QTest::newRow("block") << EntityKind::BLOCK << ""
                           << "Block 2";
    QTest::newRow("sideset") << EntityKind::SIDESET << "inlet"
                             << "inlet";
    QTest::newRow("nodeset") << EntityKind::NODESET << ""
                             << "Nodeset 2";
}

void tst_KernelEditor::setStandsBesideAGroupOfItsMembers()
{
    QFETCH(EntityKind, kind);
    QFETCH(QString, name);
    QFETCH(QString, group);
    EditedModel model;
    QVERIFY(model.editor.create_set(kind, {model.surface(2), model.volume(1)}, name));
    QCOMPARE(model.group(2)->name(), group);
    QCOMPARE(model.members(2), QString("surface 2, volume 1"));
    TreeData* set = kind == EntityKind::BLOCK     ? model.block(2)
                    : kind == EntityKind::SIDESET ? model.sideset(3)
                                                  : model.nodeset(2);
    QCOMPARE(set->name(), group);
    QVERIFY(model.editor.create_set(kind, {}));
    QVERIFY2(!model.group(3), "without members there is no group");
}

void tst_KernelEditor::conditionOfEveryKindAppliesToTheSets()
{
    EditedModel model;
    const std::vector<EntityKind> kinds = KernelEditor::condition_kinds();
    QCOMPARE(kinds.size(), std::size_t(33));
    for (const EntityKind kind : kinds) {
        QVERIFY(model.editor.create_condition(
            kind, {model.sideset(2), model.nodeset(1), model.sideset(1)}, "Condition"));
    }
    for (int type = TreeFeaBCData::FORCE; type <= TreeFeaBCData::CONTACT_PAIR; ++type) {
        TreeFeaBCData* condition =
            model.mirror.find_fea_bc(static_cast<TreeFeaBCData::FEAType>(type), 2);
        QCOMPARE(condition->name(), QString("Condition"));
        QCOMPARE(model.sets_of(condition), QString("nodeset 1, sideset 1, sideset 2"));
    }
    for (int id = 23; id <= 44; ++id) {
        QCOMPARE(
            model.mirror.find_exodus_from_cfd(model.mirror.find_cfd_bc(id)).size(), std::size_t(3));
    }
}

void tst_KernelEditor::conditionIsGivenOtherSets()
{
    EditedModel model;
    auto* pressure = model.mirror.find_fea_bc(TreeFeaBCData::PRESSURE, 1);
    QVERIFY(model.editor.set_condition_sets(pressure, {model.sideset(2)}));
    QCOMPARE(model.sets_of(pressure), QString("sideset 2"));
    QVERIFY(!model.editor.set_condition_sets(model.body(1), {model.sideset(2)}));
    QCOMPARE(model.refusal(), QString("This is no boundary condition: body 1."));
    QVERIFY(!model.editor.set_condition_sets(nullptr, {model.sideset(2)}));
    QVERIFY(!model.refusal().isEmpty());
    QVERIFY(model.editor.set_condition_sets(pressure, {}));
    QCOMPARE(model.sets_of(pressure), QString());
}

void tst_KernelEditor::conditionOnAnythingElseIsRefused()
{
    EditedModel model;
    QVERIFY(!model.editor.create_condition(EntityKind::FORCE, {model.sideset(1), model.block(1)}));
    QCOMPARE(model.refusal(),
        QString("A boundary condition applies to sidesets and nodesets, and not to block 1."));
    QVERIFY(!model.editor.create_condition(EntityKind::BODY, {model.sideset(1)}));
    QVERIFY(!model.refusal().isEmpty());
    QCOMPARE(model.log.take(), QString());
}

void tst_KernelEditor::materialMediumAndMeshControlsAreMade()
{
    EditedModel model;
    QVERIFY(model.editor.create_material("Copper"));
    QVERIFY(model.editor.create_medium("Water"));
    QVERIFY(model.editor.create_sizing_source());
    QVERIFY(model.editor.create_boundary_layer());
    QCOMPARE(model.material(3)->name(), QString("Copper"));
    QVERIFY(model.mirror.find_material(4)->is_cfd());
    QVERIFY(model.mirror.find_sizing_source(2));
    QVERIFY(model.mirror.find_boundary_layer(2));
}

void tst_KernelEditor::entitiesThatTheKernelHasNotAreRefused()
{
    EditedModel model;
    model.mirror.disconnect_from_kesto();
    model.kernel.remove(EntityKind::GROUP, 1);
    model.log.take();
    QVERIFY(!model.editor.rename(model.group(1), "Nuts"));
    QCOMPARE(model.refusal(), QString("There is no group 1."));
    QVERIFY(!model.editor.remove({model.body(1), model.group(1)}));
    QCOMPARE(model.refusal(), QString("There is no group 1."));
    QCOMPARE(model.log.take(), QString());
}

QTEST_MAIN(tst_KernelEditor)
#include "tst_KernelEditor.moc"
