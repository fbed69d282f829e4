#pragma once

// The clipboard (the CLIPBOARD selection) and the primary selection of an X display, as plain
// text. Setting text takes ownership of the selection and serves other programs' requests from
// memory (UTF8_STRING, or STRING and TEXT in Latin-1, and the list of TARGETS); reading asks the
// owner and waits a bounded time for the answer, handing every other event that arrives meanwhile
// to the display so that nothing is lost. Texts of any size are received, also in increments.

#include "glib/Display.h"
#include "qor/LightweightString.h"

#include <chrono>
#include <functional>
#include <string>

struct _XDisplay;
union _XEvent;

class X11Display;

class X11Clipboard {
public:
    // `unrelated` receives the events that arrive while a read waits for another program.
    X11Clipboard(X11Display& display, std::function<void(_XEvent&)> unrelated);
    ~X11Clipboard();
    X11Clipboard(X11Clipboard const&) = delete;
    X11Clipboard& operator=(X11Clipboard const&) = delete;

    void setText(ClipboardChannel channel, LightweightString<wchar_t> const& text);
    LightweightString<wchar_t> text(ClipboardChannel channel);

    // Serves requests for our selections and notes their loss; true when the event was one of
    // these.
    bool handleEvent(_XEvent& event);

    // How long a read waits for the owner to answer, in milliseconds.
    static constexpr int ReadTimeoutMs = 1000;

private:
    using Deadline = std::chrono::steady_clock::time_point;

    struct Slot {
        unsigned long selection = 0;
        bool owned = false;
        unsigned long since = 0;
        // UTF-8.
        std::string text;
    };

    Slot& slot(ClipboardChannel channel);
    Slot const& slot(ClipboardChannel channel) const;
    Slot* slotFor(unsigned long selection);
    void serve(_XEvent& request);
    bool answer(Slot const& slot, unsigned long requestor, unsigned long target,
                unsigned long property);
    // Asks the owner for the selection as `target`; false when it refused or didn't answer.
    bool request(unsigned long selection, unsigned long target, Deadline deadline,
                 std::string& bytes, unsigned long& type);
    bool readIncrements(Deadline deadline, std::string& bytes);
    bool readProperty(std::string& bytes, unsigned long& type);
    // A server timestamp for taking ownership, as ICCCM asks (CurrentTime when none comes).
    unsigned long serverTime();
    // Passes events on until one satisfies `wanted`; false when the deadline passes first.
    bool waitFor(std::function<bool(_XEvent&)> const& wanted, Deadline deadline);

    X11Display& display_;
    _XDisplay* connection_;
    std::function<void(_XEvent&)> unrelated_;
    // An unmapped window that owns our selections and receives what others send.
    unsigned long window_ = 0;
    unsigned long property_ = 0;
    Slot clipboard_;
    Slot primary_;
};
