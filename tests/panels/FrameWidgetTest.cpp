#include "panels/FrameWidget.h"

#include "GroupFixture.h"

using Frames = GroupFixture;

TEST_F(Frames, ThreeBandsOfWindowAndBlendLeaveTheMiddleUnpaintedAndDropIndicatorsUseSelection) {
    auto* frame = add<FrameWidget>(GlobCreationInfo(100, 80), {40, 40});
    driver.processEvents();
    int band = FrameWidget::getThickness() / 4;
    ASSERT_GT(band, 0);
    EXPECT_EQ(FrameWidget::getThickness(), 4 * UifStd::getIndentWidth());
    Colour base = frame->getCol();
    Colour blend = Colour::mix(base, frame->getPalette().text(), 0.2);
    EXPECT_TRUE(nearColour(driver.pixel(frame, {0, 40}), blend));
    EXPECT_TRUE(nearColour(driver.pixel(frame, {band, 40}), base));
    EXPECT_TRUE(nearColour(driver.pixel(frame, {3 * band, 40}), blend));
    EXPECT_TRUE(nearColour(driver.pixel(frame, {50, 40}), Colour(0.9, 0.9, 0.9)))
        << "the window shows through the middle";

    auto* drop = add<DropIndicator>(GlobCreationInfo(100, 80), {200, 40});
    driver.processEvents();
    EXPECT_TRUE(nearColour(driver.pixel(drop, {band, 40}), drop->getPalette().selection()));
}
