#include "display/X11Display.h"

#include "display/X11Clipboard.h"
#include "display/X11Keys.h"
#include "display/X11Window.h"
#include "glob/Event.h"
#include "os/Clock.h"
#include "os/Diagnostics.h"
#include "qor/UTF8.h"

#include <X11/XKBlib.h>
#include <X11/Xlib.h>
#include <X11/Xutil.h>
#include <X11/cursorfont.h>
#include <X11/extensions/XShm.h>
#include <X11/extensions/shape.h>
#include <atomic>
#include <cstdlib>
#include <cstring>
#include <deque>
#include <set>
#include <string>
#include <sys/ipc.h>
#include <sys/shm.h>
#include <tuple>

namespace {

// What the error handler knows; X reports errors through one process-wide function.
struct ErrorState {
    std::set<std::tuple<int, int, int>> reported;
    // Request serials [first, last) of a connection whose BadWindow errors are expected.
    std::deque<std::tuple<Display*, unsigned long, unsigned long>> quiet;
    int trapDepth = 0;
    int trapped = 0;
    int openDisplays = 0;
    XErrorHandler previous = nullptr;
};

ErrorState& errorState() {
    static ErrorState state;
    return state;
}

bool isQuiet(Display* display, unsigned long serial) {
    for (auto const& [connection, first, last] : errorState().quiet)
        if (connection == display && serial >= first && serial < last)
            return true;
    return false;
}

// An X error is reported once for each kind and never ends the program.
int onXError(Display* display, XErrorEvent* error) {
    ErrorState& state = errorState();
    if (state.trapDepth > 0) {
        ++state.trapped;
        return 0;
    }
    if (error->error_code == BadWindow && isQuiet(display, error->serial))
        return 0;
    if (!state.reported.emplace(error->error_code, error->request_code, error->minor_code).second)
        return 0;
    char text[160] = "";
    XGetErrorText(display, error->error_code, text, sizeof text);
    diag_printf("X11: error \"%s\" from request %d.%d on 0x%lx (reported once)", text,
                error->request_code, error->minor_code, error->resourceid);
    return 0;
}

int onXIOError(Display*) {
    diag_printf("X11: the connection to the X server was lost");
    return 0;
}

void installErrorHandlers() {
    ErrorState& state = errorState();
    if (state.openDisplays++ == 0) {
        state.previous = XSetErrorHandler(onXError);
        XSetIOErrorHandler(onXIOError);
    }
}

void removeErrorHandlers() {
    ErrorState& state = errorState();
    if (--state.openDisplays == 0) {
        XSetErrorHandler(state.previous);
        XSetIOErrorHandler(nullptr);
    }
}

unsigned cursorShape(int cursorId) {
    switch (cursorId) {
    case 1:
    case 22:
        return XC_sb_h_double_arrow;
    case 4:
    case 23:
        return XC_sb_v_double_arrow;
    case 15:
        return XC_xterm;
    case 20:
        return XC_hand2;
    case 21:
        return XC_fleur;
    default:
        return XC_left_ptr;
    }
}

// Shared memory works only when the server sees our segments, which the first attach tells.
bool probeSharedMemory(X11Display& display) {
    Display* dpy = display.connection();
    if (!XShmQueryExtension(dpy))
        return false;
    XShmSegmentInfo info{};
    info.shmid = shmget(IPC_PRIVATE, 4096, IPC_CREAT | 0600);
    if (info.shmid < 0)
        return false;
    info.shmaddr = static_cast<char*>(shmat(info.shmid, nullptr, 0));
    bool attached = false;
    if (info.shmaddr != reinterpret_cast<char*>(-1)) {
        info.readOnly = False;
        X11Display::ErrorTrap trap(display);
        XShmAttach(dpy, &info);
        attached = !trap.failed();
        if (attached)
            XShmDetach(dpy, &info);
        shmdt(info.shmaddr);
    }
    shmctl(info.shmid, IPC_RMID, nullptr);
    return attached;
}

} // namespace

class X11Display::ModifierState : public iKeyboardState {
public:
    bool isKeyDown(unsigned modifierMask) const override {
        return modifierMask != 0 && (bits_.load() & modifierMask) == modifierMask;
    }
    void set(unsigned bits) { bits_.store(bits); }

private:
    std::atomic<unsigned> bits_{0};
};

