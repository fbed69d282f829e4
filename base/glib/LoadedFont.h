#pragma once

// A loaded font: a face at the pixel size that makes its ascent plus descent the requested height.
// It keeps the widths of the strings it has measured and the shaped form of the strings it has
// shaped, so that tables and menus, which measure and draw the same strings again and again, pay
// for shaping once.

#include "glib/BoundedCache.h"
#include "glib/Font.h"
#include "glib/PlainShaper.h"

#include <memory>

class ShapedText;
typedef struct _PangoFontDescription PangoFontDescription;

class LoadedFont : public iFont {
public:
    // `face` is the face to draw with, its size already set; the font takes it over.
    LoadedFont(Glib::FontDesc const& desc, PangoFontDescription* face, bool symbols);
    ~LoadedFont() override;

    XY<int> measure(LightweightString<wchar_t> const& text) const override;
    CharacterLocation seek(LightweightString<wchar_t> const& text, eCharSeekMethod method,
                           int index) const override;
    CharacterLocation locate(LightweightString<wchar_t> const& text, int pixelX) const override;
    int ascent() const override { return ascent_; }
    int descent() const override { return descent_; }
    Glib::FontDesc const& description() const override { return desc_; }

    // The text shaped in this font, from the cache when it was shaped before.
    std::shared_ptr<ShapedText const> shape(LightweightString<wchar_t> const& text) const;

private:
    using Shape = std::shared_ptr<ShapedText const>;

    Glib::FontDesc desc_;
    PangoFontDescription* face_;
    bool symbols_;
    int ascent_ = 0;
    int descent_ = 0;
    mutable BoundedCache<LightweightString<wchar_t>, int> widths_;
    mutable BoundedCache<LightweightString<wchar_t>, Shape> shapes_;
    // Made on first use: a font that is only measured in full never needs it.
    mutable std::shared_ptr<PlainShaper const> plain_;
    mutable bool plainTried_ = false;
};
