#include "panels/TabOrderManager.h"
#include "panels/TabOrderableHost.h"

#include "panels/PlainStop.h"

#include <gtest/gtest.h>

#include <memory>

namespace {

constexpr unsigned None = TabOrderManager::None;

struct Stops : ::testing::Test {
    std::vector<std::string> log;
    PlainStop a{"a", &log};
    PlainStop b{"b", &log};
    PlainStop c{"c", &log};
    PlainStop d{"d", &log};
    PlainStop e{"e", &log};
    TabOrderManager manager{false};

    std::vector<unsigned> orders() const {
        std::vector<unsigned> out;
        for (unsigned i = 0; i < manager.numTabStops(); ++i)
            out.push_back(manager.getTabStopTabOrder(i));
        return out;
    }
    TabOrderable* current() const {
        return manager.getTabStopObject(manager.getCurrentTabStopIndex());
    }
};

struct Parts : TabOrderableHost {
    std::vector<TabOrderable*> parts;
    void getTabOrderables(std::vector<TabOrderable*>& out) override {
        out.insert(out.end(), parts.begin(), parts.end());
    }
};

} // namespace

TEST_F(Stops, AddingAtAnOrderInUseMovesThatStopAndTheRunBehindItUpByOne) {
    ASSERT_TRUE(manager.addTabStop(a, 0));
    ASSERT_TRUE(manager.addTabStop(b, 1));
    ASSERT_TRUE(manager.addTabStop(c, 2));
    ASSERT_TRUE(manager.addTabStop(d, 5));
    ASSERT_TRUE(manager.addTabStop(e, 1));
    // Indices stay in adding order; only the orders move, and the gap before d stops the run.
    EXPECT_EQ(orders(), (std::vector<unsigned>{0, 2, 3, 5, 1}));
    EXPECT_EQ(manager.getTabStopObject(4), &e);
}

TEST_F(Stops, AfterAllTakesTheNextOrderAndOrdersAboveTheLimitFail) {
    ASSERT_TRUE(manager.addTabStop(a, TabOrderManager::AfterAll));
    ASSERT_TRUE(manager.addTabStop(b, 10));
    ASSERT_TRUE(manager.addTabStop(c, TabOrderManager::AfterAll));
    EXPECT_EQ(orders(), (std::vector<unsigned>{0, 10, 11}));

    EXPECT_FALSE(manager.addTabStop(d, TabOrderManager::MaxTabOrder + 1));
    ASSERT_TRUE(manager.addTabStop(d, TabOrderManager::MaxTabOrder));
    EXPECT_FALSE(manager.addTabStop(e, TabOrderManager::AfterAll));
    // Nor may a run be pushed past the limit.
    EXPECT_FALSE(manager.addTabStop(e, TabOrderManager::MaxTabOrder));
    EXPECT_EQ(manager.numTabStops(), 4u);
}

TEST_F(Stops, AnObjectGoesInOnceUnlessDuplicatesAreAllowed) {
    EXPECT_TRUE(manager.addTabStop(a, 0));
    EXPECT_FALSE(manager.addTabStop(a, 1));
    EXPECT_EQ(manager.numTabStops(), 1u);

    TabOrderManager lenient(true);
    EXPECT_TRUE(lenient.addTabStop(a, 0));
    EXPECT_TRUE(lenient.addTabStop(a, 1));
    EXPECT_EQ(lenient.numTabStops(), 2u);
    EXPECT_TRUE(lenient.removeTabStop(a));
    EXPECT_EQ(lenient.numTabStops(), 0u);
    EXPECT_FALSE(lenient.removeTabStop(a));
}

TEST_F(Stops, WithNoStopsTabAndShiftTabFindNothing) {
    EXPECT_EQ(manager.incrementTabStop(), None);
    EXPECT_EQ(manager.decrementTabStop(), None);
    EXPECT_EQ(manager.refocusCurrentTabStop(), None);
    EXPECT_TRUE(log.empty());
}