X11Display::ExpectBadWindow::ExpectBadWindow(X11Display& display)
    : display_(display.connection()), firstRequest_(NextRequest(display.connection())) {}

X11Display::ExpectBadWindow::~ExpectBadWindow() {
    auto& quiet = errorState().quiet;
    quiet.emplace_back(display_, firstRequest_, NextRequest(display_));
    while (quiet.size() > 64)
        quiet.pop_front();
}

X11Display::ErrorTrap::ErrorTrap(X11Display& display)
    : display_(display.connection()), previousErrors_(errorState().trapped) {
    XSync(display_, False);
    ++errorState().trapDepth;
}

X11Display::ErrorTrap::~ErrorTrap() {
    XSync(display_, False);
    --errorState().trapDepth;
}

bool X11Display::ErrorTrap::failed() {
    XSync(display_, False);
    return errorState().trapped != previousErrors_;
}

std::unique_ptr<X11Display> X11Display::open(char const* displayName) {
    Display* display = XOpenDisplay(displayName);
    if (display == nullptr)
        return nullptr;
    return std::unique_ptr<X11Display>(new X11Display(display));
}

std::unique_ptr<iDisplay> createX11Display(char const* displayName) {
    std::unique_ptr<X11Display> display = X11Display::open(displayName);
    if (!display) {
        char const* name = displayName != nullptr ? displayName : std::getenv("DISPLAY");
        diag_printf("X11: cannot open the display \"%s\"", name != nullptr ? name : "");
    }
    return display;
}

X11Display::X11Display(Display* display)
    : display_(display), screen_(DefaultScreen(display)), root_(RootWindow(display, screen_)),
      screenSize_(DisplayWidth(display, screen_), DisplayHeight(display, screen_)),
      modifiers_(std::make_unique<ModifierState>()) {
    installErrorHandlers();
    scale_ = scaleFromResources(XResourceManagerString(display));
    int eventBase = 0;
    int errorBase = 0;
    hasShape_ = XShapeQueryExtension(display, &eventBase, &errorBase) != 0;
    // Some servers (remote ones behind a proxy, a few virtual ones) claim shared memory and then
    // show nothing; the variable turns it off.
    char const* noSharing = std::getenv("PANELKIT_X11_NO_SHM");
    canShareMemory_ = (noSharing == nullptr || *noSharing == '\0') && probeSharedMemory(*this);
    // Held keys repeat as presses alone, without a release before each.
    Bool detectable = False;
    XkbSetDetectableAutoRepeat(display, True, &detectable);
    openInputMethod();
    clipboard_ = std::make_unique<X11Clipboard>(*this, [this](XEvent& e) { dispatch(e, queued_); });
}

X11Display::~X11Display() {
    std::vector<X11Window*> windows;
    for (auto const& [xid, window] : windows_)
        windows.push_back(window);
    for (X11Window* window : windows)
        window->release();
    clipboard_.reset();
    for (auto const& [id, cursor] : cursors_)
        XFreeCursor(display_, cursor);
    if (inputMethod_ != nullptr)
        XCloseIM(inputMethod_);
    XSync(display_, False);
    XCloseDisplay(display_);
    removeErrorHandlers();
}

void X11Display::openInputMethod() {
    if (!XSupportsLocale())
        return;
    // The user's choice of method comes from XMODIFIERS; without one, Xlib's own composes.
    XSetLocaleModifiers("");
    inputMethod_ = XOpenIM(display_, nullptr, nullptr, nullptr);
    if (inputMethod_ == nullptr) {
        XSetLocaleModifiers("@im=none");
        inputMethod_ = XOpenIM(display_, nullptr, nullptr, nullptr);
    }
}

double X11Display::scaleFromResources(char const* resources) {
    if (resources == nullptr)
        return 1.0;
    static char const key[] = "Xft.dpi:";
    for (char const* line = resources; *line != '\0';) {
        while (*line == ' ' || *line == '\t')
            ++line;
        if (std::strncmp(line, key, sizeof key - 1) == 0) {
            char* end = nullptr;
            double dpi = std::strtod(line + sizeof key - 1, &end);
            return end != line + sizeof key - 1 && dpi > 0 ? dpi / 96.0 : 1.0;
        }
        char const* next = std::strchr(line, '\n');
        if (next == nullptr)
            break;
        line = next + 1;
    }
    return 1.0;
}

