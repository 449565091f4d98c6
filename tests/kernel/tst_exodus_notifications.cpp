#include <memory>
#include <QTest>
#include <support/FullModel.hpp>
#include <support/MirrorText.hpp>

namespace {

QStringList reading(const QString& record)
{
    const QString arguments = QString(record).replace(' ', ", ");
    return {"get_exodus_entity_name(" + arguments + ')', "is_visible(" + arguments + ')',
        record + ": visible_changed(true)", "get_exodus_entity_type(" + arguments + ')'};
}

} // namespace

class tst_exodus_notifications : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void createdEntityIsAddedThenRead_data() { each_exodus_word(); }
    void createdEntityIsAddedThenRead();
    void changesAreToldInTheOrderOfTheReading();
    void secondCreationReadsAgain_data() { each_exodus_word(); }
    void secondCreationReadsAgain();
    void modifiedEntityIsReadAgain_data() { each_exodus_word(); }
    void modifiedEntityIsReadAgain();
    void modificationOfAnUnknownEntityAsksNothing_data() { each_exodus_word(); }
    void modificationOfAnUnknownEntityAsksNothing();
    void deletedEntityGoesUnasked_data() { each_exodus_word(); }
    void deletedEntityGoesUnasked();
    void deletionOfAnUnknownEntityIsSilent_data() { each_exodus_word(); }
    void deletionOfAnUnknownEntityIsSilent();
    void sameIdOfThreeKindsIsThreeRecords();
    void onlyTheExactWordMakesLite_data();
    void onlyTheExactWordMakesLite();
    void liteEntityTurnsOrdinary();
    void liteStatusComesByNotificationOnly();
    void otherTypeWordsDoNothing_data();
    void otherTypeWordsDoNothing();
    void otherActionsDoNothing_data();
    void otherActionsDoNothing();

    void createdMaterialIsAddedThenNamed_data() { each_material_word(); }
    void createdMaterialIsAddedThenNamed();
    void secondCreationKeepsWhatTheRecordIs_data() { each_material_word(); }
    void secondCreationKeepsWhatTheRecordIs();
    void modificationMakesAMissingMaterial_data() { each_material_word(); }
    void modificationMakesAMissingMaterial();
    void modificationTurnsTheOtherIntoThis_data() { each_material_word(); }
    void modificationTurnsTheOtherIntoThis();
    void modificationOfItsOwnKindTellsNoFlag_data() { each_material_word(); }
    void modificationOfItsOwnKindTellsNoFlag();
    void materialThatGoesIsNotChanged_data() { each_material_word(); }
    void materialThatGoesIsNotChanged();
    void deletionTakesEither_data() { each_material_word(); }
    void deletionTakesEither();
    void deletionOfAnUnknownMaterialIsSilent_data() { each_material_word(); }
    void deletionOfAnUnknownMaterialIsSilent();

private:
    void each_exodus_word();
    void each_material_word();
    void notify_material(bool is_medium, const char* action);

    std::unique_ptr<FullMirror> mirror;
};

void tst_exodus_notifications::init()
{
    mirror = std::make_unique<FullMirror>();
}

void tst_exodus_notifications::cleanup()
{
    mirror.reset();
}

void tst_exodus_notifications::each_exodus_word()
{
    QTest::addColumn<std::string>("word");
    for (const char* word : {"block", "sideset", "nodeset"}) {
        QTest::newRow(word) << std::string(word);
    }
}

void tst_exodus_notifications::each_material_word()
{
    QTest::addColumn<bool>("is_medium");
    QTest::addColumn<QString>("word");
    QTest::newRow("material") << false << "material";
    QTest::newRow("medium") << true << "media";
}

void tst_exodus_notifications::notify_material(bool is_medium, const char* action)
{
    if (is_medium) {
        mirror->observer().notify_medium_modified(3, action);
    } else {
        mirror->observer().notify_material_modified(3, action);
    }
}

void tst_exodus_notifications::createdEntityIsAddedThenRead()
{
    QFETCH(std::string, word);
    const QString record = QString::fromStdString(word) + " 3";
    mirror->observer().notify_exodus_entity_modified(word, 3, "create");
    QCOMPARE(
        mirror->log.take(), QStringList("exodus_entity_added(" + record + ')') + reading(record));
}

