#include <algorithm>
#include <climits>
#include <functional>
#include <QCoreApplication>
#include <QTest>
#include <support/FullModel.hpp>
#include <support/MirrorText.hpp>

using KestoInterface::KIObserve;
using Action = std::function<void(FullMirror&)>;

namespace {

// Fluid conditions leave with the event loop.
void delete_outgoing_records()
{
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

// What happens to a mirror of the full model: what went before, and what is looked at.
struct Scenario
{
    Action prepare;
    Action run;
};

void notify_change(KIObserve& observer)
{
    observer.notify_volume_deleted(2);
    observer.notify_surface_deleted(1);
    observer.notify_vertex_deleted(1);
    observer.notify_body_modified(1);
    observer.notify_volume_modified(3);
    observer.notify_surface_modified(3);
    observer.notify_curve_created(2);
    observer.notify_free_entities_changed();
    observer.notify_sizing_source_deleted(1);
    observer.notify_sizing_source_created(3);
    observer.notify_boundary_layer_deleted(3);
    observer.notify_boundary_layer_created(2);
    observer.notify_group_deleted(2);
    observer.notify_group_created(4);
    observer.notify_group_modified(1);
    observer.notify_entity_name_changed("group", 1);
    observer.notify_entity_visibility_changed("group", 3);
    observer.notify_exodus_entity_modified("block", 1, "delete");
    observer.notify_exodus_entity_modified("sideset", 2, "delete");
    observer.notify_exodus_entity_modified("sideset", 3, "create");
    observer.notify_exodus_entity_modified("block", 2, "modify");
    observer.notify_exodus_visibility_changed("block", 2);
    observer.notify_fea_bc_modified("force", 1, "delete");
    observer.notify_fea_bc_modified("force", 3, "create");
    observer.notify_fea_bc_modified("force", 2, "modify");
    observer.notify_bc_modified("inletvent", 4, "create");
    observer.notify_bc_modified("wall", 1, "modify");
    observer.notify_material_modified(1, "delete");
    observer.notify_material_modified(2, "modify");
    observer.notify_medium_modified(3, "create");
    observer.notify_entities_selected({{"surface", 3}, {"group", 4}, {"wall", 1}});
}

const std::map<QString, Scenario>& scenarios()
{
    static const Action fill = [](FullMirror& it) { it.refresh(); };
    static const Action change = [](FullMirror& it) {
        it.refresh();
        change_full_model(it);
    };
    static const Action refresh = [](FullMirror& it) { it.model.refresh_model(false); };
    static const std::map<QString, Scenario> table{
        {"first fill", {[](FullMirror&) {}, refresh}},
        {"steady refresh", {fill, refresh}},
        {"refresh of a changed model", {change, refresh}},
        {"clearing refresh", {change, [](FullMirror& it) { it.model.refresh_model(true); }}},
        {"notifications of a change",
            {change, [](FullMirror& it) { notify_change(it.observer()); }}},
    };
    return table;
}

// Sends the notification for each id that the full model or its changed form has.
void for_each_id(FullMirror& mirror, void (KIObserve::*notify)(int))
{
    for (int id = 1; id <= 4; ++id) {
        (mirror.observer().*notify)(id);
    }
}

void for_each_simulation_entity(FullMirror& mirror, const char* action)
{
    for (int id = 1; id <= 4; ++id) {
        for (const char* type : {"block", "sideset", "nodeset"}) {
            mirror.observer().notify_exodus_entity_modified(type, id, action);
        }
        mirror.observer().notify_fea_bc_modified("force", id, action);
        mirror.observer().notify_fea_bc_modified("contact pair", id, action);
        // Fluid conditions have one range of ids.
        mirror.observer().notify_bc_modified(id < 3 ? "wall" : "inletvent", id, action);
        mirror.observer().notify_material_modified(id, action);
    }
}

void delete_all(FullMirror& mirror)
{
    for_each_id(mirror, &KIObserve::notify_vertex_deleted);
    for_each_id(mirror, &KIObserve::notify_curve_deleted);
    for_each_id(mirror, &KIObserve::notify_surface_deleted);
    for_each_id(mirror, &KIObserve::notify_volume_deleted);
    for_each_id(mirror, &KIObserve::notify_body_deleted);
    for_each_id(mirror, &KIObserve::notify_group_deleted);
    for_each_id(mirror, &KIObserve::notify_sizing_source_deleted);
    for_each_id(mirror, &KIObserve::notify_boundary_layer_deleted);
    for_each_simulation_entity(mirror, "delete");
}

void create_all(FullMirror& mirror)
{
    for_each_id(mirror, &KIObserve::notify_body_created);
    for_each_id(mirror, &KIObserve::notify_volume_created);
    for_each_id(mirror, &KIObserve::notify_surface_created);
    for_each_id(mirror, &KIObserve::notify_curve_created);
    for_each_id(mirror, &KIObserve::notify_vertex_created);
    for_each_id(mirror, &KIObserve::notify_group_created);
    for_each_id(mirror, &KIObserve::notify_sizing_source_created);
    for_each_id(mirror, &KIObserve::notify_boundary_layer_created);
    for_each_simulation_entity(mirror, "create");
}

void modify_all(FullMirror& mirror)
{
    for_each_id(mirror, &KIObserve::notify_surface_modified);
    for_each_id(mirror, &KIObserve::notify_volume_modified);
    for_each_id(mirror, &KIObserve::notify_body_modified);
    for_each_id(mirror, &KIObserve::notify_group_modified);
    for_each_simulation_entity(mirror, "modify");
}

void replace(std::vector<int>& ids, int old_id, int new_id)
{
    std::replace(ids.begin(), ids.end(), old_id, new_id);
}

template <typename Key, typename Value>
void rename_key(std::map<Key, Value>& table, const Key& old_key, const Key& new_key)
{
    if (auto node = table.extract(old_key)) {
        node.key() = new_key;
        table.insert(std::move(node));
    }
}

// Renames the id in all tables that the full model fills for it, but for its name and flags.
void renumber_geometry(RecordingKernel& kernel, const std::string& word, int old_id, int new_id)
{
    replace(kernel.entities[word], old_id, new_id);
    replace(kernel.free_entities[word], old_id, new_id);
    auto relatives = std::exchange(kernel.relatives, {});
    for (auto& [key, ids] : relatives) {
        const auto& [source, id, target] = key;
        if (target == word) {
            replace(ids, old_id, new_id);
        }
        kernel.relatives[{source, source == word && id == old_id ? new_id : id, target}] = ids;
    }
}

void renumber_group(RecordingKernel& kernel, int old_id, int new_id)
{
    for (auto& [name, id] : kernel.groups) {
        id = id == old_id ? new_id : id;
    }
    rename_key(kernel.group_contents, old_id, new_id);
    for (auto& [id, contents] : kernel.group_contents) {
        replace(contents.members[0], old_id, new_id);
    }
}

void renumber_bc(RecordingKernel& kernel, int code, int old_id, int new_id)
{
    replace(kernel.bc_ids[code], old_id, new_id);
    rename_key(kernel.sidesets_of_bc, {code, old_id}, {code, new_id});
    rename_key(kernel.nodesets_of_bc, {code, old_id}, {code, new_id});
}

void renumber_some(RecordingKernel& kernel)
{
    renumber_geometry(kernel, "surface", 2, 102);
    renumber_geometry(kernel, "curve", 1, 101);
    renumber_group(kernel, 1, 101);
    renumber_group(kernel, 3, 103);
    renumber_bc(kernel, KestoInterface::BC_FORCE, 2, 102);
    renumber_bc(kernel, KestoInterface::BC_WALL, 1, 101);
}

// What a kernel or a receiver may do from inside a call or a signal.
const std::map<QString, Action>& interruptions()
{
    static const std::map<QString, Action> table{
        {"all is deleted", delete_all},
        {"all is deleted and made again",
            [](FullMirror& it) {
                delete_all(it);
                create_all(it);
            }},
        {"all is modified", modify_all},
        {"some ids change",
            [](FullMirror& it) {
                renumber_some(it.kernel);
                for (const auto& [word, id] :
                    {std::pair("surface", 2), std::pair("curve", 1), std::pair("group", 1),
                        std::pair("group", 3), std::pair("force", 2), std::pair("wall", 1)}) {
                    it.observer().notify_entity_id_changed(word, id, id + 100);
                }
            }},
        {"some ids change by deletion",
            [](FullMirror& it) {
                renumber_some(it.kernel);
                it.observer().notify_surface_deleted(2);
                it.observer().notify_surface_created(102);
                it.observer().notify_curve_deleted(1);
                it.observer().notify_curve_created(101);
                it.observer().notify_group_deleted(1);
                it.observer().notify_group_created(101);
                it.observer().notify_bc_modified("force", 2, "delete");
                it.observer().notify_bc_modified("force", 102, "create");
                it.observer().notify_bc_modified("wall", 1, "delete");
                it.observer().notify_bc_modified("wall", 101, "create");
            }},
        {"a condition changes its kind",
            [](FullMirror& it) {
                it.observer().notify_bc_modified("axis", 1, "modify");
                it.observer().notify_bc_modified("wall", 1, "modify");
                it.observer().notify_bc_modified("wall", 1, "modify");
            }},
        {"the event loop runs", [](FullMirror&) { delete_outgoing_records(); }},
        {"a selection goes both ways",
            [](FullMirror& it) {
                std::vector<TreeData*> records{it.model.find_group(1)};
                for (TreeData* member : it.model.find_group_children(it.model.find_group(1))) {
                    records.push_back(member);
                }
                it.model.select_entities(records, true);
                it.observer().notify_entities_deselected({{"group", 2}, {"surface", 2}});
            }},
        {"lost entities are pruned",
            [](FullMirror& it) { it.observer().notify_free_entities_changed(); }},
        {"the model is reset", [](FullMirror& it) { it.observer().notify_model_reset(); }},
        {"the model is replaced", [](FullMirror& it) { it.observer().notify_model_replaced(); }},
        {"the model is emptied",
            [](FullMirror& it) {
                it.kernel.entities.clear();
                it.kernel.relatives.clear();
                it.kernel.groups.clear();
                it.kernel.exodus_ids.clear();
                it.kernel.bc_ids.clear();
                it.kernel.material_component = nullptr;
                it.observer().notify_model_reset();
            }},
        {"a refresh is asked for",
            [](FullMirror& it) { it.observer().notify_model_refresh_requested(); }},
    };
    return table;
}

// The events of an undisturbed run.
QStringList events_of(const Scenario& scenario)
{
    FullMirror mirror;
    script_full_model(mirror);
    scenario.prepare(mirror);
    mirror.log.take();
    scenario.run(mirror);
    return mirror.log.take();
}

// The kernel is asked for 33 kinds of condition: one question in each row of them is enough.
bool is_one_of_a_row(const QStringList& events, int i)
{
    return events.at(i).startsWith("get_bc_id_list") &&
           events.value(i + 1).startsWith("get_bc_id_list");
}

bool is_inside_a_destructor(const QStringList& events, int i)
{
    const auto tells_of_death = [&](int event) {
        return events.value(event).contains("treedata_destroyed");
    };
    return tells_of_death(i) ||
           (tells_of_death(i - 1) && events.at(i).startsWith("mesh_data_removed"));
}

// While the records of a clear die, their model must be left alone.
bool is_inside_a_clear(const QStringList& events, int i)
{
    if (!is_inside_a_destructor(events, i)) {
        return false;
    }
    while (is_inside_a_destructor(events, i)) {
        --i;
    }
    return events.value(i).startsWith("about_to_clear");
}

// How the mirror differs, after one more refresh, from one that has just been made.
QString difference_after_refresh(FullMirror& mirror, bool clear = false)
{
    delete_outgoing_records();
    mirror.model.refresh_model(clear);
    TreeModel fresh;
    fresh.refresh_model(false);
    const QStringList actual = mirror_text(mirror.model);
    const QStringList expected = mirror_text(fresh);
    QStringList lines;
    for (const QString& line : actual) {
        if (!expected.contains(line)) {
            lines << "is:        " + line;
        }
    }
    for (const QString& line : expected) {
        if (!actual.contains(line)) {
            lines << "should be: " + line;
        }
    }
    return lines.join('\n');
}

// Every event of a run takes its time; of those of a change by others, the ordinary test
// takes each seventh, another seventh for each row.
int stride()
{
    return qEnvironmentVariableIsSet("TREEMODEL_TEST_ALL_EVENTS") ? 1 : 7;
}

} // namespace

class tst_kernel_failures : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void exceptionPassesThroughAtAnyEvent_data();
    void exceptionPassesThroughAtAnyEvent();
    void anythingMayHappenAtAnyEvent_data();
    void anythingMayHappenAtAnyEvent();
    void takenIdsMayBeGivenAtAnyEvent_data();
    void takenIdsMayBeGivenAtAnyEvent();

