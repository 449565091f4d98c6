#include <algorithm>
#include <climits>
#include <functional>
#include <QTest>
#include <support/GeometryText.hpp>
#include <support/WatchedMirror.hpp>

using KestoInterface::KIObserve;
using Action = std::function<void(WatchedMirror&)>;

namespace {

// As little as has shared, virtual, named and free entities: the runs below are many,
// and their work grows with the square of it.
void script_little_model(RecordingKernel& kernel)
{
    kernel.entities = {{"body", {1}}, {"volume", {1, 2}}, {"surface", {1, 2, 9}}, {"curve", {1, 2}},
        {"vertex", {1}}};
    kernel.free_entities = {{"surface", {9}}};
    kernel.relate("body", 1, "volume", {1, 2});
    kernel.relate("volume", 1, "surface", {1, 2});
    kernel.relate("volume", 2, "surface", {2});
    kernel.relate("surface", 2, "curve", {1, 2});
    kernel.relate("curve", 1, "vertex", {1});
    kernel.names = {{{"surface", 2}, "Interface"}};
    kernel.virtual_entities = {{"surface", 2}};
    kernel.sheet_volumes = {1};
}

void change_little_model(RecordingKernel& kernel)
{
    kernel.entities = {{"body", {1, 3}}, {"volume", {2, 3}}, {"surface", {1, 2, 5}},
        {"curve", {2, 3}}, {"vertex", {1}}};
    kernel.relatives.clear();
    kernel.relate("body", 1, "volume", {2});
    kernel.relate("body", 3, "volume", {3});
    kernel.relate("volume", 2, "surface", {1, 5});
    kernel.relate("volume", 3, "surface", {2, 1});
    kernel.relate("surface", 1, "curve", {2});
    kernel.relate("surface", 2, "curve", {3});
    kernel.relate("curve", 2, "vertex", {1});
    kernel.names[{"surface", 1}] = "Front";
    kernel.hidden = {{"surface", 2}};
}

// Tells of that change entity by entity.
void notify_change(WatchedMirror& mirror)
{
    KIObserve& observer = mirror.observer();
    observer.notify_volume_deleted(1);
    observer.notify_curve_deleted(1);
    observer.notify_volume_modified(3);
    observer.notify_volume_modified(2);
    observer.notify_surface_modified(5);
    observer.notify_surface_modified(2);
    observer.notify_body_created(3);
    observer.notify_body_modified(1);
    observer.notify_free_entities_changed();
}

// What happens to a mirror of the little model: what went before, and what is looked at.
struct Scenario
{
    Action prepare;
    Action run;
};

const std::map<QString, Scenario>& scenarios()
{
    static const Action nothing = [](WatchedMirror&) {};
    static const Action fill = [](WatchedMirror& it) { it.refresh(); };
    static const Action change = [](WatchedMirror& it) {
        it.refresh();
        change_little_model(it.kernel);
    };
    static const Action refresh = [](WatchedMirror& it) { it.model.refresh_model(false); };
    static const Action replace = [](WatchedMirror& it) { it.model.refresh_model(true); };
    static const std::map<QString, Scenario> table{
        {"first fill", {nothing, refresh}},
        {"refresh of a changed model", {change, refresh}},
        {"clearing refresh", {fill, replace}},
        {"notifications of a change", {change, notify_change}},
    };
    return table;
}

// Sends the notification for each id that the little model or its changed form has.
void for_each_id(WatchedMirror& mirror, void (KIObserve::*notify)(int))
{
    for (const int id : {1, 2, 3, 5, 9}) {
        (mirror.observer().*notify)(id);
    }
}

void delete_all(WatchedMirror& mirror)
{
    for_each_id(mirror, &KIObserve::notify_vertex_deleted);
    for_each_id(mirror, &KIObserve::notify_curve_deleted);
    for_each_id(mirror, &KIObserve::notify_surface_deleted);
    for_each_id(mirror, &KIObserve::notify_volume_deleted);
    for_each_id(mirror, &KIObserve::notify_body_deleted);
}

// Changes the id in all tables but those of names and flags.
void renumber(RecordingKernel& kernel, const std::string& word, int old_id, int new_id)
{
    const auto replace = [=](std::vector<int>& ids) {
        std::replace(ids.begin(), ids.end(), old_id, new_id);
    };
    replace(kernel.entities[word]);
    replace(kernel.free_entities[word]);
    auto relatives = std::exchange(kernel.relatives, {});
    for (auto& [key, ids] : relatives) {
        const auto& [source, id, target] = key;
        if (target == word) {
            replace(ids);
        }
        kernel.relatives[{source, source == word && id == old_id ? new_id : id, target}] = ids;
    }
}

// What a kernel or a receiver may do from inside a call or a signal.
const std::map<QString, Action>& interruptions()
{
    static const std::map<QString, Action> table{
        {"all is deleted", delete_all},
        {"all is deleted and made again",
            [](WatchedMirror& it) {
                delete_all(it);
                for_each_id(it, &KIObserve::notify_body_created);
                for_each_id(it, &KIObserve::notify_volume_created);
                for_each_id(it, &KIObserve::notify_surface_created);
                for_each_id(it, &KIObserve::notify_curve_created);
                for_each_id(it, &KIObserve::notify_vertex_created);
            }},
        {"all is modified",
            [](WatchedMirror& it) {
                for_each_id(it, &KIObserve::notify_surface_modified);
                for_each_id(it, &KIObserve::notify_volume_modified);
                for_each_id(it, &KIObserve::notify_body_modified);
            }},
        {"some ids change",
            [](WatchedMirror& it) {
                for (const auto& [word, id] :
                    {std::pair("volume", 2), std::pair("curve", 2), std::pair("vertex", 1)}) {
                    renumber(it.kernel, word, id, id + 100);
                    it.observer().notify_entity_id_changed(word, id, id + 100);
                }
            }},
        {"some ids change by deletion",
            [](WatchedMirror& it) {
                renumber(it.kernel, "surface", 1, 101);
                it.observer().notify_surface_deleted(1);
                it.observer().notify_surface_created(101);
                renumber(it.kernel, "curve", 2, 102);
                it.observer().notify_curve_deleted(2);
                it.observer().notify_curve_created(102);
            }},
        {"lost entities are pruned",
            [](WatchedMirror& it) { it.observer().notify_free_entities_changed(); }},
        {"the model is reset", [](WatchedMirror& it) { it.observer().notify_model_reset(); }},
        {"the model is replaced", [](WatchedMirror& it) { it.observer().notify_model_replaced(); }},
        {"the model is emptied",
            [](WatchedMirror& it) {
                it.kernel.entities.clear();
                it.kernel.relatives.clear();
                it.observer().notify_model_reset();
            }},
        {"a refresh is asked for",
            [](WatchedMirror& it) { it.observer().notify_model_refresh_requested(); }},
    };
    return table;
}

// The events of an undisturbed run.
QStringList events_of(const Scenario& scenario)
{
    WatchedMirror mirror;
    script_little_model(mirror.kernel);
    scenario.prepare(mirror);
    mirror.log.take();
    scenario.run(mirror);
    return mirror.log.take();
}

// How the mirror differs, after one more refresh, from one that has just been made.
QString difference_after_refresh(WatchedMirror& mirror)
{
    mirror.model.refresh_model(false);
    TreeModel fresh;
    fresh.refresh_model(false);
    const QStringList actual = geometry_text(mirror.model);
    const QStringList expected = geometry_text(fresh);
    return actual == expected
               ? QString()
               : "mirror:\n" + actual.join('\n') + "\nshould be:\n" + expected.join('\n');
}

} // namespace

