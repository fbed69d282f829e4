#include "misc/Config.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

using Text = LightweightString<char>;

TEST(ConfigTest, ReadsBackTextAndIntegersAndLeavesTheTargetAloneForAbsentKeys) {
    configb block;
    EXPECT_TRUE(block.isEmpty());
    block.set("name", Text("left pane"));
    block.set("width", -120);

    Text name;
    int width = 0;
    EXPECT_TRUE(block.in("name", name));
    EXPECT_EQ(name, "left pane");
    EXPECT_TRUE(block.in("width", width));
    EXPECT_EQ(width, -120);

    Text untouched("keep");
    int untouchedInt = 99;
    EXPECT_FALSE(block.in("missing", untouched));
    EXPECT_FALSE(block.in("missing", untouchedInt));
    EXPECT_EQ(untouched, "keep");
    EXPECT_EQ(untouchedInt, 99);
    EXPECT_FALSE(block.isEmpty());
    EXPECT_EQ(block.size(), 2u);
}

TEST(ConfigTest, IntegerReadAcceptsOnlyWholeDecimalNumbersInRange) {
    struct Case {
        char const* text;
        bool accepted;
        int value;
    };
    std::vector<Case> const cases = {
        {"12", true, 12},
        {"-7", true, -7},
        {"+3", true, 3},
        {"0", true, 0},
        {"007", true, 7},
        {"2147483647", true, 2147483647},
        {"-2147483648", true, -2147483647 - 1},
        {"", false, 0},
        {"+", false, 0},
        {"-", false, 0},
        {"+-1", false, 0},
        {"1.5", false, 0},
        {" 1", false, 0},
        {"1 ", false, 0},
        {"12abc", false, 0},
        {"0x10", false, 0},
        {"2147483648", false, 0},
        {"-2147483649", false, 0},
        {"99999999999999999999", false, 0},
    };
    for (Case const& c : cases) {
        configb block;
        block.set("k", Text(c.text));
        int value = 4242;
        EXPECT_EQ(block.in("k", value), c.accepted) << '"' << c.text << '"';
        EXPECT_EQ(value, c.accepted ? c.value : 4242) << '"' << c.text << '"';
    }
}

TEST(ConfigTest, SettingAgainReplacesInPlaceSoKeysKeepTheirFirstOrder) {
    configb block;
    block.set("b", 1);
    block.set("a", 2);
    block.set("b", Text("three"));
    EXPECT_EQ(block.size(), 2u);
    EXPECT_EQ(block.toText(), "b=three\na=2\n");
}

TEST(ConfigTest, RemoveForgetsTheKeyAndSaysWhetherItWasThere) {
    configb block;
    block.set("a", 1);
    block.set("b", 2);
    EXPECT_TRUE(block.remove("a"));
    EXPECT_FALSE(block.remove("a"));
    int value = 0;
    EXPECT_FALSE(block.in("a", value));
    EXPECT_TRUE(block.in("b", value));
    EXPECT_EQ(block.size(), 1u);
    EXPECT_TRUE(block.remove("b"));
    EXPECT_TRUE(block.isEmpty());
}

TEST(ConfigTest, CopiesAndAssignmentsAreIndependentOfTheOriginal) {
    configb original;
    original.set("x", 1);
    configb copy(original);
    copy.set("x", 2);
    configb assigned;
    assigned.set("other", 5);
    assigned = original;
    assigned.set("y", 3);

    int x = 0;
    EXPECT_TRUE(original.in("x", x));
    EXPECT_EQ(x, 1);
    EXPECT_TRUE(copy.in("x", x));
    EXPECT_EQ(x, 2);
    EXPECT_EQ(original.size(), 1u);
    EXPECT_EQ(assigned.size(), 2u);
    EXPECT_FALSE(assigned.in("other", x));
}

TEST(ConfigTest, TextFormRoundTripsAwkwardKeysAndValues) {
    std::vector<std::pair<Text, Text>> const entries = {
        {"plain", "value"},
        {"", "empty key"},
        {"empty value", ""},
        {"a=b", "c=d==e"},
        {"back\\slash", "ends with backslash\\"},
        {"multi\nline", "one\ntwo\r\nthree\n"},
        {"\\n", "\\=\\"},
        {"nul", Text("a\0b", 3)},
        {"utf8 \xc3\xa4", "\xe2\x9c\x93"},
    };
    configb block;
    for (auto const& [key, value] : entries)
        block.set(key.c_str(), value);
    // set() takes a C string key, so the embedded-NUL case is exercised through the value only.

    Text text = block.toText();
    unsigned lines = 0;
    for (char c : text)
        lines += c == '\n';
    EXPECT_EQ(lines, entries.size()) << "an escaped entry must stay on one line";

    configb restored;
    ASSERT_TRUE(configb::fromText(text, restored));
    EXPECT_EQ(restored, block);
    for (auto const& [key, value] : entries) {
        Text read;
        EXPECT_TRUE(restored.in(key, read)) << key.c_str();
        EXPECT_EQ(read, value) << key.c_str();
    }
}

TEST(ConfigTest, FromTextRejectsMalformedTextAndLeavesTheBlockUntouched) {
    for (char const* bad : {"no equals sign", "a=1\nbroken\n", "a\\x=1", "a=1\\", "\n", "k\\=v"}) {
        configb block;
        block.set("kept", 1);
        configb const before = block;
        EXPECT_FALSE(configb::fromText(bad, block)) << bad;
        EXPECT_EQ(block, before) << bad;
    }
}

TEST(ConfigTest, FromTextOfEmptyTextGivesAnEmptyBlock) {
    configb block;
    block.set("old", 1);
    ASSERT_TRUE(configb::fromText("", block));
    EXPECT_TRUE(block.isEmpty());
}

} // namespace
