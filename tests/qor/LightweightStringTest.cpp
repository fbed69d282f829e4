#include "qor/LightweightString.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdio>
#include <random>
#include <string>
#include <vector>

using WString = LightweightString<wchar_t>;
using NString = LightweightString<char>;

TEST(LightweightString, CopiesShareOneBodyUntilOneOfThemWrites) {
    WString a(L"shared text");
    WString b = a;
    EXPECT_TRUE(a.sharesBodyWith(b));
    EXPECT_EQ(a.shareCount(), 2u);

    b.append(L"!");
    EXPECT_FALSE(a.sharesBodyWith(b));
    EXPECT_EQ(a, L"shared text");
    EXPECT_EQ(b, L"shared text!");
    EXPECT_EQ(a.shareCount(), 1u);
}

TEST(LightweightString, EveryWriterDetachesASharedBody) {
    WString const original(L"abcdef");
    std::vector<void (*)(WString&)> writers = {
        [](WString& s) { s.append(L"x", 1); },
        [](WString& s) { s.push_back(L'x'); },
        [](WString& s) { s.insert(2, WString(L"x")); },
        [](WString& s) { s.erase(1, 2); },
        [](WString& s) { s.resize(3); },
        [](WString& s) { s.resize(9, L'-'); },
        [](WString& s) { s.substitute(L"cd", L"XY"); },
        [](WString& s) { s.substitute(L'a', L'z'); },
        [](WString& s) { s.setChar(0, L'Q'); },
        [](WString& s) { s.resizeFor(100); },
    };
    for (auto write : writers) {
        WString copy = original;
        write(copy);
        EXPECT_EQ(original, L"abcdef");
        EXPECT_FALSE(copy.sharesBodyWith(original));
    }
}

TEST(LightweightString, SoleOwnerWritesInPlaceWhileCapacityLasts) {
    WString s(L"ab");
    s.resizeFor(40);
    unsigned capacity = s.capacity();
    wchar_t const* body = s.c_str();
    for (int i = 0; i < 30; ++i)
        s.push_back(L'c');
    EXPECT_EQ(s.c_str(), body);
    EXPECT_EQ(s.capacity(), capacity);
    EXPECT_EQ(s.size(), 32u);
}

TEST(LightweightString, CreateImplSizesCapacityByTheRule) {
    EXPECT_EQ(WString::createImpl(5, false)->capacity, 6u);
    EXPECT_EQ(WString::createImpl(5, true)->capacity, 8u);
    EXPECT_EQ(WString::createImpl(7, true)->capacity, 8u);
    EXPECT_EQ(WString::createImpl(8, true)->capacity, 16u);
    EXPECT_EQ(WString::createImpl(0, true)->capacity, 1u);
    auto impl = NString::createImpl(3, false);
    EXPECT_EQ(impl->length, 3u);
    EXPECT_EQ(impl->chars[3], '\0');
}

TEST(LightweightString, NullAndZeroLengthAreBothEmpty) {
    WString null;
    WString zero(L"", 0);
    WString fromNullPointer(static_cast<wchar_t const*>(nullptr));
    for (WString const* s : {&null, &zero, &fromNullPointer}) {
        EXPECT_TRUE(s->empty());
        EXPECT_NE(s->c_str(), nullptr);
        EXPECT_EQ(s->c_str()[0], L'\0');
    }
    EXPECT_EQ(null, zero);
    EXPECT_FALSE(null < zero);
    WString erased(L"abc");
    erased.erase(0);
    EXPECT_TRUE(erased.empty());
}

TEST(LightweightString, AppendingAndInsertingItsOwnTextIsSafe) {
    WString s(L"abc");
    s.append(s.c_str(), s.size());
    EXPECT_EQ(s, L"abcabc");
    s.insert(1, s.c_str() + 3, 3);
    EXPECT_EQ(s, L"aabcbcabc");
    WString t(L"xy");
    t += t;
    EXPECT_EQ(t, L"xyxy");
}

