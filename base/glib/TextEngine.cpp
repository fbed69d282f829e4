#include "glib/TextEngine.h"

#include <pango/pangocairo.h>

namespace {

struct Engine {
    CriticalSection lock;
    PangoContext* context = nullptr;
};

// Never destroyed: fonts held by static objects may still release their layouts during exit.
Engine& engine() {
    static Engine* const e = new Engine;
    return *e;
}

// Whole-pixel metrics and advances keep carets, measurements and drawing on the same pixels.
PangoContext* makeContext() {
    PangoFontMap* map = pango_cairo_font_map_new();
    PangoContext* context = pango_font_map_create_context(map);
    g_object_unref(map);
    cairo_font_options_t* options = cairo_font_options_create();
    cairo_font_options_set_hint_metrics(options, CAIRO_HINT_METRICS_ON);
    cairo_font_options_set_hint_style(options, CAIRO_HINT_STYLE_SLIGHT);
    cairo_font_options_set_antialias(options, CAIRO_ANTIALIAS_GRAY);
    pango_cairo_context_set_font_options(context, options);
    cairo_font_options_destroy(options);
    pango_context_set_round_glyph_positions(context, TRUE);
    return context;
}

} // namespace

CriticalSection& TextEngine::lock() {
    return engine().lock;
}

PangoContext* TextEngine::context() {
    Engine& e = engine();
    if (e.context == nullptr)
        e.context = makeContext();
    return e.context;
}

TextEngine::Metrics TextEngine::metrics(PangoFontDescription const* desc) {
    CriticalSection::Lock hold(lock());
    PangoFont* font = pango_context_load_font(context(), desc);
    if (font == nullptr)
        return {};
    PangoFontMetrics* m = pango_font_get_metrics(font, nullptr);
    Metrics result{pango_font_metrics_get_ascent(m), pango_font_metrics_get_descent(m)};
    pango_font_metrics_unref(m);
    g_object_unref(font);
    return result;
}
