#include "testing/UiTestDriver.h"

#include "display/HeadlessDisplay.h"
#include "glib/WindowSurface.h"
#include "glob/EventLoop.h"
#include "glob/GlobManager.h"
#include "os/Clock.h"

#include <algorithm>
#include <cairo.h>

struct UiTestDriver::VirtualClock : iClock {
    double now = 0;
    double msecsNow() const override { return now; }
};

UiTestDriver::UiTestDriver(XY<int> const& screenSize)
    : clock_(std::make_unique<VirtualClock>()), previousClock_(setClock(clock_.get())) {
    auto display = std::make_unique<HeadlessDisplay>(screenSize);
    display_ = display.get();
    Glib::setDisplay(std::move(display));
    GlobManager::instance().forgetDisplayState();
}

UiTestDriver::~UiTestDriver() {
    GlobManager& manager = GlobManager::instance();
    while (Glob* g = walk_all_root_globs(nullptr))
        delete g;
    manager.runDeletions();
    EventLoop::instance().processPending();
    manager.forgetDisplayState();
    Glib::setDisplay(nullptr);
    setClock(previousClock_);
}

void UiTestDriver::processEvents() {
    EventLoop::instance().processPending();
}

void UiTestDriver::advanceTime(double ms) {
    double target = clock_->now + ms;
    EventLoop& loop = EventLoop::instance();
    for (;;) {
        double due = loop.nextTimerDue();
        if (due < 0 || due > target)
            break;
        clock_->now = std::max(clock_->now, due);
        processEvents();
    }
    clock_->now = target;
    processEvents();
}

double UiTestDriver::now() const {
    return clock_->now;
}

void UiTestDriver::inject(int kind, Glob* g, XY<int> const& p, int button, int steps) {
    if (is_good_glob_ptr(g))
        injectAt(kind, g->canvas()->getRootParent(), g->canvas()->rootPosition() + p, button,
                 steps);
}

void UiTestDriver::injectAt(int kind, Canvas* window, XY<int> const& rootPos, int button,
                            int steps) {
    InputEvent e;
    e.kind = InputEvent::Kind(kind);
    e.window = window;
    e.rootPos = rootPos;
    e.button = button;
    e.wheelSteps = steps;
    e.modifiers = display_->modifiers();
    e.time = clock_->now;
    display_->inject(e);
    processEvents();
}

void UiTestDriver::mouseMove(Glob* g, XY<int> const& p) {
    inject(InputEvent::PointerMove, g, p, 0, 0);
}

void UiTestDriver::mouseDown(Glob* g, XY<int> const& p, int button) {
    inject(InputEvent::PointerPress, g, p, button, 0);
}

void UiTestDriver::mouseUp(Glob* g, XY<int> const& p, int button) {
    inject(InputEvent::PointerRelease, g, p, button, 0);
}

void UiTestDriver::click(Glob* g, XY<int> const& p, int button) {
    mouseMove(g, p);
    mouseDown(g, p, button);
    mouseUp(g, p, button);
}

void UiTestDriver::click(Glob* g) {
    if (is_good_glob_ptr(g))
        click(g, XY<int>(g->width() / 2, g->height() / 2));
}

void UiTestDriver::doubleClick(Glob* g, XY<int> const& p) {
    click(g, p);
    click(g, p);
}

void UiTestDriver::drag(Glob* g, XY<int> const& from, XY<int> const& to, int steps) {
    // Positions stay those of the widget as the drag began, even if it moves.
    if (!is_good_glob_ptr(g))
        return;
    XY<int> origin = g->canvas()->rootPosition();
    Canvas* window = g->canvas()->getRootParent();
    auto at = [&](int kind, XY<int> const& p, int button) {
        injectAt(kind, window, origin + p, button, 0);
    };
    at(InputEvent::PointerMove, from, 0);
    at(InputEvent::PointerPress, from, 1);
    steps = std::max(steps, 1);
    for (int i = 1; i <= steps; ++i) {
        XY<int> p(from.x + (to.x - from.x) * i / steps, from.y + (to.y - from.y) * i / steps);
        at(InputEvent::PointerMove, p, 0);
    }
    at(InputEvent::PointerRelease, to, 1);
}

void UiTestDriver::wheel(Glob* g, XY<int> const& p, int steps) {
    mouseMove(g, p);
    inject(InputEvent::WheelTurn, g, p, 0, steps);
}

void UiTestDriver::injectKey(int kind, unsigned code) {
    InputEvent e;
    e.kind = InputEvent::Kind(kind);
    e.key = code;
    e.modifiers = display_->modifiers();
    e.time = clock_->now;
    e.rootPos = display_->pointerPosition();
    display_->inject(e);
    processEvents();
}

void UiTestDriver::keyDown(unsigned code) {
    injectKey(InputEvent::KeyDown, code);
}

void UiTestDriver::keyUp(unsigned code) {
    injectKey(InputEvent::KeyUp, code);
}

void UiTestDriver::keyPress(unsigned code) {
    keyDown(code);
    keyUp(code);
}

void UiTestDriver::typeText(wchar_t const* text) {
    for (; text != nullptr && *text != 0; ++text)
        keyPress(unsigned(*text));
}

void UiTestDriver::setModifiers(unsigned mask) {
    display_->setModifiers(mask);
}

NormalisedRGB UiTestDriver::pixel(Glob* g, XY<int> const& p) {
    if (!is_good_glob_ptr(g) || g->canvas()->surface() == nullptr)
        return NormalisedRGB(0, 0, 0, 0);
    return g->canvas()->surface()->pixel(g->canvas()->windowOffset() + p);
}

bool UiTestDriver::savePng(Glob* g, char const* path) {
    if (!is_good_glob_ptr(g) || g->canvas()->surface() == nullptr)
        return false;
    WindowSurface* store = g->canvas()->surface();
    cairo_surface_flush(store->surface());
    XY<int> offset = g->canvas()->windowOffset();
    int w = g->width(), h = g->height();
    cairo_surface_t* image =
        cairo_image_surface_create(CAIRO_FORMAT_ARGB32, std::max(w, 1), std::max(h, 1));
    cairo_t* cr = cairo_create(image);
    // The store's rows run top-down: the widget's top edge is at height - (offset.y + h).
    cairo_set_source_surface(cr, store->surface(), -offset.x, -(store->size().y - offset.y - h));
    cairo_paint(cr);
    cairo_destroy(cr);
    bool ok = cairo_surface_write_to_png(image, path) == CAIRO_STATUS_SUCCESS;
    cairo_surface_destroy(image);
    return ok;
}

std::vector<Glob*> UiTestDriver::topLevels() const {
    return GlobManager::instance().topLevels();
}

Glob* UiTestDriver::widgetAt(XY<int> const& rootPos) const {
    return GlobManager::instance().widgetAt(rootPos);
}

LightweightString<wchar_t> UiTestDriver::clipboardText() const {
    return display_->clipboardText(ClipboardChannel::Clipboard);
}

void UiTestDriver::setClipboardText(LightweightString<wchar_t> const& text) {
    display_->setClipboardText(ClipboardChannel::Clipboard, text);
}
