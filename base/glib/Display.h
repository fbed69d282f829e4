#pragma once

// The window system under the canvases. Two displays stand behind this one interface: headless,
// whose windows are backing stores in memory on a screen of a chosen size, and X11. The display
// turns its events into InputEvents in root coordinates (y up from the bottom of the screen) and
// shows what the canvases drew when their window surfaces flush.

#include "glib/Region.h"
#include "glib/RootWindow.h"
#include "os/OS.h"
#include "qor/Box.h"
#include "qor/LightweightString.h"
#include "qor/Ptr.h"

#include <memory>
#include <vector>

class Canvas;
class WindowSurface;

// What a display reports; positions are root coordinates, y up.
struct InputEvent {
    // Named apart from the window system's own macros.
    enum Kind {
        PointerPress,
        PointerRelease,
        PointerMove,
        WheelTurn,
        KeyDown,
        KeyUp,
        // The window manager asks the window to close.
        CloseRequest,
        // The window manager moved or resized the window to `bounds`.
        Configure,
        // Part of the window must be shown again from its backing store.
        ExposeArea,
        FocusGained,
        FocusLost,
        // The pointer left every window of the application.
        PointerLeft,
    };

    Kind kind = PointerMove;
    // The top-level canvas the event came to (null when it is about no window).
    Canvas* window = nullptr;
    XY<int> rootPos;
    // 1 left, 2 middle, 3 right.
    int button = 0;
    // Steps of a wheel turn, positive away from the user.
    int wheelSteps = 0;
    // A key code as events carry it (character or key number with modifier bits).
    unsigned key = 0;
    // The modifier bits held (Shift, Ctrl, Alt, command).
    unsigned modifiers = 0;
    double time = 0;
    Box bounds;
};

// One top-level window of the display.
class iWindow {
public:
    virtual ~iWindow() = default;
    // Root coordinates, y up.
    virtual void setBounds(Box const& rootRect) = 0;
    virtual void setMapped(bool mapped) = 0;
    virtual void raise() = 0;
    virtual void setKeepAbove(bool keep) = 0;
    virtual void setOpacity(double opacity) = 0;
    // Window coordinates, y up; an empty pointer removes the shape.
    virtual void setShape(Qor::Ptr<iRegion> const& shape) = 0;
    virtual void setTitle(LightweightString<wchar_t> const& title) = 0;
    virtual void setCursor(int cursorId) = 0;
    // Shows the damaged boxes (window coordinates, y up) of the store.
    virtual void present(WindowSurface& surface, std::vector<Box> const& damage) = 0;
    virtual Qor::Ptr<iRootWindow> rootWindow() = 0;
};

namespace Glib {
struct Monitor {
    Box area;
    double scale = 1.0;
};
} // namespace Glib

enum class ClipboardChannel {
    // Copy and paste.
    Clipboard,
    // The current selection, pasted with the middle button.
    Selection,
};

class iDisplay {
public:
    enum class WindowKind {
        Normal,
        // Menus, drop-downs and tips: no decoration, placed exactly where asked.
        Popup,
    };

    virtual ~iDisplay() = default;

    virtual char const* name() const = 0;
    virtual XY<int> screenSize() const = 0;
    virtual std::vector<Glib::Monitor> monitors() const = 0;
    // The interface scale (1 at 96 dots per inch).
    virtual double scale() const = 0;

    virtual std::unique_ptr<iWindow> createWindow(Canvas* topLevel, WindowKind kind) = 0;

    // A descriptor that becomes readable when events wait, or -1.
    virtual int eventFd() const = 0;
    // Appends the events that are waiting, without blocking.
    virtual void readEvents(std::vector<InputEvent>& out) = 0;
    // Events are waiting that the descriptor may not show (already read off the connection).
    virtual bool eventsWaiting() { return false; }
    // Pushes out anything the display has buffered.
    virtual void flush() = 0;

    virtual XY<int> pointerPosition() const = 0;
    virtual bool hasFocus() const = 0;
    virtual iKeyboardState& keyboardState() = 0;

    virtual void setClipboardText(ClipboardChannel channel,
                                  LightweightString<wchar_t> const& text) = 0;
    virtual LightweightString<wchar_t> clipboardText(ClipboardChannel channel) = 0;
};

namespace Glib {
// The display in use: made on first use from PANELKIT_DISPLAY ("headless" or "x11"; x11 when
// $DISPLAY is set, headless otherwise).
iDisplay& display();
bool hasDisplay();
// Installs a display (a test driver's), replacing the current one; null removes it. The root
// canvas is remade for the new display.
void setDisplay(std::unique_ptr<iDisplay> display);
// Makes the display named by the environment.
std::unique_ptr<iDisplay> createDisplayFromEnvironment();
} // namespace Glib

// The screen's canvas, parent of every top-level canvas.
Canvas* glib_rootcanvas();
