#include "buttons/PootButton.h"

#include "misc/Settings.h"

char const* const PootButton::pootMsg = "poot";

namespace {

bool pootsRule() {
    static bool const on = config_int("poots_rule", 0) != 0;
    return on;
}

} // namespace

LightweightString<wchar_t> getPootString() {
    return pootsRule() ? L"*" : L"\u00D7";
}

PootButton::InitArgs::InitArgs(unsigned short w, unsigned short h)
    : Button::InitArgs(UIString(), WidgetCallback(LightweightString<char>(pootMsg)), w, h) {}

PootButton::PootButton(InitArgs const& args) : Button(args) {
    init();
}

// The colours are those of the palette it was made with, which createWidget takes from the
// parent, so the button sits on the title row without a face of its own.
void PootButton::init() {
    setStyle(Flat);
    Palette const& palette = getPalette();
    setCols(palette.text(TextNormal), palette.window(WindowShadeBase));
    UIString const help(ResId(11393));
    setContextString(help, help);
    applyFont();
    setAppearance(IconAppearance);
}

void PootButton::setAppearance(eAppearance appearance) {
    appearance_ = appearance;
    bool textSign = appearance != IconAppearance && pootsRule();
    setString(textSign ? UIString(getPootString()) : UIString());
    if (textSign)
        setIcon(LightweightString<wchar_t>());
    else
        setIcon(appearance == IconAppearance ? L"app-close.png" : L"poot.png");
}

void PootButton::resize(double w, double h) {
    Button::resize(w, h);
    applyFont();
}

// The sign is drawn a little larger than the row's text so that it reads at a glance.
void PootButton::applyFont() {
    setFont(Glib::FontDesc(Glib::getDefaultFontName(0), (unsigned short)((height() * 9) >> 3)));
}
