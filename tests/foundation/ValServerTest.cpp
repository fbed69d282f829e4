#include "foundation/ValServer.h"
#include "foundation/LastValServer.h"
#include "foundation/ValClient.h"
#include "foundation/ValObserver.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace {

// Writes what it hears, and what the server held at that moment, into a shared log.
class LoggingClient : public ValClient<int> {
public:
    using ValClient<int>::operator=;

    LoggingClient(std::string name, std::vector<std::string>& log)
        : name_(std::move(name)), log_(log) {}

    void valChangedNtfy() override {
        log_.push_back(name_ + " changed " + std::to_string(getServerValue()));
        if (onChange)
            onChange();
    }
    void valPreChangedNtfy() override {
        log_.push_back(name_ + " pre " + std::to_string(getServerValue()));
    }

    std::function<void()> onChange;

private:
    std::string name_;
    std::vector<std::string>& log_;
};

// Refuses negative values and clamps others to at most 10.
class ClampManager : public ValManagerBase<int> {
public:
    bool requestValChange(ValServer<int>* server, int& value) override {
        asked.push_back(server);
        if (value < 0)
            return false;
        value = std::min(value, 10);
        return true;
    }
    void releaseServer(ValServer<int>* server) override { released.push_back(server); }

    std::vector<ValServer<int>*> asked;
    std::vector<ValServer<int>*> released;
};

struct Binding : ::testing::Test {
    std::vector<std::string> log;
    ValServer<int> server{5};
    LoggingClient first{"a", log};
    LoggingClient second{"b", log};

    void SetUp() override {
        first.registerWith(&server);
        second.registerWith(&server);
    }
};

} // namespace

TEST_F(Binding, AChangeReachesEveryClientOnceInOrderOfRegistration) {
    server = 7;
    EXPECT_EQ(log, (std::vector<std::string>{"a changed 7", "b changed 7"}));
    EXPECT_EQ(int(first), 7);
}

TEST_F(Binding, AnEqualValueIsAnnouncedAllTheSame) {
    EXPECT_TRUE(server.updateAndNotify(5));
    EXPECT_EQ(log.size(), 2u);
}

TEST_F(Binding, ClientsSeeTheMessageTypeAndTheServerInTheEvent) {
    struct Recorder : ValClient<int> {
        void valChangedNtfy() override {}
    } recorder;
    std::vector<NotifierEvent<int>> events;
    auto guard = server.registerCallback(Qor::makeCallback<NotifierEvent<int>>(
        [&](NotifierEvent<int> const& e) { return events.push_back(e), 0; }));
    server.preNotifyValChanged();
    server = 9;
    ASSERT_EQ(events.size(), 2u);
    EXPECT_EQ(events[0].type, ValServerBase::preValChangedMsgType_);
    EXPECT_EQ(events[1].type, ValServerBase::valChangedMsgType_);
    EXPECT_EQ(events[1].value, 9);
    EXPECT_EQ(events[1].notifier, static_cast<NotifierEx<int> const*>(&server));
}

TEST_F(Binding, PreChangeGoesOutOnlyWhenAskedForAndBeforeTheChange) {
    server = 6;
    server.preNotifyValChanged();
    server = 8;
    EXPECT_EQ(log, (std::vector<std::string>{"a changed 6", "b changed 6", "a pre 6", "b pre 6",
                                             "a changed 8", "b changed 8"}));
}

TEST_F(Binding, AManagerCorrectsTheValueBeforeClientsHearIt) {
    ClampManager manager;
    server.setValManager(&manager);
    EXPECT_EQ(first = 42, 10);
    EXPECT_EQ(server.getValue(), 10);
    EXPECT_EQ(log, (std::vector<std::string>{"a changed 10", "b changed 10"}));
    EXPECT_EQ(manager.asked, (std::vector<ValServer<int>*>{&server}));
    server.setValManager(nullptr);
}

TEST_F(Binding, ARefusedChangeLeavesTheValueAndSendsNothing) {
    ClampManager manager;
    server.setValManager(&manager);
    EXPECT_FALSE(server.updateAndNotify(-1));
    EXPECT_EQ(first.setServerValue(-3), 5);
    EXPECT_EQ(server.getValue(), 5);
    EXPECT_TRUE(log.empty());
    server.setValManager(nullptr);
}

TEST(ValServer, TellsItsManagerWhenItDies) {
    ClampManager manager;
    ValServer<int>* address = nullptr;
    {
        ValServer<int> server(1);
        server.setValManager(&manager);
        address = &server;
    }
    EXPECT_EQ(manager.released, (std::vector<ValServer<int>*>{address}));
}

TEST(ValServer, WithoutClientsAValueIsStoredAndNothingElseHappens) {
    ValServer<double> server(1.5);
    server = 2.5;
    EXPECT_EQ(server.getValue(), 2.5);
    EXPECT_EQ(server.registrationCount(), 0u);
}

TEST(ValServer, AssignmentFromAnotherServerCopiesTheValueAndNotifies) {
    std::vector<std::string> log;
    ValServer<int> a(1), b(4);
    LoggingClient client("c", log);
    client.registerWith(&a);
    a = b;
    EXPECT_TRUE(a == b);
    EXPECT_EQ(log, (std::vector<std::string>{"c changed 4"}));
}

