#include "display/HeadlessDisplay.h"
#include "display/X11Display.h"
#include "glib/Canvas.h"
#include "os/Diagnostics.h"

#include <cstdlib>
#include <cstring>

namespace {

// The clipboard of OS(), served by the display in use.
class DisplayClipboard final : public iClipboard {
public:
    explicit DisplayClipboard(iDisplay& display) : display_(display) {}
    void setText(Channel channel, LightweightString<wchar_t> const& text) override {
        display_.setClipboardText(map(channel), text);
    }
    LightweightString<wchar_t> getText(Channel channel) override {
        return display_.clipboardText(map(channel));
    }

private:
    static ClipboardChannel map(Channel channel) {
        return channel == Selection ? ClipboardChannel::Selection : ClipboardChannel::Clipboard;
    }
    iDisplay& display_;
};

struct Current {
    std::unique_ptr<iDisplay> display;
    std::unique_ptr<DisplayClipboard> clipboard;
    std::unique_ptr<Canvas> root;
};

Current& current() {
    static Current* const c = new Current;
    return *c;
}

} // namespace

namespace Glib {

std::unique_ptr<iDisplay> createDisplayFromEnvironment() {
    char const* wanted = std::getenv("PANELKIT_DISPLAY");
    char const* x = std::getenv("DISPLAY");
    bool x11 = wanted != nullptr ? std::strcmp(wanted, "x11") == 0 : (x != nullptr && *x != 0);
    if (wanted != nullptr && !x11 && std::strcmp(wanted, "headless") != 0)
        diag_printf("PANELKIT_DISPLAY=%s is neither \"headless\" nor \"x11\"; using headless",
                    wanted);
    if (x11) {
        if (auto display = createX11Display(nullptr))
            return display;
        diag_printf("No X display could be opened; using the headless display");
    }
    return std::make_unique<HeadlessDisplay>();
}

iDisplay& display() {
    Current& c = current();
    if (!c.display)
        setDisplay(createDisplayFromEnvironment());
    return *c.display;
}

bool hasDisplay() {
    return current().display != nullptr;
}

void setDisplay(std::unique_ptr<iDisplay> display) {
    Current& c = current();
    OS()->setKeyboardState(nullptr);
    OS()->setClipboard(nullptr);
    c.root.reset();
    c.clipboard.reset();
    c.display = std::move(display);
    if (!c.display)
        return;
    c.root = Canvas::createRoot(c.display->screenSize());
    c.clipboard = std::make_unique<DisplayClipboard>(*c.display);
    OS()->setKeyboardState(&c.display->keyboardState());
    OS()->setClipboard(c.clipboard.get());
}

} // namespace Glib

Canvas* glib_rootcanvas() {
    Current& c = current();
    if (!c.root)
        Glib::display();
    return c.root.get();
}
