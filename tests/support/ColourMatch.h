#pragma once

// A pixel read back from an 8-bit surface compared with the colour meant: equal within rounding,
// or within a wider tolerance where blending is part of the look. Alpha is not compared.

#include "glib/Colour.h"

#include <cmath>

inline bool nearColour(NormalisedRGB const& pixel, NormalisedRGB const& meant,
                       double tolerance = 0.02) {
    return std::abs(pixel.r - meant.r) < tolerance && std::abs(pixel.g - meant.g) < tolerance &&
           std::abs(pixel.b - meant.b) < tolerance;
}

inline bool nearColour(NormalisedRGB const& pixel, Colour const& meant, double tolerance = 0.02) {
    return nearColour(pixel, fromColour(meant), tolerance);
}
