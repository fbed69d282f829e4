#include "buttons/SymbolButton.h"

#include "glib/Canvas.h"

SymbolButton::SymbolButton(InitArgs const& args) : CustomBorderButton(args) {
    if (args.glyph)
        setSymbol(*args.glyph);
}

SymbolButton::SymbolButton(ButtonSymbol symbol, char const* message, unsigned short w,
                           unsigned short h, Canvas* canvas)
    : CustomBorderButton(UIString(), message, w, h, false, canvas) {
    setSymbol(toGlyph(symbol));
}

void SymbolButton::setSymbol(QorTTF::eGlyph glyph) {
    glyph_ = glyph;
    setFont(Glib::FontDesc(getQorUtilityFontName(), getQorUtilityFontSize()));
    setString(UIString(QorTTF::getString(glyph)));
}

void SymbolButton::drawText() {
    if (!glyph_) {
        Button::drawText();
        return;
    }
    drawGlyph(canvas()->renderer(), *glyph_, Box(0, 0, width(), height()),
              getPalette().text(isActive() ? TextNormal : TextInactive));
}
