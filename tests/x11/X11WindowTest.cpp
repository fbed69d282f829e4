// Windows on the server: where they go, what they tell the window manager, and what they show.

#include "glib/Region.h"
#include "support/ScopedEnvironment.h"
#include "x11/X11ServerTest.h"

#include <X11/Xatom.h>
#include <X11/extensions/shape.h>
#include <csignal>
#include <spawn.h>
#include <sys/wait.h>

extern char** environ;

namespace {

class X11WindowTest : public X11ServerTest {};

constexpr auto Normal = iDisplay::WindowKind::Normal;

TEST_F(X11WindowTest, WindowAppearsViewableWhereAskedWithYTurnedDown) {
    Canvas* canvas = openWindow(Box(100, 200, 300, 350));
    XWindowAttributes attributes{};
    ASSERT_TRUE(XGetWindowAttributes(outside_, xidOf(canvas), &attributes));
    EXPECT_EQ(attributes.map_state, IsViewable);
    EXPECT_EQ(attributes.x, 100);
    EXPECT_EQ(attributes.y, height_ - 350);
    EXPECT_EQ(attributes.width, 200);
    EXPECT_EQ(attributes.height, 150);
    EXPECT_FALSE(attributes.override_redirect);

    XSizeHints hints{};
    long supplied = 0;
    ASSERT_TRUE(XGetWMNormalHints(outside_, xidOf(canvas), &hints, &supplied));
    EXPECT_TRUE(hints.flags & USPosition);
    EXPECT_EQ(hints.x, 100);
    EXPECT_EQ(hints.y, height_ - 350);

    windowOf(canvas)->setBounds(Box(10, 20, 110, 70));
    EXPECT_TRUE(eventually([&] {
        XGetWindowAttributes(outside_, xidOf(canvas), &attributes);
        return attributes.x == 10 && attributes.y == height_ - 70 && attributes.width == 100 &&
               attributes.height == 50;
    }));

    canvas->unmap();
    EXPECT_TRUE(eventually([&] { return !isViewable(xidOf(canvas)); }));
}

TEST_F(X11WindowTest, PopupsBypassTheWindowManagerAndNormalWindowsOfferClose) {
    Canvas* normal = openWindow(Box(10, 10, 60, 60));
    Canvas* popup = openWindow(Box(100, 10, 160, 60), iDisplay::WindowKind::Popup);

    XWindowAttributes attributes{};
    XGetWindowAttributes(outside_, xidOf(popup), &attributes);
    EXPECT_TRUE(attributes.override_redirect);

    auto protocols = [&](Window w) {
        Atom* list = nullptr;
        int count = 0;
        std::vector<Atom> result;
        if (XGetWMProtocols(outside_, w, &list, &count)) {
            result.assign(list, list + count);
            XFree(list);
        }
        return result;
    };
    std::vector<Atom> normalProtocols = protocols(xidOf(normal));
    EXPECT_NE(std::find(normalProtocols.begin(), normalProtocols.end(), atom("WM_DELETE_WINDOW")),
              normalProtocols.end());
    EXPECT_TRUE(protocols(xidOf(popup)).empty());

    EXPECT_EQ(longs(xidOf(normal), "_NET_WM_WINDOW_TYPE"),
              std::vector<long>{long(atom("_NET_WM_WINDOW_TYPE_NORMAL"))});
    EXPECT_EQ(longs(xidOf(popup), "_NET_WM_WINDOW_TYPE"),
              std::vector<long>{long(atom("_NET_WM_WINDOW_TYPE_POPUP_MENU"))});
}

TEST_F(X11WindowTest, WindowManagerCloseArrivesAsACloseRequest) {
    Canvas* canvas = openWindow(Box(100, 100, 200, 200));
    received_.clear();
    XEvent message{};
    message.xclient.type = ClientMessage;
    message.xclient.window = xidOf(canvas);
    message.xclient.message_type = atom("WM_PROTOCOLS");
    message.xclient.format = 32;
    message.xclient.data.l[0] = long(atom("WM_DELETE_WINDOW"));
    message.xclient.data.l[1] = CurrentTime;
    XSendEvent(outside_, xidOf(canvas), False, NoEventMask, &message);
    XFlush(outside_);

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
    XSync(display_->connection(), False);
    std::vector<long> opacity = longs(w, "_NET_WM_WINDOW_OPACITY");
    ASSERT_EQ(opacity.size(), 1u);
    EXPECT_NEAR(double(opacity[0] & 0xffffffff) / double(0xffffffffu), 0.5, 1e-6);
    window->setOpacity(1.0);
    XSync(display_->connection(), False);
    EXPECT_TRUE(longs(w, "_NET_WM_WINDOW_OPACITY").empty());

    window->setKeepAbove(true);
    XSync(display_->connection(), False);
    EXPECT_EQ(longs(w, "_NET_WM_STATE"), std::vector<long>{long(atom("_NET_WM_STATE_ABOVE"))});
    window->setKeepAbove(false);
    XSync(display_->connection(), False);
    EXPECT_TRUE(longs(w, "_NET_WM_STATE").empty());
}

TEST_F(X11WindowTest, TranslucentCanvasesGetAnAlphaChannelOnlyUnderACompositor) {
    auto depthOf = [&](Canvas* canvas) {
        XWindowAttributes attributes{};
        XGetWindowAttributes(outside_, xidOf(canvas), &attributes);
        return attributes.depth;
    };
    Canvas* plain = openWindow(Box(10, 10, 60, 60));
    Canvas* beforeCompositor = openWindow(Box(70, 10, 120, 60), Normal, true, true);
    EXPECT_EQ(depthOf(plain), 24);
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
    EXPECT_TRUE(eventually([&] {
        XImage* image = XGetImage(outside_, xidOf(translucent), 25, 25, 1, 1, AllPlanes, ZPixmap);
        if (image != nullptr) {
            argb = XGetPixel(image, 0, 0);
            XDestroyImage(image);
        }
        return argb != 0;
    }));
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
    XSetForeground(outside_, gc, 0);
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

// A private server whose screen has 16 bits a pixel, laid out unlike cairo's 32.
class SixteenBitServer {
public:
    SixteenBitServer() {
        int ready[2];
        if (pipe(ready) != 0)
            return;
        std::string fd = std::to_string(ready[1]);
        char const* argv[] = {"Xvfb",       "-displayfd", fd.c_str(), "-screen", "0",
                              "320x240x16", "-nolisten",  "tcp",      nullptr};
        posix_spawn_file_actions_t actions;
        posix_spawn_file_actions_init(&actions);
        posix_spawn_file_actions_addclose(&actions, ready[0]);
        posix_spawn_file_actions_addopen(&actions, 2, "/dev/null", O_WRONLY, 0);
        if (posix_spawnp(&pid_, "Xvfb", &actions, nullptr, const_cast<char**>(argv), environ) != 0)
            pid_ = -1;
        posix_spawn_file_actions_destroy(&actions);
        close(ready[1]);
        // The server writes its display number once it listens.
        std::string number;
        for (char c = 0; pid_ > 0 && c != '\n';) {
            pollfd p{ready[0], POLLIN, 0};
            if (poll(&p, 1, 5000) <= 0 || read(ready[0], &c, 1) != 1)
                break;
            if (c >= '0' && c <= '9')
                number += c;
        }
        close(ready[0]);
        if (!number.empty())
            name_ = ":" + number;
    }
    ~SixteenBitServer() {
        if (pid_ > 0) {
            kill(pid_, SIGTERM);
            waitpid(pid_, nullptr, 0);
        }
    }
    SixteenBitServer(SixteenBitServer const&) = delete;
    SixteenBitServer& operator=(SixteenBitServer const&) = delete;

    // Empty when the server didn't start.
    std::string const& name() const { return name_; }

private:
    pid_t pid_ = -1;
    std::string name_;
};

TEST(X11SixteenBitTest, PixelsAreConvertedForScreensUnlikeCairos) {
    SixteenBitServer server;
    if (server.name().empty())
        GTEST_SKIP() << "no Xvfb to start";
    std::unique_ptr<X11Display> display = X11Display::open(server.name().c_str());
    ASSERT_NE(display, nullptr);
    Display* outside = XOpenDisplay(server.name().c_str());
    ASSERT_NE(outside, nullptr);
    ASSERT_EQ(DefaultDepth(outside, DefaultScreen(outside)), 16);
    Visual* visual = DefaultVisual(outside, DefaultScreen(outside));

    {
        std::unique_ptr<Canvas> screen = Canvas::createRoot(display->screenSize());
        Canvas canvas(screen.get(), Box(10, 10, 110, 90));
        canvas.setSurface(std::make_unique<WindowSurface>(canvas.size()));
        canvas.surface()->setWindow(display->createWindow(&canvas, iDisplay::WindowKind::Popup));
        canvas.map();
        Glib::RectDescription rect;
        rect.box = Box(0, 0, 100, 80);
        rect.colour = NormalisedRGB(1, 0, 0);
        canvas.renderer().renderPrimitive(rect);
        rect.box = Box(0, 0, 20, 20);
        rect.colour = NormalisedRGB(1, 1, 1);
        canvas.renderer().renderPrimitive(rect);
        canvas.surface()->flush();

        Window w = dynamic_cast<X11Window*>(canvas.surface()->window())->xid();
        auto pixel = [&](int x, int y) {
            XImage* image = XGetImage(outside, w, x, y, 1, 1, AllPlanes, ZPixmap);
            unsigned long value = image != nullptr ? XGetPixel(image, 0, 0) : ~0ul;
            if (image != nullptr)
                XDestroyImage(image);
            return value;
        };
        unsigned long white = visual->red_mask | visual->green_mask | visual->blue_mask;
        auto deadline = std::chrono::steady_clock::now() + std::chrono::seconds(2);
        while (pixel(50, 10) != visual->red_mask && std::chrono::steady_clock::now() < deadline)
            usleep(10000);
        EXPECT_EQ(pixel(50, 10), visual->red_mask);
        // The white square sits at the bottom-left, y up.
        EXPECT_EQ(pixel(5, 75), white);
        EXPECT_EQ(pixel(5, 5), visual->red_mask);
    }
    XCloseDisplay(outside);
}

} // namespace