std::vector<Glib::Monitor> X11Display::monitors() const {
    Glib::Monitor monitor;
    monitor.area = Box(0, 0, screenSize_.x, screenSize_.y);
    monitor.scale = scale_;
    return {monitor};
}

std::unique_ptr<iWindow> X11Display::createWindow(Canvas* topLevel, WindowKind kind) {
    return std::make_unique<X11Window>(*this, topLevel, kind);
}

int X11Display::eventFd() const {
    return ConnectionNumber(display_);
}

void X11Display::flush() {
    XFlush(display_);
}

bool X11Display::queryPointer(int& rootX, int& rootY, unsigned& mask) const {
    Window root = None;
    Window child = None;
    int x = 0;
    int y = 0;
    rootX = rootY = 0;
    mask = 0;
    return XQueryPointer(display_, root_, &root, &child, &rootX, &rootY, &x, &y, &mask);
}

XY<int> X11Display::pointerPosition() const {
    int rootX, rootY;
    unsigned mask;
    queryPointer(rootX, rootY, mask);
    return fromXPoint(rootX, rootY);
}

iKeyboardState& X11Display::keyboardState() {
    return *modifiers_;
}

void X11Display::setClipboardText(ClipboardChannel channel,
                                  LightweightString<wchar_t> const& text) {
    clipboard_->setText(channel, text);
}

LightweightString<wchar_t> X11Display::clipboardText(ClipboardChannel channel) {
    return clipboard_->text(channel);
}

unsigned long X11Display::atom(char const* name) {
    auto found = atoms_.find(name);
    if (found != atoms_.end())
        return found->second;
    Atom atom = XInternAtom(display_, name, False);
    atoms_.emplace(name, atom);
    return atom;
}

unsigned long X11Display::cursor(int cursorId) {
    unsigned shape = cursorShape(cursorId);
    auto found = cursors_.find(int(shape));
    if (found != cursors_.end())
        return found->second;
    Cursor cursor = XCreateFontCursor(display_, shape);
    cursors_.emplace(int(shape), cursor);
    return cursor;
}

bool X11Display::isCompositing() {
    std::string name = "_NET_WM_CM_S" + std::to_string(screen_);
    return XGetSelectionOwner(display_, atom(name.c_str())) != None;
}

void X11Display::registerWindow(unsigned long xid, X11Window* window) {
    windows_[xid] = window;
}

void X11Display::unregisterWindow(unsigned long xid) {
    X11Window* window = windowOf(xid);
    if (window != nullptr && window->isFocused())
        --focusedWindows_;
    windows_.erase(xid);
}

X11Window* X11Display::windowOf(unsigned long xid) const {
    auto found = windows_.find(xid);
    return found != windows_.end() ? found->second : nullptr;
}

void X11Display::readEvents(std::vector<InputEvent>& out) {
    out.insert(out.end(), queued_.begin(), queued_.end());
    queued_.clear();
    while (XPending(display_) > 0) {
        XEvent event;
        XNextEvent(display_, &event);
        dispatch(event, out);
    }
    if (leavePending_) {
        out.push_back(pendingLeave_);
        leavePending_ = false;
    }
}

bool X11Display::eventsWaiting() {
    return !queued_.empty() || leavePending_ || XPending(display_) > 0;
}

void X11Display::dispatch(XEvent& event, std::vector<InputEvent>& out) {
    // The input method sees every event first and keeps those it composes from.
    if (XFilterEvent(&event, None))
        return;
    if (clipboard_ && clipboard_->handleEvent(event))
        return;
    if (event.type == MappingNotify) {
        XRefreshKeyboardMapping(&event.xmapping);
        return;
    }
    X11Window* window = windowOf(event.xany.window);
    if (window == nullptr)
        return;
    InputEvent e;
    e.window = window->canvas();
    if (event.type == KeyPress || event.type == KeyRelease) {
        translateKey(event, window, e, out);
        return;
    }
    if (!translate(event, window, e))
        return;
    // Only the latest of a run of moves matters.
    if (e.kind == InputEvent::PointerMove && !out.empty() &&
        out.back().kind == InputEvent::PointerMove && out.back().window == e.window) {
        out.back() = e;
        return;
    }
    out.push_back(e);
}