class tst_geometry_failures : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void exceptionPassesThroughAtAnyEvent_data();
    void exceptionPassesThroughAtAnyEvent();
    void anythingMayHappenAtAnyEvent_data();
    void anythingMayHappenAtAnyEvent();

    void recordThatGoesIsAskedAboutNoMore_data();
    void recordThatGoesIsAskedAboutNoMore();

    void unsortedAndRepeatedIdsMakeTheSameMirror();
    void idsThatTheKernelDoesNotListAreDropped();
    void anyIdIsMirrored();
    void anyNameIsTaken_data();
    void anyNameIsTaken();
};

void tst_geometry_failures::exceptionPassesThroughAtAnyEvent_data()
{
    QTest::addColumn<QString>("scenario");
    for (const auto& [name, scenario] : scenarios()) {
        QTest::newRow(qPrintable(name)) << name;
    }
}

void tst_geometry_failures::exceptionPassesThroughAtAnyEvent()
{
    QFETCH(QString, scenario);
    const auto& [prepare, run] = scenarios().at(scenario);
    const QStringList events = events_of(scenarios().at(scenario));
    for (int i = 0; i < events.size(); ++i) {
        // No exception may leave a destructor.
        if (events.at(i).contains("treedata_destroyed")) {
            continue;
        }
        WatchedMirror mirror;
        script_little_model(mirror.kernel);
        prepare(mirror);
        mirror.log.interrupt(i, [] { throw KernelFailure("at this event"); });

        QVERIFY_EXCEPTION_THROWN(run(mirror), KernelFailure);

        const QString difference = difference_after_refresh(mirror);
        QVERIFY2(difference.isEmpty(),
            qPrintable(QString("thrown at event %1, %2\n%3").arg(i).arg(events.at(i), difference)));
    }
}

