#include "DrawTestWindow.h"

#include "glib/HostImage.h"

#include <gtest/gtest.h>

#include <vector>

using namespace DrawTest;

namespace {

Glib::LineDescription line(XY<int> from, XY<int> to, double width = 1.0) {
    Glib::LineDescription d;
    d.from = from;
    d.to = to;
    d.colour = kRed;
    d.width = width;
    return d;
}

Glib::EllipseDescription ellipse(Box const& box, bool filled, double startDeg = 0,
                                 double extentDeg = 360) {
    Glib::EllipseDescription d;
    d.box = box;
    d.colour = kBlue;
    d.filled = filled;
    d.startDeg = startDeg;
    d.extentDeg = extentDeg;
    return d;
}

Glib::ImageDescription redOverBlue(XY<int> size, Box const& box) {
    auto image = Qor::makePtr<HostImage>(size.x, size.y);
    image->fill(Box(0, size.y / 2, size.x, size.y), kRed);
    image->fill(Box(0, 0, size.x, size.y / 2), kBlue);
    Glib::ImageDescription d;
    d.image = image;
    d.box = box;
    return d;
}

TEST(CanvasRendererLines, StraightLinesCoverExactlyTheirPixels) {
    struct Case {
        XY<int> from, to;
        double width;
        Box pixels;
    } const cases[] = {
        {{15, 10}, {5, 10}, 1, Box(5, 10, 16, 11)},
        {{4, 4}, {4, 4}, 1, Box(4, 4, 5, 5)},
        // A wider line keeps its row in the middle; an even width's extra row goes above.
        {{5, 10}, {15, 10}, 3, Box(5, 9, 16, 12)},
        {{5, 10}, {15, 10}, 2, Box(5, 10, 16, 12)},
        {{20, 5}, {20, 9}, 2, Box(20, 5, 22, 10)},
    };
    for (Case const& c : cases) {
        TestWindow window;
        window.renderer().renderPrimitive(line(c.from, c.to, c.width));
        EXPECT_TRUE(window.paintsExactly(c.pixels)) << c.from.x << "," << c.from.y;
        EXPECT_TRUE(sameColour(window.at(c.pixels.x1, c.pixels.y1), kRed));
    }
}

TEST(CanvasRendererLines, DiagonalLineReachesBothEndsAndStaysNearThem) {
    TestWindow window;
    window.renderer().renderPrimitive(line({10, 10}, {30, 30}));
    for (int i : {10, 20, 30})
        EXPECT_GT(window.at(i, i).a, 0.4f);
    EXPECT_EQ(window.at(30, 10).a, 0.0f);
    EXPECT_TRUE(Box(8, 8, 33, 33).contains(window.paintedBounds()));
}

TEST(CanvasRendererCoordinates, YRunsUpFromTheCanvasBottomLeftCorner) {
    TestWindow window(XY<int>(40, 30));
    auto child = TestWindow::child(window.top(), Box(10, 5, 30, 25));
    fill(child->renderer(), Box(0, 0, 3, 2), kGreen);
    EXPECT_TRUE(window.paintsExactly(Box(10, 5, 13, 7)));
}

TEST(CanvasRendererClipping, ChildrenDrawNothingOutsideTheirAncestors) {
    TestWindow window;
    auto parent = TestWindow::child(window.top(), Box(20, 20, 60, 60));
    // Sticks out of its parent at the top and right.
    auto child = TestWindow::child(parent.get(), Box(30, 30, 70, 70));
    fill(child->renderer(), Box(0, 0, 40, 40), kRed);
    EXPECT_TRUE(window.paintsExactly(Box(50, 50, 60, 60)));

    TestWindow second;
    auto middle = TestWindow::child(second.top(), Box(20, 20, 60, 60));
    auto inner = TestWindow::child(middle.get(), Box(-10, 10, 30, 30));
    // The grandchild lies partly outside its grandparent too.
    auto grandchild = TestWindow::child(inner.get(), Box(-20, -5, 20, 25));
    fill(grandchild->renderer(), Box(-50, -50, 100, 100), kBlue);
    EXPECT_TRUE(second.paintsExactly(Box(20, 30, 30, 50)));
}

TEST(CanvasRendererClipping, ClipRectLimitsDrawingWithinTheCanvas) {
    TestWindow window;
    auto child = TestWindow::child(window.top(), Box(10, 10, 50, 50));
    child->renderer().setClipRect(Box(5, 5, 15, 15));
    fill(child->renderer(), Box(0, 0, 40, 40), kRed);
    EXPECT_TRUE(window.paintsExactly(Box(15, 15, 25, 25)));
}

TEST(CanvasRendererDamage, DrawingMarksOnlyWhatChangedInWindowCoordinates) {
    TestWindow window;
    auto child = TestWindow::child(window.top(), Box(20, 30, 60, 70));
    fill(child->renderer(), Box(2, 3, 7, 9), kRed);
    EXPECT_EQ(window.surface().takeDamage(), std::vector<Box>{Box(22, 33, 27, 39)});

    // Damage is cut to what can show.
    fill(child->renderer(), Box(35, 35, 50, 50), kRed);
    EXPECT_EQ(window.surface().takeDamage(), std::vector<Box>{Box(55, 65, 60, 70)});

    child->renderer().renderPrimitive(line({1, 1}, {4, 1}));
    child->renderer().renderPrimitive(ellipse(Box(10, 10, 20, 16), true));
    EXPECT_EQ(window.surface().takeDamage(),
              (std::vector<Box>{Box(21, 31, 25, 32), Box(30, 40, 40, 46)}));
}

TEST(CanvasRendererEllipses, FilledCoversItsCentreAndOutlineRingsItBothWithinTheBox) {
    TestWindow filled;
    filled.renderer().renderPrimitive(ellipse(Box(10, 10, 50, 30), true));
    EXPECT_TRUE(sameColour(filled.at(30, 20), kBlue));
    EXPECT_EQ(filled.at(10, 10).a, 0.0f);
    EXPECT_TRUE(Box(10, 10, 50, 30).contains(filled.paintedBounds()));

    TestWindow outline;
    outline.renderer().renderPrimitive(ellipse(Box(10, 10, 50, 50), false));
    EXPECT_EQ(outline.at(30, 30).a, 0.0f);
    EXPECT_GT(outline.at(30, 49).a, 0.4f);
    EXPECT_GT(outline.at(10, 30).a, 0.4f);
    EXPECT_TRUE(Box(10, 10, 50, 50).contains(outline.paintedBounds()));
}

TEST(CanvasRendererEllipses, ArcsTurnCounterClockwiseFromThreeOClock) {
    struct Case {
        double start, extent;
        XY<int> inside, outside;
    } const cases[] = {
        // A 40-pixel circle centred at (30, 30).
        {0, 90, {40, 40}, {20, 40}},   // the upper right quarter
        {90, -90, {40, 40}, {40, 20}}, // the same quarter, turning the other way
    };
    for (Case const& c : cases) {
        TestWindow window;
        window.renderer().renderPrimitive(ellipse(Box(10, 10, 50, 50), true, c.start, c.extent));
        EXPECT_TRUE(sameColour(window.at(c.inside.x, c.inside.y), kBlue)) << c.start << c.extent;
        EXPECT_EQ(window.at(c.outside.x, c.outside.y).a, 0.0f) << c.start << c.extent;
    }
}

TEST(CanvasRendererImages, ImageKeepsItsTopUpAndIsScaledDownToFitCentredButNeverUp) {
    struct Case {
        XY<int> imageSize;
        Box box;
        Box covered;
    } const cases[] = {
        // Halved to fit the height, centred across.
        {{40, 40}, Box(10, 10, 50, 30), Box(20, 10, 40, 30)},
        // Smaller than the box: kept at its size, centred.
        {{10, 10}, Box(10, 10, 50, 50), Box(25, 25, 35, 35)},
        // Wider than the box: fits the width, centred up and down.
        {{40, 20}, Box(0, 0, 20, 40), Box(0, 15, 20, 25)},
    };
    for (Case const& c : cases) {
        TestWindow window;
        window.renderer().renderPrimitive(redOverBlue(c.imageSize, c.box));
        EXPECT_TRUE(window.paintsExactly(c.covered));
        EXPECT_TRUE(sameColour(window.at(c.covered.x1 + 1, c.covered.y2 - 1), kRed));
        EXPECT_TRUE(sameColour(window.at(c.covered.x1 + 1, c.covered.y1), kBlue));
    }
}

TEST(CanvasRendererImages, AlphaMakesTheImageTranslucent) {
    TestWindow window;
    Glib::ImageDescription d = redOverBlue({10, 10}, Box(0, 0, 10, 10));
    d.alpha = 0.5;
    window.renderer().renderPrimitive(d);
    EXPECT_TRUE(sameColour(window.at(5, 9), NormalisedRGB(1, 0, 0, 0.5f)));
}

TEST(CanvasRendererRects, GradientRunsFromTheTopColourToTheBottomColour) {
    TestWindow window;
    Glib::RectDescription d;
    d.box = Box(0, 0, 10, 41);
    d.colour = kRed;
    d.gradient = true;
    d.bottomColour = kBlue;
    window.renderer().renderPrimitive(d);
    EXPECT_TRUE(sameColour(window.at(5, 40), kRed, 0.05f));
    EXPECT_TRUE(sameColour(window.at(5, 20), NormalisedRGB(0.5f, 0, 0.5f), 0.05f));
    EXPECT_TRUE(sameColour(window.at(5, 0), kBlue, 0.05f));
}

TEST(CanvasRendererSurface, NothingHappensBeforeTheWindowHasAStore) {
    auto root = Canvas::createRoot(XY<int>(100, 100));
    Canvas top(root.get(), Box(0, 0, 50, 50));
    EXPECT_EQ(top.renderer().context(), nullptr);
    fill(top.renderer(), Box(0, 0, 10, 10), kRed);
    top.renderer().renderPrimitive(line({0, 0}, {5, 0}));
    top.setSurface(std::make_unique<WindowSurface>(XY<int>(50, 50)));
    EXPECT_NE(top.renderer().context(), nullptr);
}

} // namespace
