#include "glib/BoundedCache.h"

#include <gtest/gtest.h>

namespace {

TEST(BoundedCache, HoldsAtMostTwiceItsCapacityAndKeepsTheLatest) {
    BoundedCache<int, int> cache(8);
    for (int i = 0; i < 1000; ++i) {
        cache.insert(i, i * i);
        EXPECT_LE(cache.size(), 16u);
    }
    EXPECT_EQ(cache.find(0), nullptr);
    ASSERT_NE(cache.find(999), nullptr);
    EXPECT_EQ(*cache.find(999), 999 * 999);
    cache.insert(999, 1);
    EXPECT_EQ(*cache.find(999), 1);
}

TEST(BoundedCache, RecentlyUsedEntriesSurviveAndOldOnesGo) {
    BoundedCache<int, int> cache(4);
    for (int i = 0; i < 4; ++i)
        cache.insert(i, i);
    // 0..3 become the old generation; using 1 brings it back into the young one.
    cache.insert(4, 4);
    ASSERT_NE(cache.find(1), nullptr);
    cache.insert(5, 5);
    cache.insert(6, 6);
    // The young generation (4, 1, 5, 6) is full: the next insert drops 0, 2 and 3.
    cache.insert(7, 7);
    for (int kept : {1, 4, 5, 6, 7}) {
        ASSERT_NE(cache.find(kept), nullptr) << kept;
        EXPECT_EQ(*cache.find(kept), kept);
    }
    for (int dropped : {0, 2, 3})
        EXPECT_EQ(cache.find(dropped), nullptr) << dropped;
}

} // namespace
