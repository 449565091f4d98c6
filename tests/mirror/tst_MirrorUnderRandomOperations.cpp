#include "MirrorFacts.hpp"
#include "MirrorHistory.hpp"
#include "random_scripts.hpp"
#include "SignalPicture.hpp"

#include <algorithm>
#include <memory>
#include <QCoreApplication>
#include <QTest>
#include <support/MirrorText.hpp>
#include <treemodel/kernel/TreeModel.hpp>

namespace {

/// A mirror that follows a kernel, and a listener that follows the mirror.
struct Front
{
    TreeModel mirror;
    SignalPicture picture{mirror};

    Front() { mirror.connect_to_kesto(); }
    ~Front() { mirror.disconnect_from_kesto(); }
};

QString first_difference(const QStringList& actual, const QStringList& expected)
{
    const auto [ours, theirs] =
        std::mismatch(actual.begin(), actual.end(), expected.begin(), expected.end());
    if (ours == actual.end() && theirs == expected.end()) {
        return {};
    }
    return QStringLiteral("has \"%1\" in the place of \"%2\"")
        .arg(ours == actual.end() ? QStringLiteral("nothing") : *ours,
            theirs == expected.end() ? QStringLiteral("nothing") : *theirs);
}

QString mirror_difference(TreeModel& mirror)
{
    // Until then a replaced boundary condition shows in the links of its sets.
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    TreeModel fresh;
    fresh.refresh_model(false);
    const QString wrong =
        first_difference(without_history(mirror_text(mirror)), without_history(mirror_text(fresh)));
    return wrong.isEmpty() ? wrong : QStringLiteral("The mirror ") + wrong;
}

QString picture_difference(Front& front)
{
    const QString wrong = first_difference(front.picture.facts(), mirror_facts(front.mirror));
    return wrong.isEmpty() ? wrong : QStringLiteral("The listener ") + wrong;
}

// What is wrong after some part of the script; empty if nothing is.
QString run(const KernelScript& script, int interval)
{
    std::unique_ptr<Front> front;
    return script.run(interval, [&front](EmbeddedKernel&) {
        if (!front) {
            front = std::make_unique<Front>();
        }
        const QString wrong = mirror_difference(front->mirror);
        return wrong.isEmpty() ? picture_difference(*front) : wrong;
    });
}

void check(unsigned seed, int length, int interval)
{
    check_random_script(
        seed, length, [=](const KernelScript& script) { return run(script, interval); },
        [](const KernelScript& part) { return run(part, 1); });
}

} // namespace

/// TREEMODEL_TEST_SEEDS sets the number of short scripts, TREEMODEL_TEST_STEPS the length of
/// the long one.
class tst_MirrorUnderRandomOperations : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void mirrorAndListenerEqualTheKernelAfterEachStep();
    void mirrorAndListenerEqualTheKernelInTheLongRun();
};

void tst_MirrorUnderRandomOperations::mirrorAndListenerEqualTheKernelAfterEachStep()
{
    const int seeds = from_environment("TREEMODEL_TEST_SEEDS", 40);
    for (int seed = 1; seed <= seeds && !QTest::currentTestFailed(); ++seed) {
        check(unsigned(seed), 150, 1);
    }
}

void tst_MirrorUnderRandomOperations::mirrorAndListenerEqualTheKernelInTheLongRun()
{
    const int steps = from_environment("TREEMODEL_TEST_STEPS", 2'000);
    check(1'000'003, steps, std::max(1, steps / 20));
}

QTEST_GUILESS_MAIN(tst_MirrorUnderRandomOperations)
#include "tst_MirrorUnderRandomOperations.moc"
