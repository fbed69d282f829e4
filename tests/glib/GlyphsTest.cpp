#include "glib/Glyphs.h"

#include "glib/DrawTestWindow.h"

#include <gtest/gtest.h>

#include <cstdlib>

namespace {

using DrawTest::TestWindow;

// A transparent window: every pixel the glyph touches has some alpha.
class GlyphWindow : public TestWindow {
public:
    Box ink() const { return paintedBounds(); }

    int inkInRow(int y) const {
        int n = 0;
        for (int x = 0; x < surface().size().x; ++x)
            n += at(x, y).a > 0 ? 1 : 0;
        return n;
    }

    // The most opaque pixel, where the glyph's colour shows unmixed.
    NormalisedRGB solidest() const {
        NormalisedRGB best = DrawTest::kNone;
        for (int y = 0; y < surface().size().y; ++y)
            for (int x = 0; x < surface().size().x; ++x)
                if (at(x, y).a > best.a)
                    best = at(x, y);
        return best;
    }
};

::testing::AssertionResult centredIn(Box const& ink, Box const& box) {
    int horizontal = (ink.x1 - box.x1) - (box.x2 - ink.x2);
    int vertical = (ink.y1 - box.y1) - (box.y2 - ink.y2);
    if (box.contains(ink) && std::abs(horizontal) <= 2 && std::abs(vertical) <= 2)
        return ::testing::AssertionSuccess();
    return ::testing::AssertionFailure()
           << "ink (" << ink.x1 << "," << ink.y1 << ")-(" << ink.x2 << "," << ink.y2 << ") in box ("
           << box.x1 << "," << box.y1 << ")-(" << box.x2 << "," << box.y2 << ")";
}

QorTTF::eGlyph const allGlyphs[] = {QorTTF::DownArrow, QorTTF::UpArrow, QorTTF::RightArrow,
                                    QorTTF::LeftArrow, QorTTF::Tick,    QorTTF::FilledStar,
                                    QorTTF::EmptyStar};

TEST(Glyphs, EachGlyphIsCentredInItsBoxInTheColour) {
    Box const box(30, 20, 70, 60);
    for (QorTTF::eGlyph glyph : allGlyphs) {
        SCOPED_TRACE(char(glyph));
        GlyphWindow window;
        drawGlyph(window.renderer(), glyph, box, Colour(1, 0, 0));
        Box ink = window.ink();
        EXPECT_TRUE(centredIn(ink, box));
        EXPECT_GE(std::max(ink.width(), ink.height()), box.height() / 3);
        EXPECT_TRUE(DrawTest::sameColour(window.solidest(), DrawTest::kRed, 0.05f));
    }
}

// The glyph is as large as text whose line fills the box's height.
TEST(Glyphs, TheGlyphGrowsWithTheBox) {
    for (QorTTF::eGlyph glyph : allGlyphs) {
        SCOPED_TRACE(char(glyph));
        GlyphWindow small, large;
        drawGlyph(small.renderer(), glyph, Box(10, 10, 30, 30), Colour(0, 0, 0));
        drawGlyph(large.renderer(), glyph, Box(10, 10, 50, 50), Colour(0, 0, 0));
        EXPECT_NEAR(large.ink().width(), 2 * small.ink().width(), 3);
        EXPECT_NEAR(large.ink().height(), 2 * small.ink().height(), 3);
    }
}

TEST(Glyphs, ANarrowOrFlatBoxShrinksTheGlyphToFit) {
    for (Box const& box : {Box(50, 10, 58, 80), Box(10, 40, 110, 47)}) {
        SCOPED_TRACE(box.width());
        GlyphWindow window;
        drawGlyph(window.renderer(), QorTTF::FilledStar, box, Colour(0, 0, 0));
        Box ink = window.ink();
        EXPECT_FALSE(ink.isEmpty());
        EXPECT_TRUE(centredIn(ink, box));
        EXPECT_GE(std::min(ink.width(), ink.height()), std::min(box.width(), box.height()) - 3);
    }
}

TEST(Glyphs, ArrowsPointTheWayTheirGlyphSays) {
    Box const box(30, 20, 70, 60);
    GlyphWindow down;
    drawGlyph(down.renderer(), QorTTF::DownArrow, box, Colour(0, 0, 0));
    Box ink = down.ink();
    EXPECT_GT(down.inkInRow(ink.y2 - 2), 2 * down.inkInRow(ink.y1 + 1));

    GlyphWindow up;
    drawGlyph(up.renderer(), QorTTF::UpArrow, box, Colour(0, 0, 0));
    ink = up.ink();
    EXPECT_GT(up.inkInRow(ink.y1 + 1), 2 * up.inkInRow(ink.y2 - 2));
}

TEST(Glyphs, AnEmptyBoxDrawsNothing) {
    GlyphWindow window;
    drawGlyph(window.renderer(), QorTTF::Tick, Box(40, 40, 40, 60), Colour(0, 0, 0));
    EXPECT_TRUE(window.ink().isEmpty());
}

} // namespace
