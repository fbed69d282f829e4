#pragma once

// One text on a widget's background: plain, or rich when the text is HTML. The label shows the
// value of its adaptor when it has one, and sizes itself to its text unless its size was fixed.

#include "foundation/ValWidget.h"
#include "glib/HTMLRenderer.h"
#include "panels/rect.h"

class TextLabel : public rect, public ValWidget<LightweightString<wchar_t>> {
public:
    struct InitArgs : rect::InitArgs {
        InitArgs() = default;
        explicit InitArgs(LightweightString<wchar_t> const& text_, unsigned short w = 0,
                          unsigned short h = 0)
            : rect::InitArgs(w, h), text(text_) {}
        LightweightString<wchar_t> text;
        // An empty description takes the interface font.
        Glib::FontDesc font;
        // Unset: the palette's text colour.
        Colour textColour;
        TextAlignment alignment = TextAlignLeft;
        // Keeps the given size; otherwise the width follows the text and a height of 0 takes
        // calcHeight().
        bool fixedSize = false;
    };

    explicit TextLabel(InitArgs const& args);

    char const* idstring() const override { return "TextLabel"; }

    // Stores the text and, unless the size is fixed, takes its width.
    virtual void setText(LightweightString<wchar_t> const& text, eRedrawFlag redraw = Redraw);
    LightweightString<wchar_t> const& getText() const { return text_; }
    bool isHTML() const { return html_; }
    void setFont(Glib::FontDesc const& font) override;
    Glib::FontDesc getEffectiveFont() const;
    void setTextColour(Colour const& colour, eRedrawFlag redraw = Redraw);
    // As set: unset means the palette's.
    Colour const& getTextColour() const { return textColour_; }
    Colour getEffectiveTextColour() const;
    void setAlignment(TextAlignment alignment, eRedrawFlag redraw = Redraw);
    TextAlignment getAlignment() const { return alignment_; }
    // The width of the text in the label's font, without margins.
    virtual int calcWidth() const;
    virtual int calcHeight(unsigned short width) const;
    // Keeps this size from now on, whatever the text.
    void fixSize(unsigned short w, unsigned short h);
    bool isSizeFixed() const { return fixedSize_; }

    void drawBackground() override;

    LightweightString<wchar_t> getWidgetValue() override { return text_; }
    void setNewWidgetValue(LightweightString<wchar_t>& value, eRedrawFlag redraw) override;

private:
    void parse();
    void fitToText();
    void drawPlain();
    void drawHTML();

    LightweightString<wchar_t> text_;
    Colour textColour_;
    TextAlignment alignment_ = TextAlignLeft;
    bool fixedSize_ = false;
    bool html_ = false;
    LightweightVector<HTMLRenderer::Paragraph> paragraphs_;
};
