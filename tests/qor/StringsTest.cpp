#include "qor/Strings.h"

#include "qor/UTF8.h"
#include "support/DecimalCommaLocale.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <climits>
#include <clocale>
#include <cmath>
#include <limits>
#include <list>
#include <string>
#include <vector>

namespace {

using WString = LightweightString<wchar_t>;
using NString = LightweightString<char>;

// A value a parser must not write when it rejects the text.
constexpr int untouchedInt = 12345;

template <class Number>
struct ParseCase {
    wchar_t const* text;
    bool good;
    Number value;
};

template <class Number>
std::ostream& operator<<(std::ostream& out, ParseCase<Number> const& c) {
    return out << '"' << toUTF8(c.text).c_str() << '"';
}

template <class Number>
void checkParse(ParseCase<Number> const& c) {
    SCOPED_TRACE(c);
    Number value = Number(untouchedInt);
    ASSERT_EQ(Qor::parseNumber(WString(c.text), value), c.good);
    EXPECT_EQ(value, c.good ? c.value : Number(untouchedInt));
    // The narrow parser reads the same ASCII text the same way.
    Number narrowValue = Number(untouchedInt);
    EXPECT_EQ(Qor::parseNumber(toUTF8(c.text), narrowValue), c.good);
    EXPECT_EQ(narrowValue, value);
}

TEST(StringsIntParsing, ReadsDecimalIntsAndRejectsEverythingElse) {
    ParseCase<int> const cases[] = {
        {L"0", true, 0},
        {L"42", true, 42},
        {L"-42", true, -42},
        {L"+7", true, 7},
        {L"-0", true, 0},
        {L"007", true, 7},
        {L"  12  ", true, 12},
        {L"\t-3\r\n", true, -3},
        {L"2147483647", true, INT_MAX},
        {L"-2147483648", true, INT_MIN},
        {L"2147483648", false, 0},
        {L"-2147483649", false, 0},
        {L"99999999999999999999999", false, 0},
        {L"", false, 0},
        {L"   ", false, 0},
        {L"-", false, 0},
        {L"12ab", false, 0},
        {L"ab12", false, 0},
        {L"1 2", false, 0},
        {L"- 5", false, 0},
        {L"+-5", false, 0},
        {L"--5", false, 0},
        {L"0x10", false, 0},
        {L"1.5", false, 0},
        {L"1e3", false, 0},
        {L"\u0661\u0662", false, 0}, // Arabic-Indic digits are not decimal digits here
        {L"\v5", false, 0},
    };
    for (auto const& c : cases) {
        checkParse(c);
        EXPECT_EQ(Qor::IntFromWString(c.text), c.good ? c.value : 0) << c;
    }
}

TEST(StringsIntParsing, UnsignedTakesNoMinusAndKeepsItsFullRange) {
    ParseCase<unsigned> const cases[] = {
        {L"4294967295", true, UINT_MAX},     {L"+5", true, 5},  {L" 0 ", true, 0},
        {L"4294967296", false, 0},           {L"-1", false, 0}, {L"-0", false, 0},
        {L"18446744073709551616", false, 0}, {L"5u", false, 0},
    };
    for (auto const& c : cases) {
        checkParse(c);
        EXPECT_EQ(Qor::UIntFromWString(c.text), c.good ? c.value : 0u) << c;
    }
}

TEST(StringsIntParsing, Int64ReachesBothEndsAndFailsOneBeyond) {
    ParseCase<long long> const cases[] = {
        {L"9223372036854775807", true, LLONG_MAX}, {L"-9223372036854775808", true, LLONG_MIN},
        {L"9223372036854775808", false, 0},        {L"-9223372036854775809", false, 0},
        {L"18446744073709551615", false, 0},       {L"18446744073709551616", false, 0},
        {L"-4294967296", true, -4294967296LL},
    };
    for (auto const& c : cases) {
        checkParse(c);
        EXPECT_EQ(Qor::Int64FromWString(c.text), c.good ? c.value : 0LL) << c;
    }
}

TEST(StringsFloatParsing, ReadsCLocaleDecimalsWithOptionalExponent) {
    ParseCase<double> const cases[] = {
        {L"1.5", true, 1.5},
        {L"-0.25", true, -0.25},
        {L"  3e2 ", true, 300.0},
        {L"1E-3", true, 0.001},
        {L"2.5e+1", true, 25.0},
        {L".5", true, 0.5},
        {L"5.", true, 5.0},
        {L"+2.5", true, 2.5},
        {L"0.1", true, 0.1},
        {L"1e308", true, 1e308},
        {L"4.9e-324", true, 4.9e-324},
        {L"1e309", false, 0},
        {L"-1e309", false, 0},
        {L"1e-400", false, 0},
        {L"", false, 0},
        {L" ", false, 0},
        {L"abc", false, 0},
        {L"1.5x", false, 0},
        {L"1,5", false, 0},
        {L"nan", false, 0},
        {L"inf", false, 0},
        {L"-inf", false, 0},
        {L"0x1p3", false, 0},
        {L"1e", false, 0},
        {L"1e+", false, 0},
        {L"e5", false, 0},
        {L".", false, 0},
        {L"-.", false, 0},
        {L"1.2.3", false, 0},
        {L"- 1", false, 0},
        {L"1 .5", false, 0},
    };
    for (auto const& c : cases) {
        checkParse(c);
        EXPECT_EQ(Qor::FloatFromWString(c.text, 7.75), c.good ? c.value : 7.75) << c;
        EXPECT_EQ(asDouble(WString(c.text)), c.good ? c.value : 0.0) << c;
    }
}

TEST(StringsFloatParsing, MinusZeroKeepsItsSign) {
    double value = 1.0;
    ASSERT_TRUE(Qor::parseNumber(WString(L"-0"), value));
    EXPECT_EQ(value, 0.0);
    EXPECT_TRUE(std::signbit(value));
}

TEST(StringsFloatParsing, FloatsRoundOnceFromTheDecimalText) {
    // Just above the midpoint between 1 and the next float; going through a double first lands
    // exactly on the midpoint and rounds down to 1 instead.
    float value = 0.0f;
    ASSERT_TRUE(Qor::parseNumber(WString(L"1.0000000596046447753906251"), value));
    EXPECT_EQ(value, std::nextafter(1.0f, 2.0f));

    ParseCase<float> const cases[] = {
        {L"0.1", true, 0.1f},
        {L"3.4028235e38", true, std::numeric_limits<float>::max()},
        {L"1e39", false, 0},
        {L"1e-50", false, 0},
    };
    for (auto const& c : cases)
        checkParse(c);
}

TEST(StringsFloatParsing, NarrowTextWithNonAsciiBytesIsBad) {
    double value = 2.0;
    EXPECT_FALSE(Qor::parseNumber(NString("1\xC3\xA9"), value));
    EXPECT_FALSE(Qor::parseNumber(NString("\xEF\xBC\x91"), value));
    EXPECT_EQ(value, 2.0);
    EXPECT_EQ(asDouble("  -6.5e-1 "), -0.65);
    EXPECT_EQ(asDouble("x"), 0.0);
}

struct FormatCase {
    double value;
    char precision;
    bool trimZeros;
    char const* expected;
};

TEST(StringsFloatFormatting, FixedNotationTrimsOnlyFractionZeros) {
    double const inf = std::numeric_limits<double>::infinity();
    FormatCase const cases[] = {
        {1.5, 3, true, "1.5"},
        {2.0, 3, true, "2"},
        {-0.125, 3, true, "-0.125"},
        {100.0, 3, true, "100"},
        {1000.0, 0, true, "1000"},
        {1.5, 3, false, "1.500"},
        {100.0, 2, false, "100.00"},
        {1.23456, 2, true, "1.23"},
        {1.23956, 2, true, "1.24"},
        {0.0, 3, true, "0"},
        {-0.0, 3, true, "0"},
        {-0.0, 2, false, "0.00"},
        {-0.0001, 3, true, "0"},
        {-0.0001, 3, false, "0.000"},
        {-0.0006, 3, true, "-0.001"},
        {-7.0, 0, true, "-7"},
        {1e20, 2, true, "100000000000000000000"},
        {0.1, 20, false, "0.10000000000000000555"},
        {std::nan(""), 3, true, "nan"},
        {inf, 3, true, "inf"},
        {-inf, 3, false, "-inf"},
    };
    for (auto const& c : cases) {
        SCOPED_TRACE(c.expected);
        EXPECT_EQ(StringFromFloat(c.value, c.precision, c.trimZeros).str(), c.expected);
        EXPECT_EQ(Qor::WStringFromFloat(c.value, c.precision, c.trimZeros),
                  Qor::WStringFromAscii(c.expected));
    }
}

TEST(StringsFloatFormatting, DefaultsAreThreeDecimalsTrimmed) {
    EXPECT_EQ(StringFromFloat(2.0 / 3.0).str(), "0.667");
    EXPECT_EQ(Qor::WStringFromFloat(0.5).str(), L"0.5");
}

TEST(StringsFloatFormatting, PrecisionIsCappedAtFortyDecimals) {
    std::string const text = StringFromFloat(1.0 / 3.0, 100, false).str();
    EXPECT_EQ(text.size(), 2u + 40u);
    EXPECT_EQ(text.substr(0, 6), "0.3333");
}

TEST(StringsIntegerFormatting, WritesEveryLongLongInDecimal) {
    EXPECT_EQ(Qor::WStringFromInteger(0).str(), L"0");
    EXPECT_EQ(Qor::WStringFromInteger(-1).str(), L"-1");
    EXPECT_EQ(Qor::WStringFromInteger(LLONG_MIN).str(), L"-9223372036854775808");
    EXPECT_EQ(StringFromInteger(LLONG_MAX).str(), "9223372036854775807");
    EXPECT_EQ(BoolAsString(true).str(), "true");
    EXPECT_EQ(BoolAsString(false).str(), "false");
}

TEST(StringsLocale, NumberTextIgnoresADecimalCommaLocale) {
    DecimalCommaLocale locale;
    if (!locale.active())
        GTEST_SKIP() << "no locale with a decimal comma is installed";
    EXPECT_EQ(StringFromFloat(1.5).str(), "1.5");
    EXPECT_EQ(Qor::WStringFromFloat(-2.25, 2, false).str(), L"-2.25");
    EXPECT_EQ(Qor::FloatFromWString(L"1.5", -1.0), 1.5);
    EXPECT_EQ(Qor::FloatFromWString(L"1,5", -1.0), -1.0);
    EXPECT_EQ(asDouble("2.5e1"), 25.0);
}

TEST(StringsAscii, HighBytesBecomeReplacementCharacters) {
    EXPECT_EQ(Qor::WStringFromAscii("abc").str(), L"abc");
    EXPECT_EQ(Qor::WStringFromAscii("a\xC3\xA9\x7F").str(), L"a\uFFFD\uFFFD\x7F");
    EXPECT_TRUE(Qor::WStringFromAscii(nullptr).empty());
}

TEST(StringsCase, NarrowMappingTouchesAsciiLettersOnly) {
    EXPECT_EQ(Qor::toUpper(NString("abc-XYZ_1\xE9")).str(), "ABC-XYZ_1\xE9");
    EXPECT_EQ(Qor::toLower(NString("ABC-xyz[@`{")).str(), "abc-xyz[@`{");
    EXPECT_EQ(Qor::toUpper('q'), 'Q');
    EXPECT_EQ(Qor::toLower('@'), '@');
}

TEST(StringsCase, WideMappingCoversNonAsciiLettersWhateverTheLocale) {
    EXPECT_EQ(Qor::toUpper(WString(L"abc-xyz")).str(), L"ABC-XYZ");
    EXPECT_EQ(Qor::toLower(WString(L"ABC-XYZ")).str(), L"abc-xyz");
    // The program runs in the plain "C" locale, which knows only ASCII letters.
    EXPECT_STREQ(std::setlocale(LC_CTYPE, nullptr), "C");
    EXPECT_EQ(Qor::toUpper(WString(L"\u00e9t\u00e9")).str(), L"\u00c9T\u00c9");
    EXPECT_EQ(Qor::toLower(L'\u0394'), L'\u03b4');
    EXPECT_EQ(wstrxcmp(L"\u00c9CLAIR", L"\u00e9clair"), 0);
}

TEST(StringsEndsWith, ComparesTheTailWithOrWithoutCase) {
    struct Case {
        wchar_t const* text;
        wchar_t const* suffix;
        bool caseSensitive;
        bool expected;
    } const cases[] = {
        {L"report.TXT", L".txt", false, true},
        {L"report.TXT", L".txt", true, false},
        {L"report.txt", L".txt", true, true},
        {L"txt", L".txt", false, false},
        {L"abc", L"", true, true},
        {L"abc", L"abc", true, true},
        {L"", L"a", true, false},
        {L"abcab", L"ab", true, true},
    };
    for (auto const& c : cases) {
        EXPECT_EQ(Qor::endsWith(WString(c.text), c.suffix, c.caseSensitive), c.expected)
            << toUTF8(c.text).c_str() << " / " << toUTF8(c.suffix).c_str();
        EXPECT_EQ(Qor::endsWith(toUTF8(c.text), toUTF8(c.suffix), c.caseSensitive), c.expected);
    }
}

TEST(StringsStrip, RemovesOnlyTheRunAtOneEnd) {
    EXPECT_EQ(Qor::stripLeadingChars(NString("  ab  ")).str(), "ab  ");
    EXPECT_EQ(Qor::stripTrailingChars(NString("  ab  ")).str(), "  ab");
    EXPECT_EQ(Qor::stripLeadingChars(WString(L"000120"), L'0').str(), L"120");
    EXPECT_EQ(Qor::stripTrailingChars(WString(L"000120"), L'0').str(), L"00012");
    EXPECT_TRUE(Qor::stripLeadingChars(NString("    ")).empty());
    EXPECT_TRUE(Qor::stripTrailingChars(WString(L"xxx"), L'x').empty());
    EXPECT_EQ(Qor::stripLeadingChars(NString("\tab")).str(), "\tab");
    EXPECT_EQ(Qor::stripBlanks(WString(L" \t\r\nab c\n")).str(), L"ab c");
    EXPECT_TRUE(Qor::stripBlanks(NString(" \n ")).empty());
}

TEST(StringsPack, UnpackKeepsEmptyPiecesAndPackRestoresTheText) {
    struct Case {
        wchar_t const* text;
        std::vector<std::wstring> pieces;
    } const cases[] = {
        {L"", {}},
        {L"a", {L"a"}},
        {L"a,b", {L"a", L"b"}},
        {L",", {L"", L""}},
        {L"a,,b", {L"a", L"", L"b"}},
        {L",a,", {L"", L"a", L""}},
        {L",,", {L"", L"", L""}},
        {L"one two,three", {L"one two", L"three"}},
    };
    for (auto const& c : cases) {
        SCOPED_TRACE(toUTF8(c.text).c_str());
        auto const pieces = Qor::unpack(WString(c.text), L',');
        std::vector<std::wstring> texts;
        for (auto const& piece : pieces)
            texts.push_back(piece.str());
        EXPECT_EQ(texts, c.pieces);
        EXPECT_EQ(Qor::pack(pieces, L',').str(), c.text);
        EXPECT_EQ(Qor::pack(Qor::unpack(toUTF8(c.text), ','), ','), toUTF8(c.text));
    }
}

TEST(StringsPack, PackTakesAnyContainerOfStrings) {
    std::list<NString> const parts = {"x", "", "y"};
    EXPECT_EQ(Qor::pack(parts, ';').str(), "x;;y");
    EXPECT_TRUE(Qor::pack(std::vector<WString>{}, L';').empty());
}

TEST(StringsSplit, DropEmptyFlagLeavesOutEmptyPiecesAndCountsWhatItAdds) {
    std::vector<NString> out = {"kept"};
    EXPECT_EQ(Qor::splitIf(NString(",a,,b,"), ',', out, Qor::SplitKeepEmpty), 5u);
    ASSERT_EQ(out.size(), 6u);
    EXPECT_EQ(out[0].str(), "kept");
    EXPECT_EQ(out[2].str(), "a");
    EXPECT_TRUE(out[3].empty());
    EXPECT_EQ(out[4].str(), "b");

    std::vector<NString> dropped = {"kept"};
    EXPECT_EQ(Qor::splitIf(NString(",a,,b,"), ',', dropped, Qor::SplitDropEmpty), 2u);
    ASSERT_EQ(dropped.size(), 3u);
    EXPECT_EQ(dropped[1].str(), "a");
    EXPECT_EQ(dropped[2].str(), "b");

    std::vector<WString> none;
    EXPECT_EQ(Qor::splitIf(WString(L",,,"), L',', none, Qor::SplitDropEmpty), 0u);
    EXPECT_EQ(Qor::splitIf(WString(), L',', none, Qor::SplitKeepEmpty), 0u);
    EXPECT_TRUE(none.empty());
    EXPECT_EQ(Qor::splitIf(WString(L"abc"), L',', none), 1u);
    EXPECT_EQ(none.at(0).str(), L"abc");
}

TEST(StringsBlank, OnlySpaceTabAndLineEndsAreBlank) {
    EXPECT_TRUE(isEssentiallyEmpty(NString()));
    EXPECT_TRUE(isEssentiallyEmpty(NString(" ")));
    EXPECT_TRUE(isEssentiallyEmpty(WString(L"\t\r\n ")));
    EXPECT_FALSE(isEssentiallyEmpty(NString(" a ")));
    EXPECT_FALSE(isEssentiallyEmpty(WString(L"  .")));
    EXPECT_FALSE(isEssentiallyEmpty(WString(L"\u00a0")));
}

int sign(int value) {
    return (value > 0) - (value < 0);
}

TEST(StringsCompare, WstrxcmpIgnoresCaseAndTreatsNullAsEmpty) {
    struct Case {
        wchar_t const* a;
        wchar_t const* b;
        int expected;
    } const cases[] = {
        {L"abc", L"ABC", 0},
        {L"apple", L"Banana", -1},
        {L"Banana", L"apple", 1},
        {L"abc", L"ABCD", -1},
        {L"ABCD", L"abc", 1},
        {L"a", L"b", -1},
        {nullptr, L"", 0},
        {nullptr, nullptr, 0},
        {nullptr, L"a", -1},
        {L"a", nullptr, 1},
        {L"", L"", 0},
        {L"Zeta", L"alpha", 1},
    };
    for (auto const& c : cases) {
        EXPECT_EQ(sign(wstrxcmp(c.a, c.b)), c.expected)
            << (c.a ? toUTF8(c.a).c_str() : "(null)") << " vs "
            << (c.b ? toUTF8(c.b).c_str() : "(null)");
    }
}

TEST(StringsCompare, WstrxcmpSortsAlphabeticallyRegardlessOfCase) {
    std::vector<wchar_t const*> words = {L"delta", L"Charlie", L"alpha", L"Echo", L"BRAVO"};
    std::sort(words.begin(), words.end(),
              [](wchar_t const* a, wchar_t const* b) { return wstrxcmp(a, b) < 0; });
    std::vector<std::wstring> const sorted(words.begin(), words.end());
    EXPECT_EQ(sorted,
              (std::vector<std::wstring>{L"alpha", L"BRAVO", L"Charlie", L"delta", L"Echo"}));
}

} // namespace
