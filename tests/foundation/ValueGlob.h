#pragma once

// A widget that shows a double through an adaptor, and the adaptor that binds such widgets to a
// ValServer<double>, for tests of the binding's widget side.

#include "foundation/ValClient.h"
#include "foundation/ValWidget.h"
#include "glob/Glob.h"
#include "glob/GlobManager.h"

#include <functional>
#include <vector>

class ValueGlob : public Glob, public ValWidget<double> {
public:
    explicit ValueGlob(GlobCreationInfo const& info) : Glob(info) {}

    char const* idstring() const override { return "ValueGlob"; }
    void drawBackground() override { ++draws; }

    double getWidgetValue() override { return shown; }
    void setNewWidgetValue(double& value, eRedrawFlag redraw) override {
        shown = value;
        redraws.push_back(redraw);
        if (redraw == Redraw)
            update();
        // Last: it may delete the widget.
        if (onShow)
            onShow();
    }
    void setEnabledState(bool enabled) override { enabled_ = enabled; }
    bool getEnabledState() const override { return enabled_; }

    double shown = -1.0;
    int draws = 0;
    std::vector<eRedrawFlag> redraws;
    std::function<void()> onShow;

private:
    bool enabled_ = true;
};

// Passes requests to the server and every change back to the widgets, with a redraw.
class ServerAdaptor : public ValAdaptorBase<double>, public ValClient<double> {
public:
    explicit ServerAdaptor(ValServer<double>* server) { registerWith(server); }

    double getDataValue() override { return getServerValue(); }
    int requestSetNewDataValue(double const& value, DataChangeType type) override {
        types.push_back(type);
        setServerValue(value);
        return answer;
    }
    void valChangedNtfy() override { setNewWidgetValue(getServerValue(), Redraw); }

    int answer = 1;
    std::vector<DataChangeType> types;
};

inline ValueGlob* makeValueGlob(Glob* parent, XY<int> const& at) {
    GlobCreationInfo info(40, 20);
    info.canvas = parent->canvas();
    auto* widget = new ValueGlob(info);
    parent->addChild(widget, Glob::BottomLeft(at));
    return widget;
}
