#pragma once

// The screen as widgets ask about it: its size and monitors, where the pointer is and over which
// canvas, where a new window may go, and the pointer's shape.

#include "glib/Display.h"
#include "glob/Glob.h"

#include <vector>

namespace Glib {
enum class CoordinateSystem {
    // Root coordinates, y up from the bottom of the screen.
    Root = 0,
    // The window system's coordinates, y down from the top of the screen.
    OS = 1,
};
void getMonitors(std::vector<Monitor>& out);
} // namespace Glib

int glib_getRootWindowHeight();
int glib_getMonitorWidth();
int glib_getMonitorHeight();
// Where the window system would put a window of the size: centred on the screen (root
// coordinates, bottom-left corner).
XY<int> glib_getPosForWindow(XY<int> const& size);
// The position moved as little as needed for a window of the size to lie on the screen.
XY<int> glib_getConstrainedPosForWindow(Canvas* root, XY<int> const& pos, XY<int> const& size);
// A point of the canvas in the asked coordinate system.
XY<int> glibPosToOSPos(Canvas* canvas, XY<int> const& pos, Glib::CoordinateSystem system);
// Sets the pointer's shape over the window under it.
void glib_setCursor(MouseCursorID cursor);
// The pointer in root coordinates.
XY<int> glib_getMousePos();
Canvas* glib_getCurrentMouseCanvas();
// Turns the base's own containment and cursor updates on pointer moves off and on.
void glib_enableMouseContextLogic(bool enable);
bool glib_mouseContextLogicEnabled();
bool glib_appHasFocus();
// Non-zero while a mouse button is held.
int getMouseClickState();
