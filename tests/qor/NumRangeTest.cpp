#include "qor/NumRange.h"

#include <gtest/gtest.h>

namespace {

TEST(NumRange, AnUnorderedRangeKeepsItsDirection) {
    NumRange<int, Unordered> selection(7, 3);
    EXPECT_EQ(selection.start(), 7);
    EXPECT_EQ(selection.end(), 3);
    EXPECT_EQ(selection.lower(), 3);
    EXPECT_EQ(selection.upper(), 7);
    EXPECT_EQ(selection.size(), 4);
    EXPECT_NE(selection, (NumRange<int, Unordered>(3, 7)));

    selection.setEnd(10);
    EXPECT_EQ(selection, (NumRange<int, Unordered>(7, 10)));
    EXPECT_EQ(selection.size(), 3);
}

TEST(NumRange, AnOrderedRangePutsTheSmallerEndFirst) {
    NumRange<int> range(7, 3);
    EXPECT_EQ(range.start(), 3);
    EXPECT_EQ(range.end(), 7);
    EXPECT_EQ(range, NumRange<int>(3, 7));
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
    EXPECT_EQ(caret.size(), 0);
    EXPECT_FALSE(caret.contains(4));
}

TEST(NumRange, SizeOfAnUnsignedRangeDoesNotWrap) {
    NumRange<unsigned, Unordered> range(9u, 2u);
    EXPECT_EQ(range.size(), 7u);
}

} // namespace
