#include "misc/DataConvert.h"

#include "qor/UTF8.h"
#include "support/DecimalCommaLocale.h"

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
using DataConvert::convert;

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

TEST(DataConvertBool, ReadsWordsAndDigitsInAnyCaseAndWritesWords) {
    struct Case {
        wchar_t const* text;
        bool value;
    } const cases[] = {{L"TRUE", true},   {L" yes ", true}, {L"1", true},
                       {L"False", false}, {L"NO\n", false}, {L"\t0 ", false}};
    for (auto const& c : cases) {
        bool value = !c.value;
        EXPECT_TRUE(convert(WString(c.text), value)) << narrow(c.text);
        EXPECT_EQ(value, c.value) << narrow(c.text);
        EXPECT_EQ((convert<bool, WString>(c.value)).str(), c.value ? L"true" : L"false");
    }
    for (wchar_t const* text : {L"", L"2", L"truee", L"t", L"on", L"00", L"+1"}) {
        bool value = true;
        EXPECT_FALSE(convert(WString(text), value)) << narrow(text);
        EXPECT_TRUE(value) << narrow(text);
    }
}

TEST(DataConvertInt, RoundTripsTheExtremesAndRejectsBadText) {
    EXPECT_EQ((convert<WString, int>(convert<int, WString>(INT_MIN))), INT_MIN);
    EXPECT_EQ((convert<WString, unsigned>(convert<unsigned, WString>(UINT_MAX))), UINT_MAX);
    unsigned count = 9;
    EXPECT_FALSE(convert(WString(L"-1"), count));
    EXPECT_EQ(count, 9u);
    EXPECT_EQ((convert<WString, int>(L"2147483648")), 0);
}

TEST(DataConvertFloating, WritesTheShortestExactTextAndReadsOnlyNumbersAndTheSpecialWords) {
    double const inf = std::numeric_limits<double>::infinity();
    struct Case {
        double value;
        wchar_t const* text;
    } const cases[] = {
        {0.1, L"0.1"},   {-2.0, L"-2"}, {-0.0, L"-0"},  {1e22, L"1e+22"},
        {-inf, L"-inf"}, {NAN, L"nan"}, {-NAN, L"nan"}, {1.0 / 3.0, L"0.3333333333333333"}};
    for (auto const& c : cases)
        EXPECT_EQ((convert<double, WString>(c.value)).str(), c.text);
    EXPECT_EQ((convert<float, WString>(1.0f / 3.0f)).str(), L"0.33333334");
    EXPECT_TRUE(std::isnan(convert<WString, double>(L" NaN ")));
    EXPECT_EQ((convert<WString, double>(L"-inf")), -inf);
    EXPECT_EQ((convert<WString, float>(L"INF")), std::numeric_limits<float>::infinity());
    for (wchar_t const* text : {L"", L"1,5", L"1e999", L"nan1", L"infinity", L"--1"}) {
        double value = 4.25;
        EXPECT_FALSE(convert(WString(text), value)) << narrow(text);
        EXPECT_EQ(value, 4.25);
    }
    float single = 4.25f;
    EXPECT_FALSE(convert(WString(L"1e39"), single));
    EXPECT_EQ(single, 4.25f);
}

// Random bit patterns of Float, written and read back as the same bits.
template <class Float, class Bits, class Engine>
void checkRandomRoundTrips() {
    unsigned const seed = testSeed();
    SCOPED_TRACE(::testing::Message() << "seed " << seed);
    Engine random(seed);
    for (int i = 0; i < 20000; ++i) {
        Float const value = std::bit_cast<Float>(Bits(random()));
        if (std::isnan(value))
            continue;
        WString text;
        ASSERT_TRUE(convert(value, text));
        Float back = 0;
        ASSERT_TRUE(convert(text, back)) << narrow(text);
        ASSERT_EQ(std::bit_cast<Bits>(back), std::bit_cast<Bits>(value)) << narrow(text);
    }
}

TEST(DataConvertFloating, RandomDoublesAndFloatsRoundTripExactly) {
    checkRandomRoundTrips<double, std::uint64_t, std::mt19937_64>();
    checkRandomRoundTrips<float, std::uint32_t, std::mt19937>();
}

TEST(DataConvertColour, WritesFourComponentsAndReadsComponentListsAndHex) {
    EXPECT_EQ((convert<NormalisedRGB, WString>(NormalisedRGB(0.1f, 0.2f, 0.3f, 0.4f))).str(),
              L"0.1,0.2,0.3,0.4");
    struct Case {
        wchar_t const* text;
        NormalisedRGB value;
    } const cases[] = {{L"1,0.5,0", {1.0f, 0.5f, 0.0f, 1.0f}},
                       {L" 0.2 , 0.4 ,0.6 , 0.8 ", {0.2f, 0.4f, 0.6f, 0.8f}},
                       {L"#FF800080", {1.0f, 128.0f / 255.0f, 0.0f, 128.0f / 255.0f}},
                       {L"  #00fF00\n", {0.0f, 1.0f, 0.0f, 1.0f}}};
    for (auto const& c : cases) {
        NormalisedRGB value(0.5f, 0.5f, 0.5f, 0.5f);
        EXPECT_TRUE(convert(WString(c.text), value)) << narrow(c.text);
        EXPECT_EQ(value, c.value) << narrow(c.text);
    }
}

TEST(DataConvertColour, MalformedOrOutOfRangeColoursFailInEitherDirection) {
    NormalisedRGB const original(0.5f, 0.25f, 0.75f, 0.5f);
    for (wchar_t const* text :
         {L"", L"1,0.5", L"1,0.5,0,1,0", L"1,,0", L"1.5,0,0", L"-0.1,0,0", L"nan,0,0", L"red",
          L"#ff80", L"#ff8000f", L"#gg0000", L"# ff8000"}) {
        NormalisedRGB value = original;
        EXPECT_FALSE(convert(WString(text), value)) << narrow(text);
        EXPECT_EQ(value, original) << narrow(text);
        EXPECT_EQ((convert<WString, NormalisedRGB>(text)), NormalisedRGB()) << narrow(text);
    }
    for (NormalisedRGB const& bad :
         {NormalisedRGB(0.0f, -0.1f, 0.0f), NormalisedRGB(0.0f, 0.0f, 0.0f, 2.0f),
          NormalisedRGB(std::nanf(""), 0.0f, 0.0f)}) {
        WString text(L"unchanged");
        EXPECT_FALSE(convert(bad, text));
        EXPECT_EQ(text.str(), L"unchanged");
    }
}

TEST(DataConvertLocale, TextIgnoresADecimalCommaLocale) {
    DecimalCommaLocale locale;
    if (!locale.active())
        GTEST_SKIP() << "no locale with a decimal comma is installed";
    EXPECT_EQ((convert<double, WString>(2.5)).str(), L"2.5");
    EXPECT_EQ((convert<WString, double>(L"2.5")), 2.5);
    double value = 1.0;
    EXPECT_FALSE(convert(WString(L"2,5"), value));
    EXPECT_EQ((convert<NormalisedRGB, WString>(NormalisedRGB(0.5f, 0.25f, 1.0f))).str(),
              L"0.5,0.25,1,1");
    EXPECT_EQ((convert<WString, NormalisedRGB>(L"0.5,0.25,1")), NormalisedRGB(0.5f, 0.25f, 1.0f));
}

} // namespace
