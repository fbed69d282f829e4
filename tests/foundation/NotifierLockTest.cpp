#include "qor/Notifier.h"

#include <gtest/gtest.h>

#include <atomic>
#include <memory>
#include <thread>
#include <vector>

namespace {

// A client as value-bound widgets are: it registers a method callback onto itself and its
// destructor ends the registration before its memory goes.
class Client {
public:
    Client(NotifierEx<int>& notifier, std::atomic<long>& total) : total_(total) {
        guard_ = notifier.registerInternal(new CallbackInvoker<NotifierEvent<int>>(
            NotifyMsgTypeDictionary::instance().allMessagesType(),
            Qor::makeCallback(this, &Client::handle)));
    }

    int handle(NotifierEvent<int> const& event) {
        if (event.type == NotifyMsgTypeDictionary::ValueChanged) {
            last_ = event.value;
            total_ += event.value;
        }
        return 0;
    }
    int last() const { return last_; }

private:
    std::atomic<long>& total_;
    int last_ = 0;
    Qor::Ptr<Qor::Guard> guard_;
};

void issue(NotifierEx<int> const& notifier, int value) {
    notifier.issueNotification(NotifierEvent<int>(value), NotifyMsgTypeDictionary::ValueChanged);
}

// Runs work(0) and work(1) on two threads at once.
template <typename Work>
void onTwoThreads(Work work) {
    std::thread one(work, 0);
    std::thread two(work, 1);
    one.join();
    two.join();
}

} // namespace

TEST(NotifierLocks, TwoThreadsIssuingAtOnceReachEveryClientWithEveryValue) {
    NotifierEx<int> notifier;
    std::atomic<long> total{0};
    std::vector<std::unique_ptr<Client>> clients;
    for (int i = 0; i < 4; ++i)
        clients.push_back(std::make_unique<Client>(notifier, total));
    constexpr int issues = 2000;
    onTwoThreads([&](int thread) {
        for (int i = 0; i < issues; ++i)
            issue(notifier, thread + 1);
    });
    EXPECT_EQ(total.load(), long(clients.size()) * issues * (1 + 2));
}

TEST(NotifierLocks, ClientsDyingWhileAnotherThreadIssuesAreNeverCalledAfterward) {
    NotifierEx<int> notifier;
    std::atomic<long> total{0};
    std::atomic<bool> done{false};
    Client steady(notifier, total);
    std::thread issuer([&] {
        while (!done)
            issue(notifier, 1);
    });
    // Each client's guard goes in its destructor, while issues run on the other thread; a call
    // into a freed client would be caught by the address sanitizer.
    for (int i = 0; i < 2000; ++i)
        auto transient = std::make_unique<Client>(notifier, total);
    done = true;
    issuer.join();
    EXPECT_EQ(notifier.registrationCount(), 1u);
    EXPECT_EQ(steady.last(), 1);
}

TEST(NotifierLocks, GuardsDroppedByOneIssuersCallbackWhileAnotherThreadIssuesDoNotDeadlock) {
    NotifierEx<int> notifier;
    std::atomic<int> calls{0};
    std::vector<Qor::Ptr<Qor::Guard>> guards;
    // Each callback drops the next guard, from inside an issue, while the other thread issues too.
    for (int i = 0; i < 200; ++i)
        guards.push_back(notifier.registerInternal(new CallbackInvoker<NotifierEvent<int>>(
            NotifyMsgTypeDictionary::AllMessages,
            Qor::makeCallback<NotifierEvent<int>>([&](NotifierEvent<int> const& event) {
                ++calls;
                std::size_t next = std::size_t(event.value);
                if (next < guards.size())
                    guards[next] = nullptr;
                return 0;
            }))));
    onTwoThreads([&](int thread) {
        for (int i = 0; i < 100; ++i)
            issue(notifier, 2 * i + thread);
    });
    EXPECT_EQ(notifier.registrationCount(), 0u);
    EXPECT_GT(calls.load(), 0);
}
