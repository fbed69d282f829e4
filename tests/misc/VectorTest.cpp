#include "misc/Vector.h"
#include "misc/LightweightVector.h"

#include <gtest/gtest.h>

#include <string>

TEST(Vector, NamedEditsKeepOrderAndIgnoreIndexesOutOfRange) {
    Vector<int> v{1, 2, 3};
    EXPECT_EQ(v.add(4), 3u);
    v.insert(0, 0);
    v.insert(9, 100);
    EXPECT_EQ(v, (Vector<int>{0, 1, 2, 3, 4, 9}));
    v.remove(1, 2);
    EXPECT_EQ(v, (Vector<int>{0, 3, 4, 9}));
    v.remove(3, 10);
    v.remove(10, 1);
    v.removeIdx(0);
    EXPECT_EQ(v, (Vector<int>{3, 4}));
    EXPECT_TRUE(v.removeItem(4));
    EXPECT_FALSE(v.removeItem(4));
    EXPECT_EQ(v.indexOf(3), 0u);
    EXPECT_EQ(v.indexOf(42), v.size());
}

TEST(LightweightVector, CopiesShareOneArrayThatOutlivesTheVectorThatMadeIt) {
    auto* a = new LightweightVector<std::string>;
    LightweightVector<std::string> b = *a;
    b.push_back("1");
    a->push_back("2");
    ASSERT_EQ(a->size(), 2u);
    EXPECT_EQ(b[1], "2");
    LightweightVector<std::string> separate = a->copy();
    separate.push_back("3");
    EXPECT_EQ(a->size(), 2u);
    EXPECT_FALSE(separate.sharesWith(*a));
    a->erase(0u);
    delete a;
    ASSERT_EQ(b.size(), 1u);
    EXPECT_EQ(b[0], "2");
}
