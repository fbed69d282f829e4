#pragma once

// What the older drawing calls (the glib_ path calls and the helpers on the current canvas) work
// with: the current canvas, the translation added to every position, the colour and the path
// being built. There is one, used on the user-interface thread; glib_gsave and StateSaver keep
// copies of it.

#include "glib/Colour.h"
#include "glib/Path.h"
#include "qor/XY.h"

class Canvas;

namespace Glib {

struct DrawingState {
    static DrawingState& current();

    Canvas* canvas = nullptr;
    XY<int> translation;
    Colour colour = Colour(0.0, 0.0, 0.0);
    // In the current canvas's coordinates, translation included.
    Path path;
};

} // namespace Glib
