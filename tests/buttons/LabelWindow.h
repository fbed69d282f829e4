#pragma once

// A window for label tests and the way to put a label of any kind on it.

#include "glob/RecordingGlob.h"

template <class T>
T* addLabel(Glob* window, typename T::InitArgs args, XY<int> const& at = {10, 10}) {
    args.canvas = window->canvas();
    args.palette = window->getPalette();
    auto* label = new T(args);
    window->addChild(label, Glob::BottomLeft(at));
    label->update();
    return label;
}
