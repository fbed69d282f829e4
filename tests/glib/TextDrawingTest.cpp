#include "glib/CanvasRenderer.h"

#include "glib/DrawTestWindow.h"

#include <gtest/gtest.h>

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

bool isLight(NormalisedRGB const& p) {
    return p.r > 0.5f;
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
};

TEST(TextDrawing, TextInksOnlyInsideItsBoundsWhichTheDamageCovers) {
    TextWindow window;
    Glib::TextDescription text = label(L"Hello, Wörld_gy", 24, XY<int>(80, 30));
    text.alignment = Glib::TextDescription::Centre;
    window.renderer().renderPrimitive(text);
    Box bounds = text.calcBounds(text.origin);
    int count = 0;
    Box ink = window.pixelsWhere(isInk, &count);
    EXPECT_GT(count, 100);
    EXPECT_TRUE(bounds.contains(ink));
    EXPECT_GE(ink.x2, bounds.x2 - 3);
    EXPECT_GE(bounds.height(), text.font->height());
    EXPECT_LE(bounds.height(), text.font->height() + 2);
    Box damaged;
    for (Box const& b : window.surface().takeDamage())
        damaged = damaged.unite(b);
    EXPECT_TRUE(damaged.contains(bounds));
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
    EXPECT_GT(window.countInRow(isDark, top - 1), 3 * window.countInRow(isDark, bottom + 1));
}

TEST(TextDrawing, AlignmentPlacesTheTextAroundTheOrigin) {
    int const x = 150;
    struct Case {
        Glib::TextDescription::Alignment alignment;
        // How far the ink's edge or middle is from the origin, and the range allowed.
        int (*offset)(Box const& ink);
        int least, most;
    } const cases[] = {
        {Glib::TextDescription::Left, [](Box const& ink) { return ink.x1 - x; }, 0, 3},
        {Glib::TextDescription::Right, [](Box const& ink) { return x - ink.x2; }, 0, 3},
        {Glib::TextDescription::Centre, [](Box const& ink) { return (ink.x1 + ink.x2) / 2 - x; },
         -2, 2},
    };
    for (Case const& c : cases) {
        TextWindow window;
        Glib::TextDescription text = label(L"Hello", 20, XY<int>(x, 30));
        text.alignment = c.alignment;
        window.renderer().renderPrimitive(text);
        Box ink = window.pixelsWhere(isInk);
        EXPECT_TRUE(text.calcBounds(text.origin).contains(ink)) << c.alignment;
        EXPECT_GE(c.offset(ink), c.least) << c.alignment;
        EXPECT_LE(c.offset(ink), c.most) << c.alignment;
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
        int blueOrWhite = 0, white = 0;
        window.pixelsWhere([](NormalisedRGB const& p) { return p.b > 0.95f; }, &blueOrWhite,
                           selection);
        window.pixelsWhere(isLight, &white, selection);
        EXPECT_EQ(blueOrWhite, selection.width() * selection.height());
        EXPECT_GT(white, 20);
        EXPECT_LT(window.pixelsWhere(isDark).x1, from);
    }
}

TEST(TextDrawing, ContrastStyleRingsPaleGlyphsWithAHaloAndUnderlineInksBelowTheBaseline) {
    TextWindow plain, contrast, underlined;
    Glib::TextDescription pale = label(L"Pale", 20, XY<int>(30, 30), kWhite);
    plain.renderer().renderPrimitive(pale);
    pale.style = Glib::TextStyles::Contrast;
    contrast.renderer().renderPrimitive(pale);
    int count = 0;
    EXPECT_TRUE(plain.pixelsWhere(isDark).isEmpty());
    EXPECT_TRUE(pale.calcBounds(pale.origin).contains(contrast.pixelsWhere(isDark, &count)));
    EXPECT_GT(count, 50);

    Glib::TextDescription text = label(L"TTT", 24, XY<int>(20, 30));
    plain.renderer().renderPrimitive(text);
    EXPECT_GE(plain.pixelsWhere(isDark).y1, text.origin.y);
    text.font = Glib::loadFont(Glib::FontDesc("DejaVu Sans", 24, Glib::FontDesc::Underline));
    underlined.renderer().renderPrimitive(text);
    EXPECT_LT(underlined.pixelsWhere(isDark).y1, text.origin.y);
    EXPECT_TRUE(text.calcBounds(text.origin).contains(underlined.pixelsWhere(isInk)));
}

} // namespace
