#pragma once

// A button that shows one icon named by a stem ("pin" for "pin.png"): either the picture as drawn
// or, as a glyph, its shape in the palette's text colour.

#include "buttons/Button.h"

class GlyphButton : public Button {
public:
    struct InitArgs : Button::InitArgs {
        InitArgs() = default;
        InitArgs(LightweightString<wchar_t> const& stem_, bool glyph_,
                 WidgetCallback const& callback_, unsigned short w, unsigned short h)
            : Button::InitArgs(UIString(), callback_, w, h), stem(stem_), glyph(glyph_) {}
        LightweightString<wchar_t> stem;
        bool glyph = true;
    };

    explicit GlyphButton(InitArgs const& args);

    char const* idstring() const override { return "GlyphButton"; }
    void setPalette(Palette const& palette) override;

    static LightweightString<wchar_t> fileNameFor(LightweightString<wchar_t> const& stem);

private:
    void showImage();

    LightweightString<wchar_t> fileName_;
    bool glyph_;
};
