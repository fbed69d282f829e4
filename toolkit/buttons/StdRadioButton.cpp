#include "buttons/StdRadioButton.h"

StdRadioButton::StdRadioButton(InitArgs const& args) : radio_button(args) {
    setStyle(Standard);
    applyChosenColours();
}

void StdRadioButton::setPalette(Palette const& palette) {
    radio_button::setPalette(palette);
    applyChosenColours();
}

void StdRadioButton::applyChosenColours() {
    Palette const& p = getPalette();
    setDownCols(p.selectedText(), p.selection(SelectionNormal));
}