bool X11Display::translate(XEvent& event, X11Window* window, InputEvent& e) {
    switch (event.type) {
    case ButtonPress:
    case ButtonRelease:
        return translateButton(event, e);
    case MotionNotify: {
        XMotionEvent const& m = event.xmotion;
        e.kind = InputEvent::PointerMove;
        e.rootPos = fromXPoint(m.x_root, m.y_root);
        e.modifiers = X11Keys::modifiersFromState(m.state);
        e.time = eventTime(m.time);
        modifiers_->set(e.modifiers);
        return true;
    }
    case EnterNotify: {
        XCrossingEvent const& c = event.xcrossing;
        // Entering another of our windows: the pointer never left the application.
        leavePending_ = false;
        if (c.mode != NotifyNormal)
            return false;
        e.kind = InputEvent::PointerMove;
        e.rootPos = fromXPoint(c.x_root, c.y_root);
        e.modifiers = X11Keys::modifiersFromState(c.state);
        e.time = eventTime(c.time);
        return true;
    }
    case LeaveNotify: {
        XCrossingEvent const& c = event.xcrossing;
        if (c.mode != NotifyNormal || c.detail == NotifyInferior)
            return false;
        pendingLeave_ = e;
        pendingLeave_.kind = InputEvent::PointerLeft;
        pendingLeave_.rootPos = fromXPoint(c.x_root, c.y_root);
        pendingLeave_.modifiers = X11Keys::modifiersFromState(c.state);
        pendingLeave_.time = eventTime(c.time);
        leavePending_ = true;
        return false;
    }
    case Expose: {
        XExposeEvent const& x = event.xexpose;
        window->exposed(x.x, x.y, x.width, x.height);
        e.kind = InputEvent::ExposeArea;
        e.bounds = window->fromXRect(x.x, x.y, x.width, x.height);
        e.time = msecsNow();
        return true;
    }
    case ConfigureNotify: {
        XConfigureEvent const& c = event.xconfigure;
        int x = c.x;
        int y = c.y;
        // A real event is relative to the parent, a frame when a window manager reparented us.
        if (!c.send_event) {
            Window child = None;
            XTranslateCoordinates(display_, window->xid(), root_, 0, 0, &x, &y, &child);
        }
        window->configured(XY<int>(c.width, c.height));
        e.kind = InputEvent::Configure;
        e.bounds = fromXRect(x, y, c.width, c.height);
        e.time = msecsNow();
        return true;
    }
    case ClientMessage:
        return translateClientMessage(event, e);
    case FocusIn:
    case FocusOut: {
        XFocusChangeEvent const& f = event.xfocus;
        if (f.mode == NotifyGrab || f.mode == NotifyUngrab || f.detail == NotifyPointer)
            return false;
        bool in = event.type == FocusIn;
        if (in == window->isFocused())
            return false;
        noteFocus(in, window);
        e.kind = in ? InputEvent::FocusGained : InputEvent::FocusLost;
        e.time = msecsNow();
        return true;
    }
    default:
        return false;
    }
}

bool X11Display::translateButton(XEvent& event, InputEvent& e) {
    XButtonEvent const& b = event.xbutton;
    bool press = event.type == ButtonPress;
    e.rootPos = fromXPoint(b.x_root, b.y_root);
    e.modifiers = X11Keys::modifiersFromState(b.state);
    e.time = eventTime(b.time);
    modifiers_->set(e.modifiers);
    if (b.button >= Button1 && b.button <= Button3) {
        e.kind = press ? InputEvent::PointerPress : InputEvent::PointerRelease;
        e.button = int(b.button);
        return true;
    }
    // Wheel turns come as presses of buttons 4 (away from the user) and 5; sideways ones (6, 7)
    // and the releases mean nothing here.
    if (press && (b.button == Button4 || b.button == Button5)) {
        e.kind = InputEvent::WheelTurn;
        e.wheelSteps = b.button == Button4 ? 1 : -1;
        return true;
    }
    return false;
}

