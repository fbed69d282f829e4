#include "qor/FloatCompare.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace {

TEST(ValEqualsVal, ToleratesRoundingButNotRealDifferences) {
    double const infinity = std::numeric_limits<double>::infinity();
    struct Case {
        double a;
        double b;
        bool equal;
    } const cases[] = {
        {0.1 + 0.2, 0.3, true},     {1.0, 1.00001, false},    {1e9, 1e9 + 100, true},
        {1e9, 1e9 + 10000, false},  {1e-12, 0.0, true},       {1e-8, 0.0, false},
        {infinity, infinity, true}, {infinity, 1e308, false}, {std::nan(""), std::nan(""), false},
    };
    for (Case const& c : cases) {
        SCOPED_TRACE(testing::Message() << c.a << " vs " << c.b);
        EXPECT_EQ(valEqualsVal(c.a, c.b), c.equal);
        EXPECT_EQ(valEqualsVal(c.b, c.a), c.equal);
    }
}

} // namespace