void tst_exodus_notifications::changesAreToldInTheOrderOfTheReading()
{
    mirror->kernel.exodus_names[{"sideset", 3}] = "Inlet \xC3\xBC";
    mirror->kernel.exodus_types[{"sideset", 3}] = "lite";
    mirror->kernel.hidden = {{"sideset", 3}};
    mirror->observer().notify_exodus_entity_modified("sideset", 3, "create");
    QCOMPARE(mirror->log.take(),
        QStringList({"exodus_entity_added(sideset 3)", "get_exodus_entity_name(sideset, 3)",
            QString::fromUtf8("sideset 3: name_changed(Inlet \xC3\xBC)"), "is_visible(sideset, 3)",
            "sideset 3: visible_changed(false)", "get_exodus_entity_type(sideset, 3)",
            "sideset 3: lite_status_changed(true)"}));
}

void tst_exodus_notifications::secondCreationReadsAgain()
{
    QFETCH(std::string, word);
    mirror->observer().notify_exodus_entity_modified(word, 3, "create");
    mirror->log.take();
    mirror->observer().notify_exodus_entity_modified(word, 3, "create");
    QCOMPARE(mirror->log.take(), reading(QString::fromStdString(word) + " 3"));
}

void tst_exodus_notifications::modifiedEntityIsReadAgain()
{
    QFETCH(std::string, word);
    mirror->observer().notify_exodus_entity_modified(word, 3, "create");
    mirror->kernel.exodus_names[{word, 3}] = "Own";
    mirror->log.take();
    mirror->observer().notify_exodus_entity_modified(word, 3, "modify");
    const QString record = QString::fromStdString(word) + " 3";
    QStringList expected = reading(record);
    expected.insert(1, record + ": name_changed(Own)");
    QCOMPARE(mirror->log.take(), expected);
}

void tst_exodus_notifications::modificationOfAnUnknownEntityAsksNothing()
{
    QFETCH(std::string, word);
    mirror->observer().notify_exodus_entity_modified(word, 3, "modify");
    QCOMPARE(mirror->log.take(), QStringList());
    QCOMPARE(mirror_text(mirror->model), QStringList());
}

void tst_exodus_notifications::deletedEntityGoesUnasked()
{
    QFETCH(std::string, word);
    const QString record = QString::fromStdString(word) + " 3";
    mirror->observer().notify_exodus_entity_modified(word, 3, "create");
    mirror->log.take();
    mirror->observer().notify_exodus_entity_modified(word, 3, "delete");
    QCOMPARE(mirror->log.take(), QStringList({"exodus_entity_removed(" + record + ')',
                                     record + ": treedata_destroyed(" + record + ')'}));
}

void tst_exodus_notifications::deletionOfAnUnknownEntityIsSilent()
{
    QFETCH(std::string, word);
    mirror->observer().notify_exodus_entity_modified(word, 3, "delete");
    QCOMPARE(mirror->log.take(), QStringList());
}

void tst_exodus_notifications::sameIdOfThreeKindsIsThreeRecords()
{
    for (const char* word : {"block", "sideset", "nodeset"}) {
        mirror->observer().notify_exodus_entity_modified(word, 3, "create");
    }
    mirror->observer().notify_exodus_entity_modified("sideset", 3, "delete");
    QCOMPARE(
        mirror_text(mirror->model), QStringList({"block 3 'Block 3'", "nodeset 3 'Nodeset 3'"}));
}

void tst_exodus_notifications::onlyTheExactWordMakesLite_data()
{
    QTest::addColumn<std::string>("answer");
    QTest::addColumn<bool>("is_lite");
    QTest::newRow("lite") << std::string("lite") << true;
    QTest::newRow("another case") << std::string("Lite") << false;
    QTest::newRow("trailing blank") << std::string("lite ") << false;
    QTest::newRow("leading blank") << std::string(" lite") << false;
    QTest::newRow("nothing") << std::string() << false;
    QTest::newRow("cut off") << std::string("lit") << false;
    QTest::newRow("zero byte behind") << std::string("lite\0", 5) << false;
}

