#include "foundation/EventHandlerExistenceCheck.h"
#include "qor/NotifyMsg.h"

#include <gtest/gtest.h>

#include <memory>

namespace {

using Check = EventHandlerExistenceCheck<NotifyMsg>;

// A handler that counts the calls the guarded callback makes on it.
struct Target : EventHandler {
    int handleEvent(Event const&) override { return 0; }
    int poke(NotifyMsg const&) { return ++pokes; }
    int pokes = 0;
};

} // namespace

TEST(EventHandlerExistenceCheck, RunsTheGuardedCallbackOnlyWhileTheHandlerExists) {
    auto target = std::make_unique<Target>();
    Qor::Ptr<iCallbackBase<int, NotifyMsg>> check(
        new Check(target.get(), Qor::makeCallback(target.get(), &Target::poke)));
    EXPECT_NE(check->execute(NotifyMsg("poke", 0)), 0);
    EXPECT_EQ(target->pokes, 1);
    target.reset();
    // Under the address sanitizer, any touch of the dead target fails here.
    EXPECT_EQ(check->execute(NotifyMsg("poke", 0)), 0);
    EXPECT_EQ(Check(nullptr).execute(NotifyMsg("poke", 0)), 0);
}

TEST(EventHandlerExistenceCheck, ANewHandlerAtTheDeadOnesAddressDoesNotRevive) {
    alignas(Target) unsigned char storage[sizeof(Target)];
    auto* first = new (storage) Target;
    Check check(first);
    first->~Target();
    auto* second = new (storage) Target;
    EXPECT_EQ(check.execute(NotifyMsg("poke", 0)), 0);
    EXPECT_NE(Check(second).execute(NotifyMsg("poke", 0)), 0);
    second->~Target();
}
