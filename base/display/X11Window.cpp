#include "display/X11Window.h"

#include "display/X11Display.h"
#include "glib/Canvas.h"
#include "glib/WindowSurface.h"
#include "qor/UTF8.h"

#include <X11/Xatom.h>
#include <X11/Xlib.h>
#include <X11/Xutil.h>
#include <X11/extensions/XShm.h>
#include <X11/extensions/shape.h>
#include <algorithm>
#include <cairo.h>
#include <cstdlib>
#include <cstring>
#include <sys/ipc.h>
#include <sys/shm.h>
#include <unistd.h>

namespace {

constexpr long WindowEvents =
    ExposureMask | ButtonPressMask | ButtonReleaseMask | PointerMotionMask | KeyPressMask |
    KeyReleaseMask | StructureNotifyMask | FocusChangeMask | EnterWindowMask | LeaveWindowMask;

// Cairo's ARGB32 pixels are native 32-bit words with red in bits 16-23; an X image with the same
// masks and the machine's byte order takes them unchanged.
bool matchesCairoLayout(Visual const* visual, int depth, int imageByteOrder) {
    bool littleEndian = [] {
        uint32_t one = 1;
        unsigned char first = 0;
        std::memcpy(&first, &one, 1);
        return first == 1;
    }();
    return (depth == 24 || depth == 32) && visual->red_mask == 0xff0000 &&
           visual->green_mask == 0xff00 && visual->blue_mask == 0xff &&
           imageByteOrder == (littleEndian ? LSBFirst : MSBFirst);
}

// A cairo channel (8 bits) scaled into a visual's channel mask.
unsigned long toMask(uint32_t channel, unsigned long mask) {
    if (mask == 0)
        return 0;
    int shift = 0;
    while (((mask >> shift) & 1) == 0)
        ++shift;
    unsigned long maximum = mask >> shift;
    return ((channel * maximum + 127) / 255) << shift;
}

std::string latin1(LightweightString<wchar_t> const& text) {
    std::string out;
    out.reserve(text.size());
    for (wchar_t c : text)
        out.push_back(c >= 0 && c < 0x100 ? char(c) : '?');
    return out;
}

} // namespace

struct X11Window::Resources {
    Display* display = nullptr;
    Visual* visual = nullptr;
    int depth = 0;
    Colormap colormap = None;
    GC gc = nullptr;
    XIC inputContext = nullptr;
    XIMStyle inputStyle = 0;
    bool canShare = false;
    XImage* sharedImage = nullptr;
    XShmSegmentInfo shm{};
    // A shared-memory put is in flight until the server has read the segment.
    bool sharedBusy = false;
};

// The window's object for the input method; it outlives the window harmlessly.
class X11Window::InputMethodWindow : public iRootWindow {
public:
    explicit InputMethodWindow(X11Window* window) : window_(window) {}
    void detach() { window_ = nullptr; }
    void setIMEWindowPosition(XY<int> const& osPosition) override {
        if (window_ != nullptr)
            window_->setInputMethodSpot(osPosition);
    }
    void setIMEEnabled(bool enabled) override {
        if (window_ != nullptr)
            window_->setInputMethodEnabled(enabled);
    }

private:
    X11Window* window_;
};

