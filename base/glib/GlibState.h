#pragma once

// The drawing state of the process that the older drawing calls share: the current drawing state
// and the states saved by glib_gsave. A singleton reachable from any thread; drawing itself
// happens on the user-interface thread, and code elsewhere takes the lock.

#include "glib/DrawingState.h"
#include "os/CriticalSection.h"

#include <vector>

namespace Loki {
template <class T>
struct CreateUsingNew;
}

class GlibState {
public:
    static GlibState& instance();

    Glib::DrawingState& drawing() { return drawing_; }
    std::vector<Glib::DrawingState>& saved() { return saved_; }
    CriticalSection& lock() { return lock_; }

private:
    friend struct Loki::CreateUsingNew<GlibState>;
    GlibState() = default;

    Glib::DrawingState drawing_;
    std::vector<Glib::DrawingState> saved_;
    CriticalSection lock_;
};
