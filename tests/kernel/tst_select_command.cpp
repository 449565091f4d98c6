#include <algorithm>
#include <memory>
#include <QSignalSpy>
#include <QTest>
#include <random>
#include <support/FullModel.hpp>

using Records = std::vector<TreeData*>;

class tst_select_command : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void nothingIsSelectedByTheEmptyVector_data() { selected_or_not(); }
    void nothingIsSelectedByTheEmptyVector();
    void eachKindHasItsWord_data();
    void eachKindHasItsWord();
    void wordsComeInTheirOrderWhateverTheRecordsDo();
    void idsOfAWordComeByAddress();
    void idsOfVeryManyRecordsComeByAddress_data();
    void idsOfVeryManyRecordsComeByAddress();
    void deselectionEndsInRemove();
    void recordThatStandsTwiceIsWrittenOnce();
    void sameIdOfTwoKindsIsWrittenTwice();
    void fluidConditionsShareOneWord();
    void materialsAndMediaShareOneWord();
    void negativeIdKeepsItsSign();
    void idIsThatOfTheMoment();
    void longSelectionIsOneLine();

    void recordsWithoutAWordSendNothing();
    void recordsWithoutAWordAreDroppedFromTheOthers();
    void unknownGeometryKindHasNoWord();
    void selectionLeavesTheMirrorAlone();
    void refusalIsIgnored();
    void exceptionPassesThrough();

    void nothingIsSentInsideASelectionSignal();
    void everythingIsSentInsideOtherSignals();
    void kernelMayAnswerInsideTheCommand();
    void unregisteredMirrorSends();

private:
    void selected_or_not();
    Records find(const std::string& word);
    QString sent(const Records& records, bool selected = true);
    static QString ids_by_address(Records records);

    std::unique_ptr<FullMirror> mirror;
};

void tst_select_command::init()
{
    mirror = std::make_unique<FullMirror>();
    KestoInterface::KIObserve& observer = mirror->observer();
    for (const int id : {1, 2, 3, -4}) {
        observer.notify_body_created(id);
        observer.notify_volume_created(id);
        observer.notify_surface_created(id);
        observer.notify_curve_created(id);
        observer.notify_vertex_created(id);
        observer.notify_group_created(id);
        observer.notify_sizing_source_created(id);
        observer.notify_boundary_layer_created(id);
        for (const char* word : {"block", "sideset", "nodeset"}) {
            observer.notify_exodus_entity_modified(word, id, "create");
        }
        for (int type = TreeFeaBCData::FORCE; type <= TreeFeaBCData::CONTACT_PAIR; ++type) {
            observer.notify_fea_bc_modified(
                TreeFeaBCData::type_to_string(TreeFeaBCData::FEAType(type)), id, "create");
        }
    }
    for (int type = TreeCfdBCData::AXIS; type <= TreeCfdBCData::WALL; ++type) {
        observer.notify_bc_modified(
            TreeCfdBCData::type_to_string(TreeCfdBCData::CFDType(type)), 1 + type, "create");
    }
    observer.notify_material_modified(1, "create");
    observer.notify_medium_modified(2, "create");
    mirror->kernel.group_contents[1] = {{}, {0, 0, 5, 0, 0, 0, 0, 0, 0}};
    observer.notify_group_modified(1);
    mirror->log.take();
}

void tst_select_command::cleanup()
{
    mirror.reset();
}

void tst_select_command::selected_or_not()
{
    QTest::addColumn<bool>("selected");
    QTest::newRow("selected") << true;
    QTest::newRow("deselected") << false;
}

// The record 2 of the kind that bears the word.
Records tst_select_command::find(const std::string& word)
{
    TreeModel& model = mirror->model;
    TreeGeometryData::GeometryType geometry_type{};
    TreeExodusData::ExodusType exodus_type{};
    TreeFeaBCData::FEAType fea_type{};
    if (TreeGeometryData::string_to_type(word, geometry_type)) {
        return {model.find_geometry(geometry_type, 2)};
    }
    if (TreeExodusData::string_to_type(word, exodus_type)) {
        return {model.find_exodus(exodus_type, 2)};
    }
    if (TreeFeaBCData::string_to_type(word, fea_type)) {
        return {model.find_fea_bc(fea_type, 2)};
    }
    const std::map<std::string, TreeData*> others{{"group", model.find_group(2)},
        {"boundary_layer", model.find_boundary_layer(2)},
        {"sizing_source", model.find_sizing_source(2)}, {"cfd_bc", model.find_cfd_bc(2)},
        {"material", model.find_material(2)}};
    return {others.at(word)};
}

QString tst_select_command::sent(const Records& records, bool selected)
{
    mirror->model.select_entities(records, selected);
    return mirror->log.take().join('\n');
}