    void unsortedAndRepeatedIdsMakeTheSameMirror();
    void idsThatTheKernelDoesNotListAreDropped();
    void anyIdIsMirrored();
    void anyNameIsTaken_data();
    void anyNameIsTaken();
};

void tst_kernel_failures::exceptionPassesThroughAtAnyEvent_data()
{
    QTest::addColumn<QString>("scenario");
    for (const auto& [name, scenario] : scenarios()) {
        QTest::newRow(qPrintable(name)) << name;
    }
}

void tst_kernel_failures::exceptionPassesThroughAtAnyEvent()
{
    QFETCH(QString, scenario);
    const auto& [prepare, run] = scenarios().at(scenario);
    const QStringList events = events_of(scenarios().at(scenario));
    for (int i = 0; i < events.size(); ++i) {
        // No exception may leave a destructor.
        if (is_inside_a_destructor(events, i) || is_one_of_a_row(events, i)) {
            continue;
        }
        FullMirror mirror;
        script_full_model(mirror);
        prepare(mirror);
        mirror.log.interrupt(i, [] { throw KernelFailure("at this event"); });

        QVERIFY_THROWS_EXCEPTION(KernelFailure, run(mirror));

        const QString difference = difference_after_refresh(mirror);
        QVERIFY2(difference.isEmpty(),
            qPrintable(QString("thrown at event %1, %2\n%3").arg(i).arg(events.at(i), difference)));
    }
}