TEST(ValServer, TheLastMadeServerIsRememberedUntilItDies) {
    ValServer<int> older(1);
    {
        ValServer<double> newer(2.0);
        EXPECT_EQ(LastValServer::getLastValServer(), static_cast<ValServerBase*>(&newer));
    }
    EXPECT_EQ(LastValServer::getLastValServer(), nullptr);
}

TEST_F(Binding, ADisabledClientHearsNothingUntilEnabledAgain) {
    first.disable();
    first.disable();
    server = 1;
    first.enable();
    server = 2;
    first.enable();
    first.enable();
    server = 3;
    EXPECT_EQ(log, (std::vector<std::string>{"b changed 1", "b changed 2", "a changed 3",
                                             "b changed 3"}));
    EXPECT_EQ(first.disableCount(), 0);
}

TEST(ValClient, ADisabledClientStillLetsGoOfADyingServer) {
    std::vector<std::string> log;
    LoggingClient client("c", log);
    client.disable();
    {
        ValServer<int> server(3);
        client.registerWith(&server);
    }
    EXPECT_EQ(client.getValServer(), nullptr);
    EXPECT_EQ(int(client), 0);
    EXPECT_TRUE(log.empty());
}

TEST(ValClient, WithoutAServerAnAssignmentAnswersWithTheGivenValue) {
    std::vector<std::string> log;
    LoggingClient client("c", log);
    EXPECT_EQ(client = 12, 12);
    EXPECT_EQ(client.getServerValue(), 0);
}

TEST_F(Binding, RegisteringWithNullEndsTheRegistration) {
    first.registerWith(nullptr);
    EXPECT_EQ(server.registrationCount(), 1u);
    server = 4;
    EXPECT_EQ(log, (std::vector<std::string>{"b changed 4"}));
}

TEST_F(Binding, RegisteringTwiceWithTheSameServerKeepsOneRegistration) {
    first.registerWith(&server);
    EXPECT_EQ(server.registrationCount(), 2u);
}

TEST_F(Binding, MovingToAnotherServerLeavesTheFirst) {
    ValServer<int> other(0);
    first.registerWith(&other);
    server = 1;
    other = 2;
    EXPECT_EQ(log, (std::vector<std::string>{"b changed 1", "a changed 2"}));
}

TEST(ValClient, AServerDyingBeforeItsClientsLeavesThemUnboundAndTheirGuardsInert) {
    std::vector<std::string> log;
    auto server = std::make_unique<ValServer<int>>(2);
    auto client = std::make_unique<LoggingClient>("c", log);
    client->registerWith(server.get());
    server.reset();
    EXPECT_EQ(client->getValServer(), nullptr);
    ValServer<int> next(5);
    client->registerWith(&next);
    next = 6;
    client.reset();
    next = 7;
    EXPECT_EQ(log, (std::vector<std::string>{"c changed 6"}));
}

TEST_F(Binding, AClientDestroyedByAnEarlierClientIsNotCalled) {
    auto doomed = std::make_unique<LoggingClient>("d", log);
    doomed->registerWith(&server);
    first.onChange = [&] { doomed.reset(); };
    server = 3;
    EXPECT_EQ(log, (std::vector<std::string>{"a changed 3", "b changed 3"}));
    EXPECT_EQ(server.registrationCount(), 2u);
}

TEST_F(Binding, AClientMayDestroyItselfWhileTheServerIssues) {
    auto self = std::make_unique<LoggingClient>("s", log);
    self->registerWith(&server);
    self->onChange = [&] { self.reset(); };
    server = 3;
    server = 4;
    EXPECT_EQ(log, (std::vector<std::string>{"a changed 3", "b changed 3", "s changed 3",
                                             "a changed 4", "b changed 4"}));
}

namespace {

struct Watcher : ValObserverClient {
    void notifyValChanged(ValObserverBase const& observer) override {
        changed.push_back(&observer);
    }
    void notifyPreValChanged(ValObserverBase const& observer) override { pre.push_back(&observer); }
    std::vector<ValObserverBase const*> changed;
    std::vector<ValObserverBase const*> pre;
};

} // namespace

TEST(ValObserver, OneClientTellsItsServersApartByTheObserver) {
    Watcher watcher;
    ValServer<int> left(0);
    ValServer<double> right(0.0);
    ValObserver<int> leftObserver(&watcher);
    ValObserver<double> rightObserver(&watcher);
    leftObserver.registerWith(&left);
    rightObserver.registerWith(&right);
    right = 1.0;
    left.preNotifyValChanged();
    left = 2;
    EXPECT_EQ(watcher.changed,
              (std::vector<ValObserverBase const*>{&rightObserver, &leftObserver}));
    EXPECT_EQ(watcher.pre, (std::vector<ValObserverBase const*>{&leftObserver}));
    EXPECT_EQ(leftObserver.getServerValue(), 2);
}

TEST(ValObserver, WithoutAClientNotificationsAreDropped) {
    ValServer<int> server(0);
    ValObserver<int> observer;
    observer.registerWith(&server);
    server = 1;
    EXPECT_EQ(observer.getServerValue(), 1);
}
