// What text costs the widgets: measuring a label that has been measured before (tables and menus
// do it for every row on every layout), and drawing one.

#include "glib/Canvas.h"
#include "glib/CanvasRenderer.h"
#include "glib/Font.h"
#include "glib/WindowSurface.h"

#include <benchmark/benchmark.h>

#include <memory>

namespace {

// Twenty characters.
wchar_t const* const labelText = L"Quarterly totals (\u20ac)";

void BM_Base_MeasureText(benchmark::State& state) {
    Qor::Ptr<iFont> font = Glib::loadFont(Glib::getDefaultFont());
    LightweightString<wchar_t> const text(labelText);
    font->measure(text);
    for (auto _ : state) {
        XY<int> size = font->measure(text);
        benchmark::DoNotOptimize(size.x);
    }
}
BENCHMARK(BM_Base_MeasureText);

void BM_Base_DrawText(benchmark::State& state) {
    std::unique_ptr<Canvas> root = Canvas::createRoot(XY<int>(800, 600));
    Canvas window(root.get(), Box(0, 0, 300, 40));
    window.setSurface(std::make_unique<WindowSurface>(XY<int>(300, 40)));
    window.map();
    Glib::TextDescription text;
    text.text = labelText;
    text.font = Glib::loadFont(Glib::getDefaultFont());
    text.origin = XY<int>(10, getFontYOffset(40, text.font));
    for (auto _ : state) {
        window.renderer().renderPrimitive(text);
        window.surface()->takeDamage();
    }
}
BENCHMARK(BM_Base_DrawText);

} // namespace