void tst_kernel_failures::anythingMayHappenAtAnyEvent_data()
{
    QTest::addColumn<QString>("scenario");
    QTest::addColumn<QString>("interruption");
    QTest::addColumn<int>("first");
    int row = 0;
    for (const auto& [name, scenario] : scenarios()) {
        for (const auto& [what, action] : interruptions()) {
            QTest::addRow("%s, %s", qPrintable(name), qPrintable(what))
                << name << what << row++ % stride();
        }
    }
}

void tst_kernel_failures::anythingMayHappenAtAnyEvent()
{
    QFETCH(QString, scenario);
    QFETCH(QString, interruption);
    const auto& [prepare, run] = scenarios().at(scenario);
    QFETCH(int, first);
    const Action& action = interruptions().at(interruption);
    const QStringList events = events_of(scenarios().at(scenario));
    for (int i = first; i < events.size(); i += stride()) {
        if (is_inside_a_clear(events, i) || is_one_of_a_row(events, i)) {
            continue;
        }
        FullMirror mirror;
        script_full_model(mirror);
        prepare(mirror);
        mirror.log.interrupt(i, [&] { action(mirror); });

        run(mirror);

        const QString difference = difference_after_refresh(mirror);
        QVERIFY2(difference.isEmpty(),
            qPrintable(
                QString("interrupted at event %1, %2\n%3").arg(i).arg(events.at(i), difference)));
    }
}

