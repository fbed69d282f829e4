// The X11 display against a real server (run under Xvfb, where no window manager runs). A second
// connection plays the rest of the desktop: it reads pixels and properties back and sends what a
// window manager would; xdotool and xclip play the user and other programs.

#include "display/X11Display.h"
#include "display/X11Window.h"
#include "glib/Canvas.h"
#include "glib/CanvasRenderer.h"
#include "glib/Region.h"
#include "glib/WindowSurface.h"
#include "glob/Event.h"
#include "qor/UTF8.h"
#include "support/DiagnosticCapture.h"

#include <gtest/gtest.h>

// After gtest, whose names X's macros would clash with.
#include <X11/Xatom.h>
#include <X11/Xlib.h>
#include <X11/Xutil.h>
#include <X11/extensions/shape.h>
#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <functional>
#include <optional>
#include <poll.h>
#include <string>
#include <sys/file.h>
#include <unistd.h>
#include <vector>

namespace {

using Clock = std::chrono::steady_clock;
constexpr auto Patience = std::chrono::seconds(2);

constexpr unsigned long Red = 0xff0000;
constexpr unsigned long Blue = 0x0000ff;
constexpr unsigned long Green = 0x00ff00;

class X11DisplayTest : public ::testing::Test {
protected:
    void SetUp() override {
        char const* name = std::getenv("DISPLAY");
        if (name == nullptr)
            GTEST_SKIP() << "needs an X server";
        takeTurnOnTheServer(name);
        // A server without clients resets itself, refusing connections for a moment; the previous
        // test may just have left it.
        auto deadline = Clock::now() + Patience;
        while (!(display_ = X11Display::open(nullptr)) && Clock::now() < deadline)
            usleep(20000);
        ASSERT_NE(display_, nullptr);
        outside_ = XOpenDisplay(nullptr);
        ASSERT_NE(outside_, nullptr);
        screen_ = Canvas::createRoot(display_->screenSize());
        height_ = display_->screenSize().y;
        // Start every test with the pointer away from where windows open, and events drained.
        XWarpPointer(outside_, None, DefaultRootWindow(outside_), 0, 0, 0, 0, 5, 5);
        XSync(outside_, False);
        settle();
    }

    void TearDown() override {
        windows_.clear();
        screen_.reset();
        display_.reset();
        if (outside_ != nullptr)
            XCloseDisplay(outside_);
        if (turn_ >= 0)
            close(turn_);
    }

    // Tests on one server share its pointer, keyboard focus and selections, so they take turns
    // even when ctest runs them side by side.
    void takeTurnOnTheServer(std::string name) {
        std::replace(name.begin(), name.end(), '/', '_');
        std::string path = "/tmp/panelkit-x11-tests-" + name + ".lock";
        turn_ = open(path.c_str(), O_CREAT | O_RDWR | O_CLOEXEC, 0600);
        ASSERT_GE(turn_, 0) << path;
        ASSERT_EQ(flock(turn_, LOCK_EX), 0);
    }

    Canvas* openWindow(Box const& rect, iDisplay::WindowKind kind = iDisplay::WindowKind::Normal,
                       bool map = true) {
        auto canvas = std::make_unique<Canvas>(screen_.get(), rect);
        canvas->setSurface(std::make_unique<WindowSurface>(canvas->size()));
        canvas->surface()->setWindow(display_->createWindow(canvas.get(), kind));
        canvas->surface()->window()->setBounds(rect);
        Canvas* c = canvas.get();
        windows_.push_back(std::move(canvas));
        if (map) {
            c->map();
            EXPECT_TRUE(eventually([&] { return isViewable(xidOf(c)); }));
        }
        return c;
    }

    static X11Window* windowOf(Canvas* canvas) {
        return dynamic_cast<X11Window*>(canvas->surface()->window());
    }
    static Window xidOf(Canvas* canvas) { return windowOf(canvas)->xid(); }

    bool isViewable(Window w) {
        XWindowAttributes attributes{};
        return XGetWindowAttributes(outside_, w, &attributes) && attributes.map_state == IsViewable;
    }

