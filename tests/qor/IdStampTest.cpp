#include "qor/IdStamp.h"

#include "support/OnThreads.h"

#include <gtest/gtest.h>

#include <set>
#include <vector>

TEST(IdStamp, StampsMadeOnSeveralThreadsAreValidAndNeverCollide) {
    std::vector<std::vector<IdStamp>> made(4);
    onThreads(4, [&made](int t) {
        for (int i = 0; i < 2000; ++i)
            made[t].emplace_back();
    });
    std::set<IdStamp> all;
    for (auto const& list : made)
        all.insert(list.begin(), list.end());
    EXPECT_EQ(all.size(), 8000u);
    EXPECT_TRUE(all.begin()->valid());
}

TEST(IdStamp, TextFormRoundTripsAndBadTextGivesTheNullStamp) {
    IdStamp s;
    IdStamp parsed(s.asString().c_str());
    EXPECT_EQ(parsed, s);
    EXPECT_EQ(IdStamp(1, 2, 3).asString(), "1.2.3");
    for (char const* bad : {"", "1.2", "1.2.3.4", " 1.2.3 "})
        EXPECT_FALSE(IdStamp(bad).valid()) << bad;
    EXPECT_FALSE(IdStamp(static_cast<char const*>(nullptr)).valid());
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
