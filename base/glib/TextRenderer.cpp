// The text primitive of CanvasRenderer. The canvas's context runs y up, so each string is drawn
// under a local flip that puts its glyphs upright, with the baseline on the origin's y.
//
// Styles: Plain draws the glyphs in the colour and nothing else (no selection); Normal adds the
// selection; Contrast also rings the glyphs with a one-pixel halo of the opposite brightness, so
// that text stays legible on a background close to its own colour.

#include "glib/CanvasRenderer.h"
#include "glib/LoadedFont.h"
#include "glib/ShapedText.h"
#include "glib/TextEngine.h"

#include <algorithm>
#include <pango/pangocairo.h>

namespace {

constexpr int haloWidth = 1;

Qor::Ptr<iFont> fontOf(Glib::TextDescription const& text) {
    return text.font ? text.font : Glib::loadFont(Glib::getDefaultFont());
}

int startX(Glib::TextDescription const& text, int originX, int width) {
    switch (text.alignment) {
    case Glib::TextDescription::Right:
        return originX - width;
    case Glib::TextDescription::Centre:
        return originX - width / 2;
    case Glib::TextDescription::Left:
        break;
    }
    return originX;
}

void setSource(cairo_t* cr, NormalisedRGB const& c) {
    cairo_set_source_rgba(cr, c.r, c.g, c.b, c.a);
}

NormalisedRGB haloColour(NormalisedRGB const& c) {
    float luma = 0.299f * c.r + 0.587f * c.g + 0.114f * c.b;
    float v = luma < 0.5f ? 1.0f : 0.0f;
    return NormalisedRGB(v, v, v, c.a);
}

// The context is set with the start of the text at the origin, y down, the baseline on y = 0.
void showLayout(cairo_t* cr, ShapedText const& shaped) {
    cairo_move_to(cr, 0, 0);
    shaped.show(cr);
}

void drawHalo(cairo_t* cr, ShapedText const& shaped, NormalisedRGB const& colour) {
    cairo_move_to(cr, 0, -shaped.baselineFromTop() / double(PANGO_SCALE));
    pango_cairo_layout_path(cr, shaped.layout());
    setSource(cr, haloColour(colour));
    cairo_set_line_width(cr, 2.0 * haloWidth);
    cairo_set_line_join(cr, CAIRO_LINE_JOIN_ROUND);
    cairo_stroke(cr);
}

// Each stretch of the selection gets its background from descent to ascent, and the glyphs over
// it are drawn again in the selection's colour.
void drawSelection(cairo_t* cr, ShapedText const& shaped, iFont const& font,
                   Glib::TextDescription const& text) {
    int from = std::clamp(text.selStart, 0, shaped.length());
    int to = std::clamp(text.selEnd, 0, shaped.length());
    if (from >= to)
        return;
    int* ranges = nullptr;
    int count = 0;
    cairo_new_path(cr);
    pango_layout_line_get_x_ranges(pango_layout_get_line_readonly(shaped.layout(), 0),
                                   shaped.byteOffset(from), shaped.byteOffset(to), &ranges, &count);
    for (int i = 0; i < count; ++i) {
        int x1 = PANGO_PIXELS(ranges[2 * i]);
        cairo_rectangle(cr, x1, -font.ascent(), PANGO_PIXELS(ranges[2 * i + 1]) - x1,
                        font.height());
    }
    g_free(ranges);
    cairo_save(cr);
    cairo_clip_preserve(cr);
    setSource(cr, text.selBackground);
    cairo_fill(cr);
    setSource(cr, text.selForeground);
    showLayout(cr, shaped);
    cairo_restore(cr);
}

// The line's box, from descent to ascent over the advance, grown to hold any ink that reaches
// past it (an overhanging glyph, an underline, the halo).
Box boundsOf(Glib::TextDescription const& text, iFont const& font, XY<int> const& at) {
    int width = font.measure(text.text).x;
    int x = startX(text, at.x, width);
    Box box(x, at.y - font.descent(), x + width, at.y + font.ascent());
    auto const* loaded = dynamic_cast<LoadedFont const*>(&font);
    if (loaded != nullptr && !text.text.empty())
        box = box.unite(loaded->shape(text.text)->ink().translated(x, at.y));
    return text.style == Glib::TextStyles::Contrast ? box.inset(-haloWidth) : box;
}

void drawText(cairo_t* cr, Glib::TextDescription const& text, LoadedFont const& font) {
    CriticalSection::Lock hold(TextEngine::lock());
    std::shared_ptr<ShapedText const> shaped = font.shape(text.text);
    cairo_save(cr);
    cairo_translate(cr, startX(text, text.origin.x, shaped->width()), text.origin.y);
    cairo_scale(cr, 1, -1);
    if (text.style == Glib::TextStyles::Contrast)
        drawHalo(cr, *shaped, text.colour);
    setSource(cr, text.colour);
    showLayout(cr, *shaped);
    if (text.style != Glib::TextStyles::Plain)
        drawSelection(cr, *shaped, font, text);
    cairo_restore(cr);
}

} // namespace

Box Glib::TextDescription::calcBounds(XY<int> const& at) const {
    return boundsOf(*this, *fontOf(*this), at);
}

void CanvasRenderer::renderPrimitive(Glib::TextDescription const& text) {
    cairo_t* cr = context();
    Qor::Ptr<iFont> font = fontOf(text);
    auto const* loaded = dynamic_cast<LoadedFont const*>(font.get());
    if (cr == nullptr || text.text.empty() || loaded == nullptr)
        return;
    drawText(cr, text, *loaded);
    addModifiedArea(boundsOf(text, *font, text.origin));
}