void tst_kernel_failures::takenIdsMayBeGivenAtAnyEvent_data()
{
    exceptionPassesThroughAtAnyEvent_data();
}

// A displaced record stays alive and linked, so that only a clearing refresh ends it.
void tst_kernel_failures::takenIdsMayBeGivenAtAnyEvent()
{
    QFETCH(QString, scenario);
    const auto& [prepare, run] = scenarios().at(scenario);
    const QStringList events = events_of(scenarios().at(scenario));
    for (int i = 0; i < events.size(); i += stride()) {
        if (is_inside_a_destructor(events, i) || is_one_of_a_row(events, i)) {
            continue;
        }
        FullMirror mirror;
        script_full_model(mirror);
        prepare(mirror);
        mirror.log.interrupt(i, [&] {
            mirror.observer().notify_entity_id_changed("group", 1, 2);
            mirror.observer().notify_entity_id_changed("group", 3, 1);
            mirror.observer().notify_entity_id_changed("force", 1, 2);
            mirror.observer().notify_entity_id_changed("wall", 1, 3);
        });

        run(mirror);

        const QString difference = difference_after_refresh(mirror, true);
        QVERIFY2(difference.isEmpty(),
            qPrintable(
                QString("interrupted at event %1, %2\n%3").arg(i).arg(events.at(i), difference)));
    }
}

