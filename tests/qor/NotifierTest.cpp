#include "qor/Notifier.h"

#include <gtest/gtest.h>

#include <atomic>
#include <memory>
#include <string>
#include <thread>
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

// Registers with a typed notifier the way value clients do, and lets go on the end message.
struct Client {
    void registerWith(NotifierEx<int>* notifier) {
        server = notifier;
        Qor::Ptr<iCallbackBase<int, NotifierEvent<int>>> callback(
            new MethodCallback<Client, NotifierEvent<int>, int>(this, &Client::handle));
        guard = notifier->registerInternal(
            new CallbackInvoker<NotifierEvent<int>>(Types::instance().allMessagesType(), callback));
    }
    int handle(NotifierEvent<int> const& event) {
        heard.push_back({event.type, event.value});
        issuer = event.notifier;
        if (event.type == Types::instance().notifierEndType()) {
            server = nullptr;
            guard = nullptr;
        }
        return 0;
    }

    NotifierEx<int>* server = nullptr;
    NotifierEx<int> const* issuer = nullptr;
    Guard guard;
    std::vector<std::pair<int, int>> heard;
};

} // namespace

TEST(Notifier, CallsRegistrantsInOrderUntilTheirGuardGoes) {
    Notifier notifier;
    Log log;
    issue(notifier, "nobody");
    Guard a = notifier.registerCallback(recorder(log, "a"));
    Guard b = notifier.registerCallback(recorder(log, "b"));
    issue(notifier, "x");
    Guard alsoB = b;
    b = nullptr;
    issue(notifier, "y");
    alsoB = nullptr;
    issue(notifier, "z");
    EXPECT_EQ(log, (Log{"a:x", "b:x", "a:y", "b:y", "a:z"}));
    EXPECT_EQ(notifier.registrationCount(), 1u);
}

TEST(Notifier, DeliversOnlyTheWantedTypeWhileTypeZeroHearsEverything) {
    Notifier notifier;
    Log log;
    Guard deleted = notifier.registerCallback(recorder(log, "deleted"), Types::WidgetDeleted);
    Guard all = notifier.registerCallback(recorder(log, "all"), Types::AllMessages);
    issue(notifier, "moved", Types::WidgetMoved);
    issue(notifier, "gone", Types::WidgetDeleted);
    EXPECT_EQ(log, (Log{"all:moved", "deleted:gone", "all:gone"}));
}

TEST(Notifier, CallbackMayDropItsOwnGuardWhileItRuns) {
    Notifier notifier;
    Log log;
    Guard self;
    Guard a = notifier.registerCallback(recorder(log, "a"));
    // Writes to the log after its own registration, and so its record, has gone.
    self =
        notifier.registerCallback(acting(log, "self", [&](NotifyMsg const&) { self = nullptr; }));
    Guard c = notifier.registerCallback(recorder(log, "c"));
    issue(notifier, "x");
    issue(notifier, "y");
    EXPECT_EQ(log, (Log{"a:x", "self:x", "c:x", "a:y", "c:y"}));
}

TEST(Notifier, GuardDroppedByAnotherCallbackTakesEffectAtOnce) {
    Notifier notifier;
    Log log;
    Guard a, b, c, d;
    a = notifier.registerCallback(acting(log, "a", [&](NotifyMsg const&) { b = nullptr; }));
    b = notifier.registerCallback(recorder(log, "b"));
    c = notifier.registerCallback(recorder(log, "c"));
    d = notifier.registerCallback(acting(log, "d", [&](NotifyMsg const&) { a = nullptr; }));
    issue(notifier, "x");
    issue(notifier, "y");
    EXPECT_EQ(log, (Log{"a:x", "c:x", "d:x", "c:y", "d:y"}));
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

TEST(Notifier, RefusesARecordThatIsAlreadyRegistered) {
    Notifier one, two;
    auto* record = new CallbackInvoker<NotifyMsg>(Types::AllMessages, nullptr);
    Guard first = one.registerInternal(record);
    EXPECT_TRUE(first);
    EXPECT_FALSE(two.registerInternal(record));
    EXPECT_FALSE(one.registerInternal(nullptr));
    EXPECT_EQ(two.registrationCount(), 0u);
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
    auto issuer = [&] {
        for (int i = 0; i < issues; ++i)
            issue(notifier, "tick");
    };
    std::thread first(issuer), second(issuer);
    std::thread churner([&] {
        for (int i = 0; i < issues; ++i)
            Guard g = notifier.registerCallback(
                Qor::makeCallback<NotifyMsg>([](NotifyMsg const&) { return 0; }));
    });
    first.join();
    second.join();
    churner.join();
    EXPECT_FALSE(overlapped);
    EXPECT_EQ(steadyCalls.load(), 2 * issues);
    EXPECT_EQ(notifier.registrationCount(), 1u);
}

TEST(NotifierEx, StampsTypeAndIssuerAndAClientLetsGoOnTheEndMessage) {
    Client client;
    NotifierEx<int> const* issuer = nullptr;
    {
        NotifierEx<int> notifier;
        issuer = &notifier;
        client.registerWith(&notifier);
        NotifierEvent<int> event(42);
        event.type = 77;
        notifier.issueNotification(event, Types::ValueChanged);
        EXPECT_EQ(client.issuer, issuer);
        EXPECT_EQ(event.type, 77);
    }
    EXPECT_EQ(client.heard, (std::vector<std::pair<int, int>>{{Types::ValueChanged, 42},
                                                              {Types::NotifierEnd, 0}}));
    EXPECT_EQ(client.issuer, issuer);
    EXPECT_EQ(client.server, nullptr);
    EXPECT_FALSE(client.guard);
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
        issue(plain, "a");
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

TEST(NotifyMsgTypeDictionary, FixedNumbersAndNamedTypesFromOneHundredUp) {
    auto& types = NotifyMsgTypeDictionary::instance();
    EXPECT_EQ(types.allMessagesType(), 0);
    EXPECT_EQ(types.notifierEndType(), 1);
    EXPECT_EQ(types.typeFor("ValueChanged"), 2);
    EXPECT_EQ(types.typeFor("PreValueChanged"), 3);
    EXPECT_EQ(types.typeFor("WidgetDeleted"), 10);
    EXPECT_EQ(types.typeFor("WidgetMoved"), 12);
    int alpha = types.typeFor("test.alpha");
    int beta = types.typeFor("test.beta");
    EXPECT_GE(alpha, 100);
    EXPECT_GE(beta, 100);
    EXPECT_NE(alpha, beta);
    EXPECT_EQ(types.typeFor("test.alpha"), alpha);
    EXPECT_EQ(types.nameOf(beta), "test.beta");
    EXPECT_TRUE(types.nameOf(99).empty());
}
