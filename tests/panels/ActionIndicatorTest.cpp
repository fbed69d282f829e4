#include "panels/ActionIndicator.h"

#include "GroupFixture.h"
#include "glob/EventLoop.h"

namespace {

class CountingIndicator : public ActionIndicator {
public:
    using ActionIndicator::ActionIndicator;
    void handleTimerEvent() override {
        ++ticks;
        ActionIndicator::handleTimerEvent();
    }
    int ticks = 0;
};

struct Indicators : GroupFixture {
    CountingIndicator* make() {
        return add<CountingIndicator>(StandardPanel::InitArgs(48, 48), {40, 40});
    }
    std::vector<NormalisedRGB> ring(Glob* g) {
        std::vector<NormalisedRGB> out;
        for (XY<int> p : {XY<int>(24, 44), XY<int>(44, 24), XY<int>(24, 4), XY<int>(4, 24)})
            out.push_back(driver.pixel(g, p));
        return out;
    }
};

} // namespace

TEST_F(Indicators, AVisibleIndicatorTurnsOnTheVirtualClock) {
    CountingIndicator* indicator = make();
    driver.processEvents();
    std::vector<NormalisedRGB> before = ring(indicator);
    driver.advanceTime(ActionIndicator::turnPeriodMs / 4);
    EXPECT_GT(indicator->ticks, 0);
    EXPECT_NE(ring(indicator), before) << "the arc has moved round";
    driver.advanceTime(ActionIndicator::turnPeriodMs * 3 / 4);
    EXPECT_EQ(ring(indicator), before) << "a whole turn brings it back";
}

TEST_F(Indicators, OnlyAVisibleLiveIndicatorHasATicker) {
    CountingIndicator* indicator = make();
    indicator->setVisible(false);
    EXPECT_FALSE(EventLoop::instance().hasTicker(indicator, EventCode::Timer));
    driver.advanceTime(500);
    EXPECT_EQ(indicator->ticks, 0);

    indicator->setVisible(true);
    EXPECT_TRUE(EventLoop::instance().hasTicker(indicator, EventCode::Timer));
    driver.advanceTime(100);
    EXPECT_GT(indicator->ticks, 0);
    delete indicator;
    EXPECT_FALSE(EventLoop::instance().hasTicker(indicator, EventCode::Timer));
    driver.advanceTime(100);
}
