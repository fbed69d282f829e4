// The whole stack on a real server: widgets on the X display, the event loop, delivery. A click
// made with XTEST reaches the widget under it, typed keys reach the focus, and a window manager's
// close reaches the window as "poot".

#include "X11Outside.h"

#include "display/X11Display.h"
#include "glob/EventLoop.h"
#include "glob/GlobManager.h"
#include "glob/RecordingGlob.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <cstdlib>
#include <string>

namespace {

class X11DeliveryTest : public ::testing::Test {
protected:
    void SetUp() override {
        if (std::getenv("DISPLAY") == nullptr)
            GTEST_SKIP() << "needs an X server";
        ASSERT_TRUE(outside_.connected());
        outside_.parkPointer();
        Glib::setDisplay(createX11Display(nullptr));
        ASSERT_TRUE(Glib::hasDisplay());
        GlobManager::instance().forgetDisplayState();
        window_ = makeWindow(XY<int>(100, 100), XY<int>(200, 150));
        xid_ = X11Outside::windowOf(window_->canvas());
        ASSERT_TRUE(loopUntil([&] { return outside_.isViewable(xid_); }));
    }

    void TearDown() override {
        if (is_good_glob_ptr(window_))
            delete window_;
        if (Glib::hasDisplay())
            Glib::setDisplay(nullptr);
    }

    // Turns the loop until the condition holds, for two seconds at most.
    bool loopUntil(std::function<bool()> const& condition) {
        auto deadline = std::chrono::steady_clock::now() + std::chrono::seconds(2);
        while (!condition()) {
            if (std::chrono::steady_clock::now() > deadline)
                return false;
            EventLoop::instance().runOnce(20);
        }
        return true;
    }

    static void run(std::string const& command) {
        ASSERT_EQ(std::system(command.c_str()), 0) << command;
    }

    // The server's y (down from the top) of a root position's y (up from the bottom).
    int serverY(int rootY) const { return Glib::display().screenSize().y - 1 - rootY; }

    X11Outside outside_;
    RecordingGlob* window_ = nullptr;
    unsigned long xid_ = 0;
};

} // namespace

TEST_F(X11DeliveryTest, AnXtestClickReachesTheWidgetUnderIt) {
    RecordingGlob* button = makeChild(window_, XY<int>(20, 30), XY<int>(80, 40));
    button->consumes = EventCode::Mouse;
    run("xdotool mousemove 150 " + std::to_string(serverY(150)) + " click 1");
    ASSERT_TRUE(loopUntil([&] { return button->count(EventCode::LeftRelease) == 1; }));
    ASSERT_EQ(button->count(EventCode::LeftPress), 1);
    auto press = std::find_if(button->events.begin(), button->events.end(),
                              [](Event const& e) { return e.type == EventCode::LeftPress; });
    EXPECT_EQ(press->pos, XY<int>(150 - 120, 150 - 130));
    EXPECT_EQ(window_->count(EventCode::LeftPress), 0);
}

TEST_F(X11DeliveryTest, TypedKeysReachTheFocusWithTheirCodes) {
    RecordingGlob* box = makeChild(window_, XY<int>(10, 10), XY<int>(100, 30));
    box->consumes = EventCode::KeyPress | EventCode::KeyRelease;
    box->claimKbdFocus();
    outside_.giveFocus(xid_);
    run("xdotool key --window " + std::to_string(xid_) + " a shift+Tab ctrl+c");
    ASSERT_TRUE(loopUntil([&] { return box->count(EventCode::KeyPress) >= 3; }));
    std::vector<unsigned> codes;
    for (Event const& e : box->events)
        if (e.type == EventCode::KeyPress)
            codes.push_back(e.keyCode());
    EXPECT_EQ(codes, (std::vector<unsigned>{'a', 0x1000009, 0x2000043}));
}

TEST_F(X11DeliveryTest, AWindowManagersCloseSendsPootToTheWindow) {
    outside_.requestClose(xid_);
    ASSERT_TRUE(loopUntil([&] { return !window_->messages().empty(); }));
    EXPECT_EQ(window_->messages(), (std::vector<std::string>{"poot"}));
}