void tst_select_command::nothingIsSelectedByTheEmptyVector()
{
    QFETCH(bool, selected);
    QCOMPARE(sent({}, selected), "silent_cmd(select none)");
}

void tst_select_command::eachKindHasItsWord_data()
{
    QTest::addColumn<std::string>("word");
    for (const char* word : {"body", "volume", "surface", "curve", "vertex", "group",
             "boundary_layer", "sizing_source", "block", "sideset", "nodeset", "force",
             "acceleration", "velocity", "pressure", "temperature", "displacement", "constraint",
             "convection", "heatflux", "contact region", "contact pair", "cfd_bc", "material"}) {
        QTest::newRow(word) << std::string(word);
    }
}

void tst_select_command::eachKindHasItsWord()
{
    QFETCH(std::string, word);
    const QString text = QString::fromStdString(word);
    QCOMPARE(sent(find(word), true), "silent_cmd(select " + text + " 2 )");
    QCOMPARE(sent(find(word), false), "silent_cmd(select " + text + " 2 remove)");
}

void tst_select_command::wordsComeInTheirOrderWhateverTheRecordsDo()
{
    const QStringList words{"body", "volume", "surface", "curve", "vertex", "group",
        "boundary_layer", "sizing_source", "block", "sideset", "nodeset", "force", "acceleration",
        "velocity", "pressure", "temperature", "displacement", "constraint", "convection",
        "heatflux", "contact region", "contact pair", "cfd_bc", "material"};
    Records records;
    for (const QString& word : words) {
        records.push_back(find(word.toStdString()).front());
    }
    const QString expected = "silent_cmd(select " + words.join(" 2 ") + " 2 )";
    QCOMPARE(sent(records), expected);
    std::reverse(records.begin(), records.end());
    QCOMPARE(sent(records), expected);
    std::rotate(records.begin(), records.begin() + 7, records.end());
    QCOMPARE(sent(records), expected);
}

QString tst_select_command::ids_by_address(Records records)
{
    std::sort(records.begin(), records.end(), std::less<>());
    QString ids;
    for (TreeData* record : records) {
        ids += QString("%1 ").arg(record->id());
    }
    return ids;
}

void tst_select_command::idsOfAWordComeByAddress()
{
    Records records;
    for (const int id : {3, 1, -4, 2}) {
        records.push_back(mirror->model.find_fea_bc(TreeFeaBCData::FORCE, id));
    }
    QCOMPARE(sent(records), "silent_cmd(select force " + ids_by_address(records) + ')');
}

void tst_select_command::idsOfVeryManyRecordsComeByAddress_data()
{
    QTest::addColumn<bool>("is_shuffled");
    QTest::newRow("in any order") << true;
    QTest::newRow("in order") << false;
}

void tst_select_command::idsOfVeryManyRecordsComeByAddress()
{
    QFETCH(bool, is_shuffled);
    Records records;
    for (int id = 10; id < 5010; ++id) {
        mirror->observer().notify_sizing_source_created(id);
        records.push_back(mirror->model.find_sizing_source(id));
    }
    mirror->log.take();
    const QString expected = "silent_cmd(select sizing_source " + ids_by_address(records) + ')';
    if (is_shuffled) {
        std::shuffle(records.begin(), records.end(), std::mt19937(1));
        records.insert(records.end(), records.begin(), records.begin() + 100);
    } else {
        std::sort(records.begin(), records.end(), std::less<>());
    }
    QCOMPARE(sent(records), expected);
}

void tst_select_command::deselectionEndsInRemove()
{
    QCOMPARE(sent({find("sizing_source").front(), find("boundary_layer").front()}, false),
        "silent_cmd(select boundary_layer 2 sizing_source 2 remove)");
}

void tst_select_command::recordThatStandsTwiceIsWrittenOnce()
{
    TreeData* group = find("group").front();
    TreeData* body = find("body").front();
    QCOMPARE(sent({group, body, group, body, body}), "silent_cmd(select body 2 group 2 )");
}

void tst_select_command::sameIdOfTwoKindsIsWrittenTwice()
{
    const QString expected = "silent_cmd(select volume 2 group 2 )";
    QCOMPARE(sent({find("volume").front(), find("group").front()}), expected);
    QCOMPARE(sent({find("group").front(), find("volume").front()}), expected);
}

void tst_select_command::fluidConditionsShareOneWord()
{
    for (int type = TreeCfdBCData::AXIS; type <= TreeCfdBCData::WALL; ++type) {
        TreeCfdBCData* bc = mirror->model.find_cfd_bc(1 + type);
        QCOMPARE(int(bc->cfd_bc_type()), type);
        QCOMPARE(sent({bc}), QString("silent_cmd(select cfd_bc %1 )").arg(1 + type));
    }
}