void tst_exodus_notifications::onlyTheExactWordMakesLite()
{
    QFETCH(std::string, answer);
    mirror->kernel.exodus_types[{"block", 3}] = answer;
    mirror->observer().notify_exodus_entity_modified("block", 3, "create");
    QTEST(mirror->model.find_exodus(TreeExodusData::BLOCK, 3)->is_lite(), "is_lite");
}

void tst_exodus_notifications::liteEntityTurnsOrdinary()
{
    mirror->kernel.exodus_types[{"block", 3}] = "lite";
    mirror->observer().notify_exodus_entity_modified("block", 3, "create");
    mirror->kernel.exodus_types.clear();
    mirror->log.take();
    mirror->observer().notify_exodus_entity_modified("block", 3, "modify");
    QCOMPARE(mirror->log.take(),
        reading("block 3") + QStringList("block 3: lite_status_changed(false)"));
}

void tst_exodus_notifications::liteStatusComesByNotificationOnly()
{
    mirror->kernel.exodus_types[{"block", 3}] = "lite";
    mirror->kernel.exodus_ids["block"] = {3};
    mirror->model.refresh_model(false);
    QCOMPARE(mirror->log.take_only({"get_exodus_entity_type"}), QStringList());
    TreeExodusData* block = mirror->model.find_exodus(TreeExodusData::BLOCK, 3);
    QVERIFY(!block->is_lite());

    mirror->observer().notify_exodus_entity_modified("block", 3, "modify");
    mirror->kernel.exodus_types.clear();
    mirror->model.refresh_model(false);
    QVERIFY2(block->is_lite(), "a refresh leaves the status as it stands");
}

void tst_exodus_notifications::otherTypeWordsDoNothing_data()
{
    QTest::addColumn<std::string>("word");
    for (const char* word : {"Block", "blocks", "block ", "force", "wall", "surface", "group",
             "material", "media", ""}) {
        QTest::addRow("'%s'", word) << std::string(word);
    }
}

void tst_exodus_notifications::otherTypeWordsDoNothing()
{
    QFETCH(std::string, word);
    mirror->observer().notify_exodus_entity_modified("block", 3, "create");
    mirror->log.take();
    for (const char* action : {"create", "modify", "delete"}) {
        mirror->observer().notify_exodus_entity_modified(word, 3, action);
    }
    QCOMPARE(mirror->log.take(), QStringList());
}

void tst_exodus_notifications::otherActionsDoNothing_data()
{
    QTest::addColumn<std::string>("action");
    for (const char* action : {"Create", "MODIFY", "creates", "modifys", "deletes", "delet",
             "remove", "update", " creat", "create ", ""}) {
        QTest::addRow("'%s'", action) << std::string(action);
    }
    QTest::newRow("zero byte behind") << std::string("delete\0", 7);
}

void tst_exodus_notifications::otherActionsDoNothing()
{
    QFETCH(std::string, action);
    auto& observer = mirror->observer();
    observer.notify_exodus_entity_modified("block", 3, "create");
    observer.notify_material_modified(3, "create");
    observer.notify_fea_bc_modified("force", 3, "create");
    observer.notify_constraint_modified(3, "create");
    observer.notify_bc_modified("wall", 3, "create");
    mirror->log.take();

    observer.notify_exodus_entity_modified("block", 3, action);
    observer.notify_exodus_entity_modified("block", 4, action);
    observer.notify_material_modified(3, action);
    observer.notify_material_modified(4, action);
    observer.notify_medium_modified(3, action);
    observer.notify_medium_modified(4, action);
    observer.notify_fea_bc_modified("force", 3, action);
    observer.notify_bc_modified("force", 4, action);
    observer.notify_bc_modified("wall", 3, action);
    observer.notify_bc_modified("axis", 3, action);
    observer.notify_bc_modified("wall", 4, action);
    observer.notify_constraint_modified(3, action);

    QCOMPARE(mirror->log.take(), QStringList());
}

