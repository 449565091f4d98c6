#include <algorithm>
#include <functional>
#include <memory>
#include <QPointer>
#include <QTest>
#include <support/EventLog.hpp>
#include <support/SignalRecorder.hpp>
#include <treemodel/models/TreeGroupModel.hpp>
#include <utility>

namespace {

/// A record outside the model that tells how many listen for its death.
class Member : public TreeData
{
public:
    using TreeData::TreeData;

    int watchers() const { return receivers(SIGNAL(treedata_destroyed(TreeData*))); }
};

using Action = std::function<void()>;
/// Has the action run at a certain signal of the model or the group.
using Moment = std::function<void(TreeGroupModel&, TreeGroupData&, const Action&)>;

} // namespace

Q_DECLARE_METATYPE(Moment)

class tst_TreeGroupModel : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void newGroupStandsInTheModelWhenAnnounced();
    void groupOfAKnownIdTakesTheNewName();
    void sameNameIsSilent();
    void defaultNameIsNotStored();
    void groupsComeByAscendingId();
    void unknownIdsHaveNoEffect();
    void removedGroupIsReadableInItsSignal();
    void removedGroupLosesItsMembersSilently();
    void addedGroupRemovedByAReceiverIsNotGivenBack();

    void newIdIsTheRecordsBusiness();
    void newIdKeepsTheLinks();
    void sameIdIsAnnouncedAgain();
    void unknownOldIdLeavesTheNewOneAlone();
    void displacedGroupStaysAliveOutsideTheModel();
    void displacedGroupKeepsItsLinks();
    void displacedGroupOutlivesClear();
    void displacedGroupGoesSilentlyWithTheModel();

    void memberIsLinkedWhenAnnounced();
    void pairStandsOnce();
    void nullMakesNoLink();
    void unlinkedPairIsSilent();
    void memberIsUnlinkedWhenItsRemovalIsAnnounced();
    void membersComeInTheOrderOfTheirAddresses();
    void groupsOfAMemberComeInTheOrderOfTheirAddresses();
    void lookupsWithoutAnEntryAreEmpty();

    void memberOfManyGroupsIsWatchedOnce();
    void memberIsWatchedUntilItsLastGroupGoes();
    void dyingMemberLeavesAllGroupsSilently();
    void groupMayBeAMemberOfAGroup();
    void groupMayBeItsOwnMember();
    void ringOfGroupsComesApart();

    void clearAnnouncesItselfFirstAndNothingElse();
    void clearLetsTheMembersLive();
    void clearMayBeCalledAtAnyMoment_data();
    void clearMayBeCalledAtAnyMoment();
    void clearInsideTheClearingSignalIsHarmless();
    void destructorClears();

private:
    EventLog log;
    // Of what a test connects; goes first, so that nothing runs past the test.
    std::unique_ptr<QObject> receiver;
    std::unique_ptr<TreeGroupModel> model;
    std::unique_ptr<SignalRecorder> recorder;
};

void tst_TreeGroupModel::init()
{
    receiver = std::make_unique<QObject>();
    model = std::make_unique<TreeGroupModel>();
    recorder = std::make_unique<SignalRecorder>(log);
    recorder->watch(model.get());
}

void tst_TreeGroupModel::cleanup()
{
    receiver.reset();
    recorder.reset();
    model.reset();
    log.take();
}

void tst_TreeGroupModel::newGroupStandsInTheModelWhenAnnounced()
{
    TreeGroupData* seen = nullptr;
    connect(model.get(), &TreeGroupModel::group_added, receiver.get(),
        [&](TreeGroupData* group) { seen = model->find_group(group->id()); });

    TreeGroupData* group = model->add_group("lid", 3);

    QCOMPARE(seen, group);
    QCOMPARE(group->name(), "lid");
    QCOMPARE(log.take(), QStringList("group_added(group 3)"));
}

