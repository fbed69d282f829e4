#include "glob/GlobManager.h"
#include "display/HeadlessDisplay.h"
#include "glob/EventLoop.h"
#include "testing/UiTestDriver.h"

#include "glob/RecordingGlob.h"
#include "qor/WrappedData.h"

#include <gtest/gtest.h>

namespace {

struct Delivery : ::testing::Test {
    UiTestDriver driver;
    RecordingGlob* window = makeWindow({100, 100}, {400, 300});
    // window > outer (at 50,50, 200x150) > inner (at 20,20, 60x40)
    RecordingGlob* outer = makeChild(window, {50, 50}, {200, 150});
    RecordingGlob* inner = makeChild(outer, {20, 20}, {60, 40});
};

} // namespace

TEST_F(Delivery, PressGoesToTheDeepestWidgetAndTheGrabKeepsMovesAndReleaseOutsideIt) {
    inner->consumes = EventCode::Mouse;
    driver.mouseDown(inner, {10, 5});
    driver.mouseMove(window, {390, 290});
    driver.mouseUp(window, {390, 290});

    ASSERT_EQ(inner->count(EventCode::LeftPress), 1);
    ASSERT_EQ(inner->count(EventCode::LeftRelease), 1);
    EXPECT_TRUE(outer->events.empty());
    Event const& release = inner->events.back();
    // The widget's own coordinates, y up, even far outside it.
    EXPECT_EQ(release.pos, XY<int>(390 - 70, 290 - 70));
    EXPECT_EQ(release.startPos, XY<int>(10, 5));
    EXPECT_EQ(release.rootPos, XY<int>(100 + 390, 100 + 290));
    EXPECT_EQ(release.motion, XY<int>(390 - 80, 290 - 75));
    EXPECT_EQ(GlobManager::instance().grabWidget(), nullptr);
}

TEST_F(Delivery, UnusedMouseEventsTravelUpInEachParentsCoordinates) {
    outer->consumes = EventCode::Mouse;
    driver.click(inner, {5, 6});
    ASSERT_EQ(inner->count(EventCode::LeftPress), 1);
    ASSERT_EQ(outer->count(EventCode::LeftPress), 1);
    EXPECT_EQ(outer->events[0].pos, XY<int>(25, 26));
    EXPECT_EQ(outer->events[0].canvas, outer->canvas());
    EXPECT_EQ(window->count(EventCode::LeftPress), 0);
}

TEST_F(Delivery, UnusedKeysTravelFromTheFocusUpToTheWindow) {
    window->consumes = EventCode::KeyPress;
    inner->claimKbdFocus();
    driver.keyPress(KeyCodes::Tab);
    EXPECT_EQ(inner->count(EventCode::KeyPress), 1);
    EXPECT_EQ(outer->count(EventCode::KeyPress), 1);
    ASSERT_EQ(window->count(EventCode::KeyPress), 1);
    EXPECT_EQ(window->events.back().keyCode(), unsigned(KeyCodes::Tab));
}

TEST_F(Delivery, FocusChangeTellsTheOldAndTheNewHolder) {
    inner->claimKbdFocus();
    outer->claimKbdFocus();
    EXPECT_EQ(inner->focusCalls, (std::vector<bool>{true, false}));
    EXPECT_EQ(outer->focusCalls, (std::vector<bool>{true}));
    delete inner;
    EXPECT_EQ(get_kbd_focus(), outer);
    delete outer;
    EXPECT_EQ(get_kbd_focus(), nullptr);
}

namespace {
struct Interceptor : EventHandler {
    int handleEvent(Event const&) override { return 0; }
    bool intercept(Event const& e) override {
        seen.push_back(e.keyCode());
        return e.keyCode() == 'x';
    }
    std::vector<unsigned> seen;
};
} // namespace

