#include "glib/Font.h"

#include "support/OnThreads.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <string>
#include <vector>

namespace {

using Text = LightweightString<wchar_t>;

Qor::Ptr<iFont> defaultFont(unsigned short size = 16, unsigned style = 0) {
    return Glib::loadFont(Glib::FontDesc("DejaVu Sans", size, style));
}

int caretX(Qor::Ptr<iFont> const& font, Text const& text, int index) {
    return font->seek(text, iFont::AtIndex, index).x;
}

TEST(FontLoading, SameDescriptionGivesTheSameFontAndEveryFieldCounts) {
    Glib::FontDesc desc("DejaVu Sans", 18, Glib::FontDesc::Bold);
    Qor::Ptr<iFont> first = Glib::loadFont(desc);
    ASSERT_TRUE(first);
    EXPECT_EQ(first.get(), Glib::loadFont("DejaVu Sans", 18, Glib::FontDesc::Bold).get());
    EXPECT_NE(first.get(), Glib::loadFont("DejaVu Sans", 18, 0).get());
    EXPECT_NE(first.get(), Glib::loadFont("DejaVu Sans", 19, Glib::FontDesc::Bold).get());
    EXPECT_NE(first.get(), Glib::loadFont("DejaVu Serif", 18, Glib::FontDesc::Bold).get());
}

TEST(FontLoading, EmptyDescriptionMeansTheDefaultsAndAnUnknownFamilyTheDefaultFace) {
    Qor::Ptr<iFont> font = Glib::loadFont(Glib::FontDesc("", 0, 0));
    EXPECT_EQ(font.get(), Glib::loadFont(Glib::getDefaultFont()).get());
    EXPECT_EQ(font->description().name, "DejaVu Sans");
    // Tests run headless, at scale 1.
    EXPECT_EQ(font->description().size, 16);

    Text const sample(L"Quick brown fox, 0123");
    Qor::Ptr<iFont> unknown = Glib::loadFont("No Such Family At All", 20, 0);
    EXPECT_EQ(unknown->measure(sample), defaultFont(20)->measure(sample));
    EXPECT_EQ(unknown->description().name, "No Such Family At All");
}

TEST(FontMetrics, SizeIsAscentPlusDescent) {
    for (unsigned short size : {7, 11, 16, 17, 31, 64}) {
        for (unsigned style : {0u, 1u, 2u}) {
            Qor::Ptr<iFont> font = defaultFont(size, style);
            EXPECT_LE(std::abs(font->height() - size), 1) << size << " style " << style;
            EXPECT_EQ(font->height(), font->ascent() + font->descent());
            EXPECT_GT(font->ascent(), font->descent());
            EXPECT_GT(font->descent(), 0);
        }
    }
}

TEST(FontMeasure, CachedWidthsBelongToTheirFontAndStayRightPastTheCacheBound) {
    Text const sample(L"Same words, two fonts");
    Qor::Ptr<iFont> small = defaultFont(12);
    int smallWidth = small->measure(sample).x;
    int largeWidth = defaultFont(24)->measure(sample).x;
    EXPECT_GT(largeWidth, smallWidth * 3 / 2);
    EXPECT_GT(defaultFont(24, Glib::FontDesc::Bold)->measure(sample).x, largeWidth);
    for (int i = 0; i < 10000; ++i)
        small->measure(Text(std::to_wstring(i).c_str()));
    EXPECT_EQ(small->measure(sample).x, smallWidth);
    EXPECT_EQ(small->measure(Text()), XY<int>(0, small->height()));
}

TEST(FontMeasure, ThreadsShareFontsAndAgreeOnWidths) {
    std::vector<Text> samples;
    std::vector<int> expected;
    Qor::Ptr<iFont> reference = defaultFont(15);
    for (int i = 0; i < 200; ++i) {
        samples.push_back(Text((L"Row " + std::to_wstring(i * 7919)).c_str()));
        expected.push_back(reference->measure(samples.back()).x);
    }
    std::vector<int> mismatches(4, 0);
    onThreads(4, [&](int t) {
        for (int round = 0; round < 3; ++round) {
            Qor::Ptr<iFont> font = Glib::loadFont("DejaVu Sans", 15, 0);
            Qor::Ptr<iFont> other = Glib::loadFont("DejaVu Sans", 21 + t, 0);
            for (std::size_t i = 0; i < samples.size(); ++i) {
                other->measure(samples[i]);
                mismatches[t] +=
                    font.get() != reference.get() || font->measure(samples[i]).x != expected[i];
            }
        }
    });
    EXPECT_EQ(mismatches, std::vector<int>(4, 0));
}

TEST(FontSeek, LandsOnTheExpectedCharacterAtItsPixel) {
    struct Case {
        wchar_t const* text;
        iFont::eCharSeekMethod method;
        int from;
        int expected;
    } const cases[] = {
        {L"abc", iFont::PreviousChar, 2, 1},
        {L"abc", iFont::PreviousChar, -3, 0},
        {L"abc", iFont::NextChar, 99, 3},
        {L"abc", iFont::Start, 2, 0},
        {L"abc", iFont::End, 0, 3},
        {L"abc", iFont::AtIndex, 99, 3},
        {L"", iFont::NextWord, 0, 0},
        // Words start at 0, 9, 13 and 18.
        {L"foo_bar, baz.qux  end", iFont::NextWord, 3, 9},
        {L"foo_bar, baz.qux  end", iFont::NextWord, 13, 18},
        {L"foo_bar, baz.qux  end", iFont::NextWord, 18, 21},
        {L"foo_bar, baz.qux  end", iFont::PreviousWord, 17, 13},
        {L"foo_bar, baz.qux  end", iFont::PreviousWord, 9, 0},
        {L"trail..", iFont::NextWord, 0, 7},
        {L"élan vital", iFont::NextWord, 0, 5},
        {L"a😀b c", iFont::NextWord, 0, 2},
    };
    Qor::Ptr<iFont> font = defaultFont(16);
    for (auto const& c : cases) {
        Text const text(c.text);
        iFont::CharacterLocation location = font->seek(text, c.method, c.from);
        EXPECT_EQ(location.index, c.expected) << "method " << c.method << " from " << c.from;
        EXPECT_EQ(location.x, caretX(font, text, c.expected));
    }
}

TEST(FontCarets, EdgesRunFromZeroToTheWidthCountingCharactersNotBytes) {
    Qor::Ptr<iFont> font = defaultFont(16);
    for (Text const& text : {Text(L"plain ascii"), Text(L"a😀b"), Text(L"😀😀😀x")}) {
        int length = static_cast<int>(text.size());
        EXPECT_EQ(caretX(font, text, 0), 0);
        EXPECT_EQ(caretX(font, text, length), font->measure(text).x);
        for (int i = 1; i <= length; ++i) {
            EXPECT_GT(caretX(font, text, i), caretX(font, text, i - 1)) << i;
            EXPECT_EQ(font->locate(text, caretX(font, text, i)).index, i);
        }
    }
    EXPECT_EQ(caretX(font, L"a😀b", 2), font->measure(L"a😀").x);
}

TEST(FontCarets, RightToLeftCaretsRunLeftward) {
    Qor::Ptr<iFont> font = defaultFont(16);
    Text const text(L"\u05E9\u05DC\u05D5\u05DD");
    int width = font->measure(text).x;
    ASSERT_GT(width, 0);
    EXPECT_EQ(caretX(font, text, 0), width);
    EXPECT_EQ(caretX(font, text, 4), 0);
    for (int i = 1; i <= 4; ++i)
        EXPECT_LT(caretX(font, text, i), caretX(font, text, i - 1)) << i;
    EXPECT_EQ(font->locate(text, width - 1).index, 0);
    EXPECT_EQ(font->locate(text, 0).index, 4);
}

TEST(FontLocate, PicksTheNearerEdgeAndClamps) {
    Qor::Ptr<iFont> font = defaultFont(20);
    Text const text(L"WMW");
    int left = caretX(font, text, 1);
    int right = caretX(font, text, 2);
    ASSERT_GT(right - left, 6);
    EXPECT_EQ(font->locate(text, left + 2), (iFont::CharacterLocation{1, left}));
    EXPECT_EQ(font->locate(text, right - 2).index, 2);
    EXPECT_EQ(font->locate(text, -50), (iFont::CharacterLocation{0, 0}));
    int width = font->measure(text).x;
    EXPECT_EQ(font->locate(text, width + 500), (iFont::CharacterLocation{3, width}));
    EXPECT_EQ(font->locate(Text(), 30), (iFont::CharacterLocation{0, 0}));
}

} // namespace