void tst_TreeGroupModel::groupOfAKnownIdTakesTheNewName()
{
    TreeGroupData* group = model->add_group("lid", 3);
    log.take();
    QCOMPARE(model->add_group("cover", 3), group);
    QCOMPARE(log.take(), QStringList("group 3: name_changed(cover)"));
    QCOMPARE(group->name(), "cover");
}

void tst_TreeGroupModel::sameNameIsSilent()
{
    TreeGroupData* group = model->add_group("lid", 3);
    log.take();
    QCOMPARE(model->add_group("lid", 3), group);
    QCOMPARE(log.take(), QStringList());
}

void tst_TreeGroupModel::defaultNameIsNotStored()
{
    TreeGroupData* group = model->add_group("", 3);
    log.take();
    model->add_group("Entity 3", 3);
    QCOMPARE(log.take(), QStringList());
    group->set_id(4);
    QVERIFY2(group->name() == "Entity 4", "the default text became the group's own name");
}

void tst_TreeGroupModel::groupsComeByAscendingId()
{
    for (int id : {7, -2, 0, 3}) {
        model->add_group("", id);
    }
    QStringList ids;
    for (TreeGroupData* group : model->groups()) {
        ids << QString::number(group->id());
    }
    QCOMPARE(ids.join(' '), "-2 0 3 7");
}

void tst_TreeGroupModel::unknownIdsHaveNoEffect()
{
    model->add_group("lid", 3);
    log.take();
    model->remove_group(4);
    model->change_group_id(4, 5);
    QCOMPARE(model->find_group(4), nullptr);
    QCOMPARE(model->groups().size(), 1U);
    QCOMPARE(log.take(), QStringList());
}

void tst_TreeGroupModel::removedGroupIsReadableInItsSignal()
{
    TreeGroupData* lid = model->add_group("lid", 3);
    Member member(1);
    model->add_group_child(lid, &member);
    QString seen;
    connect(model.get(), &TreeGroupModel::group_removed, receiver.get(), [&](TreeGroupData* group) {
        seen = group->name() + (model->find_group(3) ? " listed" : " gone") +
               QString(" with %1 members").arg(model->find_group_children(group).size());
    });
    log.take();

    model->remove_group(3);

    QCOMPARE(seen, "lid gone with 0 members");
    QCOMPARE(log.take(),
        QStringList({"group_removed(group 3)", "group 3: treedata_destroyed(group 3)"}));
}

void tst_TreeGroupModel::removedGroupLosesItsMembersSilently()
{
    Member only_in_lid(1);
    Member in_both(2);
    TreeGroupData* lid = model->add_group("lid", 3);
    TreeGroupData* rim = model->add_group("rim", 4);
    model->add_group_child(lid, &only_in_lid);
    model->add_group_child(lid, &in_both);
    model->add_group_child(rim, &in_both);
    log.take();

    model->remove_group(3);

    QVERIFY2(log.take_only({"group_child"}).isEmpty(), "group_removed stands for the links");
    QVERIFY(model->find_groups_for_child(&only_in_lid).empty());
    QCOMPARE(model->find_groups_for_child(&in_both), std::vector<TreeGroupData*>{rim});
}

void tst_TreeGroupModel::addedGroupRemovedByAReceiverIsNotGivenBack()
{
    connect(model.get(), &TreeGroupModel::group_added, receiver.get(),
        [&](TreeGroupData* group) { model->remove_group(group->id()); });
    QCOMPARE(model->add_group("lid", 3), nullptr);
}

void tst_TreeGroupModel::newIdIsTheRecordsBusiness()
{
    TreeGroupData* group = model->add_group("", 3);
    log.take();
    model->change_group_id(3, 5);
    QCOMPARE(
        log.take(), QStringList({"group 5: id_changed(5)", "group 5: name_changed(Entity 5)"}));
    QCOMPARE(model->find_group(3), nullptr);
    QCOMPARE(model->find_group(5), group);
}

