#include "buttons/SizeButton.h"

#include "glib/CanvasRenderer.h"
#include "glib/DrawingHelpers.h"
#include "glob/UifStd.h"

char const* const SizeButton::minifyMsg = "minify";

SizeButton::InitArgs::InitArgs(unsigned short w, unsigned short h, eAppearance appearance_)
    : Button::InitArgs(UIString(), WidgetCallback(LightweightString<char>(minifyMsg)), w, h),
      appearance(appearance_) {}

SizeButton::SizeButton(InitArgs const& args) : Button(args) {
    setStyle(Flat);
    setLatching(true, false);
    setAppearance(args.appearance);
}

void SizeButton::setAppearance(eAppearance appearance) {
    appearance_ = appearance;
    if (appearance == IconAppearance) {
        setString(UIString());
        setIcons(L"tree-collapsed.png", L"tree-expanded.png");
    } else {
        setIcon(LightweightString<wchar_t>());
    }
    showStateText(getState());
    Button::setState(getState(), NoRedraw);
}

void SizeButton::setState(button_state state, eRedrawFlag redraw) {
    showStateText(state);
    Button::setState(state, redraw);
}

void SizeButton::showStateText(button_state state) {
    if (appearance_ == TextAppearance)
        setString(UIString(state == down ? L">" : L"H"));
    UIString const help(ResId(state == down ? 11278 : 11277));
    setContextString(help, help);
}

// A window outline in the middle; below it a bar while full size (the panel folds to it), or a
// second outline behind it while small (the panel opens out).
void SizeButton::drawText() {
    if (appearance_ != TextAppearance) {
        Button::drawText();
        return;
    }
    CanvasRenderer& r = canvas()->renderer();
    int gap = UifStd::getWidgetGap();
    int cx = width() / 2;
    int cy = height() / 2;
    Colour colour = getForeCol();
    Box frame(cx - gap, cy - gap, cx + gap, cy + gap);
    Glib::drawFrame(r, colour, frame, 1);
    if (getState() == down)
        Glib::drawFrame(r, colour, Box(frame.x1, frame.y1 - 1, frame.x2, frame.y2 - 1), 1);
    else
        fillRect(Box(frame.x1, gap, frame.x2, gap + 2 * UifStd::getIndentWidth()), colour);
}
