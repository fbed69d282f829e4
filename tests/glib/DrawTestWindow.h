#pragma once

// A screen with one top-level window whose backing store the drawing tests read back, and small
// checks on its pixels. Pixels are in window coordinates, y up.

#include "glib/Canvas.h"
#include "glib/CanvasRenderer.h"
#include "glib/WindowSurface.h"

#include <gtest/gtest.h>

#include <cmath>
#include <functional>
#include <memory>

namespace DrawTest {

inline NormalisedRGB const kRed(1, 0, 0);
inline NormalisedRGB const kGreen(0, 1, 0);
inline NormalisedRGB const kBlue(0, 0, 1);

using PixelTest = std::function<bool(NormalisedRGB const&)>;

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

    // The smallest box holding every pixel of `area` (all of the window when empty) that matches,
    // and how many match.
    Box pixelsWhere(PixelTest const& match, int* count = nullptr, Box area = Box()) const {
        area = area.isEmpty() ? Box(0, 0, surface().size().x, surface().size().y) : area;
        Box found;
        int n = 0;
        for (int y = area.y1; y < area.y2; ++y)
            for (int x = area.x1; x < area.x2; ++x)
                if (match(at(x, y))) {
                    found = found.unite(Box(x, y, x + 1, y + 1));
                    ++n;
                }
        if (count != nullptr)
            *count = n;
        return found;
    }

    // The pixels that aren't fully transparent.
    Box paintedBounds(int* count = nullptr) const {
        return pixelsWhere([](NormalisedRGB const& p) { return p.a > 0; }, count);
    }

    int countInRow(PixelTest const& match, int y) const {
        int n = 0;
        pixelsWhere(match, &n, Box(0, y, surface().size().x, y + 1));
        return n;
    }

    // True when exactly the pixels of `box` are painted.
    ::testing::AssertionResult paintsExactly(Box const& box) const {
        int count = 0;
        Box bounds = paintedBounds(&count);
        if (bounds == box && count == box.width() * box.height())
            return ::testing::AssertionSuccess();
        return ::testing::AssertionFailure()
               << "painted " << count << " pixels within (" << bounds.x1 << "," << bounds.y1
               << ")-(" << bounds.x2 << "," << bounds.y2 << ")";
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
    return ::testing::AssertionFailure() << "colour (" << actual.r << ", " << actual.g << ", "
                                         << actual.b << ", " << actual.a << ")";
}

inline void fill(CanvasRenderer& r, Box const& box, NormalisedRGB const& colour) {
    Glib::RectDescription rect;
    rect.box = box;
    rect.colour = colour;
    r.renderPrimitive(rect);
}

} // namespace DrawTest
