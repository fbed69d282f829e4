#include "qor/Ptr.h"

#include <gtest/gtest.h>

#include <atomic>
#include <thread>
#include <vector>

namespace {

struct Tracked : iObject {
    explicit Tracked(int* deaths) : deaths_(deaths) {}
    ~Tracked() override { ++*deaths_; }
    int* deaths_;
};

struct Derived : Tracked {
    using Tracked::Tracked;
    int extra = 7;
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

TEST(Ptr, LastReleaseDestroysTheObjectExactlyOnce) {
    int deaths = 0;
    {
        Qor::Ptr<Tracked> a(new Tracked(&deaths));
        Qor::Ptr<Tracked> b = a;
        Qor::Ptr<Tracked> c;
        c = b;
        EXPECT_EQ(a.useCount(), 3u);
        b.reset();
        c = nullptr;
        EXPECT_EQ(a.useCount(), 1u);
        EXPECT_EQ(deaths, 0);
    }
    EXPECT_EQ(deaths, 1);
}

TEST(Ptr, InternalCountLivesInTheObjectSoRewrappingARawPointerShares) {
    int deaths = 0;
    Qor::Ptr<Tracked> a(new Tracked(&deaths));
    Qor::Ptr<Tracked> b(a.get());
    EXPECT_EQ(a.key(), b.key());
    EXPECT_EQ(a->getRefCount(), 2u);
    a.reset();
    EXPECT_EQ(deaths, 0);
    b.reset();
    EXPECT_EQ(deaths, 1);
}

TEST(Ptr, CopyingAnObjectDoesNotCopyItsCount) {
    int deaths = 0;
    Qor::Ptr<Tracked> a(new Tracked(&deaths));
    Qor::Ptr<Tracked> b = a;
    Tracked copy(*a);
    EXPECT_EQ(copy.getRefCount(), 0u);
    EXPECT_EQ(a->getRefCount(), 2u);
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
    EXPECT_EQ(derived->extra, 7);
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

TEST(Ptr, AnObjectReleasingItselfDuringDestructionIsSafe) {
    auto* object = new SelfReferencing;
    object->self = Qor::Ptr<SelfReferencing>(object);
    Qor::Ptr<SelfReferencing> outside(object);
    outside.reset();
    object->self.reset();
    SUCCEED();
}

TEST(Ptr, CountsStayExactUnderCopiesFromManyThreads) {
    int deaths = 0;
    Qor::Ptr<Tracked> shared(new Tracked(&deaths));
    std::atomic<bool> go{false};
    std::vector<std::thread> threads;
    for (int t = 0; t < 4; ++t)
        threads.emplace_back([&] {
            while (!go.load())
                std::this_thread::yield();
            for (int i = 0; i < 20000; ++i) {
                Qor::Ptr<Tracked> copy = shared;
                Qor::Ptr<iObject> widened = copy;
                copy.reset();
            }
        });
    go = true;
    for (auto& t : threads)
        t.join();
    EXPECT_EQ(shared.useCount(), 1u);
    shared.reset();
    EXPECT_EQ(deaths, 1);
}

TEST(Ptr, TheLastOwnerOnAnotherThreadDestroys) {
    int deaths = 0;
    Qor::Ptr<Tracked> p(new Tracked(&deaths));
    std::thread other([moved = std::move(p)]() mutable { moved.reset(); });
    other.join();
    EXPECT_EQ(deaths, 1);
}
