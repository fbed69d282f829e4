#include "panels/WidgetGroup2.h"

WidgetGroup2::WidgetGroup2(WidgetGroup::InitArgs const& args) : WidgetGroupEx(args) {
    setAutoResize(true);
    setChildrenOffset(childXOffset());
}