void tst_kernel_failures::unsortedAndRepeatedIdsMakeTheSameMirror()
{
    FullMirror mirror;
    script_full_model(mirror);
    mirror.refresh();
    const QStringList expected = mirror_text(mirror.model);
    const auto disorder = [](std::vector<int>& ids) {
        const std::vector<int> backwards(ids.rbegin(), ids.rend());
        ids.insert(ids.begin(), backwards.begin(), backwards.end());
    };
    RecordingKernel& kernel = mirror.kernel;
    disorder(kernel.sizing_sources);
    disorder(kernel.boundary_layers);
    for (auto& [id, contents] : kernel.group_contents) {
        std::for_each(contents.members.begin(), contents.members.end(), disorder);
    }
    kernel.groups.insert(kernel.groups.end(), kernel.groups.rbegin(), kernel.groups.rend());
    for (auto& [word, ids] : kernel.exodus_ids) {
        disorder(ids);
    }
    for (auto* table : {&kernel.sidesets_of_bc, &kernel.nodesets_of_bc}) {
        for (auto& [condition, ids] : *table) {
            disorder(ids);
        }
    }
    for (auto& [code, ids] : kernel.bc_ids) {
        disorder(ids);
    }
    auto& materials = mirror.materials.materials;
    materials.insert(materials.end(), {materials[1], materials[0]});

    for (const bool clear : {false, true}) {
        mirror.model.refresh_model(clear);
        QCOMPARE(mirror_text(mirror.model), expected);
    }
}

void tst_kernel_failures::idsThatTheKernelDoesNotListAreDropped()
{
    FullMirror mirror;
    script_full_model(mirror);
    mirror.refresh();
    const QStringList expected = mirror_text(mirror.model);
    for (auto& [id, contents] : mirror.kernel.group_contents) {
        for (std::vector<int>& ids : contents.members) {
            ids.push_back(77);
        }
    }
    for (auto* table : {&mirror.kernel.sidesets_of_bc, &mirror.kernel.nodesets_of_bc}) {
        for (auto& [condition, ids] : *table) {
            ids.insert(ids.begin(), 77);
        }
    }
    mirror.kernel.group_contents[77] = {{{{1}, {1}, {}, {}, {}, {}}}, {1}};
    mirror.kernel.selection.assign({{"group", 77}, {"block", 77}, {"wall", 77}});

    for (const bool clear : {false, true}) {
        mirror.model.refresh_model(clear);
        QCOMPARE(mirror_text(mirror.model), expected);
    }
    QCOMPARE(mirror.log.take_only({"selection_changed"}), QStringList());
}

