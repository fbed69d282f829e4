#include "glob/ScreenServices.h"

#include "glib/WindowSurface.h"
#include "glob/GlobManager.h"

#include <algorithm>

namespace {
bool contextLogic = true;
} // namespace

namespace Glib {
void getMonitors(std::vector<Monitor>& out) {
    out = display().monitors();
}
} // namespace Glib

int glib_getRootWindowHeight() {
    return Glib::display().screenSize().y;
}

int glib_getMonitorWidth() {
    std::vector<Glib::Monitor> monitors = Glib::display().monitors();
    return monitors.empty() ? Glib::display().screenSize().x : monitors.front().area.width();
}

int glib_getMonitorHeight() {
    std::vector<Glib::Monitor> monitors = Glib::display().monitors();
    return monitors.empty() ? Glib::display().screenSize().y : monitors.front().area.height();
}

XY<int> glib_getPosForWindow(XY<int> const& size) {
    XY<int> screen = Glib::display().screenSize();
    return XY<int>(std::max(0, (screen.x - size.x) / 2), std::max(0, (screen.y - size.y) / 2));
}

XY<int> glib_getConstrainedPosForWindow(Canvas* root, XY<int> const& pos, XY<int> const& size) {
    return GlobManager::instance().getSafePosForGlob(root, pos, size);
}

XY<int> glibPosToOSPos(Canvas* canvas, XY<int> const& pos, Glib::CoordinateSystem system) {
    XY<int> root = canvas != nullptr ? canvas->rootPosition() + pos : pos;
    if (system == Glib::CoordinateSystem::Root)
        return root;
    return XY<int>(root.x, glib_getRootWindowHeight() - 1 - root.y);
}

void glib_setCursor(MouseCursorID cursor) {
    Canvas* under = glib_getCurrentMouseCanvas();
    if (under == nullptr || under->isRoot())
        return;
    if (WindowSurface* s = under->surface(); s != nullptr && s->window() != nullptr)
        s->window()->setCursor(cursor);
}

XY<int> glib_getMousePos() {
    return Glib::display().pointerPosition();
}

Canvas* glib_getCurrentMouseCanvas() {
    Canvas* root = glib_rootcanvas();
    return root->pick(glib_getMousePos());
}

void glib_enableMouseContextLogic(bool enable) {
    contextLogic = enable;
}

bool glib_mouseContextLogicEnabled() {
    return contextLogic;
}

bool glib_appHasFocus() {
    return Glib::display().hasFocus();
}

int getMouseClickState() {
    return GlobManager::instance().buttonsHeld();
}
