#include "NaiveKernel.hpp"
#include "PlainMirror.hpp"
#include "RandomOperations.hpp"
#include "TestModels.hpp"

#include <algorithm>
#include <embedded/EmbeddedKernel.hpp>
#include <QTest>
#include <stdexcept>

using namespace KestoInterface;

namespace {

constexpr int seeds = 12;

// The first difference of two dumps, empty if there is none.
QString difference(const QStringList& actual, const QStringList& expected)
{
    const auto [first, second] =
        std::mismatch(actual.begin(), actual.end(), expected.begin(), expected.end());
    if (first == actual.end() && second == expected.end()) {
        return {};
    }
    return QStringLiteral("has '%1' instead of '%2'")
        .arg(first == actual.end() ? QString() : *first,
            second == expected.end() ? QString() : *second);
}

/// Runs operations from inside some of the notifications.
class Meddler : public PlainMirror
{
public:
    Meddler(EmbeddedKernel& kernel, NaiveKernel& naive, RandomOperations& operations)
        : m_kernel(kernel)
        , m_naive(naive)
        , m_operations(operations)
    {
    }

    void notify_body_modified(int) override { meddle(); }
    void notify_body_created(int) override { meddle(); }
    void notify_volume_modified(int) override { meddle(); }
    void notify_volume_deleted(int) override { meddle(); }
    void notify_surface_deleted(int) override { meddle(); }
    void notify_surface_removed(int) override { meddle(); }
    void notify_surface_modified(int) override { meddle(); }
    void notify_curve_created(int) override { meddle(); }
    void notify_curve_added(int) override { meddle(); }
    void notify_curve_removed(int) override { meddle(); }
    void notify_vertex_removed(int) override { meddle(); }
    void notify_group_modified(int) override { meddle(); }
    void notify_entity_id_changed(std::string, int, int) override { meddle(); }
    void notify_entity_name_changed(std::string, int) override { meddle(); }

    QStringList done;

private:
    void meddle()
    {
        if (m_depth < 3 && m_operations.below(3) == 0) {
            ++m_depth;
            done << m_operations.run(m_kernel, m_naive);
            --m_depth;
        }
    }

    EmbeddedKernel& m_kernel;
    NaiveKernel& m_naive;
    RandomOperations& m_operations;
    int m_depth = 0;
};

} // namespace

class tst_EmbeddedRandom : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void kernelAnswersAsANaiveOne();
    void notificationsAloneKeepAMirrorRight();
    void mirrorsStayRightWhileAnotherObserverChangesTheKernel();
};

void tst_EmbeddedRandom::kernelAnswersAsANaiveOne()
{
    for (unsigned seed = 1; seed <= seeds; ++seed) {
        EmbeddedKernel kernel;
        NaiveKernel naive;
        RandomOperations operations(seed);
        for (int step = 0; step < 400; ++step) {
            const QString operation = operations.run(kernel, naive);
            const QString wrong = difference(dump_of_boundary(), naive.dump());
            QVERIFY2(wrong.isEmpty(),
                qPrintable(QStringLiteral("After '%1', step %2 of seed %3, the kernel %4.")
                               .arg(operation)
                               .arg(step)
                               .arg(seed)
                               .arg(wrong)));
            if (step % 20 != 0) {
                continue;
            }
            for (int from = 0; from < 5; ++from) {
                for (int to = 0; to < 5; ++to) {
                    const auto source = static_cast<EntityKind>(from);
                    const auto target = static_cast<EntityKind>(to);
                    for (const int id : naive.ids(source)) {
                        std::vector<int> found =
                            get_relatives(entity_word(source), id, entity_word(target));
                        std::sort(found.begin(), found.end());
                        const std::set<int> expected =
                            from == to ? std::set<int>() : naive.relatives(source, id, target);
                        QCOMPARE(found, std::vector<int>(expected.begin(), expected.end()));
                    }
                }
            }
        }
    }
}

void tst_EmbeddedRandom::notificationsAloneKeepAMirrorRight()
{
    for (unsigned seed = 1; seed <= seeds; ++seed) {
        EmbeddedKernel kernel;
        NaiveKernel naive;
        RandomOperations operations(seed);
        PlainMirror mirror;
        for (int step = 0; step < 400; ++step) {
            const QString operation = operations.run(kernel, naive);
            const QString wrong = difference(mirror.dump(), PlainMirror::dump_of_kernel());
            QVERIFY2(wrong.isEmpty(),
                qPrintable(QStringLiteral("After '%1', step %2 of seed %3, the mirror %4.")
                               .arg(operation)
                               .arg(step)
                               .arg(seed)
                               .arg(wrong)));
        }
    }
}

void tst_EmbeddedRandom::mirrorsStayRightWhileAnotherObserverChangesTheKernel()
{
    for (unsigned seed = 1; seed <= seeds; ++seed) {
        EmbeddedKernel kernel;
        NaiveKernel naive;
        RandomOperations operations(seed);
        PlainMirror first;
        Meddler meddler(kernel, naive, operations);
        PlainMirror last;
        for (int step = 0; step < 300; ++step) {
            meddler.done.clear();
            const QString operation = operations.run(kernel, naive);
            const QStringList expected = PlainMirror::dump_of_kernel();
            const QString where = QStringLiteral("After '%1' with '%2', step %3 of seed %4, the ")
                                      .arg(operation, meddler.done.join(QStringLiteral("', '")))
                                      .arg(step)
                                      .arg(seed);
            const QString kernel_wrong = difference(dump_of_boundary(), naive.dump());
            QVERIFY2(kernel_wrong.isEmpty(),
                qPrintable(where + QStringLiteral("kernel ") + kernel_wrong));
            const QString first_wrong = difference(first.dump(), expected);
            QVERIFY2(first_wrong.isEmpty(),
                qPrintable(where + QStringLiteral("first mirror ") + first_wrong));
            const QString last_wrong = difference(last.dump(), expected);
            QVERIFY2(last_wrong.isEmpty(),
                qPrintable(where + QStringLiteral("last mirror ") + last_wrong));
        }
    }
}

QTEST_GUILESS_MAIN(tst_EmbeddedRandom)
#include "tst_EmbeddedRandom.moc"