TEST_F(Delivery, TheInterceptStackSeesKeysFirstAndMaySwallowThem) {
    inner->claimKbdFocus();
    Interceptor interceptor;
    IdStamp entry = getEventInterceptStack().push(&interceptor, 1536);
    driver.keyPress('x');
    driver.keyPress('y');
    EXPECT_EQ(interceptor.seen, (std::vector<unsigned>{'x', 'x', 'y', 'y'}));
    EXPECT_EQ(inner->count(EventCode::KeyPress), 1);
    EXPECT_EQ(inner->events.back().keyCode(), unsigned('y'));
    EXPECT_TRUE(getEventInterceptStack().pop(entry));
    driver.keyPress('x');
    EXPECT_EQ(inner->count(EventCode::KeyPress), 2);
}

TEST_F(Delivery, ContainmentFollowsThePointerAndTheCursorComesFromTheWidget) {
    inner->setDefaultMouseCursor(CursorHand);
    driver.mouseMove(inner, {5, 5});
    driver.mouseMove(outer, {150, 100});
    driver.mouseMove(outer, {25, 25});
    EXPECT_EQ(inner->containment, (std::vector<bool>{true, false, true}));
    // Only the deepest widget under the pointer counts as containing it.
    EXPECT_EQ(outer->containment, (std::vector<bool>{true, false}));
    EXPECT_TRUE(inner->isMouseInside());
    EXPECT_EQ(driver.display().windowOf(window->canvas())->cursor, int(CursorHand));
}

TEST_F(Delivery, QueuedMessagesWaitForTheLoopAndImmediateOnesDoNot) {
    outer->sendMsg(inner, "queued");
    EXPECT_TRUE(inner->messages().empty());
    outer->callMsg(inner, "at once");
    EXPECT_EQ(inner->messages(), (std::vector<std::string>{"at once"}));
    driver.processEvents();
    EXPECT_EQ(inner->messages(), (std::vector<std::string>{"at once", "queued"}));
    EXPECT_EQ(event_to_sender_glob(inner->events.back()), outer);
    EXPECT_EQ(event_to_glob(inner->events.back()), inner);
}

TEST_F(Delivery, AQueuedMessageToAWidgetThatDiedIsDropped) {
    outer->sendMsg(inner, "late");
    delete inner;
    driver.processEvents();
    EXPECT_TRUE(outer->messages().empty());
}

TEST_F(Delivery, DeletionRequestedInAHandlerHappensAfterIt) {
    bool aliveDuringHandler = false;
    inner->consumes = EventCode::Mouse;
    inner->onEvent = [&](Event const& e) {
        if (!mouse_down_event(e))
            return;
        GlobManager::instance().requestDeletion(inner);
        GlobManager::instance().requestDeletion(outer);
        aliveDuringHandler = is_good_glob_ptr(inner) && is_good_glob_ptr(outer);
    };
    Glob* innerPtr = inner;
    Glob* outerPtr = outer;
    driver.click(inner, {5, 5});
    EXPECT_TRUE(aliveDuringHandler);
    EXPECT_FALSE(is_good_glob_ptr(innerPtr));
    EXPECT_FALSE(is_good_glob_ptr(outerPtr));
    EXPECT_TRUE(is_good_glob_ptr(window));
    std::vector<Glob*> children;
    window->getChildren(children);
    EXPECT_TRUE(children.empty());
}

TEST_F(Delivery, ClicksCountByTimeAndDistance) {
    inner->consumes = EventCode::Mouse;
    auto lastPressClicks = [&] {
        for (auto it = inner->events.rbegin(); it != inner->events.rend(); ++it)
            if (mouse_down_event(*it))
                return it->clicks;
        return 0;
    };
    driver.click(inner, {10, 10});
    driver.advanceTime(100);
    driver.click(inner, {12, 11});
    EXPECT_EQ(lastPressClicks(), 2);
    EXPECT_TRUE(mouse_double_click_event(inner->events.back()));
    driver.click(inner, {12, 11});
    EXPECT_EQ(lastPressClicks(), 3);
    driver.advanceTime(500);
    driver.click(inner, {12, 11});
    EXPECT_EQ(lastPressClicks(), 1);
    driver.click(inner, {30, 11});
    EXPECT_EQ(lastPressClicks(), 1);
}

