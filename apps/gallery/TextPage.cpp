#include "TextPage.h"

#include "glib/DrawingHelpers.h"
#include "glob/UifStd.h"

#include <cwchar>

void TextPage::drawWidgets() {
    int gap = UifStd::getWidgetGap();
    drawSizes(6 * gap, top() - 30);
    drawFamilies(6 * gap, top() - 330);
    drawAlignment(520, top() - 30);
    drawSelectionAndShortening(520, top() - 230);
    drawSymbols(520, top() - 430);
    Glob::drawWidgets();
}

void TextPage::drawSizes(int x, int y) {
    caption(L"The interface font, by height in pixels", XY<int>(x, y));
    Colour ink = getPalette().text();
    int baseline = y - 30;
    for (unsigned short size : {12, 16, 20, 28, 40}) {
        wchar_t line[64];
        std::swprintf(line, 64, L"%d px — Panelkit draws its own", int(size));
        text(line, XY<int>(x, baseline), Glib::FontDesc("", size, 0), ink);
        baseline -= size + 10;
    }
    text(L"Bold", XY<int>(x, baseline), Glib::FontDesc("", 20, Glib::FontDesc::Bold), ink);
    text(L"Italic", XY<int>(x + 80, baseline), Glib::FontDesc("", 20, Glib::FontDesc::Italic), ink);
    text(L"Underlined", XY<int>(x + 160, baseline),
         Glib::FontDesc("", 20, Glib::FontDesc::Underline), ink);
}

void TextPage::drawFamilies(int x, int y) {
    caption(L"Other families and scripts", XY<int>(x, y));
    Colour ink = getPalette().text();
    text(L"DejaVu Serif: The quick brown fox", XY<int>(x, y - 28),
         Glib::FontDesc("DejaVu Serif", 18, 0), ink);
    text(L"DejaVu Sans Mono: int main() { return 0; }", XY<int>(x, y - 56),
         Glib::FontDesc("DejaVu Sans Mono", 16, 0), ink);
    text(L"Ünïcödé: Grüße, ça va? Ελληνικά, Кириллица", XY<int>(x, y - 84),
         Glib::FontDesc("", 18, 0), ink);
}

void TextPage::drawAlignment(int x, int y) {
    caption(L"Alignment about a point", XY<int>(x, y));
    CanvasRenderer& r = renderer();
    int centre = x + 190;
    Glib::LineDescription rule;
    rule.from = XY<int>(centre, y - 100);
    rule.to = XY<int>(centre, y - 12);
    rule.colour = fromColour(getPalette().selection());
    r.renderPrimitive(rule);
    Colour ink = getPalette().text();
    Glib::FontDesc font("", 18, 0);
    text(L"Left of the line", XY<int>(centre, y - 35), font, ink, Glib::TextDescription::Right);
    text(L"centred on it", XY<int>(centre, y - 60), font, ink, Glib::TextDescription::Centre);
    text(L"right of the line", XY<int>(centre, y - 85), font, ink);
}

void TextPage::drawSelectionAndShortening(int x, int y) {
    caption(L"A selection, and text cut to fit", XY<int>(x, y));
    Palette const& p = getPalette();
    Glib::TextDescription t;
    t.text = L"Select part of a line of text";
    t.font = Glib::loadFont(Glib::FontDesc("", 18, 0));
    t.colour = fromColour(p.text());
    t.origin = XY<int>(x, y - 35);
    t.selStart = 7;
    t.selEnd = 11;
    t.selBackground = fromColour(p.selection());
    t.selForeground = fromColour(p.selectedText());
    renderer().renderPrimitive(t);
    LightweightString<wchar_t> longText(L"A label far too long for the space it has been given");
    int row = y - 75;
    for (int width : {380, 250, 140}) {
        Glib::drawFrame(renderer(), p.window(WindowShadeDark),
                        Box(x - 3, row - 8, x + width + 3, row + 20), 1);
        text(Glib::fitTextToWidth(t.font, longText, width).c_str(), XY<int>(x, row),
             t.font->description(), p.text());
        row -= 36;
    }
}

void TextPage::drawSymbols(int x, int y) {
    caption(L"Symbol glyphs for arrows, ticks and stars", XY<int>(x, y));
    Glib::FontDesc symbols(getQorUtilityFontName(), getQorUtilityFontSize(1.5f), 0);
    wchar_t const glyphs[] = {QorTTF::DownArrow, QorTTF::UpArrow, QorTTF::RightArrow,
                              QorTTF::LeftArrow, QorTTF::Tick,    QorTTF::FilledStar,
                              QorTTF::EmptyStar};
    int at = x;
    for (wchar_t g : glyphs) {
        wchar_t one[2] = {g, 0};
        text(one, XY<int>(at, y - 40), symbols, getPalette().headingText());
        at += 40;
    }
}
