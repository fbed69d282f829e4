#pragma once

// The display of an X server, through Xlib: one X window per top-level canvas, the server's
// events turned into InputEvents in root coordinates (y up), the clipboard and the primary
// selection, and the state of the modifier keys. X's y axis runs downward; every conversion
// between the two happens here and in X11Window, nowhere else.

#include "glib/Display.h"

#include <map>
#include <memory>
#include <string>
#include <unordered_map>
#include <vector>

struct _XDisplay;
struct _XIM;
union _XEvent;

class X11Clipboard;
class X11Window;

class X11Display : public iDisplay {
public:
    // Connects to the named server ($DISPLAY when null); null when it can't be reached.
    static std::unique_ptr<X11Display> open(char const* displayName);
    ~X11Display() override;
    X11Display(X11Display const&) = delete;
    X11Display& operator=(X11Display const&) = delete;

    char const* name() const override { return "x11"; }
    XY<int> screenSize() const override { return screenSize_; }
    std::vector<Glib::Monitor> monitors() const override;
    double scale() const override { return scale_; }

    std::unique_ptr<iWindow> createWindow(Canvas* topLevel, WindowKind kind) override;

    int eventFd() const override;
    // Xlib also takes events off the connection during other calls (a clipboard read, an image
    // transfer), where the descriptor no longer shows them: read events before waiting on it.
    void readEvents(std::vector<InputEvent>& out) override;
    bool eventsWaiting() override;
    void flush() override;

    XY<int> pointerPosition() const override;
    // The pointer on the root window and the modifier and button state; false off this screen.
    bool queryPointer(int& rootX, int& rootY, unsigned& mask) const;
    bool hasFocus() const override { return focusedWindows_ > 0; }
    iKeyboardState& keyboardState() override;

    void setClipboardText(ClipboardChannel channel,
                          LightweightString<wchar_t> const& text) override;
    LightweightString<wchar_t> clipboardText(ClipboardChannel channel) override;

    // BadWindow errors caused by the requests made while one of these lives are expected (a
    // window being torn down, a program that went away) and stay silent.
    class ExpectBadWindow {
    public:
        explicit ExpectBadWindow(X11Display& display);
        ~ExpectBadWindow();
        ExpectBadWindow(ExpectBadWindow const&) = delete;
        ExpectBadWindow& operator=(ExpectBadWindow const&) = delete;

    private:
        _XDisplay* display_;
        unsigned long firstRequest_;
    };

    // Catches, silently, every error of the requests made while it lives; failed() waits for the
    // server's answers and tells whether any came back as an error.
    class ErrorTrap {
    public:
        explicit ErrorTrap(X11Display& display);
        ~ErrorTrap();
        ErrorTrap(ErrorTrap const&) = delete;
        ErrorTrap& operator=(ErrorTrap const&) = delete;
        bool failed();

    private:
        _XDisplay* display_;
        int previousErrors_;
    };

    // The interface scale that an X resource text gives through "Xft.dpi" (1 when it names none).
    static double scaleFromResources(char const* resources);

    // What the windows and the clipboard of this display share.
    _XDisplay* connection() const { return display_; }
    int screenNumber() const { return screen_; }
    unsigned long rootXid() const { return root_; }
    unsigned long atom(char const* name);
    // The X cursor for a cursor id (1 horizontal resize, 4 vertical resize, 15 text, 16 arrow,
    // 20 hand, 21 to 23 drags); unknown ids get the arrow.
    unsigned long cursor(int cursorId);
    // Null when no input method could be opened.
    _XIM* inputMethod() const { return inputMethod_; }
    // Images can travel through shared memory (the server runs on this machine, and
    // PANELKIT_X11_NO_SHM is not set).
    bool canShareMemory() const { return canShareMemory_; }
    bool hasShapeExtension() const { return hasShape_; }
    // A compositing manager runs, so that windows with an alpha channel can be translucent.
    bool isCompositing();
    void registerWindow(unsigned long xid, X11Window* window);
    void unregisterWindow(unsigned long xid);

    // Y-down X root coordinates to y-up root coordinates, for a point and for a rectangle.
    XY<int> fromXPoint(int x, int y) const { return XY<int>(x, screenSize_.y - 1 - y); }
    Box fromXRect(int x, int y, int width, int height) const {
        return Box(x, screenSize_.y - (y + height), x + width, screenSize_.y - y);
    }

private:
    class ModifierState;

    explicit X11Display(_XDisplay* display);
    void openInputMethod();
    void dispatch(_XEvent& event, std::vector<InputEvent>& out);
    bool translate(_XEvent& event, X11Window* window, InputEvent& e);
    void translateKey(_XEvent& event, X11Window* window, InputEvent const& e,
                      std::vector<InputEvent>& out);
    bool translateButton(_XEvent& event, InputEvent& e);
    bool translateClientMessage(_XEvent& event, InputEvent& e);
    void noteFocus(bool in, X11Window* window);
    double eventTime(unsigned long serverTime);
    X11Window* windowOf(unsigned long xid) const;

    _XDisplay* display_ = nullptr;
    int screen_ = 0;
    unsigned long root_ = 0;
    XY<int> screenSize_;
    double scale_ = 1.0;
    bool canShareMemory_ = false;
    bool hasShape_ = false;
    _XIM* inputMethod_ = nullptr;
    std::unordered_map<std::string, unsigned long> atoms_;
    std::map<int, unsigned long> cursors_;
    std::unordered_map<unsigned long, X11Window*> windows_;
    std::unique_ptr<X11Clipboard> clipboard_;
    std::unique_ptr<ModifierState> modifiers_;
    // Events that arrived while the clipboard waited for another program.
    std::vector<InputEvent> queued_;
    int focusedWindows_ = 0;
    // The pointer left one of our windows; unless it enters another, it left the application.
    InputEvent pendingLeave_;
    bool leavePending_ = false;
    double serverTimeOffset_ = 0;
    bool serverTimeAnchored_ = false;
};

// The X11 display for iDisplay's factory: null, after one diagnostic line, when the server can't
// be opened.
std::unique_ptr<iDisplay> createX11Display(char const* displayName = nullptr);
