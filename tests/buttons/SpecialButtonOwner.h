#pragma once

// The fixture of the special buttons: a realized recording panel that makes buttons in itself as a
// host would.

#include "RecordingPanel.h"
#include "support/ColourMatch.h"
#include "testing/UiTestDriver.h"

#include <gtest/gtest.h>

#include <cmath>
#include <string>
#include <vector>

struct SpecialButtons : ::testing::Test {
    UiTestDriver driver;
    RecordingPanel* panel = nullptr;

    void SetUp() override {
        panel = makeRecordingWindow({400, 200});
        driver.processEvents();
    }

    template <class T>
    T* make(typename T::InitArgs const& args, XY<int> at = {20, 20}) {
        T* button = panel->createWidget<T>(args, Glob::BottomLeft(at));
        button->update();
        driver.processEvents();
        return button;
    }

    // Whether the pixel of `g` at `at` shows the colour, give or take rounding.
    bool shows(Glob* g, XY<int> at, Colour const& colour, float tolerance = 0.02f) {
        return nearColour(driver.pixel(g, at), colour, tolerance);
    }

    // A callback that notes each message name it is given.
    static WidgetCallback recorder(std::vector<std::string>& names, char const* message) {
        return WidgetCallback(Qor::makeCallback<NotifyMsg>([&names](NotifyMsg const& msg) {
                                  names.push_back(msg.getName().c_str());
                                  return 0;
                              }),
                              message);
    }

    // A callback that asks for the deletion of the widget `*target` names, as a host closing a
    // row of buttons from one of them would.
    static WidgetCallback deleter(Glob** target, char const* message) {
        return WidgetCallback(Qor::makeCallback<NotifyMsg>([target](NotifyMsg const&) {
                                  GlobManager::instance().requestDeletion(*target);
                                  return 0;
                              }),
                              message);
    }
};