    // X's row of a y-up root coordinate.
    int xRow(int y) const { return height_ - 1 - y; }

    void pump() { display_->readEvents(received_); }

    // Lets whatever the server has for us arrive.
    void settle() {
        XSync(display_->connection(), False);
        pump();
    }

    bool eventually(std::function<bool()> const& condition) {
        auto deadline = Clock::now() + Patience;
        for (;;) {
            pump();
            if (condition())
                return true;
            if (Clock::now() >= deadline)
                return false;
            pollfd fd{display_->eventFd(), POLLIN, 0};
            poll(&fd, 1, 10);
        }
    }

    InputEvent const* find(std::function<bool(InputEvent const&)> const& match) const {
        for (InputEvent const& e : received_)
            if (match(e))
                return &e;
        return nullptr;
    }

    InputEvent const* awaitEvent(std::function<bool(InputEvent const&)> const& match) {
        InputEvent const* found = nullptr;
        eventually([&] { return (found = find(match)) != nullptr; });
        return found;
    }

    InputEvent const* awaitKind(InputEvent::Kind kind) {
        return awaitEvent([&](InputEvent const& e) { return e.kind == kind; });
    }

    std::vector<unsigned> keysDown() const {
        std::vector<unsigned> keys;
        for (InputEvent const& e : received_)
            if (e.kind == InputEvent::KeyDown)
                keys.push_back(e.key);
        return keys;
    }

    static void run(std::string const& command) {
        ASSERT_EQ(std::system(command.c_str()), 0) << command;
    }

    // Runs a program that needs answers from us (a clipboard reader) while our events are served;
    // its output, or nothing when it failed.
    std::optional<std::string> runServing(std::string const& command) {
        FILE* pipe = popen(("timeout 5 " + command).c_str(), "r");
        if (pipe == nullptr)
            return std::nullopt;
        std::string output;
        for (bool open = true; open;) {
            pump();
            pollfd fds[] = {{fileno(pipe), POLLIN, 0}, {display_->eventFd(), POLLIN, 0}};
            poll(fds, 2, 20);
            if ((fds[0].revents & (POLLIN | POLLHUP)) == 0)
                continue;
            char buffer[65536];
            ssize_t n = read(fileno(pipe), buffer, sizeof buffer);
            if (n > 0)
                output.append(buffer, std::size_t(n));
            else
                open = false;
        }
        int status = pclose(pipe);
        if (status != 0)
            return std::nullopt;
        return output;
    }

    Atom atom(char const* name) { return XInternAtom(outside_, name, False); }

    // Until another program has taken the selection from `previous`, and we have heard of it.
    bool awaitNewOwner(char const* selection, Window previous) {
        bool changed = eventually([&] {
            Window owner = XGetSelectionOwner(outside_, atom(selection));
            return owner != None && owner != previous;
        });
        settle();
        return changed;
    }

    unsigned long pixelAt(Window w, int x, int y) {
        XImage* image = XGetImage(outside_, w, x, y, 1, 1, AllPlanes, ZPixmap);
        if (image == nullptr)
            return ~0ul;
        unsigned long pixel = XGetPixel(image, 0, 0) & 0xffffff;
        XDestroyImage(image);
        return pixel;
    }

    bool showsPixel(Window w, int x, int y, unsigned long rgb) {
        return eventually([&] { return pixelAt(w, x, y) == rgb; });
    }

    static void paint(Canvas* canvas, Box const& box, NormalisedRGB const& colour) {
        Glib::RectDescription rect;
        rect.box = box;
        rect.colour = colour;
        canvas->renderer().renderPrimitive(rect);
    }

    std::vector<unsigned char> property(Window w, char const* name, Atom* type = nullptr,
                                        int* format = nullptr) {
        Atom actualType = None;
        int actualFormat = 0;
        unsigned long items = 0;
        unsigned long after = 0;
        unsigned char* data = nullptr;
        XGetWindowProperty(outside_, w, atom(name), 0, 1 << 20, False, AnyPropertyType, &actualType,
                           &actualFormat, &items, &after, &data);
        std::size_t unit = actualFormat == 32 ? sizeof(long) : std::size_t(actualFormat / 8);
        std::vector<unsigned char> bytes(data, data + items * unit);
        if (data != nullptr)
            XFree(data);
        if (type != nullptr)
            *type = actualType;
        if (format != nullptr)
            *format = actualFormat;
        return bytes;
    }

