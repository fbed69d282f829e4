#include "glib/ShapedText.h"

#include "glib/Font.h"
#include "glib/TextEngine.h"

#include <algorithm>
#include <cmath>
#include <pango/pangocairo.h>
#include <string>

namespace {

// The UTF-8 form of the text, and where each character starts in it (plus the end). Characters
// that are no Unicode scalar value, and NUL, which would end the text early, show as U+FFFD.
std::string encode(LightweightString<wchar_t> const& text, bool symbols, std::vector<int>& starts) {
    std::string utf8;
    utf8.reserve(text.size());
    starts.reserve(text.size() + 1);
    for (wchar_t c : text) {
        starts.push_back(static_cast<int>(utf8.size()));
        auto u = static_cast<gunichar>(symbols ? QorTTF::symbolFor(c) : c);
        if (u == 0 || !g_unichar_validate(u))
            u = 0xFFFD;
        char bytes[6];
        utf8.append(bytes, static_cast<std::size_t>(g_unichar_to_utf8(u, bytes)));
    }
    starts.push_back(static_cast<int>(utf8.size()));
    return utf8;
}

int charAtByte(std::vector<int> const& starts, int byte) {
    return static_cast<int>(std::lower_bound(starts.begin(), starts.end(), byte) - starts.begin());
}

} // namespace

ShapedText::ShapedText(LightweightString<wchar_t> const& text, PangoFontDescription const* font,
                       Options options, std::shared_ptr<PlainShaper const> const& plain) {
    CriticalSection::Lock hold(TextEngine::lock());
    std::string utf8 = encode(text, options.symbols, bytes_);
    if (plain && !options.symbols && !options.underline && PlainShaper::accepts(utf8) &&
        shapePlain(utf8, *plain)) {
        utf8_ = std::move(utf8);
        plain_ = plain;
        return;
    }
    layOut(utf8, font, options);
}

void ShapedText::layOut(std::string const& utf8, PangoFontDescription const* font,
                        Options options) {
    layout_ = pango_layout_new(TextEngine::context());
    // One line always: a line break in the text shows as a glyph rather than starting a new line.
    pango_layout_set_single_paragraph_mode(layout_, TRUE);
    pango_layout_set_font_description(layout_, font);
    if (options.underline) {
        PangoAttrList* attributes = pango_attr_list_new();
        pango_attr_list_insert(attributes, pango_attr_underline_new(PANGO_UNDERLINE_SINGLE));
        pango_layout_set_attributes(layout_, attributes);
        pango_attr_list_unref(attributes);
    }
    pango_layout_set_text(layout_, utf8.data(), static_cast<int>(utf8.size()));
    measureLayout();
    findCarets();
    glyphsOnly_ = !options.underline && collectGlyphs();
}

PangoLayout* ShapedText::layout() const {
    if (layout_ == nullptr) {
        layout_ = pango_layout_new(TextEngine::context());
        pango_layout_set_single_paragraph_mode(layout_, TRUE);
        pango_layout_set_font_description(layout_, plain_->description());
        pango_layout_set_text(layout_, utf8_.data(), static_cast<int>(utf8_.size()));
    }
    return layout_;
}

bool ShapedText::shapePlain(std::string const& utf8, PlainShaper const& plain) {
    PlainShaper::Result shaped;
    if (!plain.shape(utf8, shaped))
        return false;
    width_ = PANGO_PIXELS_CEIL(shaped.width);
    baseline_ = plain.baseline();
    findPlainCarets(shaped.glyphs);
    runs_.push_back(GlyphRun{cairo_scaled_font_reference(plain.scaledFont()), {}, {}, {}});
    GlyphRun& run = runs_.back();
    std::vector<cairo_glyph_t> glyphs;
    for (PlainShaper::Glyph const& g : shaped.glyphs) {
        run.indexes.push_back(g.index);
        run.xs.push_back(double(g.x) / PANGO_SCALE);
        run.ys.push_back(double(g.yOffset) / PANGO_SCALE);
        glyphs.push_back(cairo_glyph_t{g.index, run.xs.back(), run.ys.back()});
    }
    cairo_text_extents_t ink;
    cairo_scaled_font_glyph_extents(plain.scaledFont(), glyphs.data(), int(glyphs.size()), &ink);
    if (ink.width > 0 && ink.height > 0)
        ink_ = Box(int(std::floor(ink.x_bearing)), int(std::floor(-(ink.y_bearing + ink.height))),
                   int(std::ceil(ink.x_bearing + ink.width)), int(std::ceil(-ink.y_bearing)));
    glyphsOnly_ = true;
    return true;
}

// Each character of a cluster (a ligature) takes an equal share of its advance.
void ShapedText::findPlainCarets(std::vector<PlainShaper::Glyph> const& glyphs) {
    int count = static_cast<int>(bytes_.size()) - 1;
    std::vector<int> advance(static_cast<std::size_t>(count) + 1, 0);
    std::vector<bool> starts(static_cast<std::size_t>(count) + 1, false);
    for (PlainShaper::Glyph const& g : glyphs) {
        advance[g.cluster] += g.advance;
        starts[g.cluster] = true;
    }
    starts[count] = true;
    carets_.assign(static_cast<std::size_t>(count) + 1, 0);
    int x = 0;
    for (int c = 0; c < count;) {
        int end = c + 1;
        while (!starts[end])
            ++end;
        for (int k = c; k < end; ++k)
            carets_[k] = PANGO_PIXELS(x + advance[c] * (k - c) / (end - c));
        x += advance[c];
        c = end;
    }
    carets_[count] = PANGO_PIXELS(x);
}

