#include "buttons/GlyphButton.h"

GlyphButton::GlyphButton(InitArgs const& args)
    : Button(args), fileName_(fileNameFor(args.stem)), glyph_(args.glyph) {
    setStyle(Flat);
    showImage();
}

LightweightString<wchar_t> GlyphButton::fileNameFor(LightweightString<wchar_t> const& stem) {
    return stem + L".png";
}

// A glyph takes the text colour of the palette, so it is recoloured with it.
void GlyphButton::setPalette(Palette const& palette) {
    Button::setPalette(palette);
    if (glyph_)
        showImage();
}

void GlyphButton::showImage() {
    if (glyph_)
        setGlyph(fileName_);
    else
        setIcon(fileName_);
}
