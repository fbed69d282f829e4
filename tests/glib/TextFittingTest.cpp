#include "glib/Font.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <cwctype>

namespace {

using Text = LightweightString<wchar_t>;

Qor::Ptr<iFont> font16() {
    return Glib::loadFont(Glib::FontDesc("DejaVu Sans", 16, 0));
}

int widthOf(Text const& text) {
    return font16()->measure(text).x;
}

TEST(FitTextToWidth, CutAtTheEndFitsEndsWithTheMarkAndKeepsAllThatFits) {
    Text const text(L"A rather long caption that will not fit");
    for (int width : {20, 61, 230}) {
        Text fitted = Glib::fitTextToWidth(font16(), text, width);
        EXPECT_LE(widthOf(fitted), width) << width;
        ASSERT_TRUE(fitted.endsWith(L"..")) << width;
        unsigned kept = fitted.size() - 2;
        EXPECT_EQ(fitted.substr(0, kept), text.substr(0, kept));
        while (std::iswspace(static_cast<wint_t>(text[kept])))
            ++kept;
        EXPECT_GT(widthOf(text.substr(0, kept + 1) + L".."), width) << width;
    }
}

TEST(FitTextToWidth, CutInTheMiddleKeepsBothEnds) {
    Text const text(L"/home/someone/projects/toolkit/base/glib/Font.cpp");
    for (int width : {30, 150}) {
        Text fitted = Glib::fitTextToWidth(font16(), text, width, Glib::ShortenMiddle);
        EXPECT_LE(widthOf(fitted), width) << width;
        unsigned mark = fitted.find(L"..");
        ASSERT_NE(mark, Text::npos) << width;
        unsigned tail = fitted.size() - mark - 2;
        EXPECT_EQ(fitted.substr(0, mark), text.substr(0, mark));
        EXPECT_EQ(fitted.substr(mark + 2), text.substr(text.size() - tail));
        EXPECT_LE(tail, mark);
        EXPECT_LE(mark - tail, 1u);
        EXPECT_GT(mark, 0u) << width;
    }
}

TEST(FitTextToWidth, TextThatFitsComesBackWholeAndWithoutRoomForTheMarkTheResultIsEmpty) {
    for (auto method : {Glib::ShortenEnd, Glib::ShortenMiddle}) {
        EXPECT_EQ(Glib::fitTextToWidth(font16(), L"Short", widthOf(L"Short"), method), L"Short");
        EXPECT_EQ(Glib::fitTextToWidth(font16(), Text(), 0, method), Text());
    }
    Text const text(L"Anything long enough");
    int markWidth = widthOf(L"..");
    EXPECT_EQ(Glib::fitTextToWidth(font16(), text, markWidth - 1), Text());
    EXPECT_EQ(Glib::fitTextToWidth(font16(), text, markWidth), Text(L".."));
    EXPECT_EQ(Glib::fitTextToWidth(font16(), text, -10, Glib::ShortenMiddle), Text());
}

TEST(ClipStringToFit, KeepsTheLongestStartThatFitsOrTheWholeWordsOfIt) {
    Text const text(L"Hello wonderful world");
    for (int width : {0, 30, 120}) {
        Text clipped = clipStringToFit(text, width, false, font16());
        EXPECT_LE(widthOf(clipped), width) << width;
        EXPECT_EQ(clipped, text.substr(0, clipped.size()));
        EXPECT_GT(widthOf(text.substr(0, clipped.size() + 1)), width) << width;
    }
    EXPECT_EQ(clipStringToFit(text, widthOf(text), false, font16()), text);
    EXPECT_EQ(clipStringToFit(text, widthOf(L"Hello wonder"), true, font16()), Text(L"Hello"));
    // A single word too long to fit is cut all the same.
    Text const oneWord(L"Supercalifragilistic");
    Text cut = clipStringToFit(oneWord, widthOf(oneWord) / 2, true, font16());
    EXPECT_FALSE(cut.empty());
    EXPECT_EQ(cut, oneWord.substr(0, cut.size()));
}

TEST(FontYOffset, CentresOneLineInTheBox) {
    for (unsigned short size : {10, 23}) {
        Qor::Ptr<iFont> font = Glib::loadFont(Glib::FontDesc("DejaVu Sans", size, 0));
        for (int height = 4; height <= 60; height += 3) {
            int baseline = getFontYOffset(height, font);
            int topGap = height - (baseline + font->ascent());
            int bottomGap = baseline - font->descent();
            EXPECT_LE(std::abs(topGap - bottomGap), 1) << size << " in " << height;
        }
    }
    EXPECT_EQ(getFontYOffset(30, nullptr),
              getFontYOffset(30, Glib::loadFont(Glib::getDefaultFont())));
}

TEST(UtilityFont, MeasuresTheSymbolsItsCodesStandFor) {
    unsigned short size = getQorUtilityFontSize(1.5f);
    EXPECT_EQ(size, 24);
    Qor::Ptr<iFont> utility = Glib::loadFont(getQorUtilityFontName(), size, 0);
    Qor::Ptr<iFont> plain = Glib::loadFont("DejaVu Sans", size, 0);
    EXPECT_EQ(utility->measure(L"HI><Mmn"), plain->measure(L"▼▲▶◀✓★☆"));
    EXPECT_NE(utility->measure(L"HIM").x, plain->measure(L"HIM").x);
    EXPECT_EQ(utility->measure(L"abc"), plain->measure(L"abc"));
}

} // namespace
