#include "display/X11Clipboard.h"

#include "display/X11Display.h"
#include "os/Diagnostics.h"
#include "qor/UTF8.h"

#include <X11/Xatom.h>
#include <X11/Xlib.h>
#include <algorithm>
#include <climits>
#include <poll.h>

namespace {

using Clock = std::chrono::steady_clock;

std::string toLatin1(std::string const& utf8) {
    LightweightString<wchar_t> wide = fromUTF8(utf8.c_str(), unsigned(utf8.size()));
    std::string out;
    out.reserve(wide.size());
    for (wchar_t c : wide)
        out.push_back(c >= 0 && c < 0x100 ? char(c) : '?');
    return out;
}

LightweightString<wchar_t> fromLatin1(std::string const& bytes) {
    std::wstring wide;
    wide.reserve(bytes.size());
    for (char c : bytes)
        wide.push_back(wchar_t(static_cast<unsigned char>(c)));
    return LightweightString<wchar_t>(wide.c_str(), unsigned(wide.size()));
}

Clock::time_point deadlineFromNow() {
    return Clock::now() + std::chrono::milliseconds(X11Clipboard::ReadTimeoutMs);
}

} // namespace

X11Clipboard::X11Clipboard(X11Display& display, std::function<void(XEvent&)> unrelated)
    : display_(display), connection_(display.connection()), unrelated_(std::move(unrelated)) {
    XSetWindowAttributes attributes{};
    attributes.event_mask = PropertyChangeMask;
    window_ = XCreateWindow(connection_, display.rootXid(), -10, -10, 1, 1, 0, 0, InputOnly,
                            CopyFromParent, CWEventMask, &attributes);
    property_ = display.atom("PANELKIT_SELECTION");
    clipboard_.selection = display.atom("CLIPBOARD");
    primary_.selection = XA_PRIMARY;
}

X11Clipboard::~X11Clipboard() {
    // Ownership ends with the window.
    XDestroyWindow(connection_, window_);
}

X11Clipboard::Slot& X11Clipboard::slot(ClipboardChannel channel) {
    return channel == ClipboardChannel::Clipboard ? clipboard_ : primary_;
}

X11Clipboard::Slot const& X11Clipboard::slot(ClipboardChannel channel) const {
    return channel == ClipboardChannel::Clipboard ? clipboard_ : primary_;
}

X11Clipboard::Slot* X11Clipboard::slotFor(unsigned long selection) {
    if (selection == clipboard_.selection)
        return &clipboard_;
    if (selection == primary_.selection)
        return &primary_;
    return nullptr;
}

void X11Clipboard::setText(ClipboardChannel channel, LightweightString<wchar_t> const& text) {
    Slot& s = slot(channel);
    s.text = toUTF8(text).str();
    s.since = serverTime();
    XSetSelectionOwner(connection_, s.selection, window_, s.since);
    s.owned = XGetSelectionOwner(connection_, s.selection) == window_;
    if (!s.owned)
        diag_printf("X11: another program kept the %s selection",
                    channel == ClipboardChannel::Clipboard ? "CLIPBOARD" : "PRIMARY");
}

LightweightString<wchar_t> X11Clipboard::text(ClipboardChannel channel) {
    Slot const& s = slot(channel);
    if (s.owned)
        return fromUTF8(s.text.c_str(), unsigned(s.text.size()));
    Deadline deadline = deadlineFromNow();
    std::string bytes;
    unsigned long type = None;
    if (request(s.selection, display_.atom("UTF8_STRING"), deadline, bytes, type))
        return type == XA_STRING ? fromLatin1(bytes)
                                 : fromUTF8(bytes.c_str(), unsigned(bytes.size()));
    if (request(s.selection, XA_STRING, deadline, bytes, type))
        return fromLatin1(bytes);
    return {};
}

bool X11Clipboard::handleEvent(XEvent& event) {
    switch (event.type) {
    case SelectionRequest:
        if (event.xselectionrequest.owner != window_)
            return false;
        serve(event);
        return true;
    case SelectionClear:
        if (event.xselectionclear.window != window_)
            return false;
        if (Slot* s = slotFor(event.xselectionclear.selection)) {
            s->owned = false;
            s->text.clear();
        }
        return true;
    case SelectionNotify:
        // Late answers to reads that timed out.
        return event.xselection.requestor == window_;
    case PropertyNotify:
        return event.xproperty.window == window_;
    default:
        return false;
    }
}

void X11Clipboard::serve(XEvent& event) {
    XSelectionRequestEvent const& r = event.xselectionrequest;
    // Clients older than ICCCM 2 name no property; the target's name serves.
    Atom property = r.property != None ? r.property : r.target;
    Slot const* s = slotFor(r.selection);
    X11Display::ExpectBadWindow requestorMayBeGone(display_);
    bool served = s != nullptr && s->owned && answer(*s, r.requestor, r.target, property);
    XEvent reply{};
    reply.xselection.type = SelectionNotify;
    reply.xselection.display = connection_;
    reply.xselection.requestor = r.requestor;
    reply.xselection.selection = r.selection;
    reply.xselection.target = r.target;
    reply.xselection.property = served ? property : None;
    reply.xselection.time = r.time;
    XSendEvent(connection_, r.requestor, False, NoEventMask, &reply);
    XFlush(connection_);
}