TEST_F(Delivery, WheelEventsOverAParentReachItsRecordedHandlerFirst) {
    RecordingGlob* bar = makeChild(window, {300, 10}, {20, 200});
    bar->consumes = EventCode::Mouse;
    outer->addEventHandler(bar, 0x106);
    driver.wheel(outer, {100, 100}, -2);
    ASSERT_EQ(bar->count(EventCode::MouseWheel), 1);
    EXPECT_EQ(bar->events.back().code, -2);
    EXPECT_EQ(bar->events.back().forward, 0);
    // Moves are not in the mask and stay with the parent.
    EXPECT_EQ(bar->count(EventCode::MouseMove), 0);
    outer->removeEventHandler(0x106);
    driver.wheel(outer, {100, 100}, 1);
    EXPECT_EQ(bar->count(EventCode::MouseWheel), 1);
}

TEST_F(Delivery, TimerTicksFollowTheVirtualClockOnly) {
    inner->setInterest(4096);
    driver.processEvents();
    EXPECT_EQ(inner->count(EventCode::Timer), 0);
    driver.advanceTime(100);
    EXPECT_EQ(inner->count(EventCode::Timer), 5);
    inner->clearInterest(4096);
    driver.advanceTime(100);
    EXPECT_EQ(inner->count(EventCode::Timer), 5);

    EventTimeServer::theEventTimeServer().registerForTimeEvents(outer);
    driver.advanceTime(120);
    EXPECT_EQ(outer->count(EventCode::TimeServer), 2);
    delete outer;
    driver.advanceTime(200);
}

TEST_F(Delivery, TheWindowManagersCloseSendsPootToTheWindow) {
    InputEvent close;
    close.kind = InputEvent::CloseRequest;
    close.window = window->canvas();
    driver.display().inject(close);
    driver.processEvents();
    EXPECT_EQ(window->messages(), (std::vector<std::string>{"poot"}));
}

TEST_F(Delivery, APressOutsideAModalPopupSendsItPoot) {
    RecordingGlob* popup = makeWindow({700, 500}, {100, 100});
    RecordingGlob* submenu = makeWindow({800, 500}, {100, 100});
    Glob::setModalContextGlob(popup, inner);
    Glob::setModalContextGlob(submenu, popup);
    driver.click(submenu, {50, 50});
    driver.click(popup, {50, 50});
    EXPECT_TRUE(popup->messages().empty());
    EXPECT_EQ(submenu->messages(), (std::vector<std::string>{"poot"}));
    driver.click(outer, {150, 140});
    EXPECT_EQ(popup->messages(), (std::vector<std::string>{"poot"}));
}

TEST_F(Delivery, TopLevelsAreListedTopmostFirstAndFoundByPosition) {
    RecordingGlob* front = makeWindow({150, 150}, {50, 50});
    EXPECT_EQ(driver.topLevels(), (std::vector<Glob*>{front, window}));
    EXPECT_EQ(driver.widgetAt({160, 160}), front);
    EXPECT_EQ(driver.widgetAt({100 + 70 + 55, 100 + 70 + 35}), inner);
    EXPECT_EQ(driver.widgetAt({5, 5}), nullptr);
    EXPECT_EQ(GlobManager::instance().find("RecordingGlob"), window);
}

