#include "misc/Config.h"

#include <gtest/gtest.h>

#include <climits>
#include <vector>

namespace {

using Text = LightweightString<char>;

TEST(ConfigTest, AbsentKeysLeaveTheTargetAlone) {
    configb block;
    block.set("width", -120);
    Text text("keep");
    int value = 99;
    EXPECT_FALSE(block.in("missing", text));
    EXPECT_FALSE(block.in("missing", value));
    EXPECT_EQ(text, "keep");
    EXPECT_EQ(value, 99);
    EXPECT_TRUE(block.in("width", value));
    EXPECT_EQ(value, -120);
}

TEST(ConfigTest, IntegerReadAcceptsOnlyWholeDecimalNumbersInRange) {
    auto read = [](char const* text, int& value) {
        configb block;
        block.set("k", Text(text));
        return block.in("k", value);
    };
    for (auto [text, expected] :
         {std::pair{"+3", 3}, {"-7", -7}, {"2147483647", INT_MAX}, {"-2147483648", INT_MIN}}) {
        int value = 4242;
        EXPECT_TRUE(read(text, value)) << text;
        EXPECT_EQ(value, expected) << text;
    }
    for (char const* text : {"2147483648", "-2147483649", "", "+", "+-1", " 1", "1 ", "12abc"}) {
        int value = 4242;
        EXPECT_FALSE(read(text, value)) << '"' << text << '"';
        EXPECT_EQ(value, 4242) << '"' << text << '"';
    }
}

TEST(ConfigTest, SettingAgainReplacesInPlaceAndRemoveSaysWhetherTheKeyWasThere) {
    configb block;
    block.set("b", 1);
    block.set("a", 2);
    block.set("c", 3);
    block.set("b", Text("three"));
    EXPECT_TRUE(block.remove("c"));
    EXPECT_FALSE(block.remove("c"));
    EXPECT_EQ(block.size(), 2u);
    EXPECT_EQ(block.toText(), "b=three\na=2\n");
}

TEST(ConfigTest, TextFormRoundTripsAwkwardKeysAndValues) {
    std::vector<std::pair<char const*, Text>> const entries = {
        {"a=b", "c=d==e"},
        {"back\\slash", "ends with backslash\\"},
        {"multi\nline", "one\ntwo\r\nthree\n"},
        {"\\n", "\\=\\"},
        {"nul", Text("a\0b", 3)},
    };
    configb block;
    for (auto const& [key, value] : entries)
        block.set(key, value);
    configb restored;
    ASSERT_TRUE(configb::fromText(block.toText(), restored));
    EXPECT_EQ(restored, block);
    ASSERT_TRUE(configb::fromText("", restored));
    EXPECT_TRUE(restored.isEmpty());
}

TEST(ConfigTest, FromTextRejectsMalformedTextAndLeavesTheBlockUntouched) {
    for (char const* bad : {"no equals sign", "a=1\nbroken\n", "a\\x=1", "a=1\\", "k\\=v"}) {
        configb block;
        block.set("kept", 1);
        configb const before = block;
        EXPECT_FALSE(configb::fromText(bad, block)) << bad;
        EXPECT_EQ(block, before) << bad;
    }
}

} // namespace