bool X11Clipboard::answer(Slot const& s, unsigned long requestor, unsigned long target,
                          unsigned long property) {
    Atom utf8 = display_.atom("UTF8_STRING");
    Atom targets = display_.atom("TARGETS");
    if (target == targets) {
        Atom offered[] = {targets, utf8, XA_STRING, display_.atom("TEXT"),
                          display_.atom("TIMESTAMP")};
        XChangeProperty(connection_, requestor, property, XA_ATOM, 32, PropModeReplace,
                        reinterpret_cast<unsigned char*>(offered), int(std::size(offered)));
        return true;
    }
    if (target == display_.atom("TIMESTAMP")) {
        long since = long(s.since);
        XChangeProperty(connection_, requestor, property, XA_INTEGER, 32, PropModeReplace,
                        reinterpret_cast<unsigned char*>(&since), 1);
        return true;
    }
    std::string bytes;
    Atom type = None;
    if (target == utf8) {
        bytes = s.text;
        type = utf8;
    } else if (target == XA_STRING || target == display_.atom("TEXT")) {
        bytes = toLatin1(s.text);
        type = XA_STRING;
    } else {
        return false;
    }
    // Anything larger would need an incremental transfer, which we don't offer.
    long maxRequest = XExtendedMaxRequestSize(connection_);
    if (maxRequest == 0)
        maxRequest = XMaxRequestSize(connection_);
    if (bytes.size() + 64 > std::size_t(maxRequest) * 4) {
        diag_printf("X11: a selection of %zu bytes is too large to hand over", bytes.size());
        return false;
    }
    XChangeProperty(connection_, requestor, property, type, 8, PropModeReplace,
                    reinterpret_cast<unsigned char const*>(bytes.data()), int(bytes.size()));
    return true;
}

bool X11Clipboard::request(unsigned long selection, unsigned long target, Deadline deadline,
                           std::string& bytes, unsigned long& type) {
    XDeleteProperty(connection_, window_, property_);
    XConvertSelection(connection_, selection, target, property_, window_, CurrentTime);
    Atom answered = None;
    bool notified = waitFor(
        [&](XEvent& e) {
            if (e.type != SelectionNotify || e.xselection.requestor != window_ ||
                e.xselection.selection != selection)
                return false;
            answered = e.xselection.property;
            return true;
        },
        deadline);
    if (!notified || answered == None || !readProperty(bytes, type))
        return false;
    if (type == display_.atom("INCR"))
        return readIncrements(deadline, bytes);
    return true;
}

// The owner sends a large text in pieces, each when we have deleted the previous one; an empty
// piece ends it.
bool X11Clipboard::readIncrements(Deadline deadline, std::string& bytes) {
    bytes.clear();
    for (;;) {
        bool arrived = waitFor(
            [&](XEvent& e) {
                return e.type == PropertyNotify && e.xproperty.window == window_ &&
                       e.xproperty.atom == property_ && e.xproperty.state == PropertyNewValue;
            },
            std::max(deadline, deadlineFromNow()));
        std::string piece;
        unsigned long type = None;
        if (!arrived || !readProperty(piece, type))
            return false;
        if (piece.empty())
            return true;
        bytes += piece;
    }
}

bool X11Clipboard::readProperty(std::string& bytes, unsigned long& type) {
    Atom actualType = None;
    int format = 0;
    unsigned long items = 0;
    unsigned long remaining = 0;
    unsigned char* data = nullptr;
    int status =
        XGetWindowProperty(connection_, window_, property_, 0, LONG_MAX / 4, True, AnyPropertyType,
                           &actualType, &format, &items, &remaining, &data);
    if (status != Success || actualType == None) {
        if (data != nullptr)
            XFree(data);
        return false;
    }
    // Xlib hands 32-bit items over as longs.
    std::size_t itemSize = format == 8 ? 1 : format == 16 ? sizeof(short) : sizeof(long);
    bytes.assign(reinterpret_cast<char const*>(data), items * itemSize);
    type = actualType;
    XFree(data);
    return true;
}

unsigned long X11Clipboard::serverTime() {
    // Appending nothing to a property still makes the server report the time of the change.
    Atom stamp = display_.atom("PANELKIT_TIMESTAMP");
    unsigned char nothing = 0;
    XChangeProperty(connection_, window_, stamp, XA_STRING, 8, PropModeAppend, &nothing, 0);
    unsigned long time = CurrentTime;
    waitFor(
        [&](XEvent& e) {
            if (e.type != PropertyNotify || e.xproperty.window != window_ ||
                e.xproperty.atom != stamp)
                return false;
            time = e.xproperty.time;
            return true;
        },
        deadlineFromNow());
    return time;
}

bool X11Clipboard::waitFor(std::function<bool(XEvent&)> const& wanted, Deadline deadline) {
    XFlush(connection_);
    for (;;) {
        while (XPending(connection_) > 0) {
            XEvent event;
            XNextEvent(connection_, &event);
            if (wanted(event))
                return true;
            unrelated_(event);
        }
        auto left = std::chrono::duration_cast<std::chrono::milliseconds>(deadline - Clock::now());
        if (left.count() <= 0)
            return false;
        pollfd fd{ConnectionNumber(connection_), POLLIN, 0};
        poll(&fd, 1, int(left.count()) + 1);
    }
}
