// The cost of a key press reaching a panel ten levels deep and being sorted into its keyboard
// handler.

#include "glib/Display.h"
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
    // Through the base layer's own delivery: the intercept stacks, then the keyboard focus.
    innermost->claimKbdFocus();
    InputEvent key;
    key.kind = InputEvent::KeyDown;
    key.key = 'a';
    GlobManager& manager = GlobManager::instance();
    for (auto _ : state)
        manager.dispatch(key);
    state.SetItemsProcessed(state.iterations());
    state.counters["handled"] = (double)innermost->keys;
}
BENCHMARK(BM_KeyDispatch);

} // namespace
