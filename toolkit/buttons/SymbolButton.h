#pragma once

// A button that shows a symbol of the utility font (an arrow, a tick, a star) in place of a text,
// filling its face, in the text colour of its palette. Without a symbol it is a plain button.

#include "buttons/CustomBorderButton.h"
#include "glib/Glyphs.h"

#include <optional>

class SymbolButton : public CustomBorderButton {
public:
    struct InitArgs : Button::InitArgs {
        InitArgs() = default;
        InitArgs(QorTTF::eGlyph glyph_, WidgetCallback const& callback_, unsigned short w,
                 unsigned short h)
            : Button::InitArgs(UIString(), callback_, w, h), glyph(glyph_) {}
        // A text in place of a symbol, until setSymbol.
        InitArgs(UIString const& label_, WidgetCallback const& callback_, unsigned short w,
                 unsigned short h)
            : Button::InitArgs(label_, callback_, w, h) {}
        std::optional<QorTTF::eGlyph> glyph;
    };

    explicit SymbolButton(InitArgs const& args);
    SymbolButton(ButtonSymbol symbol, char const* message, unsigned short w, unsigned short h,
                 Canvas* canvas);

    char const* idstring() const override { return "SymbolButton"; }
    void drawText() override;

    // The button's text becomes the glyph's character, in the utility font.
    void setSymbol(QorTTF::eGlyph glyph);
    std::optional<QorTTF::eGlyph> getSymbol() const { return glyph_; }

private:
    std::optional<QorTTF::eGlyph> glyph_;
};
