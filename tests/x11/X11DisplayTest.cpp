// The display as a whole: the screen, its scale, and how it copes with X errors and teardown.

#include "support/DiagnosticCapture.h"
#include "x11/X11ServerTest.h"

#include <X11/Xatom.h>

namespace {

class X11DisplayTest : public X11ServerTest {};

TEST_F(X11DisplayTest, ScreenIsTheServersRootWindow) {
    Box const screen(0, 0, DisplayWidth(outside_, DefaultScreen(outside_)),
                     DisplayHeight(outside_, DefaultScreen(outside_)));
    EXPECT_EQ(display_->screenSize(), XY<int>(screen.width(), screen.height()));
    std::vector<Glib::Monitor> monitors = display_->monitors();
    ASSERT_EQ(monitors.size(), 1u);
    EXPECT_EQ(monitors[0].area, screen);
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

TEST_F(X11DisplayTest, XErrorsAreLoggedOncePerKindAndDoNotEndTheProgram) {
    DiagnosticCapture diagnostics;
    Display* connection = display_->connection();
    Window missing = 0x3fffff0;
    XMapWindow(connection, missing);
    XMapWindow(connection, missing);
    XSync(connection, False);
    EXPECT_EQ(diagnostics.count("BadWindow"), 1u);

    XUnmapWindow(connection, missing);
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
