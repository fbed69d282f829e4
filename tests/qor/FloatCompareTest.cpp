#include "qor/FloatCompare.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace {

TEST(ValEqualsVal, ToleratesRoundingButNotRealDifferences) {
    struct Case {
        double a;
        double b;
        bool equal;
    } const cases[] = {
        {1.0, 1.0 + 1e-7, true},
        {0.1 + 0.2, 0.3, true},
        {1.0, 1.00001, false},
        {1e9, 1e9 + 100, true},
        {1e9, 1e9 + 10000, false},
        {1e-12, 0.0, true},
        {1e-8, 0.0, false},
        {-0.5, 0.5, false},
        {0.0, -0.0, true},
        {std::numeric_limits<double>::infinity(), std::numeric_limits<double>::infinity(), true},
        {std::numeric_limits<double>::infinity(), 1e308, false},
        {std::nan(""), std::nan(""), false},
    };
    for (Case const& c : cases) {
        SCOPED_TRACE(testing::Message() << c.a << " vs " << c.b);
        EXPECT_EQ(valEqualsVal(c.a, c.b), c.equal);
        EXPECT_EQ(valEqualsVal(c.b, c.a), c.equal);
    }
}

TEST(ValEqualsVal, AScrollPositionThatAddsUpToTheEndCountsAsAtTheEnd) {
    double position = 0;
    for (int i = 0; i < 10; ++i)
        position += 0.1;
    EXPECT_NE(position, 1.0);
    EXPECT_TRUE(valEqualsVal(position, 1.0));
}

} // namespace
