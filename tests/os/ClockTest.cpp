#include "os/Clock.h"

#include <gtest/gtest.h>

namespace {
struct ManualClock : iClock {
    double now = 0;
    double msecsNow() const override { return now; }
};
} // namespace

TEST(Clock, AnInstalledClockReplacesSystemTimeUntilRemoved) {
    double before = msecsNow();
    ManualClock manual;
    manual.now = 5.5;
    EXPECT_EQ(setClock(&manual), nullptr);
    EXPECT_EQ(msecsNow(), 5.5);
    manual.now = 1000;
    EXPECT_EQ(msecsNow(), 1000);
    EXPECT_EQ(setClock(nullptr), &manual);
    EXPECT_GE(msecsNow(), before);
}

TEST(Clock, LifeSupportNestsAndNeverGoesNegative) {
    SystemWatchdog::endLifeSupport();
    EXPECT_FALSE(SystemWatchdog::onLifeSupport());
    SystemWatchdog::beginLifeSupport();
    SystemWatchdog::beginLifeSupport();
    SystemWatchdog::endLifeSupport();
    EXPECT_TRUE(SystemWatchdog::onLifeSupport());
    SystemWatchdog::endLifeSupport();
    EXPECT_FALSE(SystemWatchdog::onLifeSupport());
}