TEST_F(Stops, TabFollowsTheTabOrderAndWrapsRoundBothWays) {
    manager.addTabStop(a, 20);
    manager.addTabStop(b, 5);
    manager.addTabStop(c, 12);
    std::vector<TabOrderable*> forward;
    for (int i = 0; i < 4; ++i) {
        manager.incrementTabStop();
        forward.push_back(current());
    }
    EXPECT_EQ(forward, (std::vector<TabOrderable*>{&b, &c, &a, &b}));
    // The new stop hears of the focus before the old one loses it.
    EXPECT_EQ(log, (std::vector<std::string>{"+b", "+c", "-b", "+a", "-c", "+b", "-a"}));

    log.clear();
    EXPECT_EQ(manager.decrementTabStop(), 0u);
    EXPECT_EQ(manager.decrementTabStop(), 2u);
    EXPECT_EQ(log, (std::vector<std::string>{"+<a", "-b", "+<c", "-a"}));
}

TEST_F(Stops, ShiftTabWithNoCurrentStopStartsFromTheTop) {
    manager.addTabStop(a, 3);
    manager.addTabStop(b, 7);
    manager.addTabStop(c, 1);
    EXPECT_EQ(manager.decrementTabStop(), 1u);
    EXPECT_EQ(manager.getCurrentTabOrder(), 7u);
}

TEST_F(Stops, ASingleStopTakesTheFocusAgainWithoutLosingIt) {
    manager.addTabStop(a, 0);
    manager.incrementTabStop();
    EXPECT_EQ(manager.incrementTabStop(), 0u);
    EXPECT_EQ(log, (std::vector<std::string>{"+a", "+a"}));
}

TEST_F(Stops, DisabledAndInactiveStopsAreSkippedAndCannotBeFocusedByIndex) {
    manager.addTabStop(a, 0);
    manager.addTabStop(b, 1);
    manager.addTabStop(c, 2);
    ASSERT_TRUE(manager.setTabStopFocus(0u));
    ASSERT_TRUE(manager.setTabStopEnabled(b, false));
    EXPECT_EQ(manager.incrementTabStop(), 2u);
    c.active = false;
    EXPECT_EQ(manager.incrementTabStop(), 0u);

    log.clear();
    EXPECT_FALSE(manager.setTabStopFocus(1u));
    EXPECT_FALSE(manager.setTabStopFocus(c));
    EXPECT_FALSE(manager.setTabStopFocus(7u));
    EXPECT_TRUE(manager.isTabStopFocus(a));
    EXPECT_TRUE(log.empty());

    bool found = false;
    EXPECT_FALSE(manager.getTabStopEnabled(b, &found));
    EXPECT_TRUE(found);
    EXPECT_TRUE(manager.getTabStopEnabled(2u, &found));
    EXPECT_FALSE(manager.getTabStopEnabled(d, &found));
    EXPECT_FALSE(found);
    EXPECT_FALSE(manager.getTabStopEnabled(9u, nullptr));
    EXPECT_FALSE(manager.setTabStopEnabled(d, true));
    EXPECT_FALSE(manager.setTabStopEnabled(9u, true));
}

TEST_F(Stops, WhenEveryStopIsUnusableTabClearsTheFocus) {
    manager.addTabStop(a, 0);
    manager.incrementTabStop();
    a.active = false;
    EXPECT_EQ(manager.incrementTabStop(), None);
    EXPECT_EQ(manager.getCurrentTabOrder(), None);
    EXPECT_EQ(log, (std::vector<std::string>{"+a", "-a"}));
}

