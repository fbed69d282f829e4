#include "buttons/TextLabel.h"

#include "glib/Canvas.h"
#include "glib/CanvasRenderer.h"
#include "glob/UifStd.h"

#include <algorithm>

TextLabel::TextLabel(InitArgs const& args)
    : rect(args), text_(args.text), textColour_(args.textColour), alignment_(args.alignment),
      fixedSize_(args.fixedSize) {
    font_ = args.font;
    parse();
    if (!fixedSize_)
        Glob::resize(std::max(calcWidth(), 1), args.height != 0 ? args.height : calcHeight(0));
}

void TextLabel::setText(LightweightString<wchar_t> const& text, eRedrawFlag redraw) {
    text_ = text;
    parse();
    fitToText();
    if (redraw == Redraw)
        update();
}

void TextLabel::setFont(Glib::FontDesc const& font) {
    rect::setFont(font);
    fitToText();
    update();
}

Glib::FontDesc TextLabel::getEffectiveFont() const {
    return font_.isEmpty() ? UifStd::getFont() : font_;
}

void TextLabel::setTextColour(Colour const& colour, eRedrawFlag redraw) {
    textColour_ = colour;
    parse();
    if (redraw == Redraw)
        update();
}

Colour TextLabel::getEffectiveTextColour() const {
    if (textColour_.isSet())
        return textColour_;
    return getPalette().text(isActive() ? TextNormal : TextInactive);
}

void TextLabel::setAlignment(TextAlignment alignment, eRedrawFlag redraw) {
    alignment_ = alignment;
    if (redraw == Redraw)
        update();
}

int TextLabel::calcWidth() const {
    if (html_)
        return HTMLRenderer::calcMaxWidth(paragraphs_, getEffectiveFont());
    return Glib::loadFont(getEffectiveFont())->measure(text_).x;
}

int TextLabel::calcHeight(unsigned short) const {
    return UifStd::getRowHeight();
}

void TextLabel::fixSize(unsigned short w, unsigned short h) {
    fixedSize_ = true;
    Glob::resize(w, h);
}

void TextLabel::setNewWidgetValue(LightweightString<wchar_t>& value, eRedrawFlag redraw) {
    setText(value, redraw);
}

// The rich text is parsed once per text and colour, not on every painting.
void TextLabel::parse() {
    html_ = HTMLRenderer::isHTML(text_);
    paragraphs_ =
        html_ ? HTMLRenderer::parse(text_, makeTextPalette(getPalette(), getEffectiveTextColour()))
              : LightweightVector<HTMLRenderer::Paragraph>();
}

void TextLabel::fitToText() {
    if (fixedSize_)
        return;
    unsigned short before = width();
    Glob::resize(std::max(calcWidth(), 1), height());
    // What the label covered before is its parent's to paint again.
    if (width() < before && parent() != nullptr)
        parent()->update();
}

void TextLabel::drawBackground() {
    fillRect(face(), getCol());
    if (html_)
        drawHTML();
    else
        drawPlain();
}

void TextLabel::drawPlain() {
    if (text_.empty())
        return;
    Qor::Ptr<iFont> font = Glib::loadFont(getEffectiveFont());
    Glib::TextDescription t;
    t.text = Glib::fitTextToWidth(font, text_, width());
    t.font = font;
    t.colour = fromColour(getEffectiveTextColour());
    int y = getFontYOffset(height(), font);
    switch (alignment_) {
    case TextAlignRight:
        t.origin = XY<int>(width(), y);
        t.alignment = Glib::TextDescription::Right;
        break;
    case TextAlignCentre:
        t.origin = XY<int>(width() / 2, y);
        t.alignment = Glib::TextDescription::Centre;
        break;
    default:
        t.origin = XY<int>(0, y);
        break;
    }
    canvas()->renderer().renderPrimitive(t);
}

// Lines that leave room are centred up and down, as a plain line is.
void TextLabel::drawHTML() {
    Glib::FontDesc font = getEffectiveFont();
    int lines = HTMLRenderer::analyse(paragraphs_, width(), font).lines;
    int margin = std::max(0, (height() - lines * Glib::loadFont(font)->height()) / 2);
    Box box = face();
    box.y2 -= margin;
    HTMLRenderer::render(canvas()->renderer(), paragraphs_, box, 0, font);
}
