#include "glib/PlainShaper.h"

#include "glib/TextEngine.h"

#include <hb.h>
#include <pango/pangocairo.h>

std::shared_ptr<PlainShaper const> PlainShaper::make(PangoFontDescription const* face) {
    PangoFont* font = pango_context_load_font(TextEngine::context(), face);
    if (font == nullptr)
        return nullptr;
    cairo_scaled_font_t* scaled = pango_cairo_font_get_scaled_font(PANGO_CAIRO_FONT(font));
    if (scaled == nullptr || pango_font_get_hb_font(font) == nullptr) {
        g_object_unref(font);
        return nullptr;
    }
    std::shared_ptr<PlainShaper> shaper(new PlainShaper);
    shaper->font_ = font;
    shaper->scaled_ = cairo_scaled_font_reference(scaled);
    shaper->description_ = pango_font_description_copy(face);
    hb_font_extents_t extents;
    hb_font_get_h_extents(pango_font_get_hb_font(font), &extents);
    shaper->baseline_ = extents.ascender;
    return shaper;
}

PlainShaper::~PlainShaper() {
    cairo_scaled_font_destroy(scaled_);
    pango_font_description_free(description_);
    g_object_unref(font_);
}

bool PlainShaper::accepts(std::string const& utf8) {
    for (char c : utf8)
        if (c < 0x20 || c > 0x7e)
            return false;
    return !utf8.empty();
}

bool PlainShaper::shape(std::string const& utf8, Result& out) const {
    // One buffer, reused: the text engine's lock is held.
    static hb_buffer_t* const buffer = hb_buffer_create();
    static hb_language_t const english = hb_language_from_string("en", -1);
    hb_buffer_clear_contents(buffer);
    hb_buffer_add_utf8(buffer, utf8.data(), int(utf8.size()), 0, int(utf8.size()));
    hb_buffer_set_direction(buffer, HB_DIRECTION_LTR);
    hb_buffer_set_script(buffer, HB_SCRIPT_LATIN);
    hb_buffer_set_language(buffer, english);
    hb_shape(pango_font_get_hb_font(font_), buffer, nullptr, 0);
    unsigned count = 0;
    hb_glyph_info_t const* infos = hb_buffer_get_glyph_infos(buffer, &count);
    hb_glyph_position_t const* positions = hb_buffer_get_glyph_positions(buffer, &count);
    out.glyphs.clear();
    out.glyphs.reserve(count);
    int x = 0;
    for (unsigned i = 0; i < count; ++i) {
        if (infos[i].codepoint == 0)
            return false;
        // Whole pixels, as the layout rounds them.
        int advance = PANGO_UNITS_ROUND(positions[i].x_advance);
        out.glyphs.push_back(Glyph{infos[i].codepoint, x + PANGO_UNITS_ROUND(positions[i].x_offset),
                                   advance, -PANGO_UNITS_ROUND(positions[i].y_offset),
                                   int(infos[i].cluster)});
        x += advance;
    }
    out.width = x;
    return true;
}
