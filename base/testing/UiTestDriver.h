#pragma once

// Drives the whole toolkit headless, for tests: a display in memory, a virtual clock that moves
// only when the test says so, and a user's pointer and keyboard. Every event it makes goes
// through the same delivery as a real one (picking, grabs, focus, bubbling). Positions are in the
// widget's own coordinates, y up from its bottom-left corner.

#include "glob/Glob.h"

#include <memory>
#include <vector>

class HeadlessDisplay;
class iClock;

class UiTestDriver {
public:
    // Headless, virtual clock at 0.
    explicit UiTestDriver(XY<int> const& screenSize = XY<int>(1920, 1080));
    // Destroys remaining top-level widgets and shuts the base layer down.
    ~UiTestDriver();
    UiTestDriver(UiTestDriver const&) = delete;
    UiTestDriver& operator=(UiTestDriver const&) = delete;

    // Delivers queued events and messages, runs pending deletions and redraws.
    void processEvents();
    // Moves the virtual clock on, firing due timers at their times, then processEvents().
    void advanceTime(double ms);
    double now() const;

    // Pointer.
    void mouseMove(Glob* g, XY<int> const& p);
    // 1 left, 2 middle, 3 right.
    void mouseDown(Glob* g, XY<int> const& p, int button = 1);
    void mouseUp(Glob* g, XY<int> const& p, int button = 1);
    // Move, down, up.
    void click(Glob* g, XY<int> const& p, int button = 1);
    // At the centre, left button.
    void click(Glob* g);
    void doubleClick(Glob* g, XY<int> const& p);
    void drag(Glob* g, XY<int> const& from, XY<int> const& to, int steps = 4);
    // Positive away from the user.
    void wheel(Glob* g, XY<int> const& p, int steps);

    // Keyboard: key codes as events carry them; to the keyboard focus, else the top-level widget
    // under the pointer.
    void keyPress(unsigned code);
    void keyDown(unsigned code);
    void keyUp(unsigned code);
    void typeText(wchar_t const* text);
    // What OS() reports as held: 0x1000000 Shift, 0x2000000 Ctrl, 0x4000000 Alt.
    void setModifiers(unsigned mask);

    // Screen.
    NormalisedRGB pixel(Glob* g, XY<int> const& p);
    bool savePng(Glob* g, char const* path);
    // Realized top-level widgets, topmost first.
    std::vector<Glob*> topLevels() const;
    Glob* widgetAt(XY<int> const& rootPos) const;

    // Clipboard.
    LightweightString<wchar_t> clipboardText() const;
    void setClipboardText(LightweightString<wchar_t> const& text);

    // The display, for what a test wants to know of windows (bounds, cursor, what was presented).
    HeadlessDisplay& display() const { return *display_; }

private:
    struct VirtualClock;

    void inject(int kind, Glob* g, XY<int> const& p, int button, int steps);
    void injectAt(int kind, Canvas* window, XY<int> const& rootPos, int button, int steps);
    void injectKey(int kind, unsigned code);

    std::unique_ptr<VirtualClock> clock_;
    iClock* previousClock_;
    HeadlessDisplay* display_;
};