ShapedText::~ShapedText() {
    CriticalSection::Lock hold(TextEngine::lock());
    for (GlyphRun& run : runs_)
        cairo_scaled_font_destroy(run.font);
    if (layout_ != nullptr)
        g_object_unref(layout_);
}

bool ShapedText::collectGlyphs() {
    PangoLayoutLine* line = pango_layout_get_line_readonly(layout_, 0);
    if (line == nullptr)
        return false;
    int x = 0;
    for (GSList* l = line->runs; l != nullptr; l = l->next) {
        auto* item = static_cast<PangoGlyphItem*>(l->data);
        PangoGlyphString* glyphs = item->glyphs;
        cairo_scaled_font_t* font =
            pango_cairo_font_get_scaled_font(PANGO_CAIRO_FONT(item->item->analysis.font));
        if (font == nullptr)
            return false;
        runs_.push_back(GlyphRun{cairo_scaled_font_reference(font), {}, {}, {}});
        GlyphRun& run = runs_.back();
        for (int i = 0; i < glyphs->num_glyphs; ++i) {
            PangoGlyphInfo const& g = glyphs->glyphs[i];
            if ((g.glyph & PANGO_GLYPH_UNKNOWN_FLAG) != 0)
                return false;
            if (g.glyph != PANGO_GLYPH_EMPTY) {
                run.indexes.push_back(g.glyph);
                run.xs.push_back(double(x + g.geometry.x_offset) / PANGO_SCALE);
                run.ys.push_back(double(g.geometry.y_offset) / PANGO_SCALE);
            }
            x += g.geometry.width;
        }
    }
    return true;
}

void ShapedText::show(cairo_t* cr) const {
    if (!glyphsOnly_) {
        cairo_rel_move_to(cr, 0, -baseline_ / double(PANGO_SCALE));
        pango_cairo_show_layout(cr, layout_);
        return;
    }
    double x0 = 0, y0 = 0;
    if (cairo_has_current_point(cr))
        cairo_get_current_point(cr, &x0, &y0);
    // Reused between draws, so that drawing a label allocates nothing.
    static thread_local std::vector<cairo_glyph_t> glyphs;
    for (GlyphRun const& run : runs_) {
        glyphs.resize(run.indexes.size());
        for (std::size_t i = 0; i < glyphs.size(); ++i)
            glyphs[i] = cairo_glyph_t{run.indexes[i], x0 + run.xs[i], y0 + run.ys[i]};
        cairo_set_scaled_font(cr, run.font);
        cairo_show_glyphs(cr, glyphs.data(), int(glyphs.size()));
    }
}

void ShapedText::measureLayout() {
    PangoRectangle ink;
    PangoRectangle logical;
    pango_layout_get_extents(layout_, &ink, &logical);
    width_ = PANGO_PIXELS_CEIL(logical.width);
    baseline_ = pango_layout_get_baseline(layout_);
    if (ink.width > 0 && ink.height > 0)
        ink_ = Box(PANGO_PIXELS_FLOOR(ink.x), PANGO_PIXELS_FLOOR(baseline_ - (ink.y + ink.height)),
                   PANGO_PIXELS_CEIL(ink.x + ink.width), PANGO_PIXELS_CEIL(baseline_ - ink.y));
}

// Walks the runs in visual order; within a run, each character's share of its cluster gives the
// leading edges, which run leftward in right-to-left runs.
void ShapedText::findCarets() {
    int count = static_cast<int>(bytes_.size()) - 1;
    std::vector<int> units(static_cast<std::size_t>(count) + 1, 0);
    char const* text = pango_layout_get_text(layout_);
    PangoLayoutLine* line = pango_layout_get_line_readonly(layout_, 0);
    int runX = 0;
    std::vector<int> widths;
    for (GSList* node = line != nullptr ? line->runs : nullptr; node; node = node->next) {
        auto* run = static_cast<PangoGlyphItem*>(node->data);
        PangoItem* item = run->item;
        int runWidth = pango_glyph_string_get_width(run->glyphs);
        bool rightToLeft = (item->analysis.level % 2) != 0;
        widths.assign(static_cast<std::size_t>(item->num_chars), 0);
        pango_glyph_string_get_logical_widths(run->glyphs, text + item->offset, item->length,
                                              item->analysis.level, widths.data());
        int first = charAtByte(bytes_, item->offset);
        int advance = 0;
        for (int k = 0; k < item->num_chars && first + k < count; ++k) {
            units[first + k] = rightToLeft ? runX + runWidth - advance : runX + advance;
            advance += widths[k];
        }
        if (first + item->num_chars == count)
            units[count] = rightToLeft ? runX + runWidth - advance : runX + advance;
        runX += runWidth;
    }
    carets_.resize(units.size());
    std::transform(units.begin(), units.end(), carets_.begin(),
                   [](int u) { return PANGO_PIXELS(u); });
}
