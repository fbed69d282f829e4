#include "qor/Ptr.h"

#include "support/OnThreads.h"

#include <gtest/gtest.h>

namespace {

struct Tracked : iObject {
    explicit Tracked(int* deaths) : deaths_(deaths) {}
    ~Tracked() override { ++*deaths_; }
    int* deaths_;
};

struct Derived : Tracked {
    using Tracked::Tracked;
};

struct Other : iObject {};

// Holds a pointer to itself through a member: destruction must find the pointer already empty.
struct SelfReferencing : iObject {
    Qor::Ptr<SelfReferencing> self;
};

struct PlainCounted {
    explicit PlainCounted(int* deaths) : deaths_(deaths) {}
    ~PlainCounted() { ++*deaths_; }
    int* deaths_;
};
using ExternalPtr = Qor::Ptr<PlainCounted, Qor::DefaultDtorTraits, Qor::ExternalRefCountTraits>;

} // namespace

TEST(Ptr, EveryOwnerSharesTheCountInTheObjectAndTheLastReleaseDestroysItOnce) {
    int deaths = 0;
    {
        Qor::Ptr<Tracked> a(new Tracked(&deaths));
        Qor::Ptr<Tracked> b(a.get());
        Qor::Ptr<Tracked> c;
        c = b;
        EXPECT_EQ(a.key(), b.key());
        EXPECT_EQ(a->getRefCount(), 3u);
        // A copy of the object is a new object with no owners; this one dies at once.
        EXPECT_EQ(Tracked(*a).getRefCount(), 0u);
        EXPECT_EQ(a->getRefCount(), 3u);
        b.reset();
        c = nullptr;
        EXPECT_EQ(a.useCount(), 1u);
        EXPECT_EQ(deaths, 1);
    }
    EXPECT_EQ(deaths, 2);
}

TEST(Ptr, ExternalCountIsFreedWithTheObject) {
    int deaths = 0;
    {
        ExternalPtr a(new PlainCounted(&deaths));
        ExternalPtr b = a;
        EXPECT_NE(a.key(), nullptr);
        EXPECT_EQ(b.useCount(), 2u);
    }
    // The sanitizer's leak check fails the run if the count word outlived the object.
    EXPECT_EQ(deaths, 1);
}

TEST(Ptr, CastsKeepTheCountAndFailSafely) {
    int deaths = 0;
    Qor::Ptr<iObject> base(new Derived(&deaths));
    Qor::Ptr<Derived> derived = Qor::dynamic_ptr_cast<Derived>(base);
    ASSERT_TRUE(derived);
    EXPECT_EQ(base.useCount(), 2u);
    EXPECT_FALSE(Qor::dynamic_ptr_cast<Other>(base));
    EXPECT_EQ(base.useCount(), 2u);
    base.reset();
    EXPECT_EQ(deaths, 0);
    Qor::Ptr<Tracked> up = derived;
    derived.reset();
    EXPECT_EQ(deaths, 0);
    up.reset();
    EXPECT_EQ(deaths, 1);
}

// The sanitizer fails the run if the last reset touches the object after destroying it.
TEST(Ptr, AnObjectReleasingItselfDuringDestructionIsSafe) {
    auto* object = new SelfReferencing;
    object->self = Qor::Ptr<SelfReferencing>(object);
    Qor::Ptr<SelfReferencing> outside(object);
    outside.reset();
    object->self.reset();
}

TEST(Ptr, CountsStayExactUnderCopiesFromManyThreads) {
    int deaths = 0;
    Qor::Ptr<Tracked> shared(new Tracked(&deaths));
    onThreads(4, [&](int) {
        for (int i = 0; i < 20000; ++i) {
            Qor::Ptr<Tracked> copy = shared;
            Qor::Ptr<iObject> widened = copy;
            copy.reset();
        }
    });
    EXPECT_EQ(shared.useCount(), 1u);
    shared.reset();
    EXPECT_EQ(deaths, 1);
}
