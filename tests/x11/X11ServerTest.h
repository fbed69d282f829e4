#pragma once

// The fixture of the tests that run against an X server (Xvfb, where no window manager runs): our
// display, plus a second connection that plays the rest of the desktop, reading pixels and
// properties back and sending what a window manager would. xdotool and xclip play the user and
// other programs. Waits are bounded polls, never fixed sleeps.

#include "display/X11Display.h"
#include "display/X11Window.h"
#include "glib/Canvas.h"
#include "glib/CanvasRenderer.h"
#include "glib/WindowSurface.h"
#include "glob/Event.h"

#include <gtest/gtest.h>

// After gtest, whose names X's macros would clash with.
#include <X11/Xlib.h>
#include <X11/Xutil.h>
#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <functional>
#include <memory>
#include <optional>
#include <poll.h>
#include <string>
#include <sys/file.h>
#include <unistd.h>
#include <vector>

class X11ServerTest : public ::testing::Test {
protected:
    using Clock = std::chrono::steady_clock;
    static constexpr auto Patience = std::chrono::seconds(2);

    static constexpr unsigned long Red = 0xff0000;
    static constexpr unsigned long Blue = 0x0000ff;
    static constexpr unsigned long Green = 0x00ff00;

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
                       bool map = true, bool alpha = false) {
        auto canvas = std::make_unique<Canvas>(screen_.get(), rect);
        canvas->setUseAlphaChannel(alpha);
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

    // The pixel's bits within `mask`: its colour, or with alpha too.
    unsigned long pixelAt(Window w, int x, int y, unsigned long mask = 0xffffff) {
        XImage* image = XGetImage(outside_, w, x, y, 1, 1, AllPlanes, ZPixmap);
        if (image == nullptr)
            return ~0ul;
        unsigned long pixel = XGetPixel(image, 0, 0) & mask;
        XDestroyImage(image);
        return pixel;
    }

    bool showsPixel(Window w, int x, int y, unsigned long rgb) {
        return eventually([&] { return pixelAt(w, x, y) == rgb; });
    }

    // Sends the close request a window manager sends.
    void requestClose(Window w) {
        XEvent message{};
        message.xclient.type = ClientMessage;
        message.xclient.window = w;
        message.xclient.message_type = atom("WM_PROTOCOLS");
        message.xclient.format = 32;
        message.xclient.data.l[0] = long(atom("WM_DELETE_WINDOW"));
        XSendEvent(outside_, w, False, NoEventMask, &message);
        XFlush(outside_);
    }

    static void paint(Canvas* canvas, Box const& box, NormalisedRGB const& colour) {
        Glib::RectDescription rect;
        rect.box = box;
        rect.colour = colour;
        canvas->renderer().renderPrimitive(rect);
    }

    std::vector<unsigned char> property(Window w, char const* name, Atom* type = nullptr) {
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
