#include "misc/DataConvert.h"

#include "support/DecimalCommaLocale.h"
#include "qor/UTF8.h"

#include <gtest/gtest.h>

#include <bit>
#include <climits>
#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <iostream>
#include <limits>
#include <random>
#include <string>

void PrintTo(NormalisedRGB const& rgb, std::ostream* out) {
    *out << '(' << rgb.r << ", " << rgb.g << ", " << rgb.b << ", " << rgb.a << ')';
}

namespace {

using WString = LightweightString<wchar_t>;

std::string narrow(WString const& text) {
    return toUTF8(text).str();
}

// A fresh seed each run, printed so that a failure can be replayed with PANELKIT_TEST_SEED.
unsigned testSeed() {
    static unsigned const seed = [] {
        char const* given = std::getenv("PANELKIT_TEST_SEED");
        unsigned const value =
            given ? unsigned(std::strtoul(given, nullptr, 10)) : std::random_device()();
        std::cout << "random seed: " << value << " (set PANELKIT_TEST_SEED to repeat)\n";
        return value;
    }();
    return seed;
}

// Significant digits of a decimal text: the mantissa's digits without leading zeros.
int significantDigits(std::string const& text) {
    std::string const mantissa = text.substr(0, text.find_first_of("eE"));
    int count = 0;
    bool leading = true;
    for (char c : mantissa) {
        if (c < '0' || c > '9')
            continue;
        leading = leading && c == '0';
        count += leading ? 0 : 1;
    }
    return count;
}

TEST(DataConvertBool, ReadsWordsAndDigitsInAnyCase) {
    struct Case {
        wchar_t const* text;
        bool value;
    } const cases[] = {
        {L"true", true},   {L"TRUE", true},   {L" yes ", true}, {L"Yes", true},   {L"1", true},
        {L"false", false}, {L"False", false}, {L"no", false},   {L"NO\n", false}, {L"\t0 ", false},
    };
    for (auto const& c : cases) {
        bool value = !c.value;
        EXPECT_TRUE(DataConvert::convert(WString(c.text), value)) << narrow(c.text);
        EXPECT_EQ(value, c.value) << narrow(c.text);
    }
}

TEST(DataConvertBool, BadTextFailsAndLeavesTheValueAlone) {
    for (wchar_t const* text :
         {L"", L" ", L"2", L"truee", L"t", L"y", L"on", L"-1", L"tr ue", L"00", L"+1"}) {
        for (bool original : {false, true}) {
            bool value = original;
            EXPECT_FALSE(DataConvert::convert(WString(text), value)) << narrow(text);
            EXPECT_EQ(value, original) << narrow(text);
        }
    }
    EXPECT_FALSE((DataConvert::convert<WString, bool>(L"maybe")));
}

TEST(DataConvertBool, WritesTrueAndFalse) {
    EXPECT_EQ((DataConvert::convert<bool, WString>(true)).str(), L"true");
    EXPECT_EQ((DataConvert::convert<bool, WString>(false)).str(), L"false");
}

TEST(DataConvertInt, RoundTripsTheExtremes) {
    for (int value : {0, -1, 1, INT_MIN, INT_MAX}) {
        WString text;
        ASSERT_TRUE(DataConvert::convert(value, text));
        int back = 77;
        ASSERT_TRUE(DataConvert::convert(text, back)) << narrow(text);
        EXPECT_EQ(back, value);
    }
    for (unsigned value : {0u, 1u, UINT_MAX}) {
        WString text;
        ASSERT_TRUE(DataConvert::convert(value, text));
        EXPECT_EQ((DataConvert::convert<WString, unsigned>(text)), value) << narrow(text);
    }
    EXPECT_EQ((DataConvert::convert<int, WString>(-42)).str(), L"-42");
}

TEST(DataConvertInt, BadTextFailsAndLeavesTheValueAlone) {
    int value = 5;
    EXPECT_FALSE(DataConvert::convert(WString(L"2147483648"), value));
    EXPECT_FALSE(DataConvert::convert(WString(L"12ab"), value));
    EXPECT_FALSE(DataConvert::convert(WString(L"1.0"), value));
    EXPECT_EQ(value, 5);
    unsigned count = 9;
    EXPECT_FALSE(DataConvert::convert(WString(L"-1"), count));
    EXPECT_FALSE(DataConvert::convert(WString(L"4294967296"), count));
    EXPECT_EQ(count, 9u);
    EXPECT_EQ((DataConvert::convert<WString, int>(L"junk")), 0);
    EXPECT_EQ((DataConvert::convert<WString, int>(L" -17 ")), -17);
}

TEST(DataConvertFloating, WritesTheShortestExactText) {
    struct Case {
        double value;
        wchar_t const* text;
    } const cases[] = {
        {0.1, L"0.1"},
        {1.5, L"1.5"},
        {-2.0, L"-2"},
        {0.0, L"0"},
        {-0.0, L"-0"},
        {1e22, L"1e+22"},
        {1.0 / 3.0, L"0.3333333333333333"},
        {std::numeric_limits<double>::infinity(), L"inf"},
        {-std::numeric_limits<double>::infinity(), L"-inf"},
        {std::nan(""), L"nan"},
        {-std::nan(""), L"nan"},
    };
    for (auto const& c : cases)
        EXPECT_EQ((DataConvert::convert<double, WString>(c.value)).str(), c.text);
    EXPECT_EQ((DataConvert::convert<float, WString>(0.1f)).str(), L"0.1");
    EXPECT_EQ((DataConvert::convert<float, WString>(1.0f / 3.0f)).str(), L"0.33333334");
}

TEST(DataConvertFloating, ReadsSpecialValuesBack) {
    double value = 0.0;
    ASSERT_TRUE(DataConvert::convert(WString(L" NaN "), value));
    EXPECT_TRUE(std::isnan(value));
    ASSERT_TRUE(DataConvert::convert(WString(L"-inf"), value));
    EXPECT_EQ(value, -std::numeric_limits<double>::infinity());
    float single = 0.0f;
    ASSERT_TRUE(DataConvert::convert(WString(L"INF"), single));
    EXPECT_EQ(single, std::numeric_limits<float>::infinity());
}

TEST(DataConvertFloating, BadTextFailsAndLeavesTheValueAlone) {
    for (wchar_t const* text :
         {L"", L"1,5", L"abc", L"1e999", L"nan1", L"infinity", L"0x10", L"--1", L"1.5 2"}) {
        double value = 4.25;
        EXPECT_FALSE(DataConvert::convert(WString(text), value)) << narrow(text);
        EXPECT_EQ(value, 4.25);
        EXPECT_EQ((DataConvert::convert<WString, double>(text)), 0.0) << narrow(text);
    }
    float single = 4.25f;
    EXPECT_FALSE(DataConvert::convert(WString(L"1e39"), single));
    EXPECT_EQ(single, 4.25f);
}

TEST(DataConvertFloating, RandomDoublesRoundTripExactly) {
    unsigned const seed = testSeed();
    SCOPED_TRACE(::testing::Message() << "seed " << seed);
    std::mt19937_64 random(seed);
    for (int i = 0; i < 20000; ++i) {
        double const value = std::bit_cast<double>(std::uint64_t(random()));
        if (std::isnan(value))
            continue;
        WString text;
        ASSERT_TRUE(DataConvert::convert(value, text));
        std::string const written = narrow(text);
        EXPECT_LE(significantDigits(written), 17) << written;
        double back = 0.0;
        ASSERT_TRUE(DataConvert::convert(text, back)) << written;
        ASSERT_EQ(std::bit_cast<std::uint64_t>(back), std::bit_cast<std::uint64_t>(value))
            << written;
    }
}

TEST(DataConvertFloating, RandomFloatsRoundTripExactly) {
    unsigned const seed = testSeed();
    SCOPED_TRACE(::testing::Message() << "seed " << seed);
    std::mt19937 random(seed);
    for (int i = 0; i < 20000; ++i) {
        float const value = std::bit_cast<float>(std::uint32_t(random()));
        if (std::isnan(value))
            continue;
        WString text;
        ASSERT_TRUE(DataConvert::convert(value, text));
        std::string const written = narrow(text);
        EXPECT_LE(significantDigits(written), 9) << written;
        float back = 0.0f;
        ASSERT_TRUE(DataConvert::convert(text, back)) << written;
        ASSERT_EQ(std::bit_cast<std::uint32_t>(back), std::bit_cast<std::uint32_t>(value))
            << written;
    }
}

TEST(DataConvertColour, WritesFourComponents) {
    EXPECT_EQ((DataConvert::convert<NormalisedRGB, WString>(NormalisedRGB(1.0f, 0.5f, 0.0f))).str(),
              L"1,0.5,0,1");
    EXPECT_EQ(
        (DataConvert::convert<NormalisedRGB, WString>(NormalisedRGB(0.1f, 0.2f, 0.3f, 0.4f))).str(),
        L"0.1,0.2,0.3,0.4");
}

TEST(DataConvertColour, ReadsComponentListsAndHex) {
    struct Case {
        wchar_t const* text;
        NormalisedRGB value;
    } const cases[] = {
        {L"1,0.5,0", {1.0f, 0.5f, 0.0f, 1.0f}},
        {L"0,0,0,0", {0.0f, 0.0f, 0.0f, 0.0f}},
        {L" 0.2 , 0.4 ,0.6 , 0.8 ", {0.2f, 0.4f, 0.6f, 0.8f}},
        {L"1e-1,1,1", {0.1f, 1.0f, 1.0f, 1.0f}},
        {L"#ff8000", {1.0f, 128.0f / 255.0f, 0.0f, 1.0f}},
        {L"#FF800080", {1.0f, 128.0f / 255.0f, 0.0f, 128.0f / 255.0f}},
        {L"  #00fF00\n", {0.0f, 1.0f, 0.0f, 1.0f}},
        {L"#000000", {0.0f, 0.0f, 0.0f, 1.0f}},
    };
    for (auto const& c : cases) {
        NormalisedRGB value(0.5f, 0.5f, 0.5f, 0.5f);
        EXPECT_TRUE(DataConvert::convert(WString(c.text), value)) << narrow(c.text);
        EXPECT_EQ(value, c.value) << narrow(c.text);
    }
}

TEST(DataConvertColour, MalformedOrOutOfRangeTextFailsAndLeavesTheValueAlone) {
    NormalisedRGB const original(0.5f, 0.25f, 0.75f, 0.5f);
    for (wchar_t const* text :
         {L"",         L"1,0.5",    L"1,0.5,0,1,0", L"1,,0",        L",1,0",
          L"1.5,0,0",  L"-0.1,0,0", L"0,0,0,2",     L"1e1,0,0",     L"nan,0,0",
          L"inf,0,0",  L"red",      L"0x1,0,0",     L"1;0;0",       L"1 0 0",
          L"#",        L"#ff80",    L"#ff8000f",    L"#ff8000ff00", L"#gg0000",
          L"# ff8000", L"ff8000",   L"#ff 800",     L"#-f8000"}) {
        NormalisedRGB value = original;
        EXPECT_FALSE(DataConvert::convert(WString(text), value)) << narrow(text);
        EXPECT_EQ(value, original) << narrow(text);
        EXPECT_EQ((DataConvert::convert<WString, NormalisedRGB>(text)), NormalisedRGB())
            << narrow(text);
    }
}

TEST(DataConvertColour, OutOfRangeComponentsAreNotWritten) {
    for (NormalisedRGB const& bad :
         {NormalisedRGB(1.5f, 0.0f, 0.0f), NormalisedRGB(0.0f, -0.1f, 0.0f),
          NormalisedRGB(0.0f, 0.0f, 0.0f, 2.0f), NormalisedRGB(std::nanf(""), 0.0f, 0.0f)}) {
        WString text(L"unchanged");
        EXPECT_FALSE(DataConvert::convert(bad, text));
        EXPECT_EQ(text.str(), L"unchanged");
    }
}

TEST(DataConvertColour, RandomColoursRoundTripExactly) {
    unsigned const seed = testSeed();
    SCOPED_TRACE(::testing::Message() << "seed " << seed);
    std::mt19937 random(seed);
    std::uniform_real_distribution<float> unit(0.0f, 1.0f);
    // Bit patterns between 0 and 1.0f cover the tiny components that uniform draws never reach.
    std::uniform_int_distribution<std::uint32_t> bits(0, std::bit_cast<std::uint32_t>(1.0f));
    auto component = [&] {
        return random() % 2 ? unit(random) : std::bit_cast<float>(bits(random));
    };
    for (int i = 0; i < 5000; ++i) {
        NormalisedRGB const colour{component(), component(), component(), component()};
        WString text;
        ASSERT_TRUE(DataConvert::convert(colour, text));
        NormalisedRGB back(0.5f, 0.5f, 0.5f, 0.5f);
        ASSERT_TRUE(DataConvert::convert(text, back)) << narrow(text);
        ASSERT_EQ(back, colour) << narrow(text);
    }
}

TEST(DataConvertLocale, TextIgnoresADecimalCommaLocale) {
    DecimalCommaLocale locale;
    if (!locale.active())
        GTEST_SKIP() << "no locale with a decimal comma is installed";
    EXPECT_EQ((DataConvert::convert<double, WString>(2.5)).str(), L"2.5");
    EXPECT_EQ((DataConvert::convert<WString, double>(L"2.5")), 2.5);
    double value = 1.0;
    EXPECT_FALSE(DataConvert::convert(WString(L"2,5"), value));
    EXPECT_EQ(
        (DataConvert::convert<NormalisedRGB, WString>(NormalisedRGB(0.5f, 0.25f, 1.0f))).str(),
        L"0.5,0.25,1,1");
    EXPECT_EQ((DataConvert::convert<WString, NormalisedRGB>(L"0.5,0.25,1")),
              NormalisedRGB(0.5f, 0.25f, 1.0f));
}

} // namespace