// Plain text is shaped without a paragraph layout; an underlined font always takes the layout, and
// an underline moves no glyph, so the two must agree on every advance and caret.
TEST(FontShaping, PlainTextShapedDirectlyMatchesTheFullLayout) {
    std::vector<std::wstring> const samples = {L"B1234",         L"AVAVA To Wa", L"office fluffy",
                                               L"Hello, World!", L"(x+y)*z/2~",  L"  spaced  ",
                                               L"ij.:;'\"`^"};
    for (unsigned short size : {9, 16, 23})
        for (unsigned style :
             {0u, unsigned(Glib::FontDesc::Bold), unsigned(Glib::FontDesc::Italic)}) {
            Qor::Ptr<iFont> plain = defaultFont(size, style);
            Qor::Ptr<iFont> laidOut = defaultFont(size, style | Glib::FontDesc::Underline);
            for (std::wstring const& sample : samples) {
                Text text(sample.c_str());
                SCOPED_TRACE(testing::Message()
                             << "size " << size << " style " << style << " \""
                             << std::string(sample.begin(), sample.end()) << "\"");
                EXPECT_EQ(plain->measure(text).x, laidOut->measure(text).x);
                for (int i = 0; i <= int(sample.size()); ++i)
                    EXPECT_EQ(caretX(plain, text, i), caretX(laidOut, text, i)) << "caret " << i;
            }
        }
}