void tst_geometry_failures::anythingMayHappenAtAnyEvent_data()
{
    QTest::addColumn<QString>("scenario");
    QTest::addColumn<QString>("interruption");
    for (const auto& [name, scenario] : scenarios()) {
        for (const auto& [what, action] : interruptions()) {
            QTest::addRow("%s, %s", qPrintable(name), qPrintable(what)) << name << what;
        }
    }
}

void tst_geometry_failures::anythingMayHappenAtAnyEvent()
{
    QFETCH(QString, scenario);
    QFETCH(QString, interruption);
    const auto& [prepare, run] = scenarios().at(scenario);
    const Action& action = interruptions().at(interruption);
    const QStringList events = events_of(scenarios().at(scenario));
    bool clearing = false;
    for (int i = 0; i < events.size(); ++i) {
        // While the records of a clear die, their model must be left alone.
        clearing = events.at(i).startsWith("about_to_clear") ||
                   (clearing && events.at(i).contains("treedata_destroyed"));
        if (clearing && events.at(i).contains("treedata_destroyed")) {
            continue;
        }
        WatchedMirror mirror;
        script_little_model(mirror.kernel);
        prepare(mirror);
        mirror.log.interrupt(i, [&] { action(mirror); });

        run(mirror);

        const QString difference = difference_after_refresh(mirror);
        QVERIFY2(difference.isEmpty(),
            qPrintable(
                QString("interrupted at event %1, %2\n%3").arg(i).arg(events.at(i), difference)));
    }
}

void tst_geometry_failures::recordThatGoesIsAskedAboutNoMore_data()
{
    QTest::addColumn<QStringList>("events");
    WatchedMirror mirror;
    mirror.kernel.relate("body", 4, "volume", {5});
    mirror.observer().notify_body_created(4);
    const QStringList events = mirror.log.take();
    for (int i = 0; !events.at(i).startsWith("geometry_added(volume"); ++i) {
        QTest::addRow("%d, in %s", i, qPrintable(events.at(i))) << events.mid(0, i + 1);
    }
}

void tst_geometry_failures::recordThatGoesIsAskedAboutNoMore()
{
    QFETCH(QStringList, events);
    WatchedMirror mirror;
    mirror.kernel.relate("body", 4, "volume", {5});
    mirror.log.interrupt(int(events.size()) - 1, [&] { mirror.observer().notify_body_deleted(4); });

    mirror.observer().notify_body_created(4);

    QCOMPARE(mirror.log.take(),
        events + QStringList({"geometry_removed(body 4)", "body 4: treedata_destroyed(body 4)"}));
}

