#include "X11Outside.h"

#include "display/X11Window.h"
#include "glib/Canvas.h"
#include "glib/WindowSurface.h"

#include <X11/Xlib.h>
#include <algorithm>
#include <cstdlib>
#include <fcntl.h>
#include <string>
#include <sys/file.h>
#include <unistd.h>

struct X11Outside::State {
    int turn = -1;
    ::Display* display = nullptr;
};

X11Outside::X11Outside() : state_(std::make_unique<State>()) {
    char const* name = std::getenv("DISPLAY");
    if (name == nullptr)
        return;
    // The same lock as the display-level tests: one test at a time on a server.
    std::string lock = name;
    std::replace(lock.begin(), lock.end(), '/', '_');
    lock = "/tmp/panelkit-x11-tests-" + lock + ".lock";
    state_->turn = ::open(lock.c_str(), O_CREAT | O_RDWR | O_CLOEXEC, 0600);
    if (state_->turn >= 0)
        ::flock(state_->turn, LOCK_EX);
    for (int attempt = 0; attempt < 100 && state_->display == nullptr; ++attempt) {
        state_->display = XOpenDisplay(nullptr);
        if (state_->display == nullptr)
            ::usleep(20000);
    }
}

X11Outside::~X11Outside() {
    if (state_->display != nullptr)
        XCloseDisplay(state_->display);
    if (state_->turn >= 0)
        ::close(state_->turn);
}

bool X11Outside::connected() const {
    return state_->display != nullptr;
}

unsigned long X11Outside::windowOf(Canvas* topLevel) {
    auto* window = dynamic_cast<X11Window*>(topLevel->surface()->window());
    return window != nullptr ? window->xid() : 0;
}

bool X11Outside::isViewable(unsigned long window) {
    XWindowAttributes attributes{};
    return XGetWindowAttributes(state_->display, window, &attributes) &&
           attributes.map_state == IsViewable;
}

void X11Outside::giveFocus(unsigned long window) {
    XSetInputFocus(state_->display, window, RevertToParent, CurrentTime);
    XSync(state_->display, False);
}

void X11Outside::requestClose(unsigned long window) {
    XEvent message{};
    message.xclient.type = ClientMessage;
    message.xclient.window = window;
    message.xclient.message_type = XInternAtom(state_->display, "WM_PROTOCOLS", False);
    message.xclient.format = 32;
    message.xclient.data.l[0] = long(XInternAtom(state_->display, "WM_DELETE_WINDOW", False));
    XSendEvent(state_->display, window, False, NoEventMask, &message);
    XSync(state_->display, False);
}

void X11Outside::parkPointer() {
    XWarpPointer(state_->display, None, DefaultRootWindow(state_->display), 0, 0, 0, 0, 5, 5);
    XSync(state_->display, False);
}
