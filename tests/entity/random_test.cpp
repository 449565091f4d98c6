#include "entity/random_observers.hpp"

#include <QLoggingCategory>
#include <QTest>

/// Random sequences of operations on an item model, beside a plain reference.
///
/// TREEMODEL_RANDOM_SEEDS sets how many sequences each row makes, TREEMODEL_RANDOM_FIRST the first
/// seed; TREEMODEL_RANDOM_TRACE prints each step before it is made.
class random_test : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void modelAgreesWithReference_data();
    void modelAgreesWithReference();

private:
    using Attach = void (*)(RandomSequence&);
};

namespace {

void attach_persistent_indexes(RandomSequence& sequence)
{
    sequence.attach(std::make_unique<PersistentObserver>(sequence.model()));
}

void attach_view(RandomSequence& sequence)
{
    sequence.attach(std::make_unique<ViewObserver>(sequence.model()));
}

void attach_proxies(RandomSequence& sequence)
{
    sequence.attach(std::make_unique<ProxyObserver>(sequence.model(), false));
    sequence.attach(std::make_unique<ProxyObserver>(sequence.model(), true));
}

void attach_tester(RandomSequence& sequence)
{
    sequence.attach(std::make_unique<TesterObserver>(sequence.model()));
}

/// More siblings than a sort treats as few.
void crowd(RandomSequence& sequence)
{
    sequence.crowd(700);
    attach_persistent_indexes(sequence);
}

void attach_all(RandomSequence& sequence)
{
    attach_persistent_indexes(sequence);
    attach_view(sequence);
    attach_proxies(sequence);
}

int setting(const char* name, int otherwise)
{
    bool set = false;
    const int value = qEnvironmentVariableIntValue(name, &set);
    return set ? value : otherwise;
}

} // namespace

Q_DECLARE_METATYPE(void (*)(RandomSequence&))

void random_test::initTestCase()
{
    // The marks are the host's to supply, and this host has none.
    QLoggingCategory::setFilterRules("qt.svg.warning=false");
}

void random_test::modelAgreesWithReference_data()
{
    QTest::addColumn<Attach>("attach");
    QTest::addColumn<int>("seeds");
    QTest::addColumn<int>("steps");

    QTest::newRow("alone") << Attach([](RandomSequence&) {}) << 800 << 40;
    QTest::newRow("long") << Attach([](RandomSequence&) {}) << 4 << 500;
    QTest::newRow("crowded") << Attach(crowd) << 3 << 20;
    QTest::newRow("persistent indexes") << Attach(attach_persistent_indexes) << 300 << 40;
    QTest::newRow("view") << Attach(attach_view) << 300 << 40;
    QTest::newRow("proxies") << Attach(attach_proxies) << 300 << 40;
    QTest::newRow("Qt's tester") << Attach(attach_tester) << 100 << 30;
    QTest::newRow("everything") << Attach(attach_all) << 100 << 80;
}

void random_test::modelAgreesWithReference()
{
    QFETCH(Attach, attach);
    QFETCH(int, seeds);
    QFETCH(int, steps);

    const int first = setting("TREEMODEL_RANDOM_FIRST", 1);
    const int count = setting("TREEMODEL_RANDOM_SEEDS", seeds);
    int told = 0;
    int open = 0;
    for (int seed = first; seed < first + count; ++seed) {
        RandomSequence sequence{RandomSource(unsigned(seed))};
        attach(sequence);
        const QString report = sequence.run(steps);
        if (!report.isEmpty()) {
            qWarning().noquote() << QString("seed %1: %2").arg(seed).arg(report);
            QFAIL("the model and the reference differ: see the steps above");
        }
        told += sequence.reference().told_places();
        open += sequence.reference().open_places();
    }
    QVERIFY2(count < 50 || told > 5 * open,
        qPrintable(QString("%1 places were told by the rules and %2 left open: too few to "
                           "prove anything")
                       .arg(told)
                       .arg(open)));
}

QTEST_MAIN(random_test)
#include "random_test.moc"