namespace {
// Collects the widget pointers of notifications, or the event types of mouse messages.
struct Collect : iCallbackBase<int, NotifyMsg> {
    std::vector<Glob*> widgets;
    std::vector<int> types;
    std::function<void()> then;
    int execute(NotifyMsg const& msg) override {
        if (auto w = Qor::dynamic_ptr_cast<WrappedData<Glob*>>(msg.getData()))
            widgets.push_back(w->getData());
        if (auto e = Qor::dynamic_ptr_cast<WrappedData<Event>>(msg.getData()))
            types.push_back(e->getData().type);
        if (then)
            then();
        return 0;
    }
};
} // namespace

TEST_F(Delivery, ListenersHearOfDeletedAndMovedWidgetsUntilTheirGuardGoes) {
    auto deleted = Qor::makePtr<Collect>();
    auto moved = Qor::makePtr<Collect>();
    auto& manager = GlobManager::instance();
    auto deletedGuard = manager.registerForNotification(GlobManager::WidgetDeleted, deleted);
    auto movedGuard = manager.registerForNotification(GlobManager::WidgetMoved, moved);
    Glob* innerPtr = inner;
    delete outer;
    EXPECT_EQ(deleted->widgets, (std::vector<Glob*>{innerPtr, outer}));
    window->reshapeAndDraw({300, 300});
    EXPECT_EQ(moved->widgets, (std::vector<Glob*>{window}));
    deletedGuard.reset();
    delete window;
    EXPECT_EQ(deleted->widgets.size(), 2u);
}

TEST_F(Delivery, AMouseListenerThatDeletesTheTargetLeavesDeliverySafe) {
    auto listener = Qor::makePtr<Collect>();
    listener->then = [this] { GlobManager::instance().requestDeletion(inner); };
    auto guard = Glib::addMouseListener(listener);
    inner->consumes = EventCode::Mouse;
    Glob* innerPtr = inner;
    driver.click(inner, {5, 5});
    EXPECT_EQ(listener->types.front(), int(EventCode::MouseMove));
    EXPECT_FALSE(is_good_glob_ptr(innerPtr));
    driver.click(outer, {150, 140});
    EXPECT_TRUE(is_good_glob_ptr(outer));
}

TEST_F(Delivery, WindowsPlacedBesideAWidgetStayOnTheScreenAcrossButNotDown) {
    auto& manager = GlobManager::instance();
    SiblingRelativePosition below;
    below.sibling = inner;
    below.relativity = RelativeBelow;
    // inner is at root (170, 170), 60 by 40.
    Box screen(0, 0, 1920, 1080);
    EXPECT_EQ(manager.calcPosForGlob({100, 50}, below, screen), XY<int>(170, 120));
    EXPECT_EQ(manager.calcPosForGlob({100, 300}, below, screen), XY<int>(170, -130));
    below.alignment = AlignTrailing;
    EXPECT_EQ(manager.calcPosForGlob({100, 50}, below, screen), XY<int>(130, 120));
    Box part(40, 0, 60, 10);
    below.subRect = &part;
    below.alignment = AlignLeading;
    EXPECT_EQ(manager.calcPosForGlob({100, 50}, below, screen), XY<int>(210, 120));
    SiblingRelativePosition right;
    right.sibling = inner;
    right.relativity = RelativeRight;
    EXPECT_EQ(manager.calcPosForGlob({2000, 50}, right, screen).x, 0);
}

TEST_F(Delivery, NewWindowsArePlacedAgainstTheScreenAndKeptOnIt) {
    auto& manager = GlobManager::instance();
    GlobCreationInfo info(200, 100);
    EXPECT_EQ(manager.getPosForGlob(info, Glob::TopRight(10, 20)), XY<int>(1920 - 210, 1080 - 120));
    EXPECT_EQ(manager.getPosForGlob(info, Glob::Centre(0, 0)), XY<int>(860, 490));
    EXPECT_EQ(manager.getPosForGlob(info, Glob::BottomLeft(-50, 2000)), XY<int>(0, 980));
    EXPECT_EQ(manager.getPosForGlob(info, Glob::Below(5, inner)), XY<int>(170, 65));
}