void tst_select_command::materialsAndMediaShareOneWord()
{
    const QString line = sent({mirror->model.find_material(1), mirror->model.find_material(2)});
    QVERIFY(
        line == "silent_cmd(select material 1 2 )" || line == "silent_cmd(select material 2 1 )");
}

void tst_select_command::negativeIdKeepsItsSign()
{
    QCOMPARE(sent({mirror->model.find_group(-4)}), "silent_cmd(select group -4 )");
}

void tst_select_command::idIsThatOfTheMoment()
{
    TreeGroupData* group = mirror->model.find_group(2);
    mirror->observer().notify_entity_id_changed("group", 2, 1000000);
    mirror->log.take();
    QCOMPARE(sent({group}), "silent_cmd(select group 1000000 )");
}

void tst_select_command::longSelectionIsOneLine()
{
    Records records;
    for (int id = 1000; id < 11000; ++id) {
        mirror->observer().notify_sizing_source_created(id);
        records.push_back(mirror->model.find_sizing_source(id));
    }
    mirror->log.take();
    const QString line = sent(records);
    QCOMPARE(line.count("silent_cmd"), 1);
    QCOMPARE(line.count(' '), 2 + 10000);
}

void tst_select_command::recordsWithoutAWordSendNothing()
{
    QCOMPARE(sent({mirror->model.mesh_data().at(0)}), QString());
    QCOMPARE(sent({nullptr}), QString());
    QCOMPARE(sent({nullptr, mirror->model.mesh_data().at(0)}, false), QString());
    TreeData plain(1);
    QCOMPARE(sent({&plain}), QString());
}

void tst_select_command::recordsWithoutAWordAreDroppedFromTheOthers()
{
    QCOMPARE(sent({nullptr, find("group").front(), mirror->model.mesh_data().at(0)}),
        "silent_cmd(select group 2 )");
}

// It counts as geometry all the same, so that a line is sent.
void tst_select_command::unknownGeometryKindHasNoWord()
{
    TreeGeometryData stranger(TreeGeometryData::GeometryType(7), 1);
    QCOMPARE(sent({&stranger}), "silent_cmd(select )");
    QCOMPARE(sent({&stranger, find("body").front()}), "silent_cmd(select body 2 )");
}

void tst_select_command::selectionLeavesTheMirrorAlone()
{
    QSignalSpy spy(&mirror->model, &TreeModel::selection_changed);
    QCOMPARE(sent(find("group")), "silent_cmd(select group 2 )");
    QVERIFY(spy.isEmpty());
}

void tst_select_command::refusalIsIgnored()
{
    mirror->kernel.command_result = false;
    QCOMPARE(sent(find("group")), "silent_cmd(select group 2 )");
    QCOMPARE(sent(find("body")), "silent_cmd(select body 2 )");
}

void tst_select_command::exceptionPassesThrough()
{
    mirror->kernel.throw_at_call(0);
    QVERIFY_THROWS_EXCEPTION(KernelFailure, mirror->model.select_entities({}, true));
    mirror->log.take();
    QCOMPARE(sent(find("group")), "silent_cmd(select group 2 )");
}

void tst_select_command::nothingIsSentInsideASelectionSignal()
{
    connect(&mirror->model, &TreeModel::selection_changed, this,
        [&](const Records& records, bool selected) {
            mirror->model.select_entities(records, selected);
            mirror->model.select_entities({}, true);
        });
    mirror->observer().notify_entities_selected({{"group", 2}});
    QCOMPARE(mirror->log.take(), QStringList("selection_changed([group 2], true)"));
    QCOMPARE(sent(find("group")), "silent_cmd(select group 2 )");
}

void tst_select_command::everythingIsSentInsideOtherSignals()
{
    connect(&mirror->model, &TreeModel::group_added, this,
        [&](TreeGroupData* group) { mirror->model.select_entities({group}, true); });
    mirror->kernel.groups = {{"", 9}};
    mirror->model.refresh_model(false);
    QCOMPARE(mirror->log.take_only({"silent_cmd"}), QStringList("silent_cmd(select group 9 )"));
}

void tst_select_command::kernelMayAnswerInsideTheCommand()
{
    mirror->kernel.during("silent_cmd(select group 2 )", [&] {
        mirror->observer().notify_entities_selected({{"group", 2}});
    });
    QCOMPARE(
        sent(find("group")), "silent_cmd(select group 2 )\nselection_changed([group 2], true)");
}

void tst_select_command::unregisteredMirrorSends()
{
    mirror->model.disconnect_from_kesto();
    mirror->log.take();
    QCOMPARE(sent(find("group")), "silent_cmd(select group 2 )");
}

QTEST_GUILESS_MAIN(tst_select_command)
#include "tst_select_command.moc"
