#include "display/HeadlessDisplay.h"

#include <algorithm>

namespace {

// The input method of a window without one: it only remembers what it was told.
class HeadlessRootWindow : public iRootWindow {
public:
    void setIMEWindowPosition(XY<int> const& p) override { position = p; }
    void setIMEEnabled(bool enabled) override { this->enabled = enabled; }
    XY<int> position;
    bool enabled = false;
};

} // namespace

HeadlessWindow::~HeadlessWindow() {
    display_->forget(this);
}

void HeadlessWindow::present(WindowSurface&, std::vector<Box> const& damage) {
    ++presents;
    lastPresented = damage;
    for (Box const& b : damage)
        presentedPixels += long(b.width()) * b.height();
}

Qor::Ptr<iRootWindow> HeadlessWindow::rootWindow() {
    if (!rootWindow_)
        rootWindow_ = Qor::Ptr<iRootWindow>(new HeadlessRootWindow);
    return rootWindow_;
}

HeadlessDisplay::HeadlessDisplay(XY<int> const& screenSize, double scale)
    : screenSize_(screenSize), scale_(scale) {}

std::vector<Glib::Monitor> HeadlessDisplay::monitors() const {
    Glib::Monitor m;
    m.area = Box(0, 0, screenSize_.x, screenSize_.y);
    m.scale = scale_;
    return {m};
}

std::unique_ptr<iWindow> HeadlessDisplay::createWindow(Canvas* topLevel, WindowKind) {
    auto window = std::make_unique<HeadlessWindow>(this);
    // Windows are owned by their surfaces; forget those whose canvas has gone.
    windows_.erase(std::remove_if(windows_.begin(), windows_.end(),
                                  [&](Made const& m) { return m.canvas == topLevel; }),
                   windows_.end());
    windows_.push_back({topLevel, window.get()});
    return window;
}

void HeadlessDisplay::forget(HeadlessWindow* window) {
    windows_.erase(std::remove_if(windows_.begin(), windows_.end(),
                                  [&](Made const& m) { return m.window == window; }),
                   windows_.end());
}

HeadlessWindow* HeadlessDisplay::windowOf(Canvas* topLevel) const {
    for (Made const& m : windows_)
        if (m.canvas == topLevel)
            return m.window;
    return nullptr;
}

void HeadlessDisplay::readEvents(std::vector<InputEvent>& out) {
    while (!queue_.empty()) {
        out.push_back(queue_.front());
        queue_.pop_front();
    }
}

void HeadlessDisplay::inject(InputEvent const& event) {
    switch (event.kind) {
    case InputEvent::PointerPress:
    case InputEvent::PointerRelease:
    case InputEvent::PointerMove:
    case InputEvent::WheelTurn:
        pointer_ = event.rootPos;
        break;
    default:
        break;
    }
    queue_.push_back(event);
}

void HeadlessDisplay::setClipboardText(ClipboardChannel channel,
                                       LightweightString<wchar_t> const& text) {
    (channel == ClipboardChannel::Clipboard ? clipboard_ : selection_) = text;
}

LightweightString<wchar_t> HeadlessDisplay::clipboardText(ClipboardChannel channel) {
    return channel == ClipboardChannel::Clipboard ? clipboard_ : selection_;
}
