// Pointer and keyboard input from the server, as InputEvents in root coordinates, y up.

#include "x11/X11ServerTest.h"

namespace {

class X11InputTest : public X11ServerTest {};

TEST_F(X11InputTest, ClicksArriveAtTheirRootPositionYUpOnTheirWindow) {
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
    EXPECT_EQ(release->rootPos, XY<int>(250, 399));
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

TEST_F(X11InputTest, WheelButtonsTurnIntoWheelSteps) {
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
        if (e.kind == InputEvent::WheelTurn && e.window == canvas)
            steps.push_back(e.wheelSteps);
    }
    EXPECT_EQ(steps, (std::vector<int>{1, -1}));
}

TEST_F(X11InputTest, LeavingEveryWindowIsReportedButCrossingBetweenThemIsNot) {
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

class X11KeyboardTest : public X11ServerTest {
protected:
    void SetUp() override {
        X11ServerTest::SetUp();
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
    EXPECT_EQ(typed("key ctrl+c shift+Tab ctrl+shift+Right alt+BackSpace", 4),
              (std::vector<unsigned>{0x2000043, 0x1000009, 0xb00004d, 0x4000008}));
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

TEST_F(X11KeyboardTest, KeysStillArriveWithTheInputMethodOffAndFocusMovingAwayIsReported) {
    Qor::Ptr<iRootWindow> ime = canvas_->getWindow();
    ASSERT_TRUE(ime);
    ime->setIMEWindowPosition(XY<int>(10, 20));
    ime->setIMEEnabled(false);
    EXPECT_EQ(typed("type --delay 0 'xY'", 2), (std::vector<unsigned>{'x', 'Y'}));
    ime->setIMEEnabled(true);
    EXPECT_EQ(typed("type --delay 0 'z'", 1), std::vector<unsigned>{'z'});

    XSetInputFocus(outside_, PointerRoot, RevertToPointerRoot, CurrentTime);
    XSync(outside_, False);
    InputEvent const* lost = awaitKind(InputEvent::FocusLost);
    ASSERT_NE(lost, nullptr);
    EXPECT_EQ(lost->window, canvas_);
    EXPECT_FALSE(display_->hasFocus());
}

} // namespace