X11Window::X11Window(X11Display& display, Canvas* topLevel, iDisplay::WindowKind kind)
    : display_(&display), canvas_(topLevel), popup_(kind == iDisplay::WindowKind::Popup),
      x_(std::make_unique<Resources>()) {
    Display* dpy = display.connection();
    x_->display = dpy;
    int screen = display.screenNumber();
    Box rect = topLevel->rect();
    size_ = XY<int>(std::max(rect.width(), 1), std::max(rect.height(), 1));
    XY<int> xPosition(rect.x1, display.screenSize().y - rect.y2);

    XSetWindowAttributes attributes{};
    unsigned long mask = CWEventMask | CWOverrideRedirect | CWBitGravity;
    attributes.event_mask = WindowEvents;
    attributes.override_redirect = popup_ ? True : False;
    attributes.bit_gravity = NorthWestGravity;
    x_->visual = DefaultVisual(dpy, screen);
    x_->depth = DefaultDepth(dpy, screen);
    XVisualInfo argb{};
    if (topLevel->usesAlphaChannel() && display.isCompositing() &&
        XMatchVisualInfo(dpy, screen, 32, TrueColor, &argb)) {
        x_->visual = argb.visual;
        x_->depth = 32;
        x_->colormap = XCreateColormap(dpy, display.rootXid(), argb.visual, AllocNone);
        attributes.colormap = x_->colormap;
        attributes.background_pixel = 0;
        attributes.border_pixel = 0;
        mask |= CWColormap | CWBackPixel | CWBorderPixel;
    } else {
        // The backing store paints every exposed pixel; a background would only flicker.
        attributes.background_pixmap = None;
        mask |= CWBackPixmap;
    }
    if (popup_) {
        attributes.save_under = True;
        mask |= CWSaveUnder;
    }
    xid_ =
        XCreateWindow(dpy, display.rootXid(), xPosition.x, xPosition.y, unsigned(size_.x),
                      unsigned(size_.y), 0, x_->depth, InputOutput, x_->visual, mask, &attributes);
    x_->gc = XCreateGC(dpy, xid_, 0, nullptr);
    x_->canShare =
        display.canShareMemory() && matchesCairoLayout(x_->visual, x_->depth, ImageByteOrder(dpy));
    display.registerWindow(xid_, this);
    setProtocolsAndHints(xPosition);
    createInputContext();
    inputMethodWindow_ = Qor::Ptr<InputMethodWindow>(new InputMethodWindow(this));
}

X11Window::~X11Window() {
    release();
}

void X11Window::release() {
    if (inputMethodWindow_)
        inputMethodWindow_->detach();
    if (!x_ || display_ == nullptr)
        return;
    Display* dpy = x_->display;
    X11Display::ExpectBadWindow quiet(*display_);
    if (x_->inputContext != nullptr)
        XDestroyIC(x_->inputContext);
    releaseSharedImage();
    XFreeGC(dpy, x_->gc);
    XDestroyWindow(dpy, xid_);
    if (x_->colormap != None)
        XFreeColormap(dpy, x_->colormap);
    XFlush(dpy);
    display_->unregisterWindow(xid_);
    display_ = nullptr;
    x_.reset();
}

void X11Window::setProtocolsAndHints(XY<int> const& xPosition) {
    Display* dpy = x_->display;
    if (!popup_) {
        Atom protocols[] = {display_->atom("WM_DELETE_WINDOW"), display_->atom("_NET_WM_PING")};
        XSetWMProtocols(dpy, xid_, protocols, 2);
    }
    Atom type =
        display_->atom(popup_ ? "_NET_WM_WINDOW_TYPE_POPUP_MENU" : "_NET_WM_WINDOW_TYPE_NORMAL");
    XChangeProperty(dpy, xid_, display_->atom("_NET_WM_WINDOW_TYPE"), XA_ATOM, 32, PropModeReplace,
                    reinterpret_cast<unsigned char*>(&type), 1);

    XWMHints hints{};
    hints.flags = InputHint | StateHint;
    hints.input = True;
    hints.initial_state = NormalState;
    XSetWMHints(dpy, xid_, &hints);

    char name[] = "panelkit";
    char className[] = "Panelkit";
    XClassHint classHint{name, className};
    XSetClassHint(dpy, xid_, &classHint);

    long pid = long(getpid());
    XChangeProperty(dpy, xid_, display_->atom("_NET_WM_PID"), XA_CARDINAL, 32, PropModeReplace,
                    reinterpret_cast<unsigned char*>(&pid), 1);
    setPositionHints(xPosition);
}

// Without these a window manager is free to place the window where it likes.
void X11Window::setPositionHints(XY<int> const& xPosition) {
    XSizeHints hints{};
    hints.flags = USPosition | PPosition | USSize | PSize;
    hints.x = xPosition.x;
    hints.y = xPosition.y;
    hints.width = size_.x;
    hints.height = size_.y;
    XSetWMNormalHints(x_->display, xid_, &hints);
}