void tst_exodus_notifications::createdMaterialIsAddedThenNamed()
{
    QFETCH(bool, is_medium);
    QFETCH(QString, word);
    mirror->kernel.exodus_names[{word.toStdString(), 3}] = "Stuff";
    bool is_cfd_when_added = !is_medium;
    connect(&mirror->model, &TreeModel::material_added, this,
        [&](TreeMaterialData* material) { is_cfd_when_added = material->is_cfd(); });

    notify_material(is_medium, "create");

    QCOMPARE(mirror->log.take(),
        QStringList({"material_added(material 3)", "get_exodus_entity_name(" + word + ", 3)",
            "material 3: name_changed(Stuff)"}));
    QCOMPARE(is_cfd_when_added, is_medium);
}

void tst_exodus_notifications::secondCreationKeepsWhatTheRecordIs()
{
    QFETCH(bool, is_medium);
    QFETCH(QString, word);
    notify_material(!is_medium, "create");
    mirror->log.take();
    notify_material(is_medium, "create");
    QCOMPARE(mirror->log.take(), QStringList("get_exodus_entity_name(" + word + ", 3)"));
    QCOMPARE(mirror->model.find_material(3)->is_cfd(), !is_medium);
}

void tst_exodus_notifications::modificationMakesAMissingMaterial()
{
    QFETCH(bool, is_medium);
    QFETCH(QString, word);
    notify_material(is_medium, "modify");
    QCOMPARE(mirror->log.take(),
        QStringList({"material_added(material 3)", "get_exodus_entity_name(" + word + ", 3)"}));
    QCOMPARE(mirror->model.find_material(3)->is_cfd(), is_medium);
}

void tst_exodus_notifications::modificationTurnsTheOtherIntoThis()
{
    QFETCH(bool, is_medium);
    QFETCH(QString, word);
    notify_material(!is_medium, "create");
    TreeMaterialData* material = mirror->model.find_material(3);
    mirror->kernel.exodus_names[{word.toStdString(), 3}] = "Stuff";
    mirror->log.take();

    notify_material(is_medium, "modify");

    QCOMPARE(mirror->log.take(),
        QStringList({"get_exodus_entity_name(" + word + ", 3)", "material 3: name_changed(Stuff)",
            QString("material 3: cfd_flag_changed(%1)").arg(is_medium ? "true" : "false")}));
    QCOMPARE(mirror->model.materials(is_medium), std::vector<TreeMaterialData*>{material});
    QVERIFY(mirror->model.materials(!is_medium).empty());
}

void tst_exodus_notifications::modificationOfItsOwnKindTellsNoFlag()
{
    QFETCH(bool, is_medium);
    QFETCH(QString, word);
    notify_material(is_medium, "create");
    mirror->log.take();
    notify_material(is_medium, "modify");
    QCOMPARE(mirror->log.take(), QStringList("get_exodus_entity_name(" + word + ", 3)"));
}

void tst_exodus_notifications::materialThatGoesIsNotChanged()
{
    QFETCH(bool, is_medium);
    QFETCH(QString, word);
    const QStringList events{
        "get_exodus_entity_name(" + word + ", 3)", "material 3: name_changed(Stuff)"};
    for (int last = 0; last < events.size(); ++last) {
        notify_material(!is_medium, "create");
        mirror->kernel.exodus_names[{word.toStdString(), 3}] = "Stuff";
        mirror->log.take();
        mirror->log.interrupt(last, [&] { notify_material(is_medium, "delete"); });

        notify_material(is_medium, "modify");

        QCOMPARE(mirror->log.take(),
            events.mid(0, last + 1) + QStringList({"material_removed(material 3)",
                                          "material 3: treedata_destroyed(material 3)"}));
    }
}

void tst_exodus_notifications::deletionTakesEither()
{
    QFETCH(bool, is_medium);
    notify_material(!is_medium, "create");
    mirror->log.take();
    notify_material(is_medium, "delete");
    QCOMPARE(mirror->log.take(), QStringList({"material_removed(material 3)",
                                     "material 3: treedata_destroyed(material 3)"}));
    QCOMPARE(mirror->model.find_material(3), nullptr);
}

void tst_exodus_notifications::deletionOfAnUnknownMaterialIsSilent()
{
    QFETCH(bool, is_medium);
    notify_material(is_medium, "delete");
    QCOMPARE(mirror->log.take(), QStringList());
}

QTEST_GUILESS_MAIN(tst_exodus_notifications)
#include "tst_exodus_notifications.moc"