    std::vector<long> longs(Window w, char const* name) {
        std::vector<unsigned char> bytes = property(w, name);
        std::vector<long> values(bytes.size() / sizeof(long));
        if (!values.empty())
            std::memcpy(values.data(), bytes.data(), values.size() * sizeof(long));
        return values;
    }

    std::unique_ptr<X11Display> display_;
    Display* outside_ = nullptr;
    std::unique_ptr<Canvas> screen_;
    std::vector<std::unique_ptr<Canvas>> windows_;
    std::vector<InputEvent> received_;
    int height_ = 0;
    int turn_ = -1;
};

TEST_F(X11DisplayTest, ScreenIsTheServersRootWindow) {
    XY<int> size = display_->screenSize();
    EXPECT_EQ(size.x, DisplayWidth(outside_, DefaultScreen(outside_)));
    EXPECT_EQ(size.y, DisplayHeight(outside_, DefaultScreen(outside_)));
    std::vector<Glib::Monitor> monitors = display_->monitors();
    ASSERT_EQ(monitors.size(), 1u);
    EXPECT_EQ(monitors[0].area, Box(0, 0, size.x, size.y));
    EXPECT_STREQ(display_->name(), "x11");
}

TEST_F(X11DisplayTest, ScaleComesFromTheServersXftDpi) {
    Window root = DefaultRootWindow(outside_);
    std::string resources = "Xft.antialias:\t1\nXft.dpi:\t144\n";
    XChangeProperty(outside_, root, XA_RESOURCE_MANAGER, XA_STRING, 8, PropModeReplace,
                    reinterpret_cast<unsigned char const*>(resources.data()),
                    int(resources.size()));
    XSync(outside_, False);
    std::unique_ptr<X11Display> scaled = X11Display::open(nullptr);
    XDeleteProperty(outside_, root, XA_RESOURCE_MANAGER);
    XSync(outside_, False);
    ASSERT_NE(scaled, nullptr);
    EXPECT_DOUBLE_EQ(scaled->scale(), 1.5);
    EXPECT_DOUBLE_EQ(scaled->monitors()[0].scale, 1.5);
    EXPECT_DOUBLE_EQ(display_->scale(), 1.0);
}

TEST_F(X11DisplayTest, WindowAppearsViewableWhereAskedWithYTurnedDown) {
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

TEST_F(X11DisplayTest, PopupsBypassTheWindowManagerAndNormalWindowsOfferClose) {
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

TEST_F(X11DisplayTest, FlushedPaintingShowsInTheWindowTheRightWayUp) {
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

TEST_F(X11DisplayTest, OnlyTheDamagedBoxesReachTheWindow) {
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

TEST_F(X11DisplayTest, ExposedPartsAreShownAgainFromTheBackingStore) {
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

TEST_F(X11DisplayTest, ClicksArriveAtTheirRootPositionYUpOnTheirWindow) {
    Canvas* other = openWindow(Box(0, 0, 100, 100));
    Canvas* canvas = openWindow(Box(200, 300, 400, 500));
    settle();
    received_.clear();

    run("xdotool mousemove 250 " + std::to_string(xRow(399)) + " click 1");
    InputEvent const* press = awaitKind(InputEvent::PointerPress);
    ASSERT_NE(press, nullptr);
    EXPECT_EQ(press->window, canvas);
    EXPECT_EQ(press->button, 1);
    EXPECT_EQ(press->rootPos, XY<int>(250, 399));
    EXPECT_EQ(press->modifiers, 0u);
    InputEvent const* release = awaitKind(InputEvent::PointerRelease);
    ASSERT_NE(release, nullptr);
    EXPECT_EQ(release->window, canvas);
    EXPECT_EQ(release->rootPos, XY<int>(250, 399));
    EXPECT_GE(release->time, press->time);
    EXPECT_EQ(display_->pointerPosition(), XY<int>(250, 399));

    received_.clear();
    run("xdotool mousemove 50 " + std::to_string(xRow(20)) + " keydown ctrl click 3 keyup ctrl");
    press = awaitKind(InputEvent::PointerPress);
    ASSERT_NE(press, nullptr);
    EXPECT_EQ(press->window, other);
    EXPECT_EQ(press->button, 3);
    EXPECT_EQ(press->rootPos, XY<int>(50, 20));
    EXPECT_EQ(press->modifiers, unsigned(KeyCodes::Ctrl));
}

TEST_F(X11DisplayTest, WheelButtonsTurnIntoWheelSteps) {
    Canvas* canvas = openWindow(Box(200, 300, 400, 500));
    run("xdotool mousemove 300 " + std::to_string(xRow(400)));
    settle();
    received_.clear();

    run("xdotool click 4 click 5 click 6");
    ASSERT_TRUE(eventually([&] {
        return std::count_if(received_.begin(), received_.end(), [](InputEvent const& e) {
                   return e.kind == InputEvent::WheelTurn;
               }) == 2;
    }));
    settle();
    std::vector<int> steps;
    for (InputEvent const& e : received_) {
        EXPECT_NE(e.kind, InputEvent::PointerPress);
        EXPECT_NE(e.kind, InputEvent::PointerRelease);
        if (e.kind == InputEvent::WheelTurn) {
            EXPECT_EQ(e.window, canvas);
            steps.push_back(e.wheelSteps);
        }
    }
    EXPECT_EQ(steps, (std::vector<int>{1, -1}));
}

TEST_F(X11DisplayTest, ARunOfMovesCollapsesToTheLast) {
    Canvas* canvas = openWindow(Box(200, 300, 400, 500));
    Window root = DefaultRootWindow(outside_);
    XWarpPointer(outside_, None, root, 0, 0, 0, 0, 210, xRow(310));
    XSync(outside_, False);
    ASSERT_NE(awaitKind(InputEvent::PointerMove), nullptr);
    settle();
    received_.clear();

    for (int i = 1; i <= 5; ++i)
        XWarpPointer(outside_, None, root, 0, 0, 0, 0, 210 + 10 * i, xRow(310 + 10 * i));
    XSync(outside_, False);
    settle();

    ASSERT_EQ(received_.size(), 1u);
    EXPECT_EQ(received_[0].kind, InputEvent::PointerMove);
    EXPECT_EQ(received_[0].window, canvas);
    EXPECT_EQ(received_[0].rootPos, XY<int>(260, 360));
}

TEST_F(X11DisplayTest, LeavingEveryWindowIsReportedButCrossingBetweenThemIsNot) {
    Canvas* left = openWindow(Box(200, 300, 300, 400));
    openWindow(Box(300, 300, 400, 400));
    Window root = DefaultRootWindow(outside_);
    XWarpPointer(outside_, None, root, 0, 0, 0, 0, 250, xRow(350));
    XSync(outside_, False);
    ASSERT_NE(awaitKind(InputEvent::PointerMove), nullptr);
    settle();
    received_.clear();

    XWarpPointer(outside_, None, root, 0, 0, 0, 0, 350, xRow(350));
    XSync(outside_, False);
    settle();
    EXPECT_EQ(find([](InputEvent const& e) { return e.kind == InputEvent::PointerLeft; }), nullptr);

    XWarpPointer(outside_, None, root, 0, 0, 0, 0, 250, xRow(350));
    XWarpPointer(outside_, None, root, 0, 0, 0, 0, 800, xRow(800));
    XSync(outside_, False);
    InputEvent const* leave = awaitKind(InputEvent::PointerLeft);
    ASSERT_NE(leave, nullptr);
    EXPECT_EQ(leave->window, left);
}

class X11KeyboardTest : public X11DisplayTest {
protected:
    void SetUp() override {
        X11DisplayTest::SetUp();
        if (IsSkipped() || HasFatalFailure())
            return;
        canvas_ = openWindow(Box(200, 300, 400, 500));
        XSetInputFocus(outside_, xidOf(canvas_), RevertToParent, CurrentTime);
        XSync(outside_, False);
        InputEvent const* focus = awaitKind(InputEvent::FocusGained);
        ASSERT_NE(focus, nullptr);
        EXPECT_EQ(focus->window, canvas_);
        EXPECT_TRUE(display_->hasFocus());
        received_.clear();
    }

    std::vector<unsigned> typed(std::string const& xdotoolArguments, std::size_t count) {
        received_.clear();
        EXPECT_TRUE(runServing("xdotool " + xdotoolArguments));
        eventually([&] { return keysDown().size() >= count; });
        return keysDown();
    }

    Canvas* canvas_ = nullptr;
};

TEST_F(X11KeyboardTest, TypedCharactersArriveWithoutTheShiftBit) {
    EXPECT_EQ(typed("type --delay 0 'aB+~'", 4), (std::vector<unsigned>{'a', 'B', '+', '~'}));
    InputEvent const* release = awaitKind(InputEvent::KeyUp);
    ASSERT_NE(release, nullptr);
    EXPECT_EQ(release->window, canvas_);
}

TEST_F(X11KeyboardTest, CharactersOutsideTheKeymapArriveAsUnicode) {
    // xdotool lends such a character a spare key only for a moment, so it types slowly here.
    EXPECT_EQ(typed("type --delay 200 'é€'", 2), (std::vector<unsigned>{0xe9, 0x20ac}));
}

TEST_F(X11KeyboardTest, ControlCombinationsAndSpecialKeysArriveWithTheirModifiers) {
    EXPECT_EQ(typed("key ctrl+c", 1), std::vector<unsigned>{0x2000043});
    EXPECT_EQ(typed("key shift+Tab", 1), std::vector<unsigned>{0x1000009});
    EXPECT_EQ(typed("key shift+Left", 1), std::vector<unsigned>{0x900004b});
    EXPECT_EQ(typed("key ctrl+shift+Right", 1), std::vector<unsigned>{0xb00004d});
    EXPECT_EQ(typed("key alt+BackSpace", 1), std::vector<unsigned>{0x4000008});
    EXPECT_EQ(typed("key Return F12 KP_Add", 3),
              (std::vector<unsigned>{13, 0x8000058, 0x8000002b}));
    InputEvent const* press = find([](InputEvent const& e) { return e.key == 13; });
    ASSERT_NE(press, nullptr);
    EXPECT_EQ(press->window, canvas_);
    EXPECT_EQ(press->modifiers, 0u);
}

TEST_F(X11KeyboardTest, KeyboardStateFollowsTheModifierKeys) {
    iKeyboardState& state = display_->keyboardState();
    run("xdotool keydown shift");
    EXPECT_TRUE(eventually([&] { return state.isKeyDown(KeyCodes::Shift); }));
    EXPECT_FALSE(state.isKeyDown(KeyCodes::Ctrl));
    run("xdotool keydown ctrl");
    EXPECT_TRUE(eventually([&] { return state.isKeyDown(KeyCodes::Shift | KeyCodes::Ctrl); }));
    run("xdotool keyup shift keyup ctrl");
    EXPECT_TRUE(eventually(
        [&] { return !state.isKeyDown(KeyCodes::Shift) && !state.isKeyDown(KeyCodes::Ctrl); }));
}

TEST_F(X11KeyboardTest, KeysStillArriveWithTheInputMethodOff) {
    Qor::Ptr<iRootWindow> ime = canvas_->getWindow();
    ASSERT_TRUE(ime);
    ime->setIMEWindowPosition(XY<int>(10, 20));
    ime->setIMEEnabled(false);
    EXPECT_EQ(typed("type --delay 0 'xY'", 2), (std::vector<unsigned>{'x', 'Y'}));
    ime->setIMEEnabled(true);
    EXPECT_EQ(typed("type --delay 0 'z'", 1), std::vector<unsigned>{'z'});
}

TEST_F(X11KeyboardTest, FocusMovingAwayIsReported) {
    XSetInputFocus(outside_, PointerRoot, RevertToPointerRoot, CurrentTime);
    XSync(outside_, False);
    InputEvent const* lost = awaitKind(InputEvent::FocusLost);
    ASSERT_NE(lost, nullptr);
    EXPECT_EQ(lost->window, canvas_);
    EXPECT_FALSE(display_->hasFocus());
}

TEST_F(X11DisplayTest, WindowManagerCloseArrivesAsACloseRequest) {
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

TEST_F(X11DisplayTest, MovesByOthersArriveAsConfigureInRootCoordinates) {
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

TEST_F(X11DisplayTest, TitleOpacityAndKeepAboveReachTheServer) {
    Canvas* canvas = openWindow(Box(100, 100, 200, 200), iDisplay::WindowKind::Normal, false);
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

TEST_F(X11DisplayTest, ShapesAreCutYUpAndFollowTheHeight) {
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

TEST_F(X11DisplayTest, ClipboardTextReachesOtherPrograms) {
    display_->setClipboardText(ClipboardChannel::Clipboard, L"from panelkit ✓");
    EXPECT_EQ(runServing("xclip -selection clipboard -o"), "from panelkit \xe2\x9c\x93");
    EXPECT_EQ(runServing("xclip -selection clipboard -o -t STRING"), "from panelkit ?");
    std::optional<std::string> targets = runServing("xclip -selection clipboard -o -t TARGETS");
    ASSERT_TRUE(targets);
    for (char const* target : {"TARGETS", "UTF8_STRING", "STRING", "TEXT"})
        EXPECT_NE(targets->find(target), std::string::npos) << *targets;
    // Answered from memory while we own it.
    EXPECT_EQ(display_->clipboardText(ClipboardChannel::Clipboard), L"from panelkit ✓");
}

TEST_F(X11DisplayTest, ClipboardAndSelectionAreSeparateChannels) {
    display_->setClipboardText(ClipboardChannel::Clipboard, L"copied");
    display_->setClipboardText(ClipboardChannel::Selection, L"selected");
    EXPECT_EQ(runServing("xclip -selection primary -o"), "selected");
    EXPECT_EQ(runServing("xclip -selection clipboard -o"), "copied");
    EXPECT_EQ(display_->clipboardText(ClipboardChannel::Selection), L"selected");
}

TEST_F(X11DisplayTest, OtherProgramsClipboardTextReachesUs) {
    display_->setClipboardText(ClipboardChannel::Clipboard, L"ours");
    display_->setClipboardText(ClipboardChannel::Selection, L"our selection");
    Window ours = XGetSelectionOwner(outside_, atom("CLIPBOARD"));

    run("printf 'from xclip \\303\\274' | xclip -selection clipboard -i -loops 1");
    ASSERT_TRUE(awaitNewOwner("CLIPBOARD", ours));
    EXPECT_EQ(display_->clipboardText(ClipboardChannel::Clipboard), L"from xclip ü");
    // The other channel is still ours.
    EXPECT_EQ(display_->clipboardText(ClipboardChannel::Selection), L"our selection");

    run("printf 'primary' | xclip -selection primary -i -loops 1");
    ASSERT_TRUE(awaitNewOwner("PRIMARY", ours));
    EXPECT_EQ(display_->clipboardText(ClipboardChannel::Selection), L"primary");
}

TEST_F(X11DisplayTest, LargeTextsTravelBothWays) {
    std::string text;
    for (int i = 0; text.size() < 3u << 20; ++i)
        text += "line " + std::to_string(i) + " of a long text\n";
    LightweightString<wchar_t> wide = fromUTF8(text.c_str(), unsigned(text.size()));

    display_->setClipboardText(ClipboardChannel::Clipboard, wide);
    std::optional<std::string> read = runServing("xclip -selection clipboard -o");
    ASSERT_TRUE(read);
    EXPECT_EQ(read->size(), text.size());
    EXPECT_TRUE(*read == text);

    // xclip hands texts over a megabyte in increments.
    char path[] = "/tmp/panelkit-x11-clipXXXXXX";
    int fd = mkstemp(path);
    ASSERT_GE(fd, 0);
    ASSERT_EQ(write(fd, text.data(), text.size()), ssize_t(text.size()));
    close(fd);
    Window ours = XGetSelectionOwner(outside_, atom("CLIPBOARD"));
    run(std::string("xclip -selection clipboard -i -loops 1 ") + path);
    unlink(path);
    ASSERT_TRUE(awaitNewOwner("CLIPBOARD", ours));
    LightweightString<wchar_t> received = display_->clipboardText(ClipboardChannel::Clipboard);
    EXPECT_EQ(received.size(), wide.size());
    EXPECT_TRUE(received == wide);
}

TEST_F(X11DisplayTest, EventsArrivingWhileTheClipboardWaitsAreKept) {
    Canvas* canvas = openWindow(Box(100, 100, 200, 200));
    Window ours = None;
    run("printf 'theirs' | xclip -selection clipboard -i -loops 1");
    ASSERT_TRUE(awaitNewOwner("CLIPBOARD", ours));
    received_.clear();

    XEvent message{};
    message.xclient.type = ClientMessage;
    message.xclient.window = xidOf(canvas);
    message.xclient.message_type = atom("WM_PROTOCOLS");
    message.xclient.format = 32;
    message.xclient.data.l[0] = long(atom("WM_DELETE_WINDOW"));
    XSendEvent(outside_, xidOf(canvas), False, NoEventMask, &message);
    XSync(outside_, False);
    EXPECT_EQ(display_->clipboardText(ClipboardChannel::Clipboard), L"theirs");
    EXPECT_NE(awaitKind(InputEvent::CloseRequest), nullptr);
}

TEST_F(X11DisplayTest, AnUnownedClipboardReadsEmptyAtOnce) {
    XSetSelectionOwner(outside_, atom("CLIPBOARD"), None, CurrentTime);
    XSync(outside_, False);
    auto start = Clock::now();
    EXPECT_TRUE(display_->clipboardText(ClipboardChannel::Clipboard).empty());
    EXPECT_LT(Clock::now() - start, std::chrono::milliseconds(500));
}

TEST_F(X11DisplayTest, XErrorsAreLoggedOncePerKindAndDoNotEndTheProgram) {
    DiagnosticCapture diagnostics;
    Display* connection = display_->connection();
    Window missing = 0x3fffff0;
    XMapWindow(connection, missing);
    XMapWindow(connection, missing);
    XSync(connection, False);
    EXPECT_EQ(diagnostics.count("BadWindow"), 1u);

    XUnmapWindow(connection, missing);
    XSync(connection, False);
    EXPECT_EQ(diagnostics.lines().size(), 2u);

    {
        X11Display::ExpectBadWindow expected(*display_);
        XDestroyWindow(connection, missing);
    }
    XSync(connection, False);
    EXPECT_EQ(diagnostics.lines().size(), 2u);
}

TEST_F(X11DisplayTest, ClosingWindowsAndTheDisplayIsQuiet) {
    DiagnosticCapture diagnostics;
    Canvas* first = openWindow(Box(100, 100, 200, 200));
    Canvas* second = openWindow(Box(300, 100, 400, 200), iDisplay::WindowKind::Popup);
    windowOf(first)->setCursor(15);
    windowOf(second)->setCursor(20);
    paint(first, Box(0, 0, 100, 100), NormalisedRGB(1, 0, 0));
    first->surface()->flush();
    windows_.erase(windows_.begin());
    settle();
    Qor::Ptr<iRootWindow> ime = second->getWindow();

    // A window still held when its display goes away stays harmless.
    display_.reset();
    paint(second, Box(0, 0, 100, 100), NormalisedRGB(1, 0, 0));
    second->surface()->flush();
    ime->setIMEEnabled(false);
    windows_.clear();
    EXPECT_TRUE(diagnostics.lines().empty()) << diagnostics.lines().front();
}

} // namespace