TEST_F(Stops, RemovingTheCurrentStopKeepsItsOrderSoTabGoesOnFromThere) {
    manager.addTabStop(a, 0);
    manager.addTabStop(b, 1);
    manager.addTabStop(c, 2);
    manager.setTabStopFocus(b);
    log.clear();
    EXPECT_TRUE(manager.removeTabStop(b));
    EXPECT_EQ(manager.getCurrentTabStopIndex(), None);
    EXPECT_EQ(manager.getCurrentTabOrder(), 1u);
    // The object is not told: it simply is no longer a stop here.
    EXPECT_TRUE(log.empty());
    EXPECT_FALSE(b.isTabStopFocus());
    EXPECT_EQ(manager.incrementTabStop(), 1u);
    EXPECT_EQ(current(), &c);
}

TEST_F(Stops, RemovingAnEarlierStopKeepsTheSameObjectCurrent) {
    manager.addTabStop(a, 0);
    manager.addTabStop(b, 1);
    manager.addTabStop(c, 2);
    manager.setTabStopFocus(c);
    EXPECT_TRUE(manager.removeTabStop(0u));
    EXPECT_EQ(manager.getCurrentTabStopIndex(), 1u);
    EXPECT_EQ(current(), &c);
    EXPECT_FALSE(manager.removeTabStop(5u));
    // The removed object has forgotten this manager.
    EXPECT_FALSE(a.setTabStopFocus());
}

TEST_F(Stops, SetTabOrderMakesWayAndChangesWhereTabGoes) {
    manager.addTabStop(a, 0);
    manager.addTabStop(b, 1);
    manager.addTabStop(c, 2);
    ASSERT_TRUE(manager.setTabOrder(c, 0));
    EXPECT_EQ(orders(), (std::vector<unsigned>{1, 2, 0}));
    ASSERT_TRUE(manager.setTabOrder(0u, 9));
    EXPECT_EQ(orders(), (std::vector<unsigned>{9, 2, 0}));
    EXPECT_FALSE(manager.setTabOrder(d, 3));
    EXPECT_FALSE(manager.setTabOrder(1u, TabOrderManager::MaxTabOrder + 1));

    std::vector<TabOrderable*> visited;
    for (int i = 0; i < 3; ++i) {
        manager.incrementTabStop();
        visited.push_back(current());
    }
    EXPECT_EQ(visited, (std::vector<TabOrderable*>{&c, &b, &a}));
}

TEST_F(Stops, AStopMovedBelowOrAboveTheOthersStillMakesWayForANewOne) {
    manager.addTabStop(a, 5);
    manager.addTabStop(b, 6);
    manager.setTabOrder(b, 1);
    manager.setTabOrder(a, 40);
    ASSERT_TRUE(manager.addTabStop(c, 1));
    ASSERT_TRUE(manager.addTabStop(d, 40));
    EXPECT_EQ(orders(), (std::vector<unsigned>{41, 2, 1, 40}));
    EXPECT_TRUE(manager.addTabStop(e, TabOrderManager::AfterAll));
    EXPECT_EQ(manager.getTabStopTabOrder(4), 42u);
}

TEST_F(Stops, PushingTheCurrentStopUpKeepsTabGoingFromIt) {
    manager.addTabStop(a, 0);
    manager.addTabStop(b, 1);
    manager.setTabStopFocus(a);
    manager.addTabStop(c, 0);
    EXPECT_EQ(manager.getCurrentTabOrder(), 1u);
    manager.incrementTabStop();
    EXPECT_EQ(current(), &b);
}

TEST_F(Stops, FindNextLooksForTheNearestUsableOrder) {
    manager.addTabStop(a, 10);
    manager.addTabStop(b, 4);
    manager.addTabStop(c, 7);
    EXPECT_EQ(manager.findNextHighestTabOrder(4, false), 2u);
    EXPECT_EQ(manager.findNextHighestTabOrder(4, true), 1u);
    EXPECT_EQ(manager.findNextHighestTabOrder(10, false), None);
    EXPECT_EQ(manager.findNextLowestTabOrder(10, false), 2u);
    EXPECT_EQ(manager.findNextLowestTabOrder(10, true), 0u);
    EXPECT_EQ(manager.findNextLowestTabOrder(4, false), None);
    c.active = false;
    EXPECT_EQ(manager.findNextHighestTabOrder(4, false), 0u);
    EXPECT_EQ(manager.findNextLowestTabOrder(10, false), 1u);
}

