#include "glib/Colour.h"

#include <algorithm>
#include <cmath>

namespace {

// NaN clamps to 0, so a broken component cannot poison packing or conversion.
double clampUnit(double value) {
    return value > 0.0 ? std::min(value, 1.0) : 0.0;
}

unsigned toByte(double component) {
    return unsigned(std::lround(clampUnit(component) * 255.0));
}

} // namespace

NormalisedRGB fromColour(Colour const& colour) {
    return NormalisedRGB(float(clampUnit(colour.red())), float(clampUnit(colour.green())),
                         float(clampUnit(colour.blue())));
}

Colour::Colour(double red, double green, double blue, bool themed) {
    setrgb(red, green, blue, themed);
}

Colour::Colour(NormalisedRGB const& rgb) : Colour(rgb.r, rgb.g, rgb.b) {}

Colour Colour::mix(Colour const& a, Colour const& b, double t) {
    if (!a.isSet())
        return b;
    if (!b.isSet())
        return a;
    return Colour(a.red_ + (b.red_ - a.red_) * t, a.green_ + (b.green_ - a.green_) * t,
                  a.blue_ + (b.blue_ - a.blue_) * t);
}

void Colour::setrgb(double red, double green, double blue, bool themed) {
    red_ = red;
    green_ = green;
    blue_ = blue;
    themed_ = themed;
    set_ = true;
}

double Colour::brightness() const {
    return 0.299 * red_ + 0.587 * green_ + 0.114 * blue_;
}

unsigned Colour::get_vlib_colour(bool withAlpha) const {
    unsigned const rgb = toByte(red_) << 16 | toByte(green_) << 8 | toByte(blue_);
    return withAlpha ? rgb << 8 | 0xFFu : rgb;
}

bool Colour::operator==(Colour const& other) const {
    if (set_ != other.set_)
        return false;
    return !set_ || (red_ == other.red_ && green_ == other.green_ && blue_ == other.blue_);
}

Colour scale(Colour const& colour, double factor) {
    if (!colour.isSet())
        return colour;
    return Colour(clampUnit(colour.red() * factor), clampUnit(colour.green() * factor),
                  clampUnit(colour.blue() * factor));
}

Colour offsetColour(Colour const& colour, double dr, double dg, double db) {
    if (!colour.isSet())
        return colour;
    return Colour(clampUnit(colour.red() + dr), clampUnit(colour.green() + dg),
                  clampUnit(colour.blue() + db));
}
