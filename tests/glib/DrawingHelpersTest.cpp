#include "DrawTestWindow.h"

#include "glib/DrawingHelpers.h"
#include "glib/PathCalls.h"
#include "glib/StateSaver.h"

#include <gtest/gtest.h>

using namespace DrawTest;

namespace {

Colour const kGrey(0.5, 0.5, 0.5);
Colour const kEdge(0.0, 0.0, 1.0);
Colour const kFill(1.0, 0.0, 0.0);

bool painted(TestWindow const& w, int x, int y) {
    return w.at(x, y).a > 0;
}

TEST(DrawingFrames, FrameIsABandOfItsThicknessInsideTheBox) {
    TestWindow window;
    Glib::drawFrame(window.renderer(), kEdge, Box(10, 10, 40, 30), 2);
    EXPECT_TRUE(window.paintedBounds() == Box(10, 10, 40, 30));
    for (int i : {0, 1}) {
        EXPECT_TRUE(sameColour(window.at(10 + i, 20), kBlue));
        EXPECT_TRUE(sameColour(window.at(39 - i, 20), kBlue));
        EXPECT_TRUE(sameColour(window.at(25, 10 + i), kBlue));
        EXPECT_TRUE(sameColour(window.at(25, 29 - i), kBlue));
    }
    EXPECT_FALSE(painted(window, 12, 20));
    EXPECT_FALSE(painted(window, 25, 27));
    int count = 0;
    window.paintedBounds(&count);
    EXPECT_EQ(count, 30 * 20 - 26 * 16);

    TestWindow thick;
    Glib::drawFrame(thick.renderer(), kEdge, Box(0, 0, 6, 6), 3);
    EXPECT_TRUE(thick.paintsExactly(Box(0, 0, 6, 6)));
}

TEST(DrawingFrames, OutlinedRectHasTheOutlineOnItsEdgeAndTheFillInside) {
    TestWindow window;
    Glib::drawOutlinedRect(window.renderer(), kEdge, kFill, Box(5, 5, 15, 12));
    EXPECT_TRUE(window.paintsExactly(Box(5, 5, 15, 12)));
    EXPECT_TRUE(sameColour(window.at(5, 8), kBlue));
    EXPECT_TRUE(sameColour(window.at(14, 11), kBlue));
    EXPECT_TRUE(sameColour(window.at(6, 6), kRed));
    EXPECT_TRUE(sameColour(window.at(13, 10), kRed));
}

TEST(DrawingFrames, FocusRectDotsEveryOtherPixelOfTheBoxEdge) {
    TestWindow window;
    Glib::drawFocusRect(window.renderer(), Box(10, 10, 20, 16), Colour(0, 0, 0));
    for (int x = 10; x < 20; ++x) {
        EXPECT_EQ(painted(window, x, 10), (x + 10) % 2 == 0) << x;
        EXPECT_EQ(painted(window, x, 15), (x + 15) % 2 == 0) << x;
    }
    for (int y = 11; y < 15; ++y) {
        EXPECT_EQ(painted(window, 10, y), (10 + y) % 2 == 0) << y;
        EXPECT_EQ(painted(window, 19, y), (19 + y) % 2 == 0) << y;
    }
    EXPECT_TRUE(Box(10, 10, 20, 16).contains(window.paintedBounds()));
    for (int x = 11; x < 19; ++x)
        EXPECT_FALSE(painted(window, x, 11));
    EXPECT_EQ(window.surface().takeDamage(), std::vector<Box>{Box(10, 10, 20, 16)});
}

TEST(DrawingBevels, IndentBoxIsDarkAtTopLeftAndLightAtBottomRight) {
    TestWindow window;
    Glib::drawIndentBox(window.renderer(), kGrey, Box(0, 0, 20, 10));
    EXPECT_TRUE(window.paintsExactly(Box(0, 0, 20, 10)));
    NormalisedRGB const dark = fromColour(getIndentBoxColour(kGrey));
    EXPECT_LT(getIndentBoxColour(kGrey).brightness(), kGrey.brightness());
    EXPECT_TRUE(sameColour(window.at(10, 9), dark));
    EXPECT_TRUE(sameColour(window.at(0, 5), dark));
    EXPECT_GT(window.at(10, 0).r, 0.6f);
    EXPECT_GT(window.at(19, 5).r, 0.6f);
    EXPECT_TRUE(sameColour(window.at(10, 5), fromColour(kGrey)));
}

TEST(DrawingBevels, DepthBoxRaisedAndSunkSwapTheLightAndDarkSides) {
    auto topOf = [](int depth, int row) {
        TestWindow window;
        Glib::drawDepthBox(window.renderer(), kGrey, Box(0, 0, 30, 20), 3, depth);
        return window.at(15, 19 - row).r;
    };
    auto bottomOf = [](int depth, int row) {
        TestWindow window;
        Glib::drawDepthBox(window.renderer(), kGrey, Box(0, 0, 30, 20), 3, depth);
        return window.at(15, row).r;
    };
    for (int row : {0, 2}) {
        EXPECT_GT(topOf(1, row), 0.5f);
        EXPECT_LT(bottomOf(1, row), 0.5f);
        EXPECT_LT(topOf(-1, row), 0.5f);
        EXPECT_GT(bottomOf(-1, row), 0.5f);
    }
    // Inside the bevel, and everywhere when flat, the box has its own colour.
    EXPECT_NEAR(topOf(1, 3), 0.5f, 0.01f);
    EXPECT_NEAR(topOf(0, 0), 0.5f, 0.01f);
}

TEST(DrawingRoundedBoxes, FilledBoxRoundsOnlyTheCornersInTheMask) {
    struct Corner {
        unsigned bit;
        XY<int> pixel;
    };
    std::vector<Corner> const corners = {
        {1, {10, 29}}, {2, {49, 29}}, {4, {10, 10}}, {8, {49, 10}}};
    for (unsigned mask : {0u, 1u, 2u, 4u, 8u, 6u, 15u}) {
        TestWindow window;
        Glib::drawRoundedRectFilled(window.renderer(), kFill, Box(10, 10, 50, 30), mask);
        for (Corner const& c : corners)
            EXPECT_EQ(painted(window, c.pixel.x, c.pixel.y), (mask & c.bit) == 0)
                << "mask " << mask << " corner " << c.bit;
        EXPECT_TRUE(sameColour(window.at(30, 20), kRed));
        EXPECT_TRUE(sameColour(window.at(10, 20), kRed));
        EXPECT_TRUE(Box(10, 10, 50, 30).contains(window.paintedBounds()));
    }
    EXPECT_EQ(Glib::cornerRadius(), 4.0);
}

TEST(DrawingRoundedBoxes, OutlineOfWidthTwoAndThicknessOneIsAOnePixelEdge) {
    TestWindow window;
    Glib::drawRoundedRectOutline(window.renderer(), kEdge, Box(10, 10, 50, 30), 2, 15, 1);
    EXPECT_TRUE(sameColour(window.at(30, 10), kBlue));
    EXPECT_TRUE(sameColour(window.at(30, 29), kBlue));
    EXPECT_TRUE(sameColour(window.at(10, 20), kBlue));
    EXPECT_TRUE(sameColour(window.at(49, 20), kBlue));
    EXPECT_FALSE(painted(window, 30, 11));
    EXPECT_FALSE(painted(window, 11, 20));
    EXPECT_FALSE(painted(window, 30, 20));
    EXPECT_FALSE(painted(window, 10, 10));
    EXPECT_TRUE(Box(10, 10, 50, 30).contains(window.paintedBounds()));

    // A thicker edge band moves the stroke inward.
    TestWindow inset;
    Glib::drawRoundedRectOutline(inset.renderer(), kEdge, Box(10, 10, 50, 30), 2, 0, 3);
    EXPECT_FALSE(painted(inset, 30, 10));
    EXPECT_TRUE(sameColour(inset.at(30, 11), kBlue));
    EXPECT_TRUE(sameColour(inset.at(30, 12), kBlue));
    EXPECT_FALSE(painted(inset, 30, 13));
}

TEST(DrawingRoundedBoxes, RoundedRectFillsInsideItsEdge) {
    TestWindow window;
    Glib::drawRoundedRect(window.renderer(), kFill, kEdge, Box(0, 0, 30, 20), 2, 15, 1);
    EXPECT_TRUE(sameColour(window.at(15, 0), kBlue));
    EXPECT_TRUE(sameColour(window.at(15, 1), kRed));
    EXPECT_TRUE(sameColour(window.at(15, 10), kRed));
    EXPECT_FALSE(painted(window, 0, 0));
    EXPECT_EQ(window.surface().takeDamage(), std::vector<Box>{Box(0, 0, 30, 20)});
}

TEST(DrawingSeparators, TitleButtonSeparatorIsADarkThenALightLine) {
    TestWindow window;
    fill(window.renderer(), Box(0, 0, 40, 20), fromColour(kGrey));
    drawTitleButtonSeparator(window.renderer(), Box(10, 2, 30, 18));
    for (int y : {2, 10, 17}) {
        EXPECT_LT(window.at(10, y).r, 0.45f);
        EXPECT_GT(window.at(11, y).r, 0.55f);
    }
    EXPECT_TRUE(sameColour(window.at(10, 1), fromColour(kGrey)));
    EXPECT_TRUE(sameColour(window.at(10, 18), fromColour(kGrey)));
    EXPECT_TRUE(sameColour(window.at(12, 10), fromColour(kGrey)));
}

TEST(DrawingOnTheCurrentCanvas, IndentBoxGoesToTheCurrentCanvasAtTheTranslation) {
    TestWindow window;
    auto child = TestWindow::child(window.top(), Box(20, 20, 80, 80));
    Glib::StateSaver saver;
    glib_setcanvas(child.get());
    glib_translate(5, 3);
    indent_box(kGrey, 0, 0, 10, 6);
    EXPECT_TRUE(window.paintsExactly(Box(25, 23, 35, 29)));
    EXPECT_TRUE(sameColour(window.at(25, 28), fromColour(getIndentBoxColour(kGrey))));
}

} // namespace