void tst_TreeGroupModel::newIdKeepsTheLinks()
{
    Member member(1);
    TreeGroupData* group = model->add_group("lid", 3);
    model->add_group_child(group, &member);
    model->change_group_id(3, 5);
    QCOMPARE(model->find_group_children(group), std::vector<TreeData*>{&member});
    QCOMPARE(model->find_groups_for_child(&member), std::vector<TreeGroupData*>{group});
}

void tst_TreeGroupModel::sameIdIsAnnouncedAgain()
{
    TreeGroupData* group = model->add_group("lid", 3);
    log.take();
    model->change_group_id(3, 3);
    QCOMPARE(log.take(), QStringList("group 3: id_changed(3)"));
    QCOMPARE(model->find_group(3), group);
}

void tst_TreeGroupModel::unknownOldIdLeavesTheNewOneAlone()
{
    TreeGroupData* group = model->add_group("lid", 3);
    log.take();
    model->change_group_id(4, 3);
    QCOMPARE(model->find_group(3), group);
    QCOMPARE(log.take(), QStringList());
}

void tst_TreeGroupModel::displacedGroupStaysAliveOutsideTheModel()
{
    TreeGroupData* lid = model->add_group("lid", 3);
    QPointer<TreeGroupData> rim = model->add_group("rim", 4);
    log.take();

    model->change_group_id(3, 4);

    QCOMPARE(log.take(), QStringList("group 4: id_changed(4)"));
    QCOMPARE(model->groups(), std::vector<TreeGroupData*>{lid});
    QVERIFY2(rim, "the group that had the id was deleted");
    QCOMPARE(rim->id(), 4);
}

void tst_TreeGroupModel::displacedGroupKeepsItsLinks()
{
    Member member(1);
    model->add_group("lid", 3);
    TreeGroupData* rim = model->add_group("rim", 4);
    model->add_group_child(rim, &member);
    model->change_group_id(3, 4);
    QCOMPARE(model->find_groups_for_child(&member), std::vector<TreeGroupData*>{rim});
    model->remove_group_child(rim, &member);
    QVERIFY(model->find_group_children(rim).empty());
}

void tst_TreeGroupModel::displacedGroupOutlivesClear()
{
    recorder.reset();
    Member member(1);
    model->add_group("lid", 3);
    QPointer<TreeGroupData> rim = model->add_group("rim", 4);
    model->add_group_child(rim, &member);
    model->change_group_id(3, 4);

    model->clear();

    QVERIFY(rim);
    QVERIFY(model->find_group_children(rim).empty());
    QCOMPARE(member.watchers(), 0);
}

void tst_TreeGroupModel::displacedGroupGoesSilentlyWithTheModel()
{
    Member member(1);
    model->add_group("lid", 3);
    QPointer<TreeGroupData> rim = model->add_group("rim", 4);
    model->change_group_id(3, 4);
    model->add_group_child(rim, &member);
    model->add_group_child(rim, rim);
    log.take();

    model.reset();

    QVERIFY(!rim);
    QCOMPARE(log.take(), QStringList({"about_to_clear()", "group 4: treedata_destroyed(group 4)",
                             "group 4: treedata_destroyed(group 4)"}));
    QCOMPARE(member.watchers(), 1); // the recorder
}

void tst_TreeGroupModel::memberIsLinkedWhenAnnounced()
{
    Member member(1);
    TreeGroupData* group = model->add_group("lid", 3);
    bool both_ways = false;
    connect(model.get(), &TreeGroupModel::group_child_added, receiver.get(),
        [&](TreeGroupData* g, TreeData* c) {
            both_ways = model->find_group_children(g) == std::vector<TreeData*>{c} &&
                        model->find_groups_for_child(c) == std::vector<TreeGroupData*>{g};
        });
    log.take();

    model->add_group_child(group, &member);

    QVERIFY(both_ways);
    QCOMPARE(log.take(), QStringList("group_child_added(group 3, TreeData 1)"));
}

