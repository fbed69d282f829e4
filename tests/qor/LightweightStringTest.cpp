#include "qor/LightweightString.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdio>
#include <random>
#include <string>
#include <vector>

using WString = LightweightString<wchar_t>;
using NString = LightweightString<char>;

// The random test below covers the other writers.
TEST(LightweightString, CopiesShareOneBodyUntilAnyWriterDetaches) {
    WString const original(L"abcdef");
    std::vector<void (*)(WString&)> writers = {
        [](WString& s) { s.append(L"x", 1); },
        [](WString& s) { s.substitute(L"cd", L"XY"); },
        [](WString& s) { s.setChar(0, L'Q'); },
        [](WString& s) { s.resizeFor(100); },
    };
    for (auto write : writers) {
        WString copy = original;
        EXPECT_EQ(original.shareCount(), 2u);
        write(copy);
        EXPECT_EQ(original, L"abcdef");
        EXPECT_FALSE(copy.sharesBodyWith(original));
        EXPECT_EQ(original.shareCount(), 1u);
    }
}

TEST(LightweightString, SoleOwnerWritesInPlaceWhileCapacityLasts) {
    EXPECT_EQ(WString::createImpl(7, true)->capacity, 8u);
    EXPECT_EQ(WString::createImpl(8, true)->capacity, 16u);
    WString s(L"ab");
    s.resizeFor(40);
    wchar_t const* body = s.c_str();
    for (int i = 0; i < 30; ++i)
        s.push_back(L'c');
    EXPECT_EQ(s.c_str(), body);
}

TEST(LightweightString, NullAndZeroLengthAreBothEmptyAndOwnTextIsSafeToInsert) {
    WString null;
    WString zero(L"", 0);
    WString fromNullPointer(static_cast<wchar_t const*>(nullptr));
    for (WString const* s : {&null, &zero, &fromNullPointer})
        EXPECT_EQ(s->c_str()[0], L'\0');
    EXPECT_EQ(null, zero);
    EXPECT_FALSE(null < zero);
    WString s(L"abcabc");
    s.insert(1, s.c_str() + 3, 3);
    EXPECT_EQ(s, L"aabcbcabc");
    s += s;
    EXPECT_EQ(s, L"aabcbcabcaabcbcabc");
}

TEST(LightweightString, CompareIsNullSafeAndOrdersByUnsignedCodeUnit) {
    EXPECT_EQ(WString::compare(nullptr, L""), 0);
    EXPECT_LT(WString::compare(nullptr, L"a"), 0);
    EXPECT_LT(NString::compare("z", "\xc3\xa9"), 0);
    EXPECT_TRUE(WString(L"ab") < WString(L"abc"));
    EXPECT_TRUE(WString(L"B") < WString(L"a"));
    EXPECT_LT(WString(L"apple").compareCaseInsensitive(WString(L"BANANA")), 0);
    EXPECT_EQ(WString(L"ÉCLAIR").compareCaseInsensitive(WString(L"éclair")), 0);
}

TEST(LightweightString, SearchesAnswerNposWhenAbsentAndSubstrClampsToTheText) {
    WString s(L"a||b||c");
    EXPECT_EQ(s.find(L"||", 2), 4u);
    EXPECT_EQ(s.rfind(L'|'), 5u);
    EXPECT_EQ(s.find(L"zz"), WString::npos);
    EXPECT_EQ(s.find(L""), WString::npos);
    EXPECT_EQ(WString().rfind(L"a"), WString::npos);
    EXPECT_TRUE(s.substr(9).empty());
    EXPECT_TRUE(s.substr(0, 7).sharesBodyWith(s));
    EXPECT_FALSE(s.startsWith(L"A|"));
    EXPECT_TRUE(s.startsWith(L"A|", false));
    EXPECT_FALSE(s.endsWith(L"a much longer suffix than the text", false));
}

TEST(LightweightString, SubstituteReplacesEveryOccurrenceAndJoinSeparatesParts) {
    WString s(L"a.b.c");
    EXPECT_EQ(s.substitute(L".", L""), 2u);
    EXPECT_EQ(s, L"abc");
    EXPECT_EQ(s.substitute(L"", L"x"), 0u);
    WString overlapping(L"aaaa");
    EXPECT_EQ(overlapping.substitute(L"aa", L"a"), 2u);
    EXPECT_EQ(overlapping, L"aa");
    std::vector<WString> parts = {WString(L"a"), WString(), WString(L"c")};
    EXPECT_EQ(WString::join(parts, L", "), L"a, , c");
    EXPECT_TRUE(WString::join(std::vector<WString>(), L",").empty());
}

// Every operation applied to a LightweightString and to a std::wstring must leave them equal, with
// copies taken along the way left untouched.
TEST(LightweightString, RandomEditsMatchAPlainStringModel) {
    unsigned seed = std::random_device()();
    std::printf("LightweightString random edits: seed %u\n", seed);
    std::mt19937 rng(seed);
    auto pick = [&](unsigned n) { return n == 0 ? 0u : unsigned(rng() % n); };
    WString s;
    std::wstring model;
    std::vector<std::pair<WString, std::wstring>> snapshots;
    for (int step = 0; step < 4000; ++step) {
        wchar_t c = wchar_t(L'a' + pick(5));
        unsigned at = pick(unsigned(model.size()) + 1), n = pick(5);
        switch (pick(7)) {
        case 0:
            s.push_back(c);
            model.push_back(c);
            break;
        case 1:
            s.insert(at, WString(std::wstring(n + 1, c).c_str()));
            model.insert(at, n + 1, c);
            break;
        case 2:
            s.erase(at, n);
            if (at < model.size())
                model.erase(at, n);
            break;
        case 3:
            s.resize(at + n, L'_');
            model.resize(at + n, L'_');
            break;
        case 4:
            s.substitute(c, L'z');
            std::replace(model.begin(), model.end(), c, L'z');
            break;
        case 5:
            snapshots.emplace_back(s, model);
            break;
        default:
            s.append(s.c_str(), at);
            model.append(model.substr(0, at));
            break;
        }
        ASSERT_EQ(s.str(), model) << "seed " << seed << " step " << step;
        ASSERT_EQ(s.c_str()[s.size()], L'\0');
        if (model.size() > 200) {
            s.erase(0, 150);
            model.erase(0, 150);
        }
    }
    for (auto const& [kept, expected] : snapshots)
        ASSERT_EQ(kept.str(), expected) << "seed " << seed;
}
