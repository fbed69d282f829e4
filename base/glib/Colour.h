#pragma once

// Colour values. Colour is the RGB colour that widgets paint with: unclamped double components and
// an unset state that matches no real colour. NormalisedRGB is four floats in 0..1, the form theme
// values are stored in. ColourData is the colour value of the value-binding layer.

class Colour;

struct NormalisedRGB {
    NormalisedRGB() = default;
    NormalisedRGB(float red, float green, float blue, float alpha = 1.0f)
        : r(red), g(green), b(blue), a(alpha) {}

    bool operator==(NormalisedRGB const& other) const = default;

    float r = 0.0f;
    float g = 0.0f;
    float b = 0.0f;
    float a = 1.0f;
};

// The components clamped to 0..1, alpha 1. An unset colour gives opaque black.
NormalisedRGB fromColour(Colour const& colour);

class Colour {
public:
    // The unset colour: equal to every other unset colour and to no real colour.
    Colour() = default;
    // `themed` says the colour follows the theme; it plays no part in equality.
    Colour(double red, double green, double blue, bool themed = false);
    // The alpha is dropped.
    Colour(NormalisedRGB const& rgb);

    // a + (b - a) * t, unclamped. An unset colour leaves the other unchanged; two give an unset
    // one.
    static Colour mix(Colour const& a, Colour const& b, double t);

    void setrgb(double red, double green, double blue, bool themed = false);

    bool isSet() const { return set_; }
    bool isThemed() const { return themed_; }
    double red() const { return red_; }
    double green() const { return green_; }
    double blue() const { return blue_; }
    // Luma, 0.299 r + 0.587 g + 0.114 b.
    double brightness() const;
    // 0xRRGGBB, or 0xRRGGBBFF `withAlpha`; each component clamped to 0..1 and rounded to 0..255.
    unsigned get_vlib_colour(bool withAlpha) const;

    // Compares the set state and the components.
    bool operator==(Colour const& other) const;

private:
    double red_ = 0.0;
    double green_ = 0.0;
    double blue_ = 0.0;
    bool set_ = false;
    bool themed_ = false;
};

// The components multiplied by `factor` and clamped to 0..1. An unset colour stays unset.
Colour scale(Colour const& colour, double factor);
// The offsets added to the components, clamped to 0..1. An unset colour stays unset.
Colour offsetColour(Colour const& colour, double dr, double dg, double db);

enum class ColourSpace {
    RGB,
};

class ColourData {
public:
    // Black: the value of an empty message or of a client bound to nothing.
    ColourData() : ColourData(0, 0, 0) {}
    ColourData(double red, double green, double blue, ColourSpace space = ColourSpace::RGB,
               double alpha = 1.0)
        : red_(red), green_(green), blue_(blue), alpha_(alpha), space_(space) {}

    double getRed() const { return red_; }
    double getGreen() const { return green_; }
    double getBlue() const { return blue_; }
    double getAlpha() const { return alpha_; }
    ColourSpace getSpace() const { return space_; }

    bool operator==(ColourData const& other) const = default;

private:
    double red_;
    double green_;
    double blue_;
    double alpha_;
    ColourSpace space_;
};