void tst_TreeGroupModel::pairStandsOnce()
{
    Member member(1);
    TreeGroupData* group = model->add_group("lid", 3);
    model->add_group_child(group, &member);
    log.take();
    model->add_group_child(group, &member);
    QCOMPARE(log.take(), QStringList());
    QCOMPARE(model->find_group_children(group).size(), 1U);
}

void tst_TreeGroupModel::nullMakesNoLink()
{
    Member member(1);
    TreeGroupData* group = model->add_group("lid", 3);
    log.take();
    model->add_group_child(group, nullptr);
    model->add_group_child(nullptr, &member);
    model->add_group_child(nullptr, nullptr);
    model->remove_group_child(group, nullptr);
    model->remove_group_child(nullptr, &member);
    QCOMPARE(log.take(), QStringList());
    QVERIFY(model->find_group_children(group).empty());
    QCOMPARE(member.watchers(), 0);
}

void tst_TreeGroupModel::unlinkedPairIsSilent()
{
    Member member(1);
    Member stranger(2);
    TreeGroupData* lid = model->add_group("lid", 3);
    TreeGroupData* rim = model->add_group("rim", 4);
    model->add_group_child(lid, &member);
    log.take();
    model->remove_group_child(rim, &member);
    model->remove_group_child(lid, &stranger);
    QCOMPARE(log.take(), QStringList());
    QCOMPARE(model->find_group_children(lid).size(), 1U);
}

void tst_TreeGroupModel::memberIsUnlinkedWhenItsRemovalIsAnnounced()
{
    Member member(1);
    TreeGroupData* group = model->add_group("lid", 3);
    model->add_group_child(group, &member);
    bool unlinked = false;
    connect(model.get(), &TreeGroupModel::group_child_removed, receiver.get(),
        [&](TreeGroupData* g, TreeData* c) {
            unlinked =
                model->find_group_children(g).empty() && model->find_groups_for_child(c).empty();
        });
    log.take();

    model->remove_group_child(group, &member);

    QVERIFY(unlinked);
    QCOMPARE(log.take(), QStringList("group_child_removed(group 3, TreeData 1)"));
}

void tst_TreeGroupModel::membersComeInTheOrderOfTheirAddresses()
{
    std::vector<std::unique_ptr<Member>> members;
    TreeGroupData* group = model->add_group("lid", 3);
    for (int id = 0; id < 20; ++id) {
        members.push_back(std::make_unique<Member>(100 - id));
        model->add_group_child(group, members.back().get());
    }
    const std::vector<TreeData*> found = model->find_group_children(group);
    QCOMPARE(found.size(), 20U);
    QVERIFY(std::is_sorted(found.begin(), found.end(), std::less<>()));
}

void tst_TreeGroupModel::groupsOfAMemberComeInTheOrderOfTheirAddresses()
{
    Member member(1);
    for (int id = 0; id < 20; ++id) {
        model->add_group_child(model->add_group("", 100 - id), &member);
    }
    const std::vector<TreeGroupData*> found = model->find_groups_for_child(&member);
    QCOMPARE(found.size(), 20U);
    QVERIFY(std::is_sorted(found.begin(), found.end(), std::less<>()));
}

void tst_TreeGroupModel::lookupsWithoutAnEntryAreEmpty()
{
    Member stranger(1);
    QVERIFY(model->find_group_children(model->add_group("lid", 3)).empty());
    QVERIFY(model->find_group_children(nullptr).empty());
    QVERIFY(model->find_groups_for_child(&stranger).empty());
    QVERIFY(model->find_groups_for_child(nullptr).empty());
}

void tst_TreeGroupModel::memberOfManyGroupsIsWatchedOnce()
{
    recorder.reset();
    Member member(1);
    for (int id = 1; id <= 3; ++id) {
        model->add_group_child(model->add_group("", id), &member);
        model->add_group_child(model->find_group(id), &member);
        QCOMPARE(member.watchers(), 1);
    }
}

