#include "qor/UTF8.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <random>
#include <string>

TEST(UTF8, RoundTripsEveryPlaneAndScriptAndNullIsEmpty) {
    LightweightString<wchar_t> text(L"Aé€𝄞 ünïcødé — 日本語 \u0001");
    LightweightString<char> bytes = toUTF8(text);
    EXPECT_EQ(bytes, "Aé€𝄞 ünïcødé — 日本語 \x01");
    EXPECT_EQ(fromUTF8(bytes), text);
    EXPECT_TRUE(fromUTF8(static_cast<char const*>(nullptr)).empty());
    EXPECT_TRUE(toUTF8(static_cast<wchar_t const*>(nullptr)).empty());
}

struct BadInput {
    char const* name;
    std::string bytes;
    std::wstring expected;
};

TEST(UTF8, InvalidBytesBecomeReplacementCharacters) {
    BadInput const cases[] = {
        {"stray continuation", "a\x80z", L"a\uFFFDz"},
        {"truncated at end", "ab\xE2\x82", L"ab\uFFFD\uFFFD"},
        {"truncated before ASCII", "\xE2\x82x", L"\uFFFD\uFFFDx"},
        {"overlong slash", "\xC0\xAF", L"\uFFFD\uFFFD"},
        {"overlong three-byte", "\xE0\x80\xAF", L"\uFFFD\uFFFD\uFFFD"},
        {"encoded surrogate", "\xED\xA0\x80", L"\uFFFD\uFFFD\uFFFD"},
        {"past U+10FFFF", "\xF4\x90\x80\x80", L"\uFFFD\uFFFD\uFFFD\uFFFD"},
        {"invalid lead", "\xFF\xFE", L"\uFFFD\uFFFD"},
        {"valid after invalid", "\xC3\xC3\xA9", L"\uFFFD\u00E9"},
    };
    for (auto const& c : cases) {
        LightweightString<wchar_t> decoded = fromUTF8(c.bytes.data(), unsigned(c.bytes.size()));
        EXPECT_EQ(decoded.str(), c.expected) << c.name;
    }
}

TEST(UTF8, WideCharactersThatAreNotScalarValuesEncodeAsReplacement) {
    wchar_t const text[] = {L'a', wchar_t(0xD800), wchar_t(0x110000), L'b', 0};
    EXPECT_EQ(toUTF8(text), "a\xEF\xBF\xBD\xEF\xBF\xBD"
                            "b");
}

TEST(UTF8, RandomBytesNeverFailAndReencodeToValidText) {
    unsigned seed = std::random_device()();
    std::printf("UTF8 random bytes: seed %u\n", seed);
    std::mt19937 rng(seed);
    for (int round = 0; round < 500; ++round) {
        std::string bytes(rng() % 40, '\0');
        for (char& b : bytes)
            b = char(rng() % 256);
        LightweightString<wchar_t> decoded = fromUTF8(bytes.data(), unsigned(bytes.size()));
        LightweightString<char> clean = toUTF8(decoded);
        // Valid output decodes back to exactly the same characters.
        ASSERT_EQ(fromUTF8(clean), decoded) << "seed " << seed;
    }
}
