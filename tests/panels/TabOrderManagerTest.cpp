#include "panels/TabOrderManager.h"
#include "panels/TabOrderableHost.h"

#include "panels/PlainStop.h"

#include <gtest/gtest.h>

#include <memory>

// Adding, removing, enabling and stepping are checked against a model in TabNavigationTest; these
// cover what that walk does not reach: the order limit, focus notifications, explicit reordering
// and stops shared between managers.

namespace {

constexpr unsigned None = TabOrderManager::None;
using Log = std::vector<std::string>;

struct Stops : ::testing::Test {
    Log log;
    PlainStop a{"a", log};
    PlainStop b{"b", log};
    PlainStop c{"c", log};
    PlainStop d{"d", log};
    TabOrderManager manager{false};

    std::vector<unsigned> orders() const {
        std::vector<unsigned> out;
        for (unsigned i = 0; i < manager.numTabStops(); ++i)
            out.push_back(manager.getTabStopTabOrder(i));
        return out;
    }
};

struct Parts : TabOrderableHost {
    std::vector<TabOrderable*> parts;
    void getTabOrderables(std::vector<TabOrderable*>& out) override {
        out.insert(out.end(), parts.begin(), parts.end());
    }
};

} // namespace

TEST_F(Stops, OrdersAboveTheLimitFailAndNoRunIsPushedPastIt) {
    ASSERT_TRUE(manager.addTabStop(a, 10));
    EXPECT_FALSE(manager.addTabStop(b, TabOrderManager::MaxTabOrder + 1));
    ASSERT_TRUE(manager.addTabStop(b, TabOrderManager::MaxTabOrder));
    EXPECT_FALSE(manager.addTabStop(c, TabOrderManager::AfterAll));
    EXPECT_FALSE(manager.addTabStop(c, TabOrderManager::MaxTabOrder));
    EXPECT_FALSE(manager.setTabOrder(a, TabOrderManager::MaxTabOrder + 1));
    EXPECT_EQ(orders(), (std::vector<unsigned>{10, TabOrderManager::MaxTabOrder}));
}

TEST_F(Stops, TheNewStopHearsOfTheFocusBeforeTheOldLosesItAndTabClearsItWhenNoneCanTakeIt) {
    EXPECT_EQ(manager.refocusCurrentTabStop(), None);
    manager.addTabStop(a, 20);
    manager.addTabStop(b, 5);
    // Refocus starts at the lowest order, then gives the current stop the focus again.
    EXPECT_EQ(manager.refocusCurrentTabStop(), 1u);
    EXPECT_EQ(manager.refocusCurrentTabStop(), 1u);
    manager.incrementTabStop();
    manager.decrementTabStop();
    b.active = false;
    EXPECT_EQ(manager.incrementTabStop(), 0u);
    EXPECT_EQ(manager.incrementTabStop(), 0u);
    a.active = false;
    EXPECT_EQ(manager.incrementTabStop(), None);
    EXPECT_EQ(manager.getCurrentTabOrder(), None);
    EXPECT_EQ(log, (Log{"+b", "+b", "+a", "-b", "+<b", "-a", "+a", "-b", "+a", "-a"}));
}

TEST_F(Stops, SetTabOrderMakesWayAndLaterAddsStillMakeWayAroundTheMovedStops) {
    manager.addTabStop(a, 0);
    manager.addTabStop(b, 1);
    manager.addTabStop(c, 2);
    ASSERT_TRUE(manager.setTabOrder(c, 0));
    ASSERT_TRUE(manager.setTabOrder(0u, 9));
    EXPECT_FALSE(manager.setTabOrder(d, 3));
    EXPECT_EQ(orders(), (std::vector<unsigned>{9, 2, 0}));
    ASSERT_TRUE(manager.addTabStop(d, 9));
    EXPECT_EQ(orders(), (std::vector<unsigned>{10, 2, 0, 9}));

    std::vector<TabOrderable*> visited;
    for (int i = 0; i < 4; ++i) {
        manager.incrementTabStop();
        visited.push_back(manager.getTabStopObject(manager.getCurrentTabStopIndex()));
    }
    EXPECT_EQ(visited, (std::vector<TabOrderable*>{&c, &b, &d, &a}));
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
    EXPECT_EQ(manager.getCurrentTabStopIndex(), None);
    EXPECT_EQ(other.getCurrentTabStopIndex(), None);
    EXPECT_FALSE(d.setTabStopFocus());
}

TEST_F(Stops, StopsAndManagersMayDieInEitherOrderEvenWithDuplicateEntries) {
    auto lenient = std::make_unique<TabOrderManager>(true);
    auto doomed = std::make_unique<PlainStop>("x", log);
    manager.addTabStop(a, 0);
    manager.addTabStop(*doomed, 1);
    lenient->addTabStop(*doomed, 0);
    ASSERT_TRUE(lenient->addTabStop(*doomed, 1));
    lenient->addTabStop(a, 2);
    lenient->addTabStop(a, 3);
    manager.setTabStopFocus(*doomed);
    doomed.reset();
    EXPECT_EQ(manager.numTabStops(), 1u);
    EXPECT_EQ(manager.getCurrentTabStopIndex(), None);
    EXPECT_EQ(lenient->numTabStops(), 2u);
    lenient->addTabStop(c, 4);
    lenient->addTabStop(c, 5);
    EXPECT_TRUE(lenient->removeTabStop(c));
    EXPECT_EQ(lenient->numTabStops(), 2u);
    // The removed object has forgotten the manager.
    EXPECT_FALSE(c.setTabStopFocus());

    lenient->setTabStopFocus(a);
    lenient.reset();
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

    host.parts = {&a, nullptr};
    EXPECT_FALSE(manager.addTabStopsFrom(host, TabOrderManager::AfterAll));
    EXPECT_FALSE(manager.addTabStopsFrom(nullptr, 0));
    EXPECT_EQ(manager.numTabStops(), 4u);
}