void tst_kernel_failures::anyIdIsMirrored()
{
    FullMirror mirror;
    RecordingKernel& kernel = mirror.kernel;
    const std::vector<int> ids{INT_MAX, 0, -1, INT_MIN};
    kernel.sizing_sources = kernel.boundary_layers = ids;
    for (const int id : ids) {
        kernel.groups.emplace_back("", id);
        mirror.materials.materials.push_back({id, id == 0});
    }
    kernel.exodus_ids["sideset"] = ids;
    kernel.bc_ids = {{KestoInterface::BC_FORCE, ids}, {KestoInterface::BC_WALL, ids}};
    kernel.sidesets_of_bc[{KestoInterface::BC_WALL, INT_MIN}] = ids;
    mirror.refresh();
    const QStringList lines = mirror_text(mirror.model);
    QCOMPARE(lines.size(), 4 * 7);
    QVERIFY(lines.contains("group -2147483648 'Entity -2147483648'"));
    QVERIFY(lines.contains("wall -2147483648 'cfd_bc' > sideset -1, sideset -2147483648, "
                           "sideset 0, sideset 2147483647"));
}

void tst_kernel_failures::anyNameIsTaken_data()
{
    QTest::addColumn<std::string>("name");
    QTest::addColumn<QString>("shown");
    const QString replacement(QChar::ReplacementCharacter);
    QTest::newRow("zero byte inside") << std::string("a\0z", 3) << "a";
    QTest::newRow("zero byte first") << std::string("\0z", 2) << QString();
    QTest::newRow("byte of no sequence") << std::string("a\xFFz") << 'a' + replacement + 'z';
    QTest::newRow("sequence cut off") << std::string("a\xC3") << 'a' + replacement;
    QTest::newRow("percent sign") << std::string("%1 %2") << "%1 %2";
    QTest::newRow("a million letters")
        << std::string(1'000'000, 'a') << QString(1'000'000, QLatin1Char('a'));
}

void tst_kernel_failures::anyNameIsTaken()
{
    QFETCH(std::string, name);
    QFETCH(QString, shown);
    FullMirror mirror;
    mirror.kernel.groups = {{name, 4}};
    mirror.kernel.exodus_ids["block"] = {4};
    mirror.kernel.bc_ids = {{KestoInterface::BC_FORCE, {4}}, {KestoInterface::BC_WALL, {4}}};
    mirror.materials.materials = {{4, false}, {5, true}};
    mirror.kernel.names[{"group", 4}] = name;
    for (const char* word : {"block", "force", "wall", "material"}) {
        mirror.kernel.exodus_names[{word, 4}] = name;
    }
    mirror.kernel.exodus_names[{"media", 5}] = name;
    mirror.refresh();

    const auto expected = [&](const char* default_name) {
        return shown.isEmpty() ? QString(default_name) : shown;
    };
    TreeModel& model = mirror.model;
    QCOMPARE(model.find_group(4)->name(), expected("Entity 4"));
    QCOMPARE(model.find_exodus(TreeExodusData::BLOCK, 4)->name(), expected("Block 4"));
    QCOMPARE(model.find_fea_bc(TreeFeaBCData::FORCE, 4)->name(), expected("Force"));
    QCOMPARE(model.find_cfd_bc(4)->name(), expected("cfd_bc"));
    QCOMPARE(model.find_material(4)->name(), expected("Material"));
    QCOMPARE(model.find_material(5)->name(), expected("Media"));

    model.refresh_model(false);
    QVERIFY2(mirror.log.take().filter("name_changed").isEmpty(), "the same name has not changed");
}

QTEST_GUILESS_MAIN(tst_kernel_failures)
#include "tst_kernel_failures.moc"