bool X11Display::translateClientMessage(XEvent& event, InputEvent& e) {
    XClientMessageEvent& m = event.xclient;
    if (m.message_type != atom("WM_PROTOCOLS") || m.format != 32)
        return false;
    Atom protocol = Atom(m.data.l[0]);
    if (protocol == atom("_NET_WM_PING")) {
        // The window manager checks that we still answer.
        m.window = root_;
        XSendEvent(display_, root_, False, SubstructureRedirectMask | SubstructureNotifyMask,
                   &event);
        return false;
    }
    if (protocol != atom("WM_DELETE_WINDOW"))
        return false;
    e.kind = InputEvent::CloseRequest;
    e.time = eventTime(Time(m.data.l[1]));
    return true;
}

void X11Display::translateKey(XEvent& event, X11Window* window, InputEvent const& base,
                              std::vector<InputEvent>& out) {
    XKeyEvent& k = event.xkey;
    bool press = event.type == KeyPress;
    KeySym keysym = NoSymbol;
    LightweightString<wchar_t> typed;
    XIC inputContext = window->inputContext();
    if (press && inputContext != nullptr) {
        std::string text(64, '\0');
        Status status = 0;
        int length =
            Xutf8LookupString(inputContext, &k, text.data(), int(text.size()), &keysym, &status);
        if (status == XBufferOverflow) {
            text.resize(std::size_t(length));
            length = Xutf8LookupString(inputContext, &k, text.data(), length, &keysym, &status);
        }
        if (status == XLookupChars || status == XLookupBoth)
            typed = fromUTF8(text.c_str(), unsigned(std::max(length, 0)));
        if (status != XLookupKeySym && status != XLookupBoth)
            keysym = NoSymbol;
    } else {
        char buffer[64];
        int length = XLookupString(&k, buffer, sizeof buffer, &keysym, nullptr);
        // XLookupString answers in Latin-1, whose codes are the characters' own.
        std::wstring wide;
        for (int i = 0; i < length; ++i)
            wide.push_back(wchar_t(static_cast<unsigned char>(buffer[i])));
        typed = LightweightString<wchar_t>(wide.c_str(), unsigned(wide.size()));
    }

    unsigned held = X11Keys::modifiersFromState(k.state);
    if (unsigned bit = X11Keys::modifierOfKey(keysym))
        modifiers_->set(press ? held | bit : held & ~bit);
    else
        modifiers_->set(held);

    InputEvent e = base;
    e.kind = press ? InputEvent::KeyDown : InputEvent::KeyUp;
    e.rootPos = fromXPoint(k.x_root, k.y_root);
    e.modifiers = held;
    e.time = eventTime(k.time);
    // Composed text may hold several characters; each is a key of its own.
    if (typed.size() > 1 && (held & (KeyCodes::Ctrl | KeyCodes::Alt)) == 0) {
        for (wchar_t c : typed) {
            e.key = X11Keys::keyCode(NoSymbol, held, char32_t(c));
            if (e.key != 0)
                out.push_back(e);
        }
        return;
    }
    e.key = X11Keys::keyCode(keysym, held, typed.empty() ? 0 : char32_t(typed[0]));
    if (e.key != 0)
        out.push_back(e);
}

void X11Display::noteFocus(bool in, X11Window* window) {
    focusedWindows_ += in ? 1 : -1;
    window->focusChanged(in);
    if (in) {
        // Modifiers may have changed while another program had the keyboard.
        int rootX, rootY;
        unsigned mask;
        if (queryPointer(rootX, rootY, mask))
            modifiers_->set(X11Keys::modifiersFromState(mask));
    }
}

// Server times count from the server's start; events carry our clock's time instead, keeping
// the server's spacing between them.
double X11Display::eventTime(unsigned long serverTime) {
    double now = msecsNow();
    double t = double(serverTime) + serverTimeOffset_;
    if (!serverTimeAnchored_ || t > now || t < now - 10000.0) {
        serverTimeOffset_ = now - double(serverTime);
        serverTimeAnchored_ = true;
        t = now;
    }
    return t;
}
