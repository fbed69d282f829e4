#pragma once

// Symbols of the utility font drawn on their own: an arrow, tick or star filling a box, as symbol
// buttons show them. ButtonSymbol is the older way of naming those glyphs.

#include "glib/Colour.h"
#include "glib/Font.h"
#include "qor/Box.h"

class CanvasRenderer;

enum class ButtonSymbol : wchar_t {
    DownArrow = QorTTF::DownArrow,
    UpArrow = QorTTF::UpArrow,
    RightArrow = QorTTF::RightArrow,
    LeftArrow = QorTTF::LeftArrow,
    Tick = QorTTF::Tick,
    FilledStar = QorTTF::FilledStar,
    EmptyStar = QorTTF::EmptyStar,
};

QorTTF::eGlyph toGlyph(ButtonSymbol symbol);

// Draws the glyph in the colour, its ink centred in the box, at the largest size up to the box's
// height at which the ink fits the box. Nothing is drawn outside the box.
void drawGlyph(CanvasRenderer& r, QorTTF::eGlyph glyph, Box box, Colour const& colour);
