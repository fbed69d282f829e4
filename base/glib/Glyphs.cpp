#include "glib/Glyphs.h"

#include "glib/CanvasRenderer.h"
#include "glib/LoadedFont.h"
#include "glib/ShapedText.h"

#include <algorithm>
#include <cmath>

namespace {

// The glyph's inked pixels relative to its origin on the baseline; empty when nothing inks.
Box inkOf(Qor::Ptr<iFont> const& font, LightweightString<wchar_t> const& text) {
    auto const* loaded = dynamic_cast<LoadedFont const*>(font.get());
    return loaded != nullptr ? loaded->shape(text)->ink() : Box();
}

bool fits(Box const& ink, Box const& box) {
    return ink.width() <= box.width() && ink.height() <= box.height();
}

// A size at which the ink should fit, from how it measured at `size`; always smaller than `size`.
int shrunkSize(int size, Box const& ink, Box const& box) {
    double scale = std::min(double(box.width()) / ink.width(), double(box.height()) / ink.height());
    return std::min(size - 1, int(std::floor(size * scale)));
}

// The font's size is its line height, so the box's height is the first try; the ink is smaller
// than the line unless the glyph is wide or the box is narrow.
Qor::Ptr<iFont> fittingFont(LightweightString<wchar_t> const& text, Box const& box, Box& ink) {
    int size = std::min(box.height(), 0xffff);
    while (size > 0) {
        Qor::Ptr<iFont> font = Glib::loadFont(getQorUtilityFontName(), size, 0);
        ink = inkOf(font, text);
        if (ink.isEmpty())
            return {};
        if (fits(ink, box))
            return font;
        size = shrunkSize(size, ink, box);
    }
    return {};
}

} // namespace

QorTTF::eGlyph toGlyph(ButtonSymbol symbol) {
    return static_cast<QorTTF::eGlyph>(symbol);
}

void drawGlyph(CanvasRenderer& r, QorTTF::eGlyph glyph, Box box, Colour const& colour) {
    if (box.isEmpty())
        return;
    Glib::TextDescription text;
    text.text = QorTTF::getString(glyph);
    Box ink;
    text.font = fittingFont(text.text, box, ink);
    if (!text.font)
        return;
    text.colour = fromColour(colour);
    text.style = Glib::TextStyles::Plain;
    text.origin = XY<int>(box.x1 + (box.width() - ink.width()) / 2 - ink.x1,
                          box.y1 + (box.height() - ink.height()) / 2 - ink.y1);
    r.renderPrimitive(text);
}
