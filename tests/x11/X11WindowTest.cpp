// Windows on the server: where they go, what they tell the window manager, and what they show.

#include "glib/Region.h"
#include "support/ScopedEnvironment.h"
#include "x11/X11ServerTest.h"

#include <X11/Xatom.h>
#include <X11/extensions/shape.h>

namespace {

class X11WindowTest : public X11ServerTest {};

constexpr auto Normal = iDisplay::WindowKind::Normal;

TEST_F(X11WindowTest, WindowAppearsViewableWhereAskedWithYTurnedDown) {
    Canvas* canvas = openWindow(Box(100, 200, 300, 350));
    auto placedAt = [&](int x, int y, int width, int height) {
        XWindowAttributes a{};
        XGetWindowAttributes(outside_, xidOf(canvas), &a);
        return a.x == x && a.y == y && a.width == width && a.height == height;
    };
    EXPECT_TRUE(placedAt(100, height_ - 350, 200, 150));
    XSizeHints hints{};
    long supplied = 0;
    ASSERT_TRUE(XGetWMNormalHints(outside_, xidOf(canvas), &hints, &supplied));
    EXPECT_TRUE(hints.flags & USPosition);
    EXPECT_EQ(hints.y, height_ - 350);

    windowOf(canvas)->setBounds(Box(10, 20, 110, 70));
    EXPECT_TRUE(eventually([&] { return placedAt(10, height_ - 70, 100, 50); }));

    canvas->unmap();
    EXPECT_TRUE(eventually([&] { return !isViewable(xidOf(canvas)); }));
}

TEST_F(X11WindowTest, PopupsBypassTheWindowManager) {
    Canvas* popup = openWindow(Box(100, 10, 160, 60), iDisplay::WindowKind::Popup);
    XWindowAttributes attributes{};
    XGetWindowAttributes(outside_, xidOf(popup), &attributes);
    EXPECT_TRUE(attributes.override_redirect);
    EXPECT_TRUE(longs(xidOf(popup), "WM_PROTOCOLS").empty());
    EXPECT_EQ(longs(xidOf(popup), "_NET_WM_WINDOW_TYPE"),
              std::vector<long>{long(atom("_NET_WM_WINDOW_TYPE_POPUP_MENU"))});
}

TEST_F(X11WindowTest, NormalWindowsOfferCloseAndTheWindowManagersCloseArrivesAsARequest) {
    Canvas* canvas = openWindow(Box(100, 100, 200, 200));
    std::vector<long> protocols = longs(xidOf(canvas), "WM_PROTOCOLS");
    EXPECT_NE(std::find(protocols.begin(), protocols.end(), long(atom("WM_DELETE_WINDOW"))),
              protocols.end());
    received_.clear();
    requestClose(xidOf(canvas));
    InputEvent const* close = awaitKind(InputEvent::CloseRequest);
    ASSERT_NE(close, nullptr);
    EXPECT_EQ(close->window, canvas);
    EXPECT_TRUE(isViewable(xidOf(canvas)));
}

TEST_F(X11WindowTest, MovesByOthersArriveAsConfigureInRootCoordinates) {
    Canvas* canvas = openWindow(Box(100, 100, 200, 200));
    settle();
    received_.clear();
    XMoveResizeWindow(outside_, xidOf(canvas), 50, 60, 210, 110);
    XFlush(outside_);

    InputEvent const* configure = awaitEvent([](InputEvent const& e) {
        return e.kind == InputEvent::Configure && e.bounds.width() == 210;
    });
    ASSERT_NE(configure, nullptr);
    EXPECT_EQ(configure->window, canvas);
    EXPECT_EQ(configure->bounds, Box(50, height_ - 170, 260, height_ - 60));
    EXPECT_EQ(windowOf(canvas)->size(), XY<int>(210, 110));
}

TEST_F(X11WindowTest, TitleOpacityAndKeepAboveReachTheServer) {
    Canvas* canvas = openWindow(Box(100, 100, 200, 200), Normal, false);
    X11Window* window = windowOf(canvas);
    Window w = xidOf(canvas);

    window->setTitle(L"Tïtle ✓");
    XSync(display_->connection(), False);
    Atom type = None;
    std::vector<unsigned char> name = property(w, "_NET_WM_NAME", &type);
    EXPECT_EQ(type, atom("UTF8_STRING"));
    EXPECT_EQ(std::string(name.begin(), name.end()), "T\xc3\xaftle \xe2\x9c\x93");
    std::vector<unsigned char> oldName = property(w, "WM_NAME", &type);
    EXPECT_EQ(type, XA_STRING);
    EXPECT_EQ(std::string(oldName.begin(), oldName.end()), "T\xeftle ?");

    window->setOpacity(0.5);
    window->setKeepAbove(true);
    XSync(display_->connection(), False);
    std::vector<long> opacity = longs(w, "_NET_WM_WINDOW_OPACITY");
    ASSERT_EQ(opacity.size(), 1u);
    EXPECT_NEAR(double(opacity[0] & 0xffffffff) / double(0xffffffffu), 0.5, 1e-6);
    EXPECT_EQ(longs(w, "_NET_WM_STATE"), std::vector<long>{long(atom("_NET_WM_STATE_ABOVE"))});

    window->setOpacity(1.0);
    window->setKeepAbove(false);
    XSync(display_->connection(), False);
    EXPECT_TRUE(longs(w, "_NET_WM_WINDOW_OPACITY").empty());
    EXPECT_TRUE(longs(w, "_NET_WM_STATE").empty());
}

TEST_F(X11WindowTest, TranslucentCanvasesGetAnAlphaChannelOnlyUnderACompositor) {
    auto depthOf = [&](Canvas* canvas) {
        XWindowAttributes attributes{};
        XGetWindowAttributes(outside_, xidOf(canvas), &attributes);
        return attributes.depth;
    };
    Canvas* beforeCompositor = openWindow(Box(70, 10, 120, 60), Normal, true, true);
    EXPECT_EQ(depthOf(beforeCompositor), 24);

    // A compositing manager announces itself by owning this selection.
    Window compositor =
        XCreateSimpleWindow(outside_, DefaultRootWindow(outside_), 0, 0, 1, 1, 0, 0, 0);
    XSetSelectionOwner(outside_, atom("_NET_WM_CM_S0"), compositor, CurrentTime);
    XSync(outside_, False);
    Canvas* translucent = openWindow(Box(130, 10, 180, 60), Normal, true, true);
    EXPECT_EQ(depthOf(translucent), 32);

    paint(translucent, Box(0, 0, 50, 50), NormalisedRGB(1, 0, 0, 0.5));
    translucent->surface()->flush();
    // Premultiplied, as a compositor takes it: alpha and red both about half.
    unsigned long argb = 0;
    EXPECT_TRUE(
        eventually([&] { return (argb = pixelAt(xidOf(translucent), 25, 25, ~0ul)) != 0; }));
    EXPECT_NEAR(double((argb >> 24) & 0xff), 128, 1);
    EXPECT_NEAR(double((argb >> 16) & 0xff), 128, 1);
    EXPECT_EQ(argb & 0xffff, 0u);
    XDestroyWindow(outside_, compositor);
}

TEST_F(X11WindowTest, ShapesAreCutYUpAndFollowTheHeight) {
    Canvas* canvas = openWindow(Box(100, 100, 200, 200));
    X11Window* window = windowOf(canvas);
    Glib::RegionBuilder builder;
    // A bar along the bottom and a square at the top-left, y up.
    builder.appendRect(0, 0, 100, 10);
    builder.appendRect(0, 80, 20, 100);
    window->setShape(builder.create());
    XSync(display_->connection(), False);

    auto rectangles = [&] {
        int count = 0;
        int ordering = 0;
        XRectangle* rects =
            XShapeGetRectangles(outside_, xidOf(canvas), ShapeBounding, &count, &ordering);
        std::vector<Box> boxes;
        for (int i = 0; i < count; ++i)
            boxes.emplace_back(rects[i].x, rects[i].y, rects[i].x + rects[i].width,
                               rects[i].y + rects[i].height);
        XFree(rects);
        std::sort(boxes.begin(), boxes.end(),
                  [](Box const& a, Box const& b) { return a.y1 < b.y1; });
        return boxes;
    };
    // In X's terms, y down: the square on top, the bar at the bottom.
    EXPECT_EQ(rectangles(), (std::vector<Box>{Box(0, 0, 20, 20), Box(0, 90, 100, 100)}));

    window->setBounds(Box(100, 100, 200, 250));
    XSync(display_->connection(), False);
    EXPECT_EQ(rectangles(), (std::vector<Box>{Box(0, 50, 20, 70), Box(0, 140, 100, 150)}));

    window->setShape(Qor::Ptr<iRegion>());
    XSync(display_->connection(), False);
    EXPECT_EQ(rectangles(), std::vector<Box>{Box(0, 0, 100, 150)});
}

// Pixels travel through shared memory when the server allows it, else over the connection; both
// must show the same.
class X11PaintingTest : public X11ServerTest, public ::testing::WithParamInterface<bool> {
protected:
    void SetUp() override {
        if (!GetParam())
            environment_.set("PANELKIT_X11_NO_SHM", "1");
        X11ServerTest::SetUp();
        if (IsSkipped() || HasFatalFailure())
            return;
        ASSERT_EQ(display_->canShareMemory(), GetParam());
    }

