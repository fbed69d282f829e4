#pragma once

// What the rest of the desktop does to our windows, for tests that also include the widget
// headers (which cannot share a file with Xlib's, whose macros and types clash with them): taking
// a turn on the shared server, looking at a window and closing it as a window manager would.

#include <memory>

class Canvas;

class X11Outside {
public:
    // Waits for this test's turn on the server named by $DISPLAY and connects to it.
    X11Outside();
    ~X11Outside();
    X11Outside(X11Outside const&) = delete;
    X11Outside& operator=(X11Outside const&) = delete;

    bool connected() const;
    // The X window of a top-level canvas shown on our X display.
    static unsigned long windowOf(Canvas* topLevel);
    bool isViewable(unsigned long window);
    void giveFocus(unsigned long window);
    // Sends the window the close request a window manager sends.
    void requestClose(unsigned long window);
    // Moves the pointer to the middle of nowhere.
    void parkPointer();

private:
    struct State;
    std::unique_ptr<State> state_;
};
