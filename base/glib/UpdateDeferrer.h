#pragma once

// Holds back showing a window's drawing on the screen for a scope, so that many small changes
// reach it as one. Deferrers nest: the window is updated once, when the outermost ends. Made with
// a null canvas (or the screen's) it holds back every window. The canvas's window must outlive the
// deferrer.

class Canvas;
class WindowSurface;

namespace Glib {

class UpdateDeferrer {
public:
    explicit UpdateDeferrer(Canvas* canvas);
    ~UpdateDeferrer();
    UpdateDeferrer(UpdateDeferrer const&) = delete;
    UpdateDeferrer& operator=(UpdateDeferrer const&) = delete;

private:
    bool everyWindow_ = false;
    WindowSurface* surface_ = nullptr;
};

} // namespace Glib
