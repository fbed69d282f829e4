#include "glib/CanvasRenderer.h"

#include "glib/DrawTestWindow.h"

#include <gtest/gtest.h>

#include <functional>

namespace {

using DrawTest::TestWindow;
using Text = LightweightString<wchar_t>;

NormalisedRGB const kWhite(1, 1, 1);
NormalisedRGB const kBlack(0, 0, 0);

bool isInk(NormalisedRGB const& p) {
    return p.r + p.g + p.b < 2.85f;
}

bool isDark(NormalisedRGB const& p) {
    return p.r + p.g + p.b < 1.5f;
}

Glib::TextDescription label(Text const& text, unsigned short size, XY<int> origin,
                            NormalisedRGB const& colour = kBlack) {
    Glib::TextDescription d;
    d.text = text;
    d.font = Glib::loadFont(Glib::FontDesc("DejaVu Sans", size, 0));
    d.colour = colour;
    d.origin = origin;
    return d;
}

// A window painted white, to draw text on.
class TextWindow : public TestWindow {
public:
    explicit TextWindow(XY<int> const& size = XY<int>(300, 80)) : TestWindow(size) {
        DrawTest::fill(renderer(), Box(0, 0, size.x, size.y), kWhite);
        surface().takeDamage();
    }

    // The box holding every pixel that matches, and how many match.
    Box pixelsWhere(std::function<bool(NormalisedRGB const&)> const& match,
                    int* count = nullptr) const {
        Box found;
        int n = 0;
        XY<int> size = surface().size();
        for (int y = 0; y < size.y; ++y)
            for (int x = 0; x < size.x; ++x)
                if (match(at(x, y))) {
                    found = found.unite(Box(x, y, x + 1, y + 1));
                    ++n;
                }
        if (count != nullptr)
            *count = n;
        return found;
    }

