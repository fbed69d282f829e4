// What the base layer costs a running interface: repainting a full window of widgets, repainting
// one small widget, and delivering pointer moves through picking to a deeply nested widget.

#include "display/HeadlessDisplay.h"
#include "glib/CanvasRenderer.h"
#include "glib/DrawingHelpers.h"
#include "glib/WindowSurface.h"
#include "glob/EventLoop.h"
#include "glob/GlobManager.h"
#include "testing/UiTestDriver.h"

#include <benchmark/benchmark.h>

#include <cwchar>

namespace {

// A control as forms have them: a face, a rounded outline and a label.
class Control : public Glob {
public:
    Control(GlobCreationInfo const& info, int number) : Glob(info) {
        wchar_t label[32];
        std::swprintf(label, 32, L"Control %d", number);
        label_ = label;
        font_ = Glib::loadFont(Glib::getDefaultFont());
    }
    void drawBackground() override {
        CanvasRenderer& r = canvas()->renderer();
        Glib::drawRoundedRect(r, getPalette().window(WindowShadeLight),
                              getPalette().window(WindowShadeDark), face(), 2, 15, 1);
        Glib::TextDescription t;
        t.text = label_;
        t.font = font_;
        t.colour = fromColour(getPalette().text());
        t.origin = XY<int>(6, getFontYOffset(height(), font_));
        r.renderPrimitive(t);
    }
    int react(Event const& e) override { return mouse_event(e) ? 1 : 0; }

private:
    LightweightString<wchar_t> label_;
    Qor::Ptr<iFont> font_;
};

// A 1920 by 1080 window holding 200 controls of 180 by 40 in a grid.
struct Form {
    UiTestDriver driver{XY<int>(1920, 1080)};
    Glob* window;
    std::vector<Control*> controls;

    Form() {
        Glob::setupRootPos(XY<int>(0, 0));
        window = new Glob(GlobCreationInfo(1920, 1080));
        for (int i = 0; i < 200; ++i) {
            GlobCreationInfo info(180, 40);
            info.canvas = window->canvas();
            auto* c = new Control(info, i);
            window->addWidget(c, 10 + (i % 10) * 190, 10 + (i / 10) * 52);
            controls.push_back(c);
        }
        GlobManager::instance().realize(window);
        driver.processEvents();
    }
};

void BM_Base_FullRepaint(benchmark::State& state) {
    Form form;
    for (auto _ : state)
        form.window->update();
}
BENCHMARK(BM_Base_FullRepaint)->Unit(benchmark::kMillisecond);

void BM_Base_SmallRepaint(benchmark::State& state) {
    Form form;
    Glob* small = form.controls[55];
    small->resize(100, 24);
    HeadlessWindow* shown = form.driver.display().windowOf(form.window->canvas());
    long before = shown->presentedPixels;
    for (auto _ : state)
        small->update();
    // Only the control's own area reaches the display.
    state.counters["pixels_shown_per_repaint"] =
        double(shown->presentedPixels - before) / double(state.iterations());
}
BENCHMARK(BM_Base_SmallRepaint)->Unit(benchmark::kMicrosecond);

// Ten nested widgets, each 10 pixels inside its parent; the innermost takes the moves.
void BM_W4_EventDispatch(benchmark::State& state) {
    UiTestDriver driver;
    Glob::setupRootPos(XY<int>(100, 100));
    Glob* window = new Glob(GlobCreationInfo(400, 400));
    Glob* parent = window;
    for (int depth = 0; depth < 10; ++depth) {
        GlobCreationInfo info(360 - depth * 20, 360 - depth * 20);
        info.canvas = parent->canvas();
        Glob* child = depth == 9 ? new Control(info, depth) : new Glob(info);
        parent->addWidget(child, 10, 10);
        parent = child;
    }
    GlobManager::instance().realize(window);
    driver.processEvents();
    GlobManager& manager = GlobManager::instance();
    InputEvent move;
    move.kind = InputEvent::PointerMove;
    move.window = window->canvas();
    int step = 0;
    for (auto _ : state) {
        move.rootPos = XY<int>(100 + 110 + step % 50, 100 + 110 + (step / 50) % 50);
        manager.dispatch(move);
        ++step;
    }
    state.SetItemsProcessed(state.iterations());
}
BENCHMARK(BM_W4_EventDispatch)->Iterations(1000000);

} // namespace
