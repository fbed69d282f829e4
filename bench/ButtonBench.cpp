// Buttons in bulk: making, laying out and painting a panel of ten thousand; a button's share of
// the cost of mouse delivery; repainting a form of mixed controls, whole and after one click.

#include "buttons/Checkbox.h"
#include "buttons/CycleButton.h"
#include "buttons/Gauge.h"
#include "buttons/PushButton.h"
#include "buttons/Slider.h"
#include "buttons/TextLabel.h"
#include "glib/Display.h"
#include "glob/GlobManager.h"
#include "glob/UifStd.h"
#include "panels/StandardPanel.h"
#include "panels/WidgetGroupEx.h"
#include "testing/UiTestDriver.h"

#include <benchmark/benchmark.h>

#include <malloc.h>

#include <string>

namespace {

constexpr int gridSide = 100;
constexpr unsigned short buttonWidth = 48;
constexpr unsigned short buttonHeight = 20;
constexpr int pitchX = buttonWidth + 2;
constexpr int pitchY = buttonHeight + 2;

std::size_t heapInUse() {
    return mallinfo2().uordblks;
}

void addButtonGrid(StandardPanel* panel) {
    for (int i = 0; i < gridSide * gridSide; ++i) {
        std::wstring label = L"B" + std::to_wstring(i);
        panel->createWidget<PushButton>(
            PushButton::InitArgs(UIString(label.c_str()), WidgetCallback("pressed"), buttonWidth,
                                 buttonHeight),
            Glob::BottomLeft(2 + (i % gridSide) * pitchX, 2 + (i / gridSide) * pitchY));
    }
}

void BM_W3_ManyButtons(benchmark::State& state) {
    UiTestDriver driver(XY<int>(gridSide * pitchX + 200, gridSide * pitchY + 200));
    double bytesPerThousand = 0;
    for (auto _ : state) {
        Glob::setupRootPos(XY<int>(0, 0));
        auto* panel = new StandardPanel(
            StandardPanel::InitArgs(gridSide * pitchX + 4, gridSide * pitchY + 4));
        std::size_t before = heapInUse();
        addButtonGrid(panel);
        bytesPerThousand = double(heapInUse() - before) / (gridSide * gridSide / 1000.0);
        GlobManager::instance().realize(panel);
        driver.processEvents();
        state.PauseTiming();
        GlobManager::instance().requestDeletion(panel);
        driver.processEvents();
        state.ResumeTiming();
    }
    state.counters["bytes_per_1000"] = bytesPerThousand;
}
BENCHMARK(BM_W3_ManyButtons)->Unit(benchmark::kMillisecond)->Iterations(5);

void BM_W4_ButtonDispatch(benchmark::State& state) {
    UiTestDriver driver;
    Glob::setupRootPos(XY<int>(100, 100));
    auto* window = new StandardPanel(StandardPanel::InitArgs(400, 400));
    StandardPanel* parent = window;
    for (int depth = 1; depth < 10; ++depth) {
        StandardPanel::InitArgs args((unsigned short)(380 - depth * 20),
                                     (unsigned short)(380 - depth * 20));
        args.canvas = parent->canvas();
        auto* child = new StandardPanel(args);
        parent->addWidget(child, 10, 10);
        parent = child;
    }
    Button* button = parent->createWidget<PushButton>(
        PushButton::InitArgs(UIString(L"Deep"), WidgetCallback("deep"), 120, 60),
        Glob::BottomLeft(10, 10));
    GlobManager::instance().realize(window);
    driver.processEvents();
    XY<int> origin(button->getX(), button->getY());
    GlobManager& manager = GlobManager::instance();
    InputEvent move;
    move.kind = InputEvent::PointerMove;
    move.window = window->canvas();
    int step = 0;
    for (auto _ : state) {
        move.rootPos = XY<int>(origin.x + 10 + step % 100, origin.y + 10 + (step / 100) % 40);
        manager.dispatch(move);
        ++step;
    }
    state.SetItemsProcessed(state.iterations());
}
BENCHMARK(BM_W4_ButtonDispatch)->Iterations(1000000);

} // namespace

// A form of 1920 by 1080 with 200 controls of seven kinds in a grid of 10 by 20 cells.
class Form {
public:
    static constexpr int columns = 10;
    static constexpr int rows = 20;
    static constexpr unsigned short cellWidth = 180;
    static constexpr unsigned short cellHeight = 44;

    explicit Form(UiTestDriver& driver) {
        Glob::setupRootPos(XY<int>(0, 0));
        panel = new StandardPanel(StandardPanel::InitArgs(1920, 1080));
        for (int i = 0; i < columns * rows; ++i)
            addControl(i);
        GlobManager::instance().realize(panel);
        driver.processEvents();
    }

    StandardPanel* panel = nullptr;
    Checkbox* firstCheckbox = nullptr;

private:
    void addControl(int i) {
        WidgetPosition at = Glob::BottomLeft(10 + (i % columns) * (cellWidth + 10),
                                             10 + (i / columns) * (cellHeight + 8));
        std::wstring text = L"Control " + std::to_wstring(i);
        UIString label(text.c_str());
        auto h = (unsigned short)UifStd::getRowHeight();
        switch (i % 7) {
        case 0:
            panel->createWidget<TextLabel>(TextLabel::InitArgs(text.c_str(), cellWidth, h), at);
            break;
        case 1: {
            auto* box = panel->createWidget<Checkbox>(
                Checkbox::InitArgs(label, i % 2 == 0, cellWidth, h), at);
            if (firstCheckbox == nullptr)
                firstCheckbox = box;
            break;
        }
        case 2:
            panel->createWidget<PushButton>(
                PushButton::InitArgs(label, WidgetCallback("push"), cellWidth), at);
            break;
        case 3:
            panel->createWidget<CycleButton>(
                CycleButton::InitArgs("cycle", {UIString(L"Slow"), UIString(L"Fast")}, cellWidth,
                                      (unsigned short)PushButton::calcHeight()),
                at);
            break;
        case 4: {
            Slider::InitArgs args(cellWidth, h);
            args.position = 0.4;
            panel->createWidget<Slider>(args, at);
            break;
        }
        case 5: {
            Gauge::InitArgs args(cellWidth, h);
            args.text = L"Copying";
            panel->createWidget<Gauge>(args, at)->setMeasure(0.6);
            break;
        }
        default:
            panel->createWidget<WidgetGroupEx>(
                WidgetGroupEx::InitArgs(label, cellWidth, cellHeight), at);
        }
    }
};

void BM_W5_FormRepaint(benchmark::State& state) {
    UiTestDriver driver;
    Form form(driver);
    for (auto _ : state) {
        form.panel->update();
        driver.processEvents();
    }
    state.SetItemsProcessed(state.iterations());
}
BENCHMARK(BM_W5_FormRepaint)->Unit(benchmark::kMillisecond);

void BM_W5_ButtonToggle(benchmark::State& state) {
    UiTestDriver driver;
    Form form(driver);
    Checkbox* box = form.firstCheckbox;
    XY<int> centre(box->width() - 8, box->height() / 2);
    for (auto _ : state)
        driver.click(box, centre);
    state.SetItemsProcessed(state.iterations());
    state.counters["ticked"] = box->getState() ? 1 : 0;
}
BENCHMARK(BM_W5_ButtonToggle)->Unit(benchmark::kMicrosecond);
