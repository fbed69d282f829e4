#include "glib/Font.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <string>
#include <thread>
#include <vector>

namespace {

using Text = LightweightString<wchar_t>;

Qor::Ptr<iFont> defaultFont(unsigned short size = 16, unsigned style = 0) {
    return Glib::loadFont(Glib::FontDesc("DejaVu Sans", size, style));
}

int caretX(Qor::Ptr<iFont> const& font, Text const& text, int index) {
    return font->seek(text, iFont::AtIndex, index).x;
}

TEST(FontLoading, SameDescriptionGivesTheSameFont) {
    Glib::FontDesc desc("DejaVu Sans", 18, Glib::FontDesc::Bold);
    Qor::Ptr<iFont> first = Glib::loadFont(desc);
    ASSERT_TRUE(first);
    EXPECT_EQ(first.get(), Glib::loadFont(desc).get());
    EXPECT_EQ(first.get(), Glib::loadFont("DejaVu Sans", 18, Glib::FontDesc::Bold).get());
    EXPECT_NE(first.get(), Glib::loadFont("DejaVu Sans", 18, 0).get());
    EXPECT_NE(first.get(), Glib::loadFont("DejaVu Sans", 19, Glib::FontDesc::Bold).get());
}

TEST(FontLoading, EmptyFamilyAndSizeMeanTheDefaults) {
    Qor::Ptr<iFont> font = Glib::loadFont(Glib::FontDesc("", 0, 0));
    EXPECT_EQ(font.get(), Glib::loadFont(Glib::getDefaultFont()).get());
    EXPECT_EQ(font->description().name, Glib::getDefaultFontName());
    EXPECT_EQ(font->description().size, Glib::getDefaultFontSize());
}

TEST(FontLoading, UnknownFamilyFallsBackToTheDefaultFace) {
    Text const sample(L"Quick brown fox, 0123");
    Qor::Ptr<iFont> unknown = Glib::loadFont("No Such Family At All", 20, 0);
    EXPECT_EQ(unknown->measure(sample), defaultFont(20)->measure(sample));
    EXPECT_EQ(unknown->description().name, "No Such Family At All");
}

TEST(FontLoading, DefaultFontIsDejaVuSansAtTheDefaultSize) {
    Glib::FontDesc desc = Glib::getDefaultFont(Glib::FontDesc::Italic);
    EXPECT_EQ(desc.name, "DejaVu Sans");
    EXPECT_EQ(desc.style, unsigned(Glib::FontDesc::Italic));
    EXPECT_EQ(desc.size, Glib::getDefaultFontSize());
    // Tests run headless, at scale 1.
    EXPECT_EQ(Glib::getDefaultFontSize(), 16);
}

TEST(FontLoading, DescriptionsOrderByEveryField) {
    std::vector<Glib::FontDesc> const descs = {
        {"A", 10, 0}, {"B", 10, 0}, {"A", 11, 0}, {"A", 10, 1}, {"", 10, 0}};
    for (auto const& a : descs)
        for (auto const& b : descs) {
            bool equal = a == b;
            EXPECT_EQ(equal, !(a < b) && !(b < a)) << a.name.c_str() << " " << b.name.c_str();
            EXPECT_FALSE(a < b && b < a);
        }
}

TEST(FontMetrics, SizeIsAscentPlusDescent) {
    for (unsigned short size : {7, 9, 11, 12, 13, 16, 17, 20, 24, 31, 40, 64}) {
        for (unsigned style : {0u, 1u, 2u}) {
            Qor::Ptr<iFont> font = defaultFont(size, style);
            EXPECT_LE(std::abs(font->height() - size), 1) << size << " style " << style;
            EXPECT_EQ(font->height(), font->ascent() + font->descent());
            EXPECT_GT(font->ascent(), font->descent());
            EXPECT_GT(font->descent(), 0);
        }
    }
}

TEST(FontMetrics, BoldTextIsWiderThanRegular) {
    Text const sample(L"Bold and regular");
    EXPECT_GT(defaultFont(16, Glib::FontDesc::Bold)->measure(sample).x,
              defaultFont(16)->measure(sample).x);
}

TEST(FontMeasure, LongerTextIsWiderAndHeightIsTheFonts) {
    Qor::Ptr<iFont> font = defaultFont(16);
    EXPECT_EQ(font->measure(Text()), XY<int>(0, font->height()));
    int previous = 0;
    Text text;
    for (wchar_t c : Text(L"Measure me")) {
        text += c;
        XY<int> size = font->measure(text);
        if (c != L' ') {
            EXPECT_GT(size.x, previous) << text.str().size();
        }
        EXPECT_EQ(size.y, font->height());
        previous = size.x;
    }
}

TEST(FontMeasure, CachedWidthsBelongToTheirFont) {
    Text const sample(L"Same words, two fonts");
    Qor::Ptr<iFont> small = defaultFont(12);
    Qor::Ptr<iFont> large = defaultFont(24);
    int smallWidth = small->measure(sample).x;
    int largeWidth = large->measure(sample).x;
    EXPECT_GT(largeWidth, smallWidth * 3 / 2);
    EXPECT_EQ(small->measure(sample).x, smallWidth);
    EXPECT_GT(defaultFont(24, Glib::FontDesc::Bold)->measure(sample).x, largeWidth);
}

TEST(FontMeasure, ManyDistinctStringsStayCorrectPastTheCacheBound) {
    Qor::Ptr<iFont> font = defaultFont(14);
    Text const probe(L"probe string");
    int width = font->measure(probe).x;
    for (int i = 0; i < 10000; ++i)
        font->measure(Text(std::to_wstring(i).c_str()));
    EXPECT_EQ(font->measure(probe).x, width);
}

TEST(FontMeasure, ThreadsShareFontsAndAgreeOnWidths) {
    std::vector<Text> samples;
    for (int i = 0; i < 200; ++i)
        samples.push_back(Text((L"Row " + std::to_wstring(i * 7919) + L" of a table").c_str()));
    Qor::Ptr<iFont> reference = defaultFont(15);
    std::vector<int> expected;
    for (Text const& sample : samples)
        expected.push_back(reference->measure(sample).x);
    std::vector<std::thread> threads;
    std::vector<int> mismatches(4, 0);
    for (int t = 0; t < 4; ++t)
        threads.emplace_back([&, t] {
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
    for (std::thread& thread : threads)
        thread.join();
    EXPECT_EQ(mismatches, std::vector<int>(4, 0));
}

struct SeekCase {
    wchar_t const* text;
    iFont::eCharSeekMethod method;
    int from;
    int expected;
};

std::string seekCaseName(::testing::TestParamInfo<SeekCase> const& info) {
    char const* const methods[] = {"PreviousChar", "NextChar", "NextWord", "PreviousWord",
                                   "Start",        "End",      "AtIndex"};
    return std::string(methods[info.param.method]) + "_" + std::to_string(info.index);
}

class FontSeek : public ::testing::TestWithParam<SeekCase> {};

TEST_P(FontSeek, LandsOnTheExpectedCharacterAtItsPixel) {
    SeekCase const& c = GetParam();
    Qor::Ptr<iFont> font = defaultFont(16);
    Text const text(c.text);
    iFont::CharacterLocation location = font->seek(text, c.method, c.from);
    EXPECT_EQ(location.index, c.expected);
    EXPECT_EQ(location.x, caretX(font, text, c.expected));
}

// "foo_bar, baz.qux  end": words start at 0, 9, 13 and 18.
INSTANTIATE_TEST_SUITE_P(
    Methods, FontSeek,
    ::testing::Values(
        SeekCase{L"abc", iFont::PreviousChar, 2, 1}, SeekCase{L"abc", iFont::PreviousChar, 0, 0},
        SeekCase{L"abc", iFont::NextChar, 1, 2}, SeekCase{L"abc", iFont::NextChar, 3, 3},
        SeekCase{L"abc", iFont::Start, 2, 0}, SeekCase{L"abc", iFont::End, 0, 3},
        SeekCase{L"abc", iFont::AtIndex, 2, 2}, SeekCase{L"abc", iFont::AtIndex, -4, 0},
        SeekCase{L"abc", iFont::AtIndex, 99, 3}, SeekCase{L"abc", iFont::NextChar, 99, 3},
        SeekCase{L"abc", iFont::PreviousChar, -3, 0}, SeekCase{L"", iFont::NextWord, 0, 0},
        SeekCase{L"", iFont::End, 0, 0}, SeekCase{L"foo_bar, baz.qux  end", iFont::NextWord, 0, 9},
        SeekCase{L"foo_bar, baz.qux  end", iFont::NextWord, 3, 9},
        SeekCase{L"foo_bar, baz.qux  end", iFont::NextWord, 7, 9},
        SeekCase{L"foo_bar, baz.qux  end", iFont::NextWord, 9, 13},
        SeekCase{L"foo_bar, baz.qux  end", iFont::NextWord, 13, 18},
        SeekCase{L"foo_bar, baz.qux  end", iFont::NextWord, 18, 21},
        SeekCase{L"foo_bar, baz.qux  end", iFont::NextWord, 21, 21},
        SeekCase{L"foo_bar, baz.qux  end", iFont::PreviousWord, 21, 18},
        SeekCase{L"foo_bar, baz.qux  end", iFont::PreviousWord, 20, 18},
        SeekCase{L"foo_bar, baz.qux  end", iFont::PreviousWord, 18, 13},
        SeekCase{L"foo_bar, baz.qux  end", iFont::PreviousWord, 17, 13},
        SeekCase{L"foo_bar, baz.qux  end", iFont::PreviousWord, 9, 0},
        SeekCase{L"foo_bar, baz.qux  end", iFont::PreviousWord, 5, 0},
        SeekCase{L"foo_bar, baz.qux  end", iFont::PreviousWord, 0, 0},
        SeekCase{L"  lead", iFont::PreviousWord, 2, 0}, SeekCase{L"trail..", iFont::NextWord, 0, 7},
        SeekCase{L"élan vital", iFont::NextWord, 0, 5}, SeekCase{L"a😀b c", iFont::NextWord, 0, 2},
        SeekCase{L"a😀b c", iFont::NextChar, 1, 2}),
    seekCaseName);

TEST(FontCarets, EdgesRunFromZeroToTheWidth) {
    Qor::Ptr<iFont> font = defaultFont(16);
    for (Text const& text : {Text(L"plain ascii"), Text(L"ünïcödé"), Text(L"a😀b"), Text(L"😀😀😀x")}) {
        int length = static_cast<int>(text.size());
        EXPECT_EQ(caretX(font, text, 0), 0);
        EXPECT_EQ(caretX(font, text, length), font->measure(text).x);
        for (int i = 1; i <= length; ++i)
            EXPECT_GT(caretX(font, text, i), caretX(font, text, i - 1)) << i;
    }
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

TEST(FontCarets, WideIndexesCountCharactersNotBytes) {
    Qor::Ptr<iFont> font = defaultFont(16);
    Text const text(L"a😀b");
    ASSERT_EQ(text.size(), 3u);
    EXPECT_EQ(caretX(font, text, 1), font->measure(L"a").x);
    EXPECT_EQ(caretX(font, text, 2), font->measure(L"a😀").x);
    EXPECT_EQ(font->seek(text, iFont::End, 0).index, 3);
    for (int i = 0; i <= 3; ++i)
        EXPECT_EQ(font->locate(text, caretX(font, text, i)).index, i);
}

TEST(FontLocate, PicksTheNearerEdgeAndClamps) {
    Qor::Ptr<iFont> font = defaultFont(20);
    Text const text(L"WMW");
    int left = caretX(font, text, 1);
    int right = caretX(font, text, 2);
    ASSERT_GT(right - left, 6);
    EXPECT_EQ(font->locate(text, left + 2).index, 1);
    EXPECT_EQ(font->locate(text, right - 2).index, 2);
    EXPECT_EQ(font->locate(text, left + 2).x, left);
    EXPECT_EQ(font->locate(text, -50), (iFont::CharacterLocation{0, 0}));
    int width = font->measure(text).x;
    EXPECT_EQ(font->locate(text, width + 500), (iFont::CharacterLocation{3, width}));
    EXPECT_EQ(font->locate(Text(), 30), (iFont::CharacterLocation{0, 0}));
}

} // namespace