void tst_TreeGroupModel::memberIsWatchedUntilItsLastGroupGoes()
{
    recorder.reset();
    Member member(1);
    for (int id = 1; id <= 3; ++id) {
        model->add_group_child(model->add_group("", id), &member);
    }
    model->remove_group_child(model->find_group(1), &member);
    QCOMPARE(member.watchers(), 1);
    model->remove_group(2);
    QCOMPARE(member.watchers(), 1);
    model->remove_group(3);
    QCOMPARE(member.watchers(), 0);
}

void tst_TreeGroupModel::dyingMemberLeavesAllGroupsSilently()
{
    auto member = std::make_unique<Member>(1);
    Member other(2);
    TreeGroupData* lid = model->add_group("lid", 3);
    TreeGroupData* rim = model->add_group("rim", 4);
    model->add_group_child(lid, member.get());
    model->add_group_child(lid, &other);
    model->add_group_child(rim, member.get());
    TreeData* address = member.get();
    log.take();

    member.reset();

    QCOMPARE(log.take(), QStringList("TreeData 1: treedata_destroyed(TreeData 1)"));
    QCOMPARE(model->find_group_children(lid), std::vector<TreeData*>{&other});
    QVERIFY(model->find_group_children(rim).empty());
    QVERIFY(model->find_groups_for_child(address).empty());
}

void tst_TreeGroupModel::groupMayBeAMemberOfAGroup()
{
    Member member(1);
    TreeGroupData* outer = model->add_group("outer", 3);
    TreeGroupData* inner = model->add_group("inner", 4);
    model->add_group_child(outer, inner);
    model->add_group_child(inner, &member);
    log.take();

    model->remove_group(4);

    QCOMPARE(log.take(),
        QStringList({"group_removed(group 4)", "group 4: treedata_destroyed(group 4)"}));
    QVERIFY(model->find_group_children(outer).empty());
    QVERIFY(model->find_groups_for_child(&member).empty());
}

void tst_TreeGroupModel::groupMayBeItsOwnMember()
{
    TreeGroupData* group = model->add_group("lid", 3);
    log.take();
    model->add_group_child(group, group);
    QCOMPARE(log.take(), QStringList("group_child_added(group 3, group 3)"));
    QCOMPARE(model->find_group_children(group), std::vector<TreeData*>{group});

    model->remove_group(3);

    QCOMPARE(log.take(),
        QStringList({"group_removed(group 3)", "group 3: treedata_destroyed(group 3)"}));
    QVERIFY(model->groups().empty());
}

void tst_TreeGroupModel::ringOfGroupsComesApart()
{
    for (int id = 0; id < 3; ++id) {
        model->add_group("", id);
    }
    for (int id = 0; id < 3; ++id) {
        model->add_group_child(model->find_group(id), model->find_group((id + 1) % 3));
    }
    model->remove_group(1);
    QVERIFY(model->find_group_children(model->find_group(0)).empty());
    QVERIFY(model->find_groups_for_child(model->find_group(2)).empty());
    QCOMPARE(model->find_group_children(model->find_group(2)),
        std::vector<TreeData*>{model->find_group(0)});
}

void tst_TreeGroupModel::clearAnnouncesItselfFirstAndNothingElse()
{
    Member member(1);
    TreeGroupData* four = model->add_group("rim", 4);
    TreeGroupData* three = model->add_group("lid", 3);
    model->add_group_child(four, three);
    model->add_group_child(three, &member);
    std::size_t groups = 0;
    std::size_t members = 0;
    QObject until_cleared;
    connect(model.get(), &TreeGroupModel::about_to_clear, &until_cleared, [&] {
        groups += model->groups().size();
        members += model->find_group_children(three).size();
    });
    log.take();

    model->clear();

    QCOMPARE(log.take(), QStringList({"about_to_clear()", "group 3: treedata_destroyed(group 3)",
                             "group 4: treedata_destroyed(group 4)"}));
    QVERIFY2(groups == 2 && members == 1, "something had changed before the signal");
    QVERIFY(model->groups().empty());
}

