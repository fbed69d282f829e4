#pragma once

// A display without a server: windows are backing stores in memory on a screen of a chosen size,
// and events come from whoever injects them (the test driver, a script). It keeps what a window
// was told (bounds, mapping, title, cursor, opacity) and what reached it, so tests can look.

#include "glib/Display.h"

#include <deque>
#include <vector>

class HeadlessDisplay;

class HeadlessWindow : public iWindow {
public:
    explicit HeadlessWindow(HeadlessDisplay* display) : display_(display) {}
    ~HeadlessWindow() override;

    void setBounds(Box const& rootRect) override { bounds = rootRect; }
    void setMapped(bool m) override { mapped = m; }
    void raise() override { ++raises; }
    void setKeepAbove(bool keep) override { keepAbove = keep; }
    void setOpacity(double o) override { opacity = o; }
    void setShape(Qor::Ptr<iRegion> const& s) override { shape = s; }
    void setTitle(LightweightString<wchar_t> const& t) override { title = t; }
    void setCursor(int id) override { cursor = id; }
    void present(WindowSurface& surface, std::vector<Box> const& damage) override;
    Qor::Ptr<iRootWindow> rootWindow() override;

    Box bounds;
    bool mapped = false;
    bool keepAbove = false;
    int raises = 0;
    double opacity = 1.0;
    Qor::Ptr<iRegion> shape;
    LightweightString<wchar_t> title;
    int cursor = 0;
    // Every present so far, and the boxes of the last one.
    int presents = 0;
    std::vector<Box> lastPresented;
    long presentedPixels = 0;

private:
    HeadlessDisplay* display_;
    Qor::Ptr<iRootWindow> rootWindow_;
};

class HeadlessDisplay : public iDisplay {
public:
    explicit HeadlessDisplay(XY<int> const& screenSize = XY<int>(1920, 1080), double scale = 1.0);

    char const* name() const override { return "headless"; }
    XY<int> screenSize() const override { return screenSize_; }
    std::vector<Glib::Monitor> monitors() const override;
    double scale() const override { return scale_; }
    std::unique_ptr<iWindow> createWindow(Canvas* topLevel, WindowKind kind) override;
    int eventFd() const override { return -1; }
    void readEvents(std::vector<InputEvent>& out) override;
    void flush() override {}
    XY<int> pointerPosition() const override { return pointer_; }
    bool hasFocus() const override { return true; }
    iKeyboardState& keyboardState() override { return keys_; }
    void setClipboardText(ClipboardChannel channel,
                          LightweightString<wchar_t> const& text) override;
    LightweightString<wchar_t> clipboardText(ClipboardChannel channel) override;

    // Queues an event for the next readEvents; pointer events move the pointer.
    void inject(InputEvent const& event);
    void setModifiers(unsigned mask) { keys_.held = mask; }
    unsigned modifiers() const { return keys_.held; }
    // The window made for a top-level canvas, or null.
    HeadlessWindow* windowOf(Canvas* topLevel) const;

private:
    friend class HeadlessWindow;
    void forget(HeadlessWindow* window);

    struct Keys : iKeyboardState {
        unsigned held = 0;
        bool isKeyDown(unsigned mask) const override { return (held & mask) != 0; }
    };
    struct Made {
        Canvas* canvas;
        HeadlessWindow* window;
    };

    XY<int> screenSize_;
    double scale_;
    XY<int> pointer_;
    Keys keys_;
    std::deque<InputEvent> queue_;
    std::vector<Made> windows_;
    LightweightString<wchar_t> clipboard_;
    LightweightString<wchar_t> selection_;
};
