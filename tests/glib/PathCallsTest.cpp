#include "DrawTestWindow.h"

#include "glib/PathCalls.h"
#include "glib/StateSaver.h"

#include <gtest/gtest.h>

using namespace DrawTest;

namespace {

// Every test draws on a child canvas at (20, 10) of a fresh window, and leaves the drawing state
// as it found it.
class PathCalls : public ::testing::Test {
protected:
    PathCalls() : canvas_(TestWindow::child(window_.top(), Box(20, 10, 70, 50))) {
        glib_setcanvas(canvas_.get());
        glib_newpath();
        window_.surface().takeDamage();
    }

    TestWindow window_;
    std::unique_ptr<Canvas> canvas_;
    Glib::StateSaver saver_;
};

Qor::Ptr<iRegion> boxRegion(Box const& box) {
    Glib::RegionBuilder builder;
    builder.appendRect(box);
    return builder.create();
}

TEST_F(PathCalls, FillAndStrokePaintThePathInTheCurrentColourAndUseItUp) {
    glib_setcolour(Colour(1, 0, 0));
    glib_addrect(2, 3, 5, 4);
    glib_addrect(10, 3, 2, 2);
    glib_fill();
    int count = 0;
    EXPECT_EQ(window_.paintedBounds(&count), Box(22, 13, 32, 17));
    EXPECT_EQ(count, 5 * 4 + 2 * 2);
    EXPECT_TRUE(sameColour(window_.at(22, 13), kRed));
    EXPECT_TRUE(glib_pathToRegion()->isEmpty());

    TestWindow window;
    auto canvas = TestWindow::child(window.top(), Box(20, 10, 70, 50));
    glib_setcanvas(canvas.get());
    glib_moveto(2, 5.5);
    glib_lineto(12, 5.5);
    glib_stroke();
    EXPECT_TRUE(window.paintsExactly(Box(22, 15, 32, 16)));
    EXPECT_TRUE(glib_pathToRegion()->isEmpty());
}

TEST_F(PathCalls, RegionOfThePathFollowsItsLinesArcsAndSoftCorners) {
    glib_moveto(0, 0);
    glib_lineto(20, 0);
    glib_lineto(0, 20);
    glib_closepath();
    Qor::Ptr<iRegion> triangle = glib_pathToRegion();
    EXPECT_TRUE(triangle->contains(XY<int>(18, 0)));
    EXPECT_FALSE(triangle->contains(XY<int>(15, 15)));

    glib_newpath();
    glib_moveto(10, 10);
    glib_arc1(10, 10, 8, 0, 180);
    glib_closepath();
    EXPECT_EQ(glib_pathToRegion()->bounds(), Box(2, 10, 18, 18));

    glib_newpath();
    glib_addsoftrect(0, 0, 20, 10, 4);
    Qor::Ptr<iRegion> soft = glib_pathToRegion();
    EXPECT_EQ(soft->bounds(), Box(0, 0, 20, 10));
    EXPECT_FALSE(soft->contains(XY<int>(19, 9)));

    glib_newpath();
    glib_addsoftrect(3, 4, 20, 10, 0);
    EXPECT_TRUE(region_eq(glib_pathToRegion(), boxRegion(Box(3, 4, 23, 14))));
}

TEST_F(PathCalls, TranslationOffsetsDrawingAndPathsUntilGrestore) {
    glib_gsave();
    glib_translate(10, 5);
    glib_translate(1, 1);
    glib_setcolour(Colour(0, 1, 0));
    glib_rect(0, 0, 2, 2);
    EXPECT_TRUE(window_.paintsExactly(Box(31, 16, 33, 18)));
    glib_addrect(0, 0, 3, 3);
    EXPECT_TRUE(region_eq(glib_pathToRegion(), boxRegion(Box(11, 6, 14, 9))));
    glib_grestore();

    // The path, colour and translation are back as they were.
    EXPECT_TRUE(glib_pathToRegion()->isEmpty());
    glib_rect(0, 0, 1, 1);
    EXPECT_TRUE(sameColour(window_.at(20, 10), NormalisedRGB(0, 0, 0)));
}

TEST_F(PathCalls, StateSaverBringsBackTheCanvasTranslationColourAndPath) {
    auto other = TestWindow::child(window_.top(), Box(0, 0, 10, 10));
    glib_setcolour(Colour(1, 0, 0));
    glib_translate(2, 2);
    glib_addrect(0, 0, 4, 4);
    {
        Glib::StateSaver inner;
        glib_setcanvas(other.get());
        glib_translate(5, 5);
        glib_setcolour(Colour(0, 0, 1));
        glib_newpath();
        glib_addrect(0, 0, 1, 1);
        glib_gsave();
    }
    EXPECT_EQ(glib_currentcanvas(), canvas_.get());
    EXPECT_TRUE(region_eq(glib_pathToRegion(), boxRegion(Box(2, 2, 6, 6))));
    glib_rect(0, 0, 1, 1);
    EXPECT_TRUE(sameColour(window_.at(22, 12), kRed));
    glib_grestore();
}

TEST_F(PathCalls, CopyMovesPixelsToTheTranslationEvenWhenTheyOverlap) {
    NormalisedRGB const stripes[] = {kRed, kGreen, kBlue, kRed};
    for (int x = 0; x < 4; ++x)
        fill(canvas_->renderer(), Box(x, 0, x + 1, 3), stripes[x]);
    window_.surface().takeDamage();

    glib_gsave();
    glib_translate(1, 0);
    glib_copy(0, 0, 4, 3);
    glib_grestore();
    EXPECT_TRUE(sameColour(window_.at(20, 10), kRed));
    for (int x = 0; x < 4; ++x)
        EXPECT_TRUE(sameColour(window_.at(21 + x, 11), stripes[x])) << x;
    EXPECT_EQ(window_.surface().takeDamage(), std::vector<Box>{Box(21, 10, 25, 13)});
}

TEST_F(PathCalls, CopyStaysWithinTheCanvas) {
    fill(canvas_->renderer(), Box(40, 0, 50, 10), kBlue);
    glib_translate(5, 35);
    glib_copy(40, 0, 10, 10);
    // Only the part that lands on the canvas (45..50 by 35..40) arrives.
    int count = 0;
    EXPECT_EQ(window_.pixelsWhere([](NormalisedRGB const& p) { return p.a > 0; }, &count,
                                  Box(0, 40, 120, 90)),
              Box(65, 45, 70, 50));
    EXPECT_EQ(count, 25);
}

TEST_F(PathCalls, RoundedOutlineKeepsToItsClip) {
    Box const clip(0, 0, 20, 20);
    glib_roundedRectOutline(Colour(0, 0, 1), Box(0, 0, 40, 20), 2, &clip, 15);
    EXPECT_TRUE(sameColour(window_.at(30, 10), kBlue));
    EXPECT_EQ(window_.paintedBounds().x2, 40);
    // The renderer's own clip is back afterwards.
    fill(canvas_->renderer(), Box(0, 0, 50, 40), kRed);
    EXPECT_TRUE(window_.paintsExactly(Box(20, 10, 70, 50)));
}

TEST_F(PathCalls, ReshapingGivesTheCanvasTheRegionOfThePath) {
    glib_addsoftrect(0, 0, 50, 40, 6);
    glib_reshapecanvas(canvas_.get(), glib_pathToRegion());
    EXPECT_FALSE(canvas_->isContained(XY<int>(0, 0)));
    EXPECT_TRUE(canvas_->isContained(XY<int>(25, 20)));
    glib_reshapecanvas(canvas_.get(), Qor::Ptr<iRegion>());
    EXPECT_TRUE(canvas_->isContained(XY<int>(0, 0)));
}

TEST(PathCallsWithoutACanvas, DrawingIsHarmless) {
    Glib::StateSaver saver;
    glib_setcanvas(nullptr);
    glib_addrect(0, 0, 5, 5);
    glib_fill();
    glib_rect(0, 0, 5, 5);
    glib_copy(0, 0, 5, 5);
    glib_roundedRectOutline(Colour(0, 0, 0), Box(0, 0, 5, 5), 1, nullptr, 15);
    glib_grestore();
    EXPECT_EQ(glib_currentcanvas(), nullptr);
    EXPECT_TRUE(glib_pathToRegion()->isEmpty());
}

} // namespace