void tst_TreeGroupModel::clearLetsTheMembersLive()
{
    recorder.reset();
    Member member(1);
    model->add_group_child(model->add_group("lid", 3), &member);
    model->add_group_child(model->add_group("rim", 4), &member);
    model->clear();
    QCOMPARE(member.watchers(), 0);
    QVERIFY(model->find_groups_for_child(&member).empty());
    model->add_group_child(model->add_group("lid", 3), &member);
    QCOMPARE(member.watchers(), 1);
}

void tst_TreeGroupModel::clearMayBeCalledAtAnyMoment_data()
{
    QTest::addColumn<Moment>("moment");
    const auto row = [](const char* name, Moment moment) { QTest::newRow(name) << moment; };
    const auto of_model = [](auto signal) {
        return [signal](TreeGroupModel& m, TreeGroupData&, const Action& action) {
            connect(&m, signal, &m, action);
        };
    };
    const auto of_group = [](auto signal) {
        return [signal](TreeGroupModel& m, TreeGroupData& group, const Action& action) {
            connect(&group, signal, &m, action);
        };
    };
    row("group added", of_model(&TreeGroupModel::group_added));
    row("group removed", of_model(&TreeGroupModel::group_removed));
    row("child added", of_model(&TreeGroupModel::group_child_added));
    row("child removed", of_model(&TreeGroupModel::group_child_removed));
    row("id changed", of_group(&TreeData::id_changed));
    row("name changed", of_group(&TreeData::name_changed));
    row("destroyed", of_group(&TreeData::treedata_destroyed));
}

void tst_TreeGroupModel::clearMayBeCalledAtAnyMoment()
{
    QFETCH(Moment, moment);
    recorder.reset();
    Member member(1);
    TreeGroupData* lid = model->add_group("", 3);
    TreeGroupData* rim = model->add_group("rim", 4);
    model->add_group_child(lid, lid);
    model->add_group_child(lid, rim);
    model->add_group_child(rim, &member);
    bool cleared = false;
    moment(*model, *lid, [&] {
        if (!std::exchange(cleared, true)) {
            model->clear();
        }
    });

    model->add_group("new", 9);
    model->add_group_child(model->find_group(3), model->find_group(9));
    model->remove_group_child(model->find_group(3), model->find_group(4));
    if (model->find_group(3)) {
        model->add_group("lid", 3);
    }
    model->change_group_id(3, 5);
    model->remove_group(5);

    QVERIFY2(cleared, "the moment did not come");
    for (TreeGroupData* group : model->groups()) {
        QVERIFY2(model->find_group_children(group).empty(), "a link outlived clear()");
    }
    QCOMPARE(member.watchers(), 0);
}

void tst_TreeGroupModel::clearInsideTheClearingSignalIsHarmless()
{
    model->add_group_child(model->add_group("lid", 3), model->add_group("rim", 4));
    bool first = true;
    QObject until_cleared;
    connect(model.get(), &TreeGroupModel::about_to_clear, &until_cleared, [&] {
        if (std::exchange(first, false)) {
            model->clear();
        }
    });
    model->clear();
    QVERIFY(model->groups().empty());
}

void tst_TreeGroupModel::destructorClears()
{
    Member member(1);
    model->add_group_child(model->add_group("lid", 3), &member);
    log.take();
    model.reset();
    QCOMPARE(log.take(), QStringList({"about_to_clear()", "group 3: treedata_destroyed(group 3)"}));
}

QTEST_GUILESS_MAIN(tst_TreeGroupModel)
#include "tst_TreeGroupModel.moc"
