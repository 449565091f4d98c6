#include "ItemRows.hpp"
#include "ModelFindings.hpp"

#include <algorithm>
#include <browser/items/MirrorItems.hpp>
#include <memory>
#include <mirror/random_scripts.hpp>
#include <QTest>
#include <random>
#include <support/ModelSpy.hpp>
#include <treemodel/entity/EntityModel.hpp>
#include <treemodel/kernel/TreeModel.hpp>

namespace {

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

/// A mirror that follows a kernel, the rows that follow the mirror, and a user who sorts, opens
/// and hides them.
class Front
{
public:
    explicit Front(unsigned seed)
        : m_random(seed)
    {
        m_mirror.connect_to_kesto();
        look_inside(&TreeModel::geometry_added);
        look_inside(&TreeModel::geometry_removed);
        look_inside(&TreeModel::geometry_associated);
        look_inside(&TreeModel::geometry_disassociated);
        look_inside(&TreeModel::group_removed);
        look_inside(&TreeModel::group_child_added);
        look_inside(&TreeModel::group_child_removed);
        look_inside(&TreeModel::mesh_data_removed);
        look_inside(&TreeModel::fea_bc_removed);
        look_inside(&TreeModel::exodus_entity_removed);
    }

    ~Front() { m_mirror.disconnect_from_kesto(); }

    /// Does nothing, or part of what there is to do, or all. Gives back what is wrong then, or was
    /// before, inside a signal.
    QString look()
    {
        if (!m_wrong_inside.isEmpty()) {
            return "Inside a signal: " + m_wrong_inside;
        }
        touch();
        switch (m_random() % 4) {
        case 0:
            return {};
        case 1:
        case 2:
            for (unsigned slices = m_random() % 8; slices > 0; --slices) {
                m_join.advance(QDeadlineTimer(0));
            }
            return fault();
        default:
            return settled_difference();
        }
    }

    QString settled_difference()
    {
        for (int i = 0; i < category_count; ++i) {
            m_items.showCategory(m_join.category(Category(i)));
        }
        m_join.settle();
        if (!m_join.is_settled()) {
            return "The rows do not settle";
        }
        if (QString wrong = fault(); !wrong.isEmpty()) {
            return wrong;
        }
        EntityModel fresh_items;
        MirrorItems fresh(m_mirror, fresh_items);
        fresh.settle();
        const QString difference =
            first_difference(ItemRows::sorted_rows(m_items), ItemRows::sorted_rows(fresh_items));
        return difference.isEmpty() ? difference : QStringLiteral("The tree ") + difference;
    }

private:
    // As an event loop that runs in a receiver would have it.
    template <typename Signal>
    void look_inside(Signal signal)
    {
        QObject::connect(&m_mirror, signal, &m_inside, [this] {
            if (m_random() % 8 == 0 && m_wrong_inside.isEmpty()) {
                m_wrong_inside = look();
            }
        });
    }

    QString fault() const
    {
        const QString wrong = ItemRows::fault(m_join, m_column, m_order);
        return wrong + m_findings.first() + m_spy.differences();
    }

    void touch()
    {
        EntityItem* category = m_join.category(Category(m_random() % category_count));
        switch (m_random() % 12) {
        case 0:
            m_column = int(m_random() % 2);
            m_order = m_random() % 2 ? Qt::AscendingOrder : Qt::DescendingOrder;
            m_items.sort(m_column, m_order);
            break;
        case 1:
            m_items.hideCategory(category);
            break;
        case 2:
            m_items.showCategory(category);
            break;
        case 3:
            if (category->childCount() > 0) {
                m_join.fill(category->getChild(int(m_random() % unsigned(category->childCount()))));
            }
            break;
        default:
            break;
        }
    }

    std::mt19937 m_random;
    TreeModel m_mirror;
    EntityModel m_items;
    ModelFindings m_findings{m_items};
    ModelSpy m_spy{&m_items};
    MirrorItems m_join{m_mirror, m_items};
    QString m_wrong_inside;
    int m_column = 1;
    Qt::SortOrder m_order = Qt::AscendingOrder;
    QObject m_inside; // Receives as long as all else stands
};

// What is wrong after some part of the script; empty if nothing is.
QString run(const KernelScript& script, unsigned seed, int interval)
{
    std::unique_ptr<Front> front;
    const QString wrong = script.run(interval, [&](EmbeddedKernel& /*kernel*/) {
        if (!front) {
            front = std::make_unique<Front>(seed);
        }
        return front->look();
    });
    return wrong.isEmpty() ? front->settled_difference() : wrong;
}

void check(unsigned seed, int length, int interval)
{
    const auto play = [=](const KernelScript& script) { return run(script, seed, interval); };
    check_random_script(seed, length, play, play);
}

} // namespace

/// TREEMODEL_TEST_SEEDS sets the number of short scripts, TREEMODEL_TEST_STEPS the length of
/// the long one.
class tst_MirrorItemsUnderRandomOperations : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void rowsEqualThoseBuiltAfreshAfterEachStep();
    void rowsEqualThoseBuiltAfreshInTheLongRun();
};

void tst_MirrorItemsUnderRandomOperations::rowsEqualThoseBuiltAfreshAfterEachStep()
{
    const int seeds = from_environment("TREEMODEL_TEST_SEEDS", 60);
    for (int seed = 1; seed <= seeds && !QTest::currentTestFailed(); ++seed) {
        check(unsigned(seed), 150, 1);
    }
}

void tst_MirrorItemsUnderRandomOperations::rowsEqualThoseBuiltAfreshInTheLongRun()
{
    const int steps = from_environment("TREEMODEL_TEST_STEPS", 2'000);
    check(1'000'003, steps, std::max(1, steps / 50));
}

QTEST_GUILESS_MAIN(tst_MirrorItemsUnderRandomOperations)
#include "tst_MirrorItemsUnderRandomOperations.moc"
