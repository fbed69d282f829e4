#pragma once

// A screen with one top-level window whose backing store the drawing tests read back, and small
// checks on its pixels. Pixels are in window coordinates, y up.

#include "glib/Canvas.h"
#include "glib/CanvasRenderer.h"
#include "glib/WindowSurface.h"

#include <gtest/gtest.h>

#include <cmath>
#include <memory>

namespace DrawTest {

inline NormalisedRGB const kRed(1, 0, 0);
inline NormalisedRGB const kGreen(0, 1, 0);
inline NormalisedRGB const kBlue(0, 0, 1);
inline NormalisedRGB const kNone(0, 0, 0, 0);

class TestWindow {
public:
    explicit TestWindow(XY<int> const& size = XY<int>(120, 90))
        : root_(Canvas::createRoot(XY<int>(800, 600))),
          top_(std::make_unique<Canvas>(root_.get(), Box(10, 20, 10 + size.x, 20 + size.y))) {
        top_->setSurface(std::make_unique<WindowSurface>(size));
        top_->map();
        surface().takeDamage();
    }

    Canvas* top() const { return top_.get(); }
    Canvas* root() const { return root_.get(); }
    WindowSurface& surface() const { return *top_->surface(); }
    CanvasRenderer& renderer() const { return top_->renderer(); }
    NormalisedRGB at(int x, int y) const { return surface().pixel(XY<int>(x, y)); }

    // A mapped child of `parent` covering `rect` of it.
    static std::unique_ptr<Canvas> child(Canvas* parent, Box const& rect) {
        auto canvas = std::make_unique<Canvas>(parent, rect);
        canvas->map();
        return canvas;
    }

    // The smallest box holding every pixel that isn't fully transparent, and how many there are.
    Box paintedBounds(int* count = nullptr) const {
        Box bounds;
        int n = 0;
        XY<int> size = surface().size();
        for (int y = 0; y < size.y; ++y)
            for (int x = 0; x < size.x; ++x)
                if (at(x, y).a > 0) {
                    bounds = bounds.unite(Box(x, y, x + 1, y + 1));
                    ++n;
                }
        if (count != nullptr)
            *count = n;
        return bounds;
    }

    // True when exactly the pixels of `box` are painted.
    ::testing::AssertionResult paintsExactly(Box const& box) const {
        int count = 0;
        Box bounds = paintedBounds(&count);
        if (bounds == box && count == box.width() * box.height())
            return ::testing::AssertionSuccess();
        return ::testing::AssertionFailure()
               << "painted " << count << " pixels within (" << bounds.x1 << "," << bounds.y1
               << ")-(" << bounds.x2 << "," << bounds.y2 << "), expected (" << box.x1 << ","
               << box.y1 << ")-(" << box.x2 << "," << box.y2 << ")";
    }

private:
    std::unique_ptr<Canvas> root_;
    std::unique_ptr<Canvas> top_;
};

inline ::testing::AssertionResult
sameColour(NormalisedRGB const& actual, NormalisedRGB const& expected, float tolerance = 0.02f) {
    if (std::fabs(actual.r - expected.r) <= tolerance &&
        std::fabs(actual.g - expected.g) <= tolerance &&
        std::fabs(actual.b - expected.b) <= tolerance &&
        std::fabs(actual.a - expected.a) <= tolerance)
        return ::testing::AssertionSuccess();
    return ::testing::AssertionFailure()
           << "colour (" << actual.r << ", " << actual.g << ", " << actual.b << ", " << actual.a
           << "), expected (" << expected.r << ", " << expected.g << ", " << expected.b << ", "
           << expected.a << ")";
}

inline void fill(CanvasRenderer& r, Box const& box, NormalisedRGB const& colour) {
    Glib::RectDescription rect;
    rect.box = box;
    rect.colour = colour;
    r.renderPrimitive(rect);
}

} // namespace DrawTest
