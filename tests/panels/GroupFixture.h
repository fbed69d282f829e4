#pragma once

// A window to put groups and small panels in, with the helpers their tests share: a recording
// child placed at a chosen position, and a colour comparison for pixels read back.

#include "../glob/RecordingGlob.h"
#include "glob/UifStd.h"
#include "support/ColourMatch.h"
#include "testing/UiTestDriver.h"

#include <gtest/gtest.h>

#include <cmath>

struct GroupFixture : ::testing::Test {
    UiTestDriver driver;
    RecordingGlob* window = nullptr;

    void SetUp() override {
        window = makeWindow({50, 50}, {700, 500});
        driver.processEvents();
    }

    // A widget of the panel's class, a child of the window with its bottom-left corner at `at`.
    template <class T>
    T* add(typename T::InitArgs args, XY<int> const& at) {
        args.canvas = window->canvas();
        auto* widget = new T(args);
        window->addChild(widget, Glob::BottomLeft(at));
        widget->update();
        return widget;
    }

    // A recording child of `parent` at a position.
    static RecordingGlob* addProbe(Glob* parent, WidgetPosition const& at, XY<int> const& size) {
        GlobCreationInfo info((unsigned short)size.x, (unsigned short)size.y);
        info.canvas = parent->canvas();
        auto* child = new RecordingGlob(info);
        parent->addChild(child, at);
        return child;
    }
};
