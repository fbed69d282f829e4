#include "buttons/Gauge.h"

#include "glob/GlobManager.h"
#include "glob/RecordingGlob.h"
#include "support/ColourMatch.h"
#include "testing/UiTestDriver.h"

#include <gtest/gtest.h>

#include <cmath>

namespace {

class CountingGauge : public Gauge {
public:
    using Gauge::Gauge;
    void drawBackground() override {
        ++paintings;
        Gauge::drawBackground();
    }
    int paintings = 0;
};

struct Gauges : ::testing::Test {
    UiTestDriver driver;
    RecordingGlob* window = makeWindow({100, 100}, {300, 100});
    CountingGauge* gauge = nullptr;

    void SetUp() override {
        Gauge::InitArgs args(200, 20);
        args.canvas = window->canvas();
        args.fillColour = Colour(0.0, 0.6, 0.0);
        args.emptyColour = Colour(1.0, 1.0, 1.0);
        gauge = new CountingGauge(args);
        window->addChild(gauge, Glob::BottomLeft(20, 20));
        driver.processEvents();
        gauge->display();
        gauge->paintings = 0;
    }
};

} // namespace

TEST_F(Gauges, DisplayRepaintsOnlyWhenTheFilledLengthOrTheTextChanges) {
    gauge->setMeasure(0.5);
    gauge->display();
    gauge->display();
    EXPECT_EQ(gauge->paintings, 1);
    // 200 * 0.501 rounds to the same 100 pixels; out-of-range measures are ignored.
    for (double same : {0.501, 1.5, -0.1, 1.0000001})
        gauge->setMeasure(same);
    EXPECT_EQ(gauge->getMeasure(), 0.501);
    gauge->display();
    EXPECT_EQ(gauge->paintings, 1);
    gauge->setMeasure(0.51);
    gauge->display();
    gauge->setText(L"Copying");
    gauge->display();
    gauge->display();
    EXPECT_EQ(gauge->paintings, 3);
    gauge->setMeasure(1.0);
    EXPECT_EQ(gauge->getMeasure(), 1.0);
}

TEST_F(Gauges, TheFilledLengthIsInTheFirstColourAndTheRestInTheSecond) {
    for (int edge : {50, 150}) {
        gauge->setMeasure(edge / 200.0);
        gauge->display();
        EXPECT_TRUE(nearColour(driver.pixel(gauge, {edge - 5, 3}), NormalisedRGB(0.0f, 0.6f, 0.0f)))
            << edge;
        EXPECT_TRUE(nearColour(driver.pixel(gauge, {edge + 5, 3}), NormalisedRGB(1.0f, 1.0f, 1.0f)))
            << edge;
    }
}
