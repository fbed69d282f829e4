#include "qor/Notifier.h"

#include "support/OnThreads.h"

#include <gtest/gtest.h>

#include <atomic>
#include <memory>
#include <string>
#include <thread>
#include <tuple>
#include <vector>

namespace {

using Log = std::vector<std::string>;
using Callback = Qor::Ptr<iCallbackBase<int, NotifyMsg>>;
using Guard = Qor::Ptr<Qor::Guard>;
using Types = NotifyMsgTypeDictionary;

constexpr int SomeType = 5;

// A callback that logs "<tag>:<message name>".
Callback recorder(Log& log, std::string tag) {
    return Qor::makeCallback<NotifyMsg>([&log, tag](NotifyMsg const& msg) {
        log.push_back(tag + ":" + static_cast<char const*>(msg));
        return 0;
    });
}

// A callback that runs `action` and then logs, so that the log entry is written after whatever
// the action released.
template <class F>
Callback acting(Log& log, std::string tag, F action) {
    return Qor::makeCallback<NotifyMsg>([&log, tag, action](NotifyMsg const& msg) {
        action(msg);
        log.push_back(tag + ":" + static_cast<char const*>(msg));
        return 0;
    });
}

void issue(Notifier const& notifier, char const* name, int type = SomeType) {
    notifier.issueNotification(NotifyMsg(name, 0), type);
}

struct CountedCallback : iCallbackBase<int, NotifyMsg> {
    explicit CountedCallback(int* deaths) : deaths_(deaths) {}
    ~CountedCallback() override { ++*deaths_; }
    int execute(NotifyMsg const&) override { return 0; }
    int* deaths_;
};

} // namespace

TEST(Notifier, CallsRegistrantsOfTheTypeInOrderUntilTheirLastGuardGoes) {
    Notifier notifier;
    Log log;
    Guard a = notifier.registerCallback(recorder(log, "a"));
    Guard b = notifier.registerCallback(recorder(log, "b"));
    Guard deleted = notifier.registerCallback(recorder(log, "deleted"), Types::WidgetDeleted);
    issue(notifier, "x", Types::WidgetMoved);
    Guard alsoB = b;
    b = nullptr;
    issue(notifier, "y", Types::WidgetDeleted);
    alsoB = deleted = nullptr;
    issue(notifier, "z");
    EXPECT_EQ(log, (Log{"a:x", "b:x", "a:y", "b:y", "deleted:y", "a:z"}));
    EXPECT_EQ(notifier.registrationCount(), 1u);
}

TEST(Notifier, GuardsDroppedWhileAnIssueRunsTakeEffectAtOnceEvenACallbacksOwn) {
    Notifier notifier;
    Log log;
    Guard a, b, self, d;
    a = notifier.registerCallback(acting(log, "a", [&](NotifyMsg const&) { b = nullptr; }));
    b = notifier.registerCallback(recorder(log, "b"));
    // Writes to the log after its own registration, and so its record, has gone.
    self =
        notifier.registerCallback(acting(log, "self", [&](NotifyMsg const&) { self = nullptr; }));
    d = notifier.registerCallback(acting(log, "d", [&](NotifyMsg const&) { a = nullptr; }));
    issue(notifier, "x");
    issue(notifier, "y");
    EXPECT_EQ(log, (Log{"a:x", "self:x", "d:x", "d:y"}));
}

TEST(Notifier, RegistrationMadeDuringAnIssueHearsFromTheNextOneOn) {
    Notifier notifier;
    Log log;
    Guard late;
    Guard a = notifier.registerCallback(acting(log, "a", [&](NotifyMsg const&) {
        if (!late)
            late = notifier.registerCallback(recorder(log, "late"));
    }));
    Guard b = notifier.registerCallback(recorder(log, "b"));
    issue(notifier, "x");
    issue(notifier, "y");
    EXPECT_EQ(log, (Log{"a:x", "b:x", "a:y", "b:y", "late:y"}));
}

TEST(Notifier, CallbackMayIssueAgainOnTheSameNotifier) {
    Notifier notifier;
    Log log;
    Guard a = notifier.registerCallback(recorder(log, "a"));
    Guard reissuer = notifier.registerCallback(acting(log, "r", [&](NotifyMsg const& msg) {
        if (msg.getName() == "outer")
            issue(notifier, "inner");
    }));
    Guard c = notifier.registerCallback(recorder(log, "c"));
    issue(notifier, "outer");
    EXPECT_EQ(log, (Log{"a:outer", "a:inner", "r:inner", "c:inner", "r:outer", "c:outer"}));
}

