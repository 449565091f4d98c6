#include "RandomOperations.hpp"
#include "TestModels.hpp"

#include <algorithm>
#include <QRegularExpression>
#include <QTest>
#include <support/GeometryText.hpp>
#include <treemodel/kernel/KestoInterface.hpp>
#include <treemodel/kernel/TreeModel.hpp>

namespace {

// "group 1 'Bolts' hidden: body 1, group 2"
QString group_text(TreeModel& model, TreeGroupData* group)
{
    QStringList members;
    for (TreeData* member : model.find_group_children(group)) {
        auto* const geometry = qobject_cast<TreeGeometryData*>(member);
        const std::string kind = geometry != nullptr
                                     ? TreeGeometryData::type_to_string(geometry->geometry_type())
                                     : "group";
        members << QStringLiteral("%1 %2").arg(QString::fromStdString(kind)).arg(member->id());
    }
    members.sort();
    return QStringLiteral("group %1 '%2'%3: %4")
        .arg(group->id())
        .arg(group->name(), group->is_visible() ? QString() : QStringLiteral(" hidden"),
            members.join(QStringLiteral(", ")));
}

// Takes out what a mirror that has followed the kernel knows otherwise than a fresh one: a body
// that has lost its last volume keeps its sheet flag, and a virtual entity without a name that is
// read for the second time is called " (v)".
QString without_history(QString line)
{
    static const QRegularExpression default_name(QStringLiteral("'[A-Z][a-z]+ \\d+ \\(v\\)'"));
    line.replace(default_name, QStringLiteral("' (v)'"));
    if (line.startsWith(QStringLiteral("body")) && !line.contains(u'>')) {
        line.remove(QStringLiteral(" sheet"));
    }
    return line;
}

QStringList text(TreeModel& model)
{
    QStringList lines = geometry_text(model);
    for (TreeGroupData* group : model.groups()) {
        lines << group_text(model, group);
    }
    std::transform(lines.begin(), lines.end(), lines.begin(), without_history);
    return lines;
}

QStringList fresh_text()
{
    TreeModel fresh;
    fresh.refresh_model(false);
    return text(fresh);
}

} // namespace

/// A mirror of the library over the embedded kernel.
class tst_EmbeddedMirror : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void openedModelFillsTheMirror();
    void importedModelIsAddedToTheMirror();
    void mirrorFollowsEveryOperation();
    void selectionGoesToTheKernelAndBack();
};

void tst_EmbeddedMirror::openedModelFillsTheMirror()
{
    EmbeddedKernel kernel;
    TreeModel model;
    model.connect_to_kesto();
    kernel.open_model(lattice(2, 2, 2), "eight.step");
    QCOMPARE(model.geometry(TreeGeometryData::VOLUME).size(), std::size_t(8));
    QCOMPARE(text(model), fresh_text());
    kernel.open_model(loose_ends(), "ends.step");
    QCOMPARE(model.geometry(TreeGeometryData::VOLUME).size(), std::size_t(1));
    QCOMPARE(model.groups().size(), std::size_t(2));
    QCOMPARE(text(model), fresh_text());
    kernel.clear();
    QCOMPARE(text(model), QStringList());
    model.disconnect_from_kesto();
}

void tst_EmbeddedMirror::importedModelIsAddedToTheMirror()
{
    EmbeddedKernel kernel;
    TreeModel model;
    model.connect_to_kesto();
    kernel.import_model(loose_ends());
    kernel.import_model(lattice(1, 2, 1));
    kernel.import_model(loose_ends());
    QCOMPARE(model.groups().size(), std::size_t(4));
    QCOMPARE(text(model), fresh_text());
    model.disconnect_from_kesto();
}

void tst_EmbeddedMirror::mirrorFollowsEveryOperation()
{
    for (unsigned seed = 100; seed < 120; ++seed) {
        EmbeddedKernel kernel;
        NaiveKernel naive;
        RandomOperations operations(seed);
        TreeModel model;
        model.connect_to_kesto();
        for (int step = 0; step < 300; ++step) {
            const QString operation = operations.run(kernel, naive);
            const QStringList actual = text(model);
            const QStringList expected = fresh_text();
            if (actual != expected) {
                const auto [first, second] =
                    std::mismatch(actual.begin(), actual.end(), expected.begin(), expected.end());
                QFAIL(qPrintable(
                    QStringLiteral("After '%1', step %2 of seed %3, the mirror has '%4', not '%5'.")
                        .arg(operation)
                        .arg(step)
                        .arg(seed)
                        .arg(first == actual.end() ? QString() : *first,
                            second == expected.end() ? QString() : *second)));
            }
        }
        model.disconnect_from_kesto();
    }
}

void tst_EmbeddedMirror::selectionGoesToTheKernelAndBack()
{
    EmbeddedKernel kernel;
    kernel.open_model(lattice(1, 1, 1), "cube.step");
    TreeModel model;
    model.connect_to_kesto();
    model.refresh_model(false);
    std::vector<TreeData*> reported;
    bool is_selection = false;
    connect(&model, &TreeModel::selection_changed, &model,
        [&](const std::vector<TreeData*>& entities, bool selected) {
            reported = entities;
            is_selection = selected;
        });
    TreeData* const body = model.find_geometry(TreeGeometryData::BODY, 1);

    model.select_entities({body}, true);
    QCOMPARE(reported, std::vector<TreeData*>{body});
    QVERIFY(is_selection);
    QCOMPARE(KestoInterface::current_selection_count(), 1);

    model.select_entities({}, true);
    QCOMPARE(reported, std::vector<TreeData*>{body});
    QVERIFY(!is_selection);
    QCOMPARE(KestoInterface::current_selection_count(), 0);
    model.disconnect_from_kesto();
}

QTEST_GUILESS_MAIN(tst_EmbeddedMirror)
#include "tst_EmbeddedMirror.moc"