TEST_F(Stops, RefocusGivesTheCurrentStopTheFocusAgainOrStartsAtTheFirst) {
    manager.addTabStop(a, 3);
    manager.addTabStop(b, 1);
    EXPECT_EQ(manager.refocusCurrentTabStop(), 1u);
    EXPECT_EQ(manager.refocusCurrentTabStop(), 1u);
    EXPECT_EQ(log, (std::vector<std::string>{"+b", "+b"}));
}

TEST_F(Stops, AnObjectAsksEachOfItsManagersForTheFocusAndCanGiveItUp) {
    TabOrderManager other(false);
    manager.addTabStop(a, 0);
    manager.addTabStop(b, 1);
    other.addTabStop(b, 0);
    other.addTabStop(c, 1);
    manager.setTabStopFocus(a);
    other.setTabStopFocus(c);

    EXPECT_TRUE(b.setTabStopFocus());
    EXPECT_TRUE(manager.isTabStopFocus(b));
    EXPECT_TRUE(other.isTabStopFocus(b));
    b.relinquishTabStopFocus();
    EXPECT_FALSE(b.isTabStopFocus());
    EXPECT_EQ(manager.getCurrentTabStopIndex(), None);
    EXPECT_EQ(other.getCurrentTabStopIndex(), None);
    EXPECT_FALSE(d.setTabStopFocus());
}

TEST_F(Stops, AStopThatDiesLeavesEveryManagerItWasIn) {
    TabOrderManager other(true);
    auto doomed = std::make_unique<PlainStop>("x");
    manager.addTabStop(a, 0);
    manager.addTabStop(*doomed, 1);
    other.addTabStop(*doomed, 0);
    other.addTabStop(*doomed, 1);
    other.addTabStop(b, 2);
    manager.setTabStopFocus(*doomed);
    doomed.reset();
    EXPECT_EQ(manager.numTabStops(), 1u);
    EXPECT_EQ(manager.getCurrentTabStopIndex(), None);
    EXPECT_EQ(other.numTabStops(), 1u);
    EXPECT_EQ(manager.incrementTabStop(), 0u);
    EXPECT_EQ(other.incrementTabStop(), 0u);
}

TEST_F(Stops, AManagerThatDiesIsForgottenByItsStops) {
    auto doomed = std::make_unique<TabOrderManager>(true);
    doomed->addTabStop(a, 0);
    doomed->addTabStop(a, 1);
    manager.addTabStop(a, 0);
    doomed->setTabStopFocus(a);
    doomed.reset();
    EXPECT_FALSE(a.isTabStopFocus());
    EXPECT_TRUE(a.setTabStopFocus());
    EXPECT_TRUE(manager.isTabStopFocus(a));
}

TEST_F(Stops, PartsOfAHostAreAddedInTurnAtTheOrderGiven) {
    Parts host;
    host.parts = {&a, &b};
    ASSERT_TRUE(manager.addTabStopsFrom(host, TabOrderManager::AfterAll));
    host.parts = {&c, &d};
    ASSERT_TRUE(manager.addTabStopsFrom(&host, 0));
    // Each part added at the same order goes ahead of the one before it.
    EXPECT_EQ(orders(), (std::vector<unsigned>{2, 3, 1, 0}));

    host.parts = {};
    EXPECT_TRUE(manager.addTabStopsFrom(host, 0));
    host.parts = {&e, nullptr, &e};
    EXPECT_FALSE(manager.addTabStopsFrom(host, TabOrderManager::AfterAll));
    EXPECT_EQ(manager.numTabStops(), 5u);
    host.parts = {&a};
    EXPECT_FALSE(manager.addTabStopsFrom(host, TabOrderManager::AfterAll));
    EXPECT_FALSE(manager.addTabStopsFrom(nullptr, 0));
}
