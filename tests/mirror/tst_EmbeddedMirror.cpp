#include "MirrorHistory.hpp"

#include <algorithm>
#include <QTest>
#include <RandomOperations.hpp>
#include <support/MirrorText.hpp>
#include <TestModels.hpp>
#include <treemodel/kernel/KestoInterface.hpp>
#include <treemodel/kernel/TreeModel.hpp>

namespace {

QStringList text(TreeModel& model)
{
    return without_history(mirror_text(model));
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
