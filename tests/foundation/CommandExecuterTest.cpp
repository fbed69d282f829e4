#include "foundation/CommandExecuter.h"
#include "glob/CommandMap.h"
#include "glob/EventLoop.h"
#include "qor/WrappedData.h"
#include "testing/UiTestDriver.h"

#include <gtest/gtest.h>

#include <atomic>
#include <thread>

namespace {

using Callback = Qor::Ptr<iCallbackBase<int, NotifyMsg>>;

// What the commands of these tests saw.
struct Seen {
    std::atomic<int> plain{0};
    std::atomic<int> shifted{0};
    std::thread::id thread;
    int context = -1;
};
Seen seen;

void record(std::atomic<int>& counter, Qor::Ptr<iObject> const& context) {
    ++counter;
    seen.thread = std::this_thread::get_id();
    auto const* data = dynamic_cast<WrappedData<int> const*>(context.get());
    seen.context = data ? data->getData() : -1;
}

CommandRegistrar plainCommand("CommandExecuterTest.plain", L"Plain",
                              [](Qor::Ptr<iObject> const& c) { record(seen.plain, c); });
CommandRegistrar shiftedCommand("CommandExecuterTest.shifted", L"Shifted",
                                [](Qor::Ptr<iObject> const& c) { record(seen.shifted, c); });

struct Commands : ::testing::Test {
    void SetUp() override {
        // The first thread to reach the loop becomes the user-interface thread: this one.
        ASSERT_TRUE(EventLoop::instance().isUIThread());
        seen.plain = 0;
        seen.shifted = 0;
        seen.context = -1;
    }
    UiTestDriver driver;
};

} // namespace

TEST_F(Commands, FromAnotherThreadTheCommandRunsOnTheUserInterfaceThreadWithTheContext) {
    Callback executer(new CommandExecuter("CommandExecuterTest.plain"));
    int answer = -1;
    std::thread worker(
        [&] { answer = executer->execute(NotifyMsg("go", Qor::makePtr<WrappedData<int>>(11))); });
    worker.join();
    EXPECT_EQ(answer, 0);
    EXPECT_EQ(seen.plain, 0);
    EventLoop::instance().processPending();
    EXPECT_EQ(seen.plain, 1);
    EXPECT_EQ(seen.thread, std::this_thread::get_id());
    EXPECT_EQ(seen.context, 11);
}

TEST_F(Commands, ShiftChoosesTheSecondCommandOnlyWhenThereIsOneAndUnknownNamesDoNothing) {
    Callback both(new CommandExecuter("CommandExecuterTest.plain", "CommandExecuterTest.shifted"));
    Callback single(new CommandExecuter("CommandExecuterTest.plain"));
    Callback unknown(new CommandExecuter("CommandExecuterTest.nowhere"));
    driver.setModifiers(0x1000000);
    both->execute(NotifyMsg("go", 0));
    single->execute(NotifyMsg("go", 0));
    EXPECT_EQ(unknown->execute(NotifyMsg("go", 0)), 0);
    driver.setModifiers(0);
    both->execute(NotifyMsg("go", 0));
    EXPECT_EQ(seen.plain, 2);
    EXPECT_EQ(seen.shifted, 1);
}

TEST_F(Commands, ReleasedOnAWorkerBeforeTheLoopTurnsItsWorkIsDropped) {
    Callback executer(new CommandExecuter("CommandExecuterTest.plain"));
    std::thread worker([&] {
        executer->execute(NotifyMsg("go", 0));
        executer = nullptr;
    });
    worker.join();
    EventLoop::instance().processPending();
    EXPECT_EQ(seen.plain, 0);
}
