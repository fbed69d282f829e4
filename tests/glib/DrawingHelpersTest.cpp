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
    int count = 0;
    EXPECT_EQ(window.paintedBounds(&count), Box(10, 10, 40, 30));
    EXPECT_EQ(count, 30 * 20 - 26 * 16);
    EXPECT_TRUE(sameColour(window.at(25, 28), kBlue));
}

TEST(DrawingFrames, OutlinedRectHasTheOutlineOnItsEdgeAndTheFillInside) {
    TestWindow window;
    Glib::drawOutlinedRect(window.renderer(), kEdge, kFill, Box(5, 5, 15, 12));
    EXPECT_TRUE(window.paintsExactly(Box(5, 5, 15, 12)));
    EXPECT_TRUE(sameColour(window.at(5, 8), kBlue));
    EXPECT_TRUE(sameColour(window.at(14, 11), kBlue));
    EXPECT_TRUE(sameColour(window.at(6, 6), kRed));
}

TEST(DrawingFrames, FocusRectDotsEveryOtherPixelOfTheBoxEdge) {
    TestWindow window;
    Glib::drawFocusRect(window.renderer(), Box(10, 10, 20, 16), Colour(0, 0, 0));
    for (int x = 10; x < 20; ++x) {
        EXPECT_EQ(painted(window, x, 10), x % 2 == 0) << x;
        EXPECT_EQ(painted(window, x, 15), x % 2 == 1) << x;
    }
    for (int y = 11; y < 15; ++y)
        EXPECT_EQ(painted(window, 19, y), y % 2 == 1) << y;
    EXPECT_EQ(window.paintedBounds(), Box(10, 10, 20, 16));
    EXPECT_FALSE(painted(window, 12, 11));
}

TEST(DrawingBevels, IndentBoxIsDarkAtTopLeftAndLightAtBottomRight) {
    TestWindow window;
    Glib::drawIndentBox(window.renderer(), kGrey, Box(0, 0, 20, 10));
    EXPECT_TRUE(window.paintsExactly(Box(0, 0, 20, 10)));
    NormalisedRGB const dark = fromColour(getIndentBoxColour(kGrey));
    EXPECT_LT(dark.r, 0.5f);
    EXPECT_TRUE(sameColour(window.at(10, 9), dark));
    EXPECT_TRUE(sameColour(window.at(0, 5), dark));
    EXPECT_GT(window.at(19, 5).r, 0.6f);
    EXPECT_TRUE(sameColour(window.at(10, 5), fromColour(kGrey)));
}

TEST(DrawingBevels, DepthBoxRaisedAndSunkSwapTheLightAndDarkSides) {
    // The red of the pixel `row` rows in from the top or the bottom edge.
    auto shade = [](int depth, bool top, int row) {
        TestWindow window;
        Glib::drawDepthBox(window.renderer(), kGrey, Box(0, 0, 30, 20), 3, depth);
        return window.at(15, top ? 19 - row : row).r;
    };
    EXPECT_GT(shade(1, true, 2), 0.5f);
    EXPECT_LT(shade(1, false, 0), 0.5f);
    EXPECT_LT(shade(-1, true, 0), 0.5f);
    EXPECT_GT(shade(-1, false, 2), 0.5f);
    // Inside the bevel, and everywhere when flat, the box has its own colour.
    EXPECT_NEAR(shade(1, true, 3), 0.5f, 0.01f);
    EXPECT_NEAR(shade(0, true, 0), 0.5f, 0.01f);
}

TEST(DrawingRoundedBoxes, FilledBoxRoundsOnlyTheCornersInTheMask) {
    struct Corner {
        unsigned bit;
        XY<int> pixel;
    } const corners[] = {{1, {10, 29}}, {2, {49, 29}}, {4, {10, 10}}, {8, {49, 10}}};
    for (unsigned mask : {0u, 1u | 8u, 2u | 4u}) {
        TestWindow window;
        Glib::drawRoundedRectFilled(window.renderer(), kFill, Box(10, 10, 50, 30), mask);
        for (Corner const& c : corners)
            EXPECT_EQ(painted(window, c.pixel.x, c.pixel.y), (mask & c.bit) == 0)
                << "mask " << mask << " corner " << c.bit;
        EXPECT_TRUE(sameColour(window.at(10, 20), kRed));
        EXPECT_TRUE(Box(10, 10, 50, 30).contains(window.paintedBounds()));
    }
}

TEST(DrawingRoundedBoxes, OutlineIsAnEdgeOfItsThicknessInsideTheBox) {
    TestWindow window;
    Glib::drawRoundedRectOutline(window.renderer(), kEdge, Box(10, 10, 50, 30), 2, 15, 1);
    for (XY<int> edge : {XY<int>(30, 10), XY<int>(30, 29), XY<int>(10, 20), XY<int>(49, 20)})
        EXPECT_TRUE(sameColour(window.at(edge.x, edge.y), kBlue));
    for (XY<int> inside : {XY<int>(30, 11), XY<int>(11, 20), XY<int>(10, 10)})
        EXPECT_FALSE(painted(window, inside.x, inside.y));
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
    EXPECT_FALSE(painted(window, 0, 0));
}

TEST(DrawingSeparators, TitleButtonSeparatorIsADarkThenALightLine) {
    TestWindow window;
    fill(window.renderer(), Box(0, 0, 40, 20), fromColour(kGrey));
    drawTitleButtonSeparator(window.renderer(), Box(10, 2, 30, 18));
    for (int y : {2, 17}) {
        EXPECT_LT(window.at(10, y).r, 0.45f);
        EXPECT_GT(window.at(11, y).r, 0.55f);
    }
    for (XY<int> outside : {XY<int>(10, 1), XY<int>(10, 18), XY<int>(12, 10)})
        EXPECT_TRUE(sameColour(window.at(outside.x, outside.y), fromColour(kGrey)));
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
