#include "qor/IdStamp.h"

#include <gtest/gtest.h>

#include <set>
#include <thread>
#include <vector>

TEST(IdStamp, FreshStampsAreValidAndUnique) {
    std::set<IdStamp> seen;
    for (int i = 0; i < 1000; ++i) {
        IdStamp s;
        EXPECT_TRUE(s.valid());
        EXPECT_TRUE(seen.insert(s).second);
    }
}

TEST(IdStamp, StampsMadeOnSeveralThreadsNeverCollide) {
    std::vector<std::vector<IdStamp>> made(4);
    std::vector<std::thread> threads;
    for (auto& list : made)
        threads.emplace_back([&list] {
            for (int i = 0; i < 2000; ++i)
                list.emplace_back();
        });
    for (auto& t : threads)
        t.join();
    std::set<IdStamp> all;
    for (auto const& list : made)
        all.insert(list.begin(), list.end());
    EXPECT_EQ(all.size(), 8000u);
}

TEST(IdStamp, TextFormRoundTripsAndBadTextGivesTheNullStamp) {
    IdStamp s;
    IdStamp parsed(s.asString().c_str());
    EXPECT_EQ(parsed, s);
    EXPECT_EQ(IdStamp(1, 2, 3).asString(), "1.2.3");
    for (char const* bad : {"", "1.2", "1.2.3.4", "a.b.c", "1.2.3x", " 1.2.3 "})
        EXPECT_FALSE(IdStamp(bad).valid()) << bad;
    EXPECT_FALSE(IdStamp(static_cast<char const*>(nullptr)).valid());
}

TEST(IdStamp, NullStampAndInvalidation) {
    EXPECT_FALSE(IdStamp(0, 0, 0).valid());
    EXPECT_EQ(IdStamp::null(), IdStamp(0, 0, 0));
    IdStamp s;
    IdStamp kept = s;
    s.invalidate();
    EXPECT_FALSE(s.valid());
    EXPECT_NE(s, kept);
}

TEST(IdStamp, LiveRegistryTellsAGoneObjectEvenWhenItsAddressIsReused) {
    int slot = 0;
    IdStamp first;
    LiveObjects::add(&slot, first);
    EXPECT_TRUE(LiveObjects::isLive(&slot, first));
    LiveObjects::remove(&slot);
    EXPECT_FALSE(LiveObjects::isLive(&slot));
    EXPECT_FALSE(LiveObjects::isLive(&slot, first));

    IdStamp second;
    LiveObjects::add(&slot, second);
    EXPECT_TRUE(LiveObjects::isLive(&slot));
    EXPECT_FALSE(LiveObjects::isLive(&slot, first));
    EXPECT_TRUE(LiveObjects::isLive(&slot, second));
    EXPECT_FALSE(LiveObjects::isLive(&slot, IdStamp::null()));
    LiveObjects::remove(&slot);
}
