#include "glob/UIThreadCallback.h"
#include "glob/EventLoop.h"
#include "os/Clock.h"

#include <gtest/gtest.h>

#include <atomic>
#include <thread>

namespace {

using Callback = Qor::Ptr<iCallbackBase<int, NotifyMsg>>;

// Records where and how often it ran.
struct Probe {
    Callback callback() {
        return Qor::makeCallback<NotifyMsg>([this](NotifyMsg const& msg) {
            ++runs;
            thread = std::this_thread::get_id();
            flags = msg.getFlags();
            return 7;
        });
    }
    std::atomic<int> runs{0};
    std::thread::id thread;
    int flags = 0;
};

// Makes this (the test's main) thread the user-interface thread before any worker asks.
EventLoop& uiLoop() {
    EventLoop& loop = EventLoop::instance();
    EXPECT_TRUE(loop.isUIThread());
    return loop;
}

} // namespace

TEST(UIThreadCallback, WorkFromAnotherThreadRunsOnceOnTheUserInterfaceThread) {
    EventLoop& loop = uiLoop();
    Probe probe;
    Callback ui(new UIThreadCallback<NotifyMsg>(probe.callback(), true));
    int answer = -1;
    std::thread worker([&] {
        NotifyMsg msg("changed", 0);
        msg.setFlags(3);
        answer = ui->execute(msg);
    });
    worker.join();
    EXPECT_EQ(answer, 0);
    EXPECT_EQ(probe.runs, 0);
    for (double deadline = msecsNow() + 2000; probe.runs == 0 && msecsNow() < deadline;)
        loop.runOnce(20);
    loop.processPending();
    EXPECT_EQ(probe.runs, 1);
    EXPECT_EQ(probe.thread, std::this_thread::get_id());
    EXPECT_EQ(probe.flags, 3);
}

TEST(UIThreadCallback, OnTheUserInterfaceThreadRunsAtOnceOnlyWhenAskedTo) {
    EventLoop& loop = uiLoop();
    Probe atOnce, later;
    Callback immediate(new UIThreadCallback<NotifyMsg>(atOnce.callback(), true));
    Callback posted(new UIThreadCallback<NotifyMsg>(later.callback(), false));
    EXPECT_EQ(immediate->execute(NotifyMsg("now", 0)), 7);
    EXPECT_EQ(atOnce.runs, 1);
    EXPECT_EQ(posted->execute(NotifyMsg("later", 0)), 0);
    EXPECT_EQ(later.runs, 0);
    loop.processPending();
    EXPECT_EQ(later.runs, 1);
}

TEST(UIThreadCallback, WorkPostedForACallbackReleasedMeanwhileIsDropped) {
    EventLoop& loop = uiLoop();
    Probe probe;
    Callback ui(new UIThreadCallback<NotifyMsg>(probe.callback(), false));
    std::thread worker([&] { ui->execute(NotifyMsg("late", 0)); });
    worker.join();
    ui = nullptr;
    loop.processPending();
    EXPECT_EQ(probe.runs, 0);
}

TEST(UIThreadCallback, CallbackMayReleaseItsOwnUIThreadCallbackWhileRunning) {
    EventLoop& loop = uiLoop();
    int runs = 0;
    Callback ui;
    ui = Callback(
        new UIThreadCallback<NotifyMsg>(Qor::makeCallback<NotifyMsg>([&](NotifyMsg const&) {
                                            ui = nullptr;
                                            return ++runs;
                                        }),
                                        false));
    ui->execute(NotifyMsg("first", 0));
    ui->execute(NotifyMsg("second", 0));
    loop.processPending();
    EXPECT_EQ(runs, 1);
}
