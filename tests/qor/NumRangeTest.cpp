#include "qor/NumRange.h"

#include <gtest/gtest.h>

namespace {

TEST(NumRange, AnUnorderedRangeKeepsItsDirectionAndAnOrderedOnePutsTheSmallerEndFirst) {
    NumRange<unsigned, Unordered> selection(7, 3);
    EXPECT_EQ(selection.start(), 7u);
    EXPECT_EQ(selection.end(), 3u);
    EXPECT_EQ(selection.size(), 4u) << "no unsigned wrap";
    selection.setEnd(10);
    EXPECT_EQ(selection, (NumRange<unsigned, Unordered>(7, 10)));

    NumRange<int> range(7, 3);
    EXPECT_EQ(range.start(), 3);
    EXPECT_EQ(range.end(), 7);
    range.setStart(9);
    EXPECT_EQ(range, NumRange<int>(7, 9));
}

TEST(NumRange, ContainsTheValuesFromTheLowerUpToTheUpperEnd) {
    NumRange<int, Unordered> backwards(5, 2);
    EXPECT_FALSE(backwards.contains(1));
    EXPECT_TRUE(backwards.contains(2));
    EXPECT_TRUE(backwards.contains(4));
    EXPECT_FALSE(backwards.contains(5));
    NumRange<int, Unordered> caret(4, 4);
    EXPECT_TRUE(caret.empty());
    EXPECT_FALSE(caret.contains(4));
}

} // namespace