void X11Window::createInputContext() {
    XIM im = display_->inputMethod();
    if (im == nullptr)
        return;
    XIMStyles* styles = nullptr;
    if (XGetIMValues(im, XNQueryInputStyle, &styles, nullptr) != nullptr || styles == nullptr)
        return;
    // Preedit at the caret when the method can, else wherever the method puts it.
    XIMStyle preferred[] = {XIMPreeditPosition | XIMStatusNothing,
                            XIMPreeditNothing | XIMStatusNothing, XIMPreeditNone | XIMStatusNone};
    for (XIMStyle style : preferred) {
        bool supported =
            std::any_of(styles->supported_styles, styles->supported_styles + styles->count_styles,
                        [&](XIMStyle s) { return s == style; });
        if (!supported)
            continue;
        x_->inputContext =
            XCreateIC(im, XNInputStyle, style, XNClientWindow, xid_, XNFocusWindow, xid_, nullptr);
        if (x_->inputContext != nullptr) {
            x_->inputStyle = style;
            break;
        }
    }
    XFree(styles);
    if (x_->inputContext == nullptr)
        return;
    unsigned long filterEvents = 0;
    XGetICValues(x_->inputContext, XNFilterEvents, &filterEvents, nullptr);
    XSelectInput(x_->display, xid_, WindowEvents | long(filterEvents));
}

void X11Window::setBounds(Box const& rootRect) {
    if (!x_)
        return;
    XY<int> size(std::max(rootRect.width(), 1), std::max(rootRect.height(), 1));
    XY<int> xPosition(rootRect.x1, display_->screenSize().y - rootRect.y2);
    XMoveResizeWindow(x_->display, xid_, xPosition.x, xPosition.y, unsigned(size.x),
                      unsigned(size.y));
    configured(size);
    setPositionHints(xPosition);
}

void X11Window::configured(XY<int> const& size) {
    bool heightChanged = size.y != size_.y;
    size_ = size;
    // The shape is kept y up, so it moves against X's rows when the height changes.
    if (heightChanged && shape_)
        applyShape();
}

void X11Window::setMapped(bool mapped) {
    if (!x_ || mapped == mapped_)
        return;
    mapped_ = mapped;
    if (!mapped)
        XUnmapWindow(x_->display, xid_);
    else if (popup_)
        XMapRaised(x_->display, xid_);
    else
        XMapWindow(x_->display, xid_);
}

void X11Window::raise() {
    if (x_)
        XRaiseWindow(x_->display, xid_);
}

void X11Window::setKeepAbove(bool keep) {
    if (!x_ || keep == keepAbove_)
        return;
    keepAbove_ = keep;
    // Nothing manages a popup's stacking but ourselves.
    if (popup_) {
        if (keep)
            raise();
        return;
    }
    Atom state = display_->atom("_NET_WM_STATE");
    Atom above = display_->atom("_NET_WM_STATE_ABOVE");
    if (!mapped_) {
        // A window manager reads the state property when the window is mapped.
        XChangeProperty(x_->display, xid_, state, XA_ATOM, 32, PropModeReplace,
                        reinterpret_cast<unsigned char*>(&above), keep ? 1 : 0);
        return;
    }
    XEvent message{};
    message.xclient.type = ClientMessage;
    message.xclient.window = xid_;
    message.xclient.message_type = state;
    message.xclient.format = 32;
    message.xclient.data.l[0] = keep ? 1 : 0;
    message.xclient.data.l[1] = long(above);
    message.xclient.data.l[3] = 1;
    XSendEvent(x_->display, display_->rootXid(), False,
               SubstructureRedirectMask | SubstructureNotifyMask, &message);
}

void X11Window::setOpacity(double opacity) {
    if (!x_)
        return;
    Atom property = display_->atom("_NET_WM_WINDOW_OPACITY");
    if (opacity >= 1.0) {
        XDeleteProperty(x_->display, xid_, property);
        return;
    }
    long value = long(std::clamp(opacity, 0.0, 1.0) * double(0xffffffffu));
    XChangeProperty(x_->display, xid_, property, XA_CARDINAL, 32, PropModeReplace,
                    reinterpret_cast<unsigned char*>(&value), 1);
}

void X11Window::setShape(Qor::Ptr<iRegion> const& shape) {
    shape_ = shape;
    applyShape();
}

void X11Window::applyShape() {
    if (!x_ || !display_->hasShapeExtension())
        return;
    if (!shape_) {
        XShapeCombineMask(x_->display, xid_, ShapeBounding, 0, 0, None, ShapeSet);
        return;
    }
    std::vector<XRectangle> rects;
    for (Box const& b : shape_->boxes()) {
        XRectangle r{short(b.x1), short(size_.y - b.y2), (unsigned short)(b.width()),
                     (unsigned short)(b.height())};
        rects.push_back(r);
    }
    XShapeCombineRectangles(x_->display, xid_, ShapeBounding, 0, 0, rects.data(), int(rects.size()),
                            ShapeSet, Unsorted);
}