void tst_geometry_failures::unsortedAndRepeatedIdsMakeTheSameMirror()
{
    WatchedMirror mirror;
    script_small_model(mirror.kernel);
    mirror.refresh();
    const QStringList expected = geometry_text(mirror.model);
    const auto disorder = [](std::vector<int>& ids) {
        // The first of a body's volumes tells whether it is a sheet, so it stays in front.
        const std::vector<int> backwards(ids.rbegin(), ids.rend());
        ids.insert(ids.end(), backwards.begin(), backwards.end());
        ids.insert(ids.end(), backwards.begin(), backwards.end());
    };
    for (auto& [word, ids] : mirror.kernel.entities) {
        disorder(ids);
    }
    for (auto& [key, ids] : mirror.kernel.relatives) {
        if (std::get<0>(key) != "body") { // whose number of volumes counts
            disorder(ids);
        }
    }

    mirror.refresh();
    QCOMPARE(geometry_text(mirror.model), expected);
    mirror.model.refresh_model(true);
    QCOMPARE(geometry_text(mirror.model), expected);
}

void tst_geometry_failures::idsThatTheKernelDoesNotListAreDropped()
{
    WatchedMirror mirror;
    script_small_model(mirror.kernel);
    mirror.refresh();
    const QStringList expected = geometry_text(mirror.model);
    for (auto& [key, ids] : mirror.kernel.relatives) {
        ids.push_back(77);
    }
    mirror.kernel.relatives[{"volume", 77, "surface"}] = {1, 77};

    for (const bool clear : {false, true}) {
        mirror.model.refresh_model(clear);
        QStringList actual = geometry_text(mirror.model);
        actual[1].replace(" multi", ""); // it names two volumes
        QCOMPARE(actual, expected);
    }
}

void tst_geometry_failures::anyIdIsMirrored()
{
    WatchedMirror mirror;
    mirror.kernel.entities = {{"surface", {0, INT_MIN, INT_MAX, -1}}, {"curve", {INT_MIN, 0}}};
    mirror.kernel.relate("surface", INT_MIN, "curve", {0, INT_MIN});
    mirror.refresh();
    QCOMPARE(geometry_text(mirror.model),
        QStringList({"surface -2147483648 'Surface -2147483648' > curve -2147483648, curve 0",
            "surface -1 'Surface -1'", "surface 0 'Surface 0'",
            "surface 2147483647 'Surface 2147483647'",
            "curve -2147483648 'Curve -2147483648' < surface -2147483648",
            "curve 0 'Curve 0' < surface -2147483648"}));
}

void tst_geometry_failures::anyNameIsTaken_data()
{
    QTest::addColumn<std::string>("name");
    QTest::addColumn<QString>("shown");
    const QString replacement(QChar::ReplacementCharacter);
    QTest::newRow("zero byte inside") << std::string("a\0z", 3) << "a";
    QTest::newRow("zero byte first") << std::string("\0z", 2) << "Surface 4";
    QTest::newRow("byte of no sequence") << std::string("a\xFFz") << 'a' + replacement + 'z';
    QTest::newRow("sequence cut off") << std::string("a\xC3") << 'a' + replacement;
    QTest::newRow("sequence broken off") << std::string("a\xC3z") << 'a' + replacement + 'z';
    QTest::newRow("sequence cut by a zero byte")
        << std::string("a\xC3\0\xA4", 4) << 'a' + replacement;
    QTest::newRow("controls and line breaks") << std::string("a\n\t\x01z") << QString("a\n\t\x01z");
    QTest::newRow("blanks") << std::string("  ") << "  ";
    QTest::newRow("percent sign") << std::string("%1 %2") << "%1 %2";
    QTest::newRow("mark of a virtual record") << std::string("a (v)") << "a";
    QTest::newRow("a million letters")
        << std::string(1'000'000, 'a') << QString(1'000'000, QLatin1Char('a'));
}

void tst_geometry_failures::anyNameIsTaken()
{
    QFETCH(std::string, name);
    WatchedMirror mirror;
    mirror.kernel.entities = {{"surface", {4}}};
    mirror.kernel.names[{"surface", 4}] = name;
    mirror.refresh();
    QTEST(mirror.model.find_geometry(TreeGeometryData::SURFACE, 4)->name(), "shown");

    mirror.model.refresh_model(false);
    QVERIFY2(mirror.log.take_only({"surface 4: name_changed"}).isEmpty(),
        "the same name has not changed");
}

QTEST_GUILESS_MAIN(tst_geometry_failures)
#include "tst_geometry_failures.moc"
