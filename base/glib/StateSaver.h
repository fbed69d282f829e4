#pragma once

// Keeps the state of the older drawing calls for a scope: the current canvas, translation, colour
// and path come back when the saver ends, whatever the code inside changed.

#include "glib/DrawingState.h"

namespace Glib {

class StateSaver {
public:
    StateSaver();
    ~StateSaver();
    StateSaver(StateSaver const&) = delete;
    StateSaver& operator=(StateSaver const&) = delete;

private:
    DrawingState saved_;
};

} // namespace Glib
