// The cost of a key press reaching a panel ten levels deep and being sorted into its keyboard
// handler.

#include "glob/GlobManager.h"
#include "panels/StandardPanel.h"
#include "testing/UiTestDriver.h"

#include <benchmark/benchmark.h>

namespace {

class KeyCountingPanel : public StandardPanel {
public:
    using StandardPanel::StandardPanel;

    int handleKeyboardEvent(int) override {
        ++keys;
        return 1;
    }

    long keys = 0;
};

void BM_KeyDispatch(benchmark::State& state) {
    UiTestDriver driver;
    Glob::setupRootPos(XY<int>(100, 100));
    auto* window = new StandardPanel(StandardPanel::InitArgs(400, 400));
    StandardPanel* parent = window;
    KeyCountingPanel* innermost = nullptr;
    for (int depth = 0; depth < 10; ++depth) {
        StandardPanel::InitArgs args((unsigned short)(360 - depth * 20),
                                     (unsigned short)(360 - depth * 20));
        args.canvas = parent->canvas();
        StandardPanel* child = nullptr;
        if (depth == 9)
            child = innermost = new KeyCountingPanel(args);
        else
            child = new StandardPanel(args);
        parent->addWidget(child, 10, 10);
        parent = child;
    }
    GlobManager::instance().realize(window);
    driver.processEvents();
    Event key;
    key.type = EventCode::KeyPress;
    key.canvas = innermost->canvas();
    key.keyCode('a');
    GlobManager& manager = GlobManager::instance();
    for (auto _ : state)
        benchmark::DoNotOptimize(manager.deliver(innermost, key, true));
    state.SetItemsProcessed(state.iterations());
    state.counters["handled"] = (double)innermost->keys;
}
BENCHMARK(BM_KeyDispatch);

} // namespace