TEST(LightweightString, CompareIsNullSafeAndOrdersByCodeUnit) {
    EXPECT_EQ(WString::compare(nullptr, nullptr), 0);
    EXPECT_EQ(WString::compare(nullptr, L""), 0);
    EXPECT_LT(WString::compare(nullptr, L"a"), 0);
    EXPECT_GT(WString::compare(L"b", L"a"), 0);
    EXPECT_LT(NString::compare("abc", "abd"), 0);
    // Bytes above 0x7f sort after ASCII, as unsigned code units.
    EXPECT_LT(NString::compare("z", "\xc3\xa9"), 0);
    EXPECT_TRUE(WString(L"ab") < WString(L"abc"));
    EXPECT_TRUE(WString(L"B") < WString(L"a"));
    EXPECT_LT(WString(L"apple").compareCaseInsensitive(WString(L"BANANA")), 0);
    EXPECT_EQ(WString(L"ÉCLAIR").compareCaseInsensitive(WString(L"éclair")), 0);
}

TEST(LightweightString, SearchesAnswerNposWhenAbsent) {
    WString s(L"a||b||c");
    EXPECT_EQ(s.find(L"||"), 1u);
    EXPECT_EQ(s.find(L"||", 2), 4u);
    EXPECT_EQ(s.rfind(L'|'), 5u);
    EXPECT_EQ(s.find(L"zz"), WString::npos);
    EXPECT_EQ(s.find(L""), WString::npos);
    EXPECT_EQ(WString().find(L'a'), WString::npos);
    EXPECT_EQ(WString().rfind(L"a"), WString::npos);
}

TEST(LightweightString, StartsAndEndsWithHonourCase) {
    WString s(L"FileBrowser sort key");
    EXPECT_TRUE(s.startsWith(L"File"));
    EXPECT_FALSE(s.startsWith(L"file"));
    EXPECT_TRUE(s.startsWith(L"file", false));
    EXPECT_TRUE(s.endsWith(L"KEY", false));
    EXPECT_FALSE(s.endsWith(L"a much longer suffix than the text", false));
    EXPECT_TRUE(s.startsWith(L""));
}

TEST(LightweightString, SubstrAndEraseClampToTheText) {
    WString s(L"hello");
    EXPECT_EQ(s.substr(1, 3), L"ell");
    EXPECT_EQ(s.substr(3), L"lo");
    EXPECT_TRUE(s.substr(9).empty());
    EXPECT_TRUE(s.substr(0, 5).sharesBodyWith(s));
    WString e = s;
    e.erase(3, 100);
    EXPECT_EQ(e, L"hel");
    e.erase(10, 1);
    EXPECT_EQ(e, L"hel");
}

TEST(LightweightString, SubstituteReplacesEveryOccurrence) {
    WString s(L"a.b.c");
    EXPECT_EQ(s.substitute(L".", L"::"), 2u);
    EXPECT_EQ(s, L"a::b::c");
    EXPECT_EQ(s.substitute(L"::", L""), 2u);
    EXPECT_EQ(s, L"abc");
    EXPECT_EQ(s.substitute(L"", L"x"), 0u);
    WString overlapping(L"aaaa");
    EXPECT_EQ(overlapping.substitute(L"aa", L"a"), 2u);
    EXPECT_EQ(overlapping, L"aa");
}

TEST(LightweightString, JoinPutsTheSeparatorBetweenParts) {
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
        switch (pick(7)) {
        case 0:
            s.push_back(c);
            model.push_back(c);
            break;
        case 1: {
            unsigned at = pick(unsigned(model.size()) + 1);
            std::wstring text(pick(4) + 1, c);
            s.insert(at, WString(text.c_str()));
            model.insert(at, text);
            break;
        }
        case 2: {
            unsigned at = pick(unsigned(model.size()) + 1), n = pick(5);
            s.erase(at, n);
            if (at < model.size())
                model.erase(at, n);
            break;
        }
        case 3: {
            unsigned n = pick(unsigned(model.size()) + 4);
            s.resize(n, L'_');
            model.resize(n, L'_');
            break;
        }
        case 4:
            s.substitute(c, L'z');
            std::replace(model.begin(), model.end(), c, L'z');
            break;
        case 5:
            snapshots.emplace_back(s, model);
            break;
        default:
            s.append(s.c_str(), pick(s.size() + 1));
            model.append(model.substr(0, s.size() - model.size()));
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
