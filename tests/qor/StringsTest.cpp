#include "qor/Strings.h"

#include "qor/UTF8.h"
#include "support/DecimalCommaLocale.h"

#include <gtest/gtest.h>

#include <climits>
#include <clocale>
#include <cmath>
#include <vector>

namespace {

using WString = LightweightString<wchar_t>;
using NString = LightweightString<char>;

// A value a parser must not write when it rejects the text.
constexpr int untouched = 12345;

template <class Number>
struct Parses {
    std::vector<std::pair<wchar_t const*, Number>> good;
    std::vector<wchar_t const*> bad;
};

// Each good text reads as its value and each bad one is refused with the target left alone, by the
// wide and the narrow parser alike; the unchecked parser answers the value or 0.
template <class Number, class Unchecked>
void checkParses(Parses<Number> const& cases, Unchecked unchecked) {
    auto check = [&](wchar_t const* text, bool good, Number value) {
        SCOPED_TRACE(toUTF8(text).c_str());
        Number wide = Number(untouched), narrow = Number(untouched);
        ASSERT_EQ(Qor::parseNumber(WString(text), wide), good);
        EXPECT_EQ(Qor::parseNumber(toUTF8(text), narrow), good);
        EXPECT_EQ(wide, good ? value : Number(untouched));
        EXPECT_EQ(narrow, wide);
        EXPECT_EQ(unchecked(text), good ? value : Number(0));
    };
    for (auto const& [text, value] : cases.good)
        check(text, true, value);
    for (wchar_t const* text : cases.bad)
        check(text, false, Number(0));
}

TEST(StringsNumberParsing, IntegersAreWholeDecimalsWithinTheirType) {
    // Arabic-Indic digits are not decimal digits here.
    checkParses<int>(
        {{{L"+7", 7}, {L"\t-3\r\n", -3}, {L"2147483647", INT_MAX}, {L"-2147483648", INT_MIN}},
         {L"2147483648", L"-2147483649", L"99999999999999999999999", L"   ", L"-", L"12ab", L"- 5",
          L"+-5", L"\v5", L"\u0661\u0662"}},
        &Qor::IntFromWString);
    checkParses<unsigned>({{{L"4294967295", UINT_MAX}}, {L"4294967296", L"-0"}},
                          &Qor::UIntFromWString);
    checkParses<long long>(
        {{{L"9223372036854775807", LLONG_MAX}, {L"-9223372036854775808", LLONG_MIN}},
         {L"9223372036854775808", L"-9223372036854775809"}},
        &Qor::Int64FromWString);
}

TEST(StringsNumberParsing, FloatsAreCLocaleDecimalsWithOptionalExponent) {
    checkParses<double>(
        {{{L"-0.25", -0.25},
          {L"  3e2 ", 300.0},
          {L"1E-3", 0.001},
          {L".5", 0.5},
          {L"5.", 5.0},
          {L"+2.5", 2.5},
          {L"4.9e-324", 4.9e-324}},
         {L"1e309", L"1e-400", L" ", L"1,5", L"nan", L"inf", L"0x1p3", L"1e+", L".", L"1.2.3"}},
        [](WString const& text) { return asDouble(text); });
    EXPECT_EQ(Qor::FloatFromWString(L"1.5x", 7.75), 7.75);
    double minusZero = 1.0;
    ASSERT_TRUE(Qor::parseNumber(WString(L"-0"), minusZero));
    EXPECT_TRUE(minusZero == 0.0 && std::signbit(minusZero));
    // Just above the midpoint between 1 and the next float; going through a double first lands
    // exactly on the midpoint and rounds down to 1 instead.
    float single = 0.0f;
    ASSERT_TRUE(Qor::parseNumber(WString(L"1.0000000596046447753906251"), single));
    EXPECT_EQ(single, std::nextafter(1.0f, 2.0f));
    EXPECT_FALSE(Qor::parseNumber(NString("1e39"), single));
}

TEST(StringsNumberFormatting, FixedNotationTrimsOnlyFractionZerosAndNeverSignsZero) {
    struct Case {
        double value;
        char precision;
        bool trimZeros;
        char const* expected;
    } const cases[] = {{100.0, 3, true, "100"},    {1.5, 3, false, "1.500"},
                       {1.23956, 2, true, "1.24"}, {-0.0, 2, false, "0.00"},
                       {-0.0001, 3, true, "0"},    {-0.0006, 3, true, "-0.001"},
                       {NAN, 3, true, "nan"},      {-INFINITY, 3, false, "-inf"}};
    for (auto const& c : cases) {
        SCOPED_TRACE(c.expected);
        EXPECT_EQ(StringFromFloat(c.value, c.precision, c.trimZeros).str(), c.expected);
        EXPECT_EQ(Qor::WStringFromFloat(c.value, c.precision, c.trimZeros),
                  Qor::WStringFromAscii(c.expected));
    }
    EXPECT_EQ(StringFromFloat(2.0 / 3.0).str(), "0.667");
    EXPECT_EQ(StringFromFloat(1e20, 2).str(), "100000000000000000000");
    // Precision is capped at forty decimals.
    EXPECT_EQ(StringFromFloat(1.0 / 3.0, 100, false).size(), 2u + 40u);
    EXPECT_EQ(Qor::WStringFromInteger(LLONG_MIN).str(), L"-9223372036854775808");
    EXPECT_EQ(StringFromInteger(LLONG_MAX).str(), "9223372036854775807");
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

TEST(StringsCase, NarrowMapsAsciiOnlyAndWideMapsAllLettersWhateverTheLocale) {
    EXPECT_EQ(Qor::toUpper(NString("abc-XYZ_1\xE9")).str(), "ABC-XYZ_1\xE9");
    EXPECT_EQ(Qor::toLower(NString("ABC-xyz[@`{")).str(), "abc-xyz[@`{");
    // The program runs in the plain "C" locale, which knows only ASCII letters.
    EXPECT_STREQ(std::setlocale(LC_CTYPE, nullptr), "C");
    EXPECT_EQ(Qor::toUpper(WString(L"abc-\u00e9t\u00e9")).str(), L"ABC-\u00c9T\u00c9");
    EXPECT_EQ(Qor::toLower(L'\u0394'), L'\u03b4');
    EXPECT_TRUE(Qor::endsWith(WString(L"report.TXT"), L".txt", false));
    EXPECT_FALSE(Qor::endsWith(NString("report.TXT"), ".txt", true));
}

TEST(StringsSplit, EmptyPiecesAreKeptUnlessDroppedAndPackRestoresTheText) {
    for (wchar_t const* text : {L"", L"a", L",", L"a,,b", L",a,"})
        EXPECT_EQ(Qor::pack(Qor::unpack(WString(text), L','), L',').str(), text);
    EXPECT_TRUE(Qor::unpack(WString(), L',').empty());
    EXPECT_EQ(Qor::pack(Qor::unpack(NString(",a,,b"), ','), ';').str(), ";a;;b");
    std::vector<NString> dropped = {"kept"};
    EXPECT_EQ(Qor::splitIf(NString(",a,,b,"), ',', dropped, Qor::SplitDropEmpty), 2u);
    ASSERT_EQ(dropped.size(), 3u);
    EXPECT_EQ(dropped[1].str(), "a");
    EXPECT_EQ(dropped[2].str(), "b");
    std::vector<WString> none;
    EXPECT_EQ(Qor::splitIf(WString(L",,,"), L',', none, Qor::SplitDropEmpty), 0u);
    EXPECT_EQ(Qor::splitIf(WString(L",,"), L',', none, Qor::SplitKeepEmpty), 3u);
}

TEST(StringsCharacterClasses, StripsAndBlanksKnowOnlyTheirCharactersAndHighBytesAreNotAscii) {
    EXPECT_EQ(Qor::stripLeadingChars(WString(L"000120"), L'0').str(), L"120");
    EXPECT_EQ(Qor::stripTrailingChars(WString(L"000120"), L'0').str(), L"00012");
    EXPECT_TRUE(Qor::stripTrailingChars(WString(L"xxx"), L'x').empty());
    EXPECT_EQ(Qor::stripLeadingChars(NString(" \tab")).str(), "\tab");
    EXPECT_EQ(Qor::stripBlanks(WString(L" \t\r\nab c\n")).str(), L"ab c");
    EXPECT_EQ(Qor::WStringFromAscii("a\xC3\xA9\x7F").str(), L"a\uFFFD\uFFFD\x7F");
    EXPECT_TRUE(Qor::WStringFromAscii(nullptr).empty());
    EXPECT_TRUE(isEssentiallyEmpty(NString()));
    EXPECT_TRUE(isEssentiallyEmpty(WString(L"\t\r\n ")));
    EXPECT_FALSE(isEssentiallyEmpty(NString(" a ")));
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
        {L"abc", L"ABC", 0},   {L"apple", L"Banana", -1}, {L"Zeta", L"alpha", 1},
        {L"abc", L"ABCD", -1}, {L"ABCD", L"abc", 1},      {nullptr, L"", 0},
        {nullptr, L"a", -1},   {L"a", nullptr, 1},        {L"\u00c9CLAIR", L"\u00e9clair", 0}};
    for (auto const& c : cases)
        EXPECT_EQ(sign(wstrxcmp(c.a, c.b)), c.expected) << "case " << &c - cases;
}

} // namespace
