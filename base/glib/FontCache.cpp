#include "glib/FontCache.h"

#include "glib/LoadedFont.h"
#include "glib/TextEngine.h"

#include <algorithm>
#include <pango/pango.h>

namespace {

// Large enough that rounding of the metrics does not matter.
constexpr double referenceEmSize = 1000.0;
// Steps of the search for the em size; each halves an interval of about a pixel.
constexpr int sizeSearchSteps = 8;

// The requested family first; the default face stands in for characters or families it lacks.
PangoFontDescription* makeFace(Glib::FontDesc const& desc, bool symbols) {
    LightweightString<char> fallback = Glib::getDefaultFontName(desc.style);
    LightweightString<char> families = fallback;
    if (!symbols && desc.name != fallback)
        families = desc.name + "," + fallback;
    PangoFontDescription* face = pango_font_description_new();
    pango_font_description_set_family(face, families.c_str());
    pango_font_description_set_weight(
        face, (desc.style & Glib::FontDesc::Bold) != 0 ? PANGO_WEIGHT_BOLD : PANGO_WEIGHT_NORMAL);
    pango_font_description_set_style(
        face, (desc.style & Glib::FontDesc::Italic) != 0 ? PANGO_STYLE_ITALIC : PANGO_STYLE_NORMAL);
    return face;
}

int lineHeightAt(PangoFontDescription* face, double emSize) {
    pango_font_description_set_absolute_size(face, emSize * PANGO_SCALE);
    TextEngine::Metrics metrics = TextEngine::metrics(face);
    return PANGO_PIXELS(metrics.ascent + metrics.descent);
}

Glib::FontDesc normalised(Glib::FontDesc desc) {
    if (desc.name.empty())
        desc.name = Glib::getDefaultFontName(desc.style);
    if (desc.size == 0)
        desc.size = Glib::getDefaultFontSize();
    return desc;
}

} // namespace

FontCache& FontCache::instance() {
    return Qor::Singleton<FontCache>::Instance();
}

Qor::Ptr<iFont> FontCache::load(Glib::FontDesc const& desc) {
    Glib::FontDesc key = normalised(desc);
    CriticalSection::Lock hold(lock_);
    auto found = fonts_.find(key);
    if (found != fonts_.end())
        return found->second;
    return fonts_.emplace(key, create(key)).first->second;
}

Qor::Ptr<iFont> FontCache::create(Glib::FontDesc const& desc) {
    bool symbols = desc.name == getQorUtilityFontName();
    PangoFontDescription* face = makeFace(desc, symbols);
    pango_font_description_set_absolute_size(face, emSizeFor(face, desc.size) * PANGO_SCALE);
    return Qor::makePtr<LoadedFont>(desc, face, symbols);
}

// Hinted metrics round the ascent and the descent up separately, so the plain ratio can overshoot
// by a pixel; a short search below it finds the largest size that gives the height exactly.
double FontCache::emSizeFor(PangoFontDescription* face, int height) {
    double perEm = lineHeightPerEm(face);
    double high = height / perEm;
    if (lineHeightAt(face, high) <= height)
        return high;
    double low = std::max(height - 1.5, 0.5) / perEm;
    for (int step = 0; step < sizeSearchSteps; ++step) {
        double middle = (low + high) / 2;
        if (lineHeightAt(face, middle) <= height)
            low = middle;
        else
            high = middle;
    }
    return low;
}

double FontCache::lineHeightPerEm(PangoFontDescription* face) {
    pango_font_description_unset_fields(face, PANGO_FONT_MASK_SIZE);
    char* name = pango_font_description_to_string(face);
    std::string key = name;
    g_free(name);
    auto found = lineHeights_.find(key);
    if (found != lineHeights_.end())
        return found->second;
    pango_font_description_set_absolute_size(face, referenceEmSize * PANGO_SCALE);
    TextEngine::Metrics metrics = TextEngine::metrics(face);
    double perEm = (metrics.ascent + metrics.descent) / (referenceEmSize * PANGO_SCALE);
    // Without any font there is nothing to measure; keep sizes as asked.
    return lineHeights_[key] = perEm > 0 ? perEm : 1.0;
}
