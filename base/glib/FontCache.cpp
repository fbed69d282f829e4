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
// Keeps a computed size clear of the exact point where a part would round up.
constexpr double roundingMargin = 1e-4;

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
// by a pixel. The largest size whose rounded parts add up to the height is worked out from the
// face's proportions and checked on the font; where the font rounds otherwise, a short search
// below the plain ratio finds it.
double FontCache::emSizeFor(PangoFontDescription* face, int height) {
    Proportions shape = proportions(face);
    double best = 0;
    for (int ascent = 1; ascent < height; ++ascent)
        best = std::max(best, std::min(ascent / shape.ascent, (height - ascent) / shape.descent));
    best *= 1 - roundingMargin;
    if (best > 0 && lineHeightAt(face, best) == height)
        return best;
    double perEm = shape.ascent + shape.descent;
    double low = std::max(height - 1.5, 0.5) / perEm;
    double high = height / perEm;
    for (int step = 0; step < sizeSearchSteps; ++step) {
        double middle = (low + high) / 2;
        if (lineHeightAt(face, middle) <= height)
            low = middle;
        else
            high = middle;
    }
    return low;
}

FontCache::Proportions FontCache::proportions(PangoFontDescription* face) {
    pango_font_description_unset_fields(face, PANGO_FONT_MASK_SIZE);
    char* name = pango_font_description_to_string(face);
    std::string key = name;
    g_free(name);
    auto found = proportions_.find(key);
    if (found != proportions_.end())
        return found->second;
    pango_font_description_set_absolute_size(face, referenceEmSize * PANGO_SCALE);
    TextEngine::Metrics metrics = TextEngine::metrics(face);
    double unitsPerEm = referenceEmSize * PANGO_SCALE;
    Proportions result{metrics.ascent / unitsPerEm, metrics.descent / unitsPerEm};
    // Without any font there is nothing to measure; sizes stay as asked.
    if (result.ascent + result.descent <= 0)
        result = Proportions{1.0, 0.0};
    return proportions_[key] = result;
}
