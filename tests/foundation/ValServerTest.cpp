#include "foundation/ValServer.h"
#include "foundation/LastValServer.h"
#include "foundation/ValClient.h"
#include "foundation/ValObserver.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace {

using Log = std::vector<std::string>;

// Writes what it hears, and what the server held at that moment, into a shared log.
class LoggingClient : public ValClient<int> {
public:
    using ValClient<int>::operator=;

    LoggingClient(std::string name, Log& log) : name_(std::move(name)), log_(log) {}

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
    Log& log_;
};

// Refuses negative values and clamps others to at most 10.
class ClampManager : public ValManagerBase<int> {
public:
    bool requestValChange(ValServer<int>*, int& value) override {
        if (value < 0)
            return false;
        value = std::min(value, 10);
        return true;
    }
    void releaseServer(ValServer<int>* server) override { released.push_back(server); }

    std::vector<ValServer<int>*> released;
};

struct Binding : ::testing::Test {
    Log log;
    ValServer<int> server{5};
    LoggingClient first{"a", log};
    LoggingClient second{"b", log};

    void SetUp() override {
        first.registerWith(&server);
        second.registerWith(&server);
    }
};

} // namespace

TEST_F(Binding, AChangeReachesEveryClientOnceInOrderAndPreChangeOnlyWhenAskedFor) {
    server = 7;
    server.updateAndNotify(7);
    server.preNotifyValChanged();
    // Assigning another server copies only its value, not its registrations.
    ValServer<int> source(8);
    server = source;
    EXPECT_EQ(log, (Log{"a changed 7", "b changed 7", "a changed 7", "b changed 7", "a pre 7",
                        "b pre 7", "a changed 8", "b changed 8"}));
    EXPECT_EQ(source.registrationCount(), 0u);
}

TEST_F(Binding, AManagerCorrectsOrRefusesAChangeBeforeClientsHearItAndHearsOfTheServersDeath) {
    ClampManager manager;
    server.setValManager(&manager);
    EXPECT_EQ(first = 42, 10);
    EXPECT_FALSE(server.updateAndNotify(-1));
    EXPECT_EQ(first.setServerValue(-3), 10);
    EXPECT_EQ(server.getValue(), 10);
    EXPECT_EQ(log, (Log{"a changed 10", "b changed 10"}));
    server.setValManager(nullptr);
    std::optional<ValServer<int>> dying(1);
    dying->setValManager(&manager);
    ValServer<int>* address = &*dying;
    dying.reset();
    EXPECT_EQ(manager.released, (std::vector<ValServer<int>*>{address}));
}

TEST(ValServer, TheLastMadeServerIsRememberedUntilItDies) {
    ValServer<int> older(1);
    {
        ValServer<double> newer(2.0);
        EXPECT_EQ(LastValServer::getLastValServer(), static_cast<ValServerBase*>(&newer));
    }
    EXPECT_EQ(LastValServer::getLastValServer(), nullptr);
}

TEST_F(Binding, DisablingNestsAndADisabledClientStillLetsGoOfADyingServer) {
    first.disable();
    first.disable();
    server = 1;
    first.enable();
    server = 2;
    first.enable();
    server = 3;
    EXPECT_EQ(log, (Log{"b changed 1", "b changed 2", "a changed 3", "b changed 3"}));

    second.disable();
    {
        ValServer<int> transient(3);
        second.registerWith(&transient);
    }
    EXPECT_EQ(second.getValServer(), nullptr);
}

TEST_F(Binding, RegisteringElsewhereOrWithNullLeavesTheServerAndTwiceKeepsOneRegistration) {
    ValServer<int> other(0);
    first.registerWith(&other);
    second.registerWith(&server);
    server = 1;
    other = 2;
    second.registerWith(nullptr);
    server = 3;
    EXPECT_EQ(log, (Log{"b changed 1", "a changed 2"}));
    EXPECT_EQ(server.registrationCount(), 0u);
}

TEST(ValClient, AServerDyingBeforeItsClientsLeavesThemUnboundAndTheirGuardsInert) {
    Log log;
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
    EXPECT_EQ(log, (Log{"c changed 6"}));
}

TEST_F(Binding, ClientsDeletedWhileTheServerIssuesAreNotCalledAgain) {
    auto doomed = std::make_unique<LoggingClient>("d", log);
    auto self = std::make_unique<LoggingClient>("s", log);
    doomed->registerWith(&server);
    self->registerWith(&server);
    first.onChange = [&] { doomed.reset(); };
    self->onChange = [&] { self.reset(); };
    server = 3;
    server = 4;
    EXPECT_EQ(log,
              (Log{"a changed 3", "b changed 3", "s changed 3", "a changed 4", "b changed 4"}));
    EXPECT_EQ(server.registrationCount(), 2u);
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
    ValObserver<int> withoutClient;
    leftObserver.registerWith(&left);
    rightObserver.registerWith(&right);
    withoutClient.registerWith(&left);
    right = 1.0;
    left.preNotifyValChanged();
    left = 2;
    EXPECT_EQ(watcher.changed,
              (std::vector<ValObserverBase const*>{&rightObserver, &leftObserver}));
    EXPECT_EQ(watcher.pre, (std::vector<ValObserverBase const*>{&leftObserver}));
    EXPECT_EQ(withoutClient.getServerValue(), 2);
}
