#include "glib/Palette.h"

#include <algorithm>
#include <cmath>

namespace {

Colour const white(1.0, 1.0, 1.0);
Colour const black(0.0, 0.0, 0.0);

double clampUnit(double value) {
    return value > 0.0 ? std::min(value, 1.0) : 0.0;
}

Colour clamped(Colour const& c) {
    return Colour(clampUnit(c.red()), clampUnit(c.green()), clampUnit(c.blue()));
}

// Text that reads on the window: near-black on light windows, near-white on dark ones.
Colour textFor(Colour const& window) {
    return window.isSet() && window.brightness() < 0.5 ? Colour(0.9, 0.9, 0.9)
                                                       : Colour(0.1, 0.1, 0.1);
}

} // namespace

Palette::Palette() : Palette(Colour(0.85, 0.85, 0.85)) {}

Palette::Palette(Colour const& window) : Palette(window, textFor(window)) {}

Palette::Palette(Colour const& window, Colour const& text)
    : window_(window), text_(text), selection_(0.18, 0.48, 0.92), headingText_(0.1, 0.2, 0.5),
      subheadingText_(0.35, 0.42, 0.55), button_(0.92, 0.92, 0.92), warning_(0.9, 0.3, 0.1),
      contrast_(0.1f) {}

// Each step from the base shade moves the window colour by `contrast` towards white (lighter
// shades) or black (darker ones), so the steps show on light and dark windows alike.
Colour Palette::window(eWindowShade shade) const {
    int const steps = WindowShadeBase - std::clamp(int(shade), 0, int(WindowShadeDarkest));
    return scale(window_, 1.0 + contrast_ * steps);
}

Colour Palette::text(eTextAppearance appearance) const {
    switch (appearance) {
    case TextInactive:
        return Colour::mix(text_, window_, 0.5);
    case TextFaint:
        return Colour::mix(text_, window_, 0.7);
    default:
        return text_;
    }
}

Colour Palette::selection(eSelectionAppearance appearance) const {
    return appearance == SelectionFaint ? Colour::mix(selection_, window_, 0.5) : selection_;
}

Colour Palette::selectedText() const {
    return selection_.brightness() > 0.5 ? black : white;
}

Colour Palette::shadow() const {
    return Colour(0.05, 0.05, 0.05);
}

// A child window stands off from its parent away from the text colour: lighter on a light
// window, darker on a dark one, so its text reads at least as well.
Colour Palette::childWindow(eChildWindowType type) const {
    int const steps = std::clamp(int(type), 0, int(ChildWindowDeep));
    double const direction = window_.isSet() && window_.brightness() < 0.5 ? -1.0 : 1.0;
    return scale(window_, 1.0 + direction * contrast_ * steps);
}

Colour Palette::scale(Colour const& colour, double factor) const {
    if (!colour.isSet())
        return colour;
    double const amount = std::min(std::abs(factor - 1.0), 1.0);
    return clamped(Colour::mix(clamped(colour), factor > 1.0 ? white : black, amount));
}

bool Palette::operator==(Palette const& o) const {
    return window_ == o.window_ && text_ == o.text_ && selection_ == o.selection_ &&
           headingText_ == o.headingText_ && subheadingText_ == o.subheadingText_ &&
           button_ == o.button_ && warning_ == o.warning_ && contrast_ == o.contrast_;
}

Palette makeWindowPalette(Palette const& palette, Colour const& window) {
    Palette result(palette);
    result.setWindow(window);
    return result;
}

Palette makeTextPalette(Palette const& palette, Colour const& text) {
    Palette result(palette);
    result.setText(text);
    return result;
}

Palette makeChildPalette(Palette const& palette, eChildWindowType type) {
    return makeWindowPalette(palette, palette.childWindow(type));
}
