#pragma once

// A titled group for forms that are filled in as they are built: it grows to fit each control
// added below its title, and indents the controls under the title.

#include "panels/WidgetGroupEx.h"

class WidgetGroup2 : public WidgetGroupEx {
public:
    using InitArgs = WidgetGroup::InitArgs;

    explicit WidgetGroup2(WidgetGroup::InitArgs const& args);

    char const* idstring() const override { return "WidgetGroup2"; }
};