void X11Window::setTitle(LightweightString<wchar_t> const& title) {
    if (!x_)
        return;
    LightweightString<char> utf8 = toUTF8(title);
    XChangeProperty(x_->display, xid_, display_->atom("_NET_WM_NAME"),
                    display_->atom("UTF8_STRING"), 8, PropModeReplace,
                    reinterpret_cast<unsigned char const*>(utf8.c_str()), int(utf8.size()));
    std::string old = latin1(title);
    XChangeProperty(x_->display, xid_, XA_WM_NAME, XA_STRING, 8, PropModeReplace,
                    reinterpret_cast<unsigned char const*>(old.data()), int(old.size()));
}

void X11Window::setCursor(int cursorId) {
    if (x_)
        XDefineCursor(x_->display, xid_, display_->cursor(cursorId));
}

void X11Window::present(WindowSurface& surface, std::vector<Box> const& damage) {
    if (!x_)
        return;
    for (Box const& box : damage)
        putBox(surface, box);
    XFlush(x_->display);
}

void X11Window::exposed(int x, int y, int width, int height) {
    if (!x_)
        return;
    WindowSurface* surface = canvas_->surface();
    if (surface == nullptr || surface->window() != this)
        return;
    // The store's top row is shown at the window's top whatever their heights.
    int storeHeight = surface->size().y;
    putBox(*surface, Box(x, storeHeight - (y + height), x + width, storeHeight - y));
    XFlush(x_->display);
}

void X11Window::putBox(WindowSurface& surface, Box const& box) {
    XY<int> storeSize = surface.size();
    Box b = box.intersect(Box(0, 0, storeSize.x, storeSize.y));
    if (b.isEmpty())
        return;
    cairo_surface_t* store = surface.surface();
    cairo_surface_flush(store);
    unsigned char const* data = cairo_image_surface_get_data(store);
    int stride = cairo_image_surface_get_stride(store);
    int row = storeSize.y - b.y2;
    if (x_->canShare && putShared(data, stride, storeSize, b.x1, row, b.width(), b.height()))
        return;
    if (matchesCairoLayout(x_->visual, x_->depth, ImageByteOrder(x_->display))) {
        // An image header over the store's own pixels; Xlib copies what it sends.
        XImage* image = XCreateImage(x_->display, x_->visual, unsigned(x_->depth), ZPixmap, 0,
                                     reinterpret_cast<char*>(const_cast<unsigned char*>(data)),
                                     unsigned(storeSize.x), unsigned(storeSize.y), 32, stride);
        if (image == nullptr)
            return;
        XPutImage(x_->display, xid_, x_->gc, image, b.x1, row, b.x1, row, unsigned(b.width()),
                  unsigned(b.height()));
        image->data = nullptr;
        XDestroyImage(image);
        return;
    }
    putConverted(data + std::ptrdiff_t(row) * stride + std::ptrdiff_t(b.x1) * 4, stride, b.x1, row,
                 b.width(), b.height());
}

bool X11Window::putShared(unsigned char const* data, int stride, XY<int> const& surfaceSize, int x,
                          int y, int width, int height) {
    Display* dpy = x_->display;
    XImage* image = x_->sharedImage;
    if (image != nullptr && (image->width != surfaceSize.x || image->height != surfaceSize.y)) {
        releaseSharedImage();
        image = nullptr;
    }
    if (image == nullptr) {
        image = XShmCreateImage(dpy, x_->visual, unsigned(x_->depth), ZPixmap, nullptr, &x_->shm,
                                unsigned(surfaceSize.x), unsigned(surfaceSize.y));
        if (image == nullptr)
            return x_->canShare = false;
        x_->shm.shmid =
            shmget(IPC_PRIVATE, std::size_t(image->bytes_per_line) * std::size_t(image->height),
                   IPC_CREAT | 0600);
        void* address = x_->shm.shmid >= 0 ? shmat(x_->shm.shmid, nullptr, 0) : nullptr;
        if (address == nullptr || address == reinterpret_cast<void*>(-1)) {
            if (x_->shm.shmid >= 0)
                shmctl(x_->shm.shmid, IPC_RMID, nullptr);
            XDestroyImage(image);
            return x_->canShare = false;
        }
        x_->shm.shmaddr = image->data = static_cast<char*>(address);
        x_->shm.readOnly = False;
        X11Display::ErrorTrap trap(*display_);
        XShmAttach(dpy, &x_->shm);
        bool attached = !trap.failed();
        // The segment goes away once both sides have detached.
        shmctl(x_->shm.shmid, IPC_RMID, nullptr);
        if (!attached) {
            shmdt(address);
            image->data = nullptr;
            XDestroyImage(image);
            return x_->canShare = false;
        }
        x_->sharedImage = image;
    }
    if (x_->sharedBusy)
        XSync(dpy, False);
    for (int r = 0; r < height; ++r)
        std::memcpy(
            image->data + std::ptrdiff_t(y + r) * image->bytes_per_line + std::ptrdiff_t(x) * 4,
            data + std::ptrdiff_t(y + r) * stride + std::ptrdiff_t(x) * 4, std::size_t(width) * 4);
    XShmPutImage(dpy, xid_, x_->gc, image, x, y, x, y, unsigned(width), unsigned(height), False);
    x_->sharedBusy = true;
    return true;
}

