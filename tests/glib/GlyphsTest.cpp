#include "glib/Glyphs.h"

#include "glib/DrawTestWindow.h"

#include <gtest/gtest.h>

#include <cstdlib>

namespace {

using DrawTest::TestWindow;

bool inked(NormalisedRGB const& p) {
    return p.a > 0;
}

::testing::AssertionResult centredIn(Box const& ink, Box const& box) {
    int horizontal = (ink.x1 - box.x1) - (box.x2 - ink.x2);
    int vertical = (ink.y1 - box.y1) - (box.y2 - ink.y2);
    if (box.contains(ink) && std::abs(horizontal) <= 2 && std::abs(vertical) <= 2)
        return ::testing::AssertionSuccess();
    return ::testing::AssertionFailure()
           << "ink (" << ink.x1 << "," << ink.y1 << ")-(" << ink.x2 << "," << ink.y2 << ")";
}

// The ink of `glyph` drawn into `box` of a fresh transparent window.
Box inkOf(QorTTF::eGlyph glyph, Box const& box, TestWindow const& window = TestWindow()) {
    drawGlyph(window.renderer(), glyph, box, Colour(1, 0, 0));
    return window.paintedBounds();
}

TEST(Glyphs, EachGlyphIsCentredInItsBoxInTheColourAndGrowsWithTheBox) {
    for (QorTTF::eGlyph glyph :
         {QorTTF::DownArrow, QorTTF::UpArrow, QorTTF::RightArrow, QorTTF::LeftArrow, QorTTF::Tick,
          QorTTF::FilledStar, QorTTF::EmptyStar}) {
        SCOPED_TRACE(char(glyph));
        Box const box(30, 20, 70, 60);
        TestWindow window;
        Box ink = inkOf(glyph, box, window);
        EXPECT_TRUE(centredIn(ink, box));
        EXPECT_GE(std::max(ink.width(), ink.height()), box.height() / 3);
        // Where the glyph is solid its colour shows unmixed.
        int solid = 0;
        window.pixelsWhere(
            [](NormalisedRGB const& p) {
                return bool(DrawTest::sameColour(p, DrawTest::kRed, 0.05f));
            },
            &solid);
        EXPECT_GT(solid, 0);

        Box small = inkOf(glyph, Box(10, 10, 30, 30));
        EXPECT_NEAR(ink.width(), 2 * small.width(), 3);
        EXPECT_NEAR(ink.height(), 2 * small.height(), 3);
    }
}

TEST(Glyphs, ANarrowOrFlatBoxShrinksTheGlyphToFitAndAnEmptyOneDrawsNothing) {
    for (Box const& box : {Box(50, 10, 58, 80), Box(10, 40, 110, 47)}) {
        SCOPED_TRACE(box.width());
        Box ink = inkOf(QorTTF::FilledStar, box);
        EXPECT_FALSE(ink.isEmpty());
        EXPECT_TRUE(centredIn(ink, box));
        EXPECT_GE(std::min(ink.width(), ink.height()), std::min(box.width(), box.height()) - 3);
    }
    EXPECT_TRUE(inkOf(QorTTF::Tick, Box(40, 40, 40, 60)).isEmpty());
}

TEST(Glyphs, ArrowsPointTheWayTheirGlyphSays) {
    Box const box(30, 20, 70, 60);
    TestWindow down;
    Box ink = inkOf(QorTTF::DownArrow, box, down);
    EXPECT_GT(down.countInRow(inked, ink.y2 - 2), 2 * down.countInRow(inked, ink.y1 + 1));

    TestWindow up;
    ink = inkOf(QorTTF::UpArrow, box, up);
    EXPECT_GT(up.countInRow(inked, ink.y1 + 1), 2 * up.countInRow(inked, ink.y2 - 2));
}

} // namespace