    int inkInRow(int y) const {
        int n = 0;
        for (int x = 0; x < surface().size().x; ++x)
            n += isDark(at(x, y)) ? 1 : 0;
        return n;
    }
};

TEST(TextDrawing, DarkTextInksOnlyInsideItsBounds) {
    TextWindow window;
    Glib::TextDescription text = label(L"Hello, Wörld_gy", 24, XY<int>(20, 30));
    window.renderer().renderPrimitive(text);
    Box bounds = text.calcBounds(text.origin);
    int count = 0;
    Box ink = window.pixelsWhere(isInk, &count);
    EXPECT_GT(count, 100);
    EXPECT_TRUE(bounds.contains(ink));
    EXPECT_LE(bounds.x1, ink.x1);
    EXPECT_GE(ink.x2, bounds.x2 - 3);
    Box line(20, 30 - text.font->descent(), 20 + text.font->measure(text.text).x,
             30 + text.font->ascent());
    EXPECT_TRUE(bounds.contains(line));
    EXPECT_LE(bounds.height(), line.height() + 2);
}

TEST(TextDrawing, GlyphsStandUprightOnTheBaseline) {
    TextWindow window;
    Glib::TextDescription text = label(L"T", 40, XY<int>(20, 20));
    window.renderer().renderPrimitive(text);
    Box ink = window.pixelsWhere(isDark);
    ASSERT_FALSE(ink.isEmpty());
    int top = ink.y2 - 1;
    int bottom = ink.y1;
    EXPECT_LE(std::abs(bottom - text.origin.y), 1);
    EXPECT_GT(top, text.origin.y + 15);
    // The bar of the T is at the top, y up.
    EXPECT_GT(window.inkInRow(top - 1), 3 * window.inkInRow(bottom + 1));
}

TEST(TextDrawing, AlignmentPlacesTheTextAroundTheOrigin) {
    using Alignment = Glib::TextDescription::Alignment;
    int const x = 150;
    for (Alignment alignment : {Glib::TextDescription::Left, Glib::TextDescription::Right,
                                Glib::TextDescription::Centre}) {
        TextWindow window;
        Glib::TextDescription text = label(L"Hello", 20, XY<int>(x, 30));
        text.alignment = alignment;
        window.renderer().renderPrimitive(text);
        Box ink = window.pixelsWhere(isInk);
        EXPECT_TRUE(text.calcBounds(text.origin).contains(ink)) << alignment;
        switch (alignment) {
        case Glib::TextDescription::Left:
            EXPECT_GE(ink.x1, x);
            EXPECT_LE(ink.x1, x + 3);
            break;
        case Glib::TextDescription::Right:
            EXPECT_LE(ink.x2, x);
            EXPECT_GE(ink.x2, x - 3);
            break;
        case Glib::TextDescription::Centre:
            EXPECT_LE(std::abs((ink.x1 + ink.x2) / 2 - x), 2);
            break;
        }
    }
}

TEST(TextDrawing, TextOnAChildCanvasIsPlacedInItsCoordinates) {
    TextWindow window;
    auto child = TestWindow::child(window.top(), Box(100, 10, 250, 70));
    Glib::TextDescription text = label(L"Inside", 16, XY<int>(5, 20));
    child->renderer().renderPrimitive(text);
    Box ink = window.pixelsWhere(isInk);
    EXPECT_TRUE(text.calcBounds(XY<int>(105, 30)).contains(ink));
    EXPECT_LE(ink.x1, 108);
}

TEST(TextDrawing, SelectionHasItsBackgroundBehindTheSelectedCharacters) {
    NormalisedRGB const blue(0, 0, 1);
    for (int style : {Glib::TextStyles::Normal, Glib::TextStyles::Plain}) {
        TextWindow window;
        Glib::TextDescription text = label(L"abcdef", 24, XY<int>(10, 20));
        text.style = style;
        text.selStart = 2;
        text.selEnd = 4;
        text.selBackground = blue;
        text.selForeground = kWhite;
        window.renderer().renderPrimitive(text);
        int from = 10 + text.font->seek(text.text, iFont::AtIndex, 2).x;
        int to = 10 + text.font->seek(text.text, iFont::AtIndex, 4).x;
        int topRow = text.origin.y + text.font->ascent() - 1;
        if (style == Glib::TextStyles::Plain) {
            EXPECT_TRUE(DrawTest::sameColour(window.at((from + to) / 2, topRow), kWhite));
            continue;
        }
        EXPECT_TRUE(DrawTest::sameColour(window.at((from + to) / 2, topRow), blue));
        EXPECT_TRUE(DrawTest::sameColour(window.at(from - 2, topRow), kWhite));
        EXPECT_TRUE(DrawTest::sameColour(window.at(to + 1, topRow), kWhite));
        // Inside the selection only blue and the white glyphs show; black ink stays outside it.
        Box selection(from, text.origin.y - text.font->descent(), to, topRow + 1);
        int lightGlyphPixels = 0;
        for (int y = selection.y1; y < selection.y2; ++y)
            for (int x = selection.x1; x < selection.x2; ++x) {
                NormalisedRGB p = window.at(x, y);
                EXPECT_GT(p.b, 0.95f) << x << "," << y;
                lightGlyphPixels += p.r > 0.5f ? 1 : 0;
            }
        EXPECT_GT(lightGlyphPixels, 20);
        EXPECT_LT(window.pixelsWhere(isDark).x1, from);
    }
}

TEST(TextDrawing, ContrastStyleRingsTheGlyphsWithAHalo) {
    for (int style : {Glib::TextStyles::Normal, Glib::TextStyles::Contrast}) {
        TextWindow window;
        Glib::TextDescription text = label(L"Pale", 20, XY<int>(30, 30), kWhite);
        text.style = style;
        window.renderer().renderPrimitive(text);
        int count = 0;
        Box dark = window.pixelsWhere(isDark, &count);
        if (style == Glib::TextStyles::Normal) {
            EXPECT_EQ(count, 0);
            continue;
        }
        EXPECT_GT(count, 50);
        EXPECT_TRUE(text.calcBounds(text.origin).contains(dark));
    }
}

TEST(TextDrawing, UnderlinedTextInksBelowTheBaseline) {
    for (unsigned style : {0u, unsigned(Glib::FontDesc::Underline)}) {
        TextWindow window;
        Glib::TextDescription text = label(L"TTT", 24, XY<int>(20, 30));
        text.font = Glib::loadFont(Glib::FontDesc("DejaVu Sans", 24, style));
        window.renderer().renderPrimitive(text);
        Box ink = window.pixelsWhere(isDark);
        EXPECT_EQ(ink.y1 < text.origin.y, style != 0) << style;
        EXPECT_TRUE(text.calcBounds(text.origin).contains(window.pixelsWhere(isInk))) << style;
    }
}

TEST(TextDrawing, DamageCoversTheText) {
    TextWindow window;
    Glib::TextDescription text = label(L"Damage me", 18, XY<int>(80, 25));
    text.alignment = Glib::TextDescription::Centre;
    window.renderer().renderPrimitive(text);
    Box damaged;
    for (Box const& b : window.surface().takeDamage())
        damaged = damaged.unite(b);
    EXPECT_TRUE(damaged.contains(text.calcBounds(text.origin)));
    EXPECT_TRUE(damaged.contains(window.pixelsWhere(isInk)));
}

TEST(TextDrawing, CanvasFontsComeFromTheSharedCache) {
    TextWindow window;
    Glib::FontDesc const desc("DejaVu Sans", 17, Glib::FontDesc::Italic);
    EXPECT_EQ(window.top()->createFont(desc).get(), Glib::loadFont(desc).get());
}

TEST(TextDrawing, UtilityFontDrawsTheSymbolForItsCode) {
    unsigned short size = 24;
    TextWindow coded(XY<int>(60, 40));
    TextWindow plain(XY<int>(60, 40));
    Glib::TextDescription tick = label(L"M", size, XY<int>(10, 10));
    tick.font = Glib::loadFont(getQorUtilityFontName(), size, 0);
    coded.renderer().renderPrimitive(tick);
    plain.renderer().renderPrimitive(label(L"✓", size, XY<int>(10, 10)));
    int differing = 0;
    for (int y = 0; y < 40; ++y)
        for (int x = 0; x < 60; ++x)
            differing += DrawTest::sameColour(coded.at(x, y), plain.at(x, y)) ? 0 : 1;
    EXPECT_EQ(differing, 0);
    int count = 0;
    coded.pixelsWhere(isDark, &count);
    EXPECT_GT(count, 10);
}

} // namespace