    ScopedEnvironment environment_;
};

INSTANTIATE_TEST_SUITE_P(Transfer, X11PaintingTest, ::testing::Values(true, false),
                         [](::testing::TestParamInfo<bool> const& info) {
                             return info.param ? "SharedMemory" : "Connection";
                         });

TEST_P(X11PaintingTest, FlushedPaintingShowsInTheWindowTheRightWayUp) {
    Canvas* canvas = openWindow(Box(300, 300, 420, 400));
    Window w = xidOf(canvas);
    paint(canvas, Box(0, 0, 120, 100), NormalisedRGB(1, 0, 0));
    // Near the bottom-left corner, y up.
    paint(canvas, Box(10, 10, 40, 30), NormalisedRGB(0, 0, 1));
    canvas->surface()->flush();

    EXPECT_TRUE(showsPixel(w, 20, 100 - 1 - 20, Blue));
    EXPECT_TRUE(showsPixel(w, 20, 20, Red));
    EXPECT_TRUE(showsPixel(w, 119, 0, Red));
}

TEST_P(X11PaintingTest, OnlyTheDamagedBoxesReachTheWindow) {
    Canvas* canvas = openWindow(Box(300, 300, 400, 400));
    Window w = xidOf(canvas);
    paint(canvas, Box(0, 0, 100, 100), NormalisedRGB(1, 0, 0));
    canvas->surface()->flush();
    ASSERT_TRUE(showsPixel(w, 50, 50, Red));

    paint(canvas, Box(0, 0, 100, 100), NormalisedRGB(0, 1, 0));
    canvas->surface()->takeDamage();
    windowOf(canvas)->present(*canvas->surface(), {Box(0, 0, 10, 10), Box(90, 90, 100, 100)});

    EXPECT_TRUE(showsPixel(w, 5, 95, Green));
    EXPECT_TRUE(showsPixel(w, 95, 5, Green));
    EXPECT_TRUE(showsPixel(w, 5, 5, Red));
    EXPECT_TRUE(showsPixel(w, 50, 50, Red));
}

TEST_P(X11PaintingTest, ExposedPartsAreShownAgainFromTheBackingStore) {
    Canvas* canvas = openWindow(Box(500, 500, 580, 560));
    Window w = xidOf(canvas);
    paint(canvas, Box(0, 0, 80, 60), NormalisedRGB(0, 0, 1));
    canvas->surface()->flush();
    ASSERT_TRUE(showsPixel(w, 40, 30, Blue));

    // Another program scribbles over the window, then the server asks us to repaint it.
    GC gc = XCreateGC(outside_, w, 0, nullptr);
    XFillRectangle(outside_, w, gc, 0, 0, 80, 60);
    XFreeGC(outside_, gc);
    ASSERT_TRUE(showsPixel(w, 40, 30, 0));
    received_.clear();
    XClearArea(outside_, w, 0, 0, 0, 0, True);
    XFlush(outside_);

    InputEvent const* expose = awaitKind(InputEvent::ExposeArea);
    ASSERT_NE(expose, nullptr);
    EXPECT_EQ(expose->window, canvas);
    EXPECT_EQ(expose->bounds, Box(0, 0, 80, 60));
    EXPECT_TRUE(showsPixel(w, 40, 30, Blue));
}

} // namespace
