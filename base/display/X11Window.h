#pragma once

// One top-level X window, the screen side of a top-level canvas: it follows the canvas's place,
// mapping, stacking, opacity, shape, title and cursor, and shows the damaged parts of the window's
// backing store. Window coordinates are y up from the bottom-left corner, as the canvases have
// them; X's rows run downward, so row = height - y.

#include "glib/Display.h"

#include <memory>

struct _XIC;
class X11Display;

class X11Window : public iWindow {
public:
    X11Window(X11Display& display, Canvas* topLevel, iDisplay::WindowKind kind);
    ~X11Window() override;
    X11Window(X11Window const&) = delete;
    X11Window& operator=(X11Window const&) = delete;

    void setBounds(Box const& rootRect) override;
    void setMapped(bool mapped) override;
    void raise() override;
    void setKeepAbove(bool keep) override;
    void setOpacity(double opacity) override;
    void setShape(Qor::Ptr<iRegion> const& shape) override;
    void setTitle(LightweightString<wchar_t> const& title) override;
    void setCursor(int cursorId) override;
    void present(WindowSurface& surface, std::vector<Box> const& damage) override;
    Qor::Ptr<iRootWindow> rootWindow() override;

    unsigned long xid() const { return xid_; }
    Canvas* canvas() const { return canvas_; }
    // The size the server last reported, or the last one asked for.
    XY<int> size() const { return size_; }
    // An X rectangle of the window (y down) in window coordinates (y up).
    Box fromXRect(int x, int y, int width, int height) const {
        return Box(x, size_.y - (y + height), x + width, size_.y - y);
    }

    // What the display tells the window.
    void configured(XY<int> const& size);
    // Shows part of the window (X coordinates) again from the backing store.
    void exposed(int x, int y, int width, int height);
    void focusChanged(bool focused);
    bool isFocused() const { return focused_; }
    // The input context for key presses; null when there is none or it is turned off.
    _XIC* inputContext() const;
    // The display is closing: give back every X resource now and do nothing from then on.
    void release();

    // For the input-method object: the spot in window coordinates, y down.
    void setInputMethodSpot(XY<int> const& spot);
    void setInputMethodEnabled(bool enabled);

private:
    struct Resources;
    class InputMethodWindow;

    void setProtocolsAndHints(XY<int> const& xPosition);
    void setPositionHints(XY<int> const& xPosition);
    void createInputContext();
    void applyShape();
    void putBox(WindowSurface& surface, Box const& box);
    bool putShared(unsigned char const* data, int stride, XY<int> const& surfaceSize, int x, int y,
                   int width, int height);
    void putConverted(unsigned char const* data, int stride, int x, int y, int width, int height);
    void releaseSharedImage();

    X11Display* display_;
    Canvas* canvas_;
    unsigned long xid_ = 0;
    bool popup_ = false;
    XY<int> size_;
    bool mapped_ = false;
    bool focused_ = false;
    bool inputMethodEnabled_ = true;
    bool keepAbove_ = false;
    Qor::Ptr<iRegion> shape_;
    std::unique_ptr<Resources> x_;
    Qor::Ptr<InputMethodWindow> inputMethodWindow_;
};