TEST(Notifier, CallbackMayDestroyTheNotifierInTheMiddleOfAnIssue) {
    auto notifier = std::make_unique<Notifier>();
    Log log;
    Guard a, killer, c;
    // Like value clients, each lets go of its guard on the end message, so that afterwards only
    // the running issue still refers to the registrations.
    auto leaveOnEnd = [](Guard& guard) {
        return [&guard](NotifyMsg const& msg) {
            if (msg.getName() == Notifier::endMessageName)
                guard = nullptr;
        };
    };
    a = notifier->registerCallback(acting(log, "a", leaveOnEnd(a)));
    killer = notifier->registerCallback(acting(log, "k", [&](NotifyMsg const& msg) {
        if (msg.getName() == "x")
            notifier.reset();
        else
            killer = nullptr;
    }));
    c = notifier->registerCallback(acting(log, "c", leaveOnEnd(c)));
    Notifier const* raw = notifier.get();
    issue(*raw, "x");
    // The registrants heard of the end inside the killer's call; c never hears "x".
    EXPECT_EQ(log, (Log{"a:x", "a:NotifierEnd", "k:NotifierEnd", "c:NotifierEnd", "k:x"}));
    EXPECT_FALSE(a || killer || c);
}

TEST(Notifier, DyingNotifierTellsItsRegistrantsAndLeavesTheirGuardsInert) {
    Log log;
    int deaths = 0;
    Guard all, end, moved, silent;
    {
        Notifier notifier;
        all = notifier.registerCallback(recorder(log, "all"));
        end = notifier.registerCallback(recorder(log, "end"), Types::NotifierEnd);
        moved = notifier.registerCallback(recorder(log, "moved"), Types::WidgetMoved);
        silent = notifier.registerCallback(Callback(new CountedCallback(&deaths)));
    }
    EXPECT_EQ(log, (Log{"all:NotifierEnd", "end:NotifierEnd"}));
    // The records and their callbacks went with the notifier, though the guards are still held.
    EXPECT_EQ(deaths, 1);
    all = end = moved = silent = nullptr;
    EXPECT_EQ(deaths, 1);
}

TEST(Notifier, IssuesFromSeveralThreadsTakeTurnsAndLoseNoCalls) {
    Notifier notifier;
    std::atomic<int> steadyCalls{0};
    std::atomic<int> inside{0};
    std::atomic<bool> overlapped{false};
    Guard steady = notifier.registerCallback(Qor::makeCallback<NotifyMsg>([&](NotifyMsg const&) {
        if (inside.fetch_add(1) != 0)
            overlapped = true;
        std::this_thread::yield();
        inside.fetch_sub(1);
        ++steadyCalls;
        return 0;
    }));
    constexpr int issues = 1000;
    // Two threads issue while a third registers and drops callbacks.
    onThreads(3, [&](int t) {
        for (int i = 0; i < issues; ++i)
            if (t < 2)
                issue(notifier, "tick");
            else
                Guard g = notifier.registerCallback(
                    Qor::makeCallback<NotifyMsg>([](NotifyMsg const&) { return 0; }));
    });
    EXPECT_FALSE(overlapped);
    EXPECT_EQ(steadyCalls.load(), 2 * issues);
    EXPECT_EQ(notifier.registrationCount(), 1u);
}

TEST(NotifierEx, StampsTypeAndIssuerOnEachEventEndMessageIncluded) {
    std::vector<std::tuple<int, int, void const*>> heard;
    void const* issuer = nullptr;
    Guard guard;
    {
        NotifierEx<int> notifier;
        issuer = &notifier;
        guard = notifier.registerCallback(
            Qor::makeCallback<NotifierEvent<int>>([&](NotifierEvent<int> const& event) {
                heard.emplace_back(event.type, event.value, event.notifier);
                return 0;
            }));
        NotifierEvent<int> event(42);
        event.type = 77;
        notifier.issueNotification(event, Types::ValueChanged);
        EXPECT_EQ(event.type, 77);
    }
    EXPECT_EQ(heard, (std::vector<std::tuple<int, int, void const*>>{
                         {Types::ValueChanged, 42, issuer}, {Types::NotifierEnd, 0, issuer}}));
}

TEST(NotifyWithDisable, IssuesNothingWhileDisabledAndDisablingNests) {
    Log log;
    Guard guard;
    {
        NotifyWithDisable notifier;
        Notifier& plain = notifier.getNotify();
        guard = plain.registerCallback(recorder(log, "r"));
        notifier.disableNotifications();
        notifier.disableNotifications();
        notifier.enableNotifications();
        issue(plain, "b");
        notifier.enableNotifications();
        issue(plain, "c");
        // An unmatched enable must not leave credit for the next disable.
        notifier.enableNotifications();
        notifier.disableNotifications();
        issue(plain, "d");
    }
    EXPECT_EQ(log, (Log{"r:c", "r:NotifierEnd"}));
}

TEST(NotifyMsgTypeDictionary, NamedTypesAreNumberedFromOneHundredUpOncePerName) {
    auto& types = NotifyMsgTypeDictionary::instance();
    EXPECT_EQ(types.typeFor("WidgetDeleted"), Types::WidgetDeleted);
    int alpha = types.typeFor("test.alpha");
    int beta = types.typeFor("test.beta");
    EXPECT_GE(alpha, 100);
    EXPECT_NE(alpha, beta);
    EXPECT_EQ(types.typeFor("test.alpha"), alpha);
    EXPECT_EQ(types.nameOf(beta), "test.beta");
    EXPECT_TRUE(types.nameOf(99).empty());
}