// For visuals whose pixels are laid out unlike cairo's: each pixel through the visual's masks.
void X11Window::putConverted(unsigned char const* data, int stride, int x, int y, int width,
                             int height) {
    Visual* v = x_->visual;
    XImage* image = XCreateImage(x_->display, v, unsigned(x_->depth), ZPixmap, 0, nullptr,
                                 unsigned(width), unsigned(height), 32, 0);
    if (image == nullptr)
        return;
    image->data = static_cast<char*>(std::malloc(std::size_t(image->bytes_per_line) * height));
    for (int r = 0; r < height; ++r) {
        auto const* row = reinterpret_cast<uint32_t const*>(data + std::ptrdiff_t(r) * stride);
        for (int c = 0; c < width; ++c) {
            uint32_t p = row[c];
            unsigned long pixel = toMask((p >> 16) & 0xff, v->red_mask) |
                                  toMask((p >> 8) & 0xff, v->green_mask) |
                                  toMask(p & 0xff, v->blue_mask);
            XPutPixel(image, c, r, pixel);
        }
    }
    XPutImage(x_->display, xid_, x_->gc, image, 0, 0, x, y, unsigned(width), unsigned(height));
    XDestroyImage(image);
}

void X11Window::releaseSharedImage() {
    if (x_->sharedImage == nullptr)
        return;
    XShmDetach(x_->display, &x_->shm);
    XSync(x_->display, False);
    shmdt(x_->shm.shmaddr);
    x_->sharedImage->data = nullptr;
    XDestroyImage(x_->sharedImage);
    x_->sharedImage = nullptr;
    x_->sharedBusy = false;
}

Qor::Ptr<iRootWindow> X11Window::rootWindow() {
    return inputMethodWindow_;
}

void X11Window::focusChanged(bool focused) {
    focused_ = focused;
    if (!x_ || x_->inputContext == nullptr || !inputMethodEnabled_)
        return;
    if (focused)
        XSetICFocus(x_->inputContext);
    else
        XUnsetICFocus(x_->inputContext);
}

XIC X11Window::inputContext() const {
    return x_ && inputMethodEnabled_ ? x_->inputContext : nullptr;
}

void X11Window::setInputMethodSpot(XY<int> const& spot) {
    if (!x_ || x_->inputContext == nullptr || (x_->inputStyle & XIMPreeditPosition) == 0)
        return;
    XPoint point{short(spot.x), short(spot.y)};
    XVaNestedList attributes = XVaCreateNestedList(0, XNSpotLocation, &point, nullptr);
    XSetICValues(x_->inputContext, XNPreeditAttributes, attributes, nullptr);
    XFree(attributes);
}

void X11Window::setInputMethodEnabled(bool enabled) {
    if (!x_ || enabled == inputMethodEnabled_)
        return;
    if (x_->inputContext != nullptr && !enabled) {
        // Whatever was being composed is dropped with the method.
        char* pending = Xutf8ResetIC(x_->inputContext);
        if (pending != nullptr)
            XFree(pending);
        XUnsetICFocus(x_->inputContext);
    }
    inputMethodEnabled_ = enabled;
    if (enabled && focused_)
        focusChanged(true);
}
