#pragma once

// The base of everything clickable: a face, an optional icon and a text. It follows the mouse
// through press, drag and release, may latch or repeat, is a tab stop, and tells its owner through
// a WidgetCallback (by default a message to its parent) or a ButtonAdaptor.
//
// A plain button (callback events 1, the default):
//   left press            face down; the repeat timer starts if the button repeats
//   move off the face     face up: the press is taken back
//   move back on          face down again
//   release on the face   face up; the owner is told (flags 1)
//   release off the face  nothing is told
//   timer while held      after the delay, then at each interval: told with flags 4098
//   Return or Space       with the focus: a synthetic press and release through delivery
// A latching button (callback events 2): each press toggles; the press that puts it down tells
// message + " on" (flags 2), the press that raises it message + " off" (flags 1). Releases and
// moves change nothing. With callback events bit 4, a move of 4 pixels or more while down tells
// message + " dragged" (flags 4) and, unless latching, ends the press without a click.

#include "foundation/ButtonWidget.h"
#include "foundation/WidgetCallback.h"
#include "glib/Image.h"
#include "panels/TabOrderable.h"
#include "panels/rect.h"
#include "qor/UIString.h"

class Button : public rect, public ButtonWidget<LightweightString<wchar_t>>, public TabOrderable {
public:
    enum button_state : int { up = 0, down = 1 };
    enum eButtonStyle : int { Flat = 0, Standard = 1, MenuStyle = 2, TreeStyle = 3, Custom = 4 };
    enum eAlignment : int { AlignLeft = 0, AlignRight = 1, AlignCentre = 2 };
    // Bits of the callback-events mask, and the flags that informParent passes.
    enum eCallbackEvent : unsigned {
        MouseUpEvent = 1,
        MouseDownEvent = 2,
        DragEvent = 4,
        RepeatEvent = 4098,
    };
    enum eLatching : int { NotLatching = 0, Latching = 1, LatchingBoldWhenDown = 2 };

    using CustomDrawFn = void (*)(Button const&);

    // One face's icon: an image file from the icon cache, or a glyph recoloured to the text.
    struct Icon {
        Qor::Ptr<iHostImage> image;
        LightweightString<wchar_t> name;
        bool isGlyph = false;

        void load(LightweightString<wchar_t> const& name, unsigned short height);
        void loadGlyph(LightweightString<wchar_t> const& name, Colour const& colour);
    };

    struct InitArgs : GlobCreationInfo {
        InitArgs() = default;
        InitArgs(UIString const& label_, WidgetCallback const& callback_, unsigned short w,
                 unsigned short h)
            : GlobCreationInfo(w, h), callback(callback_), label(label_) {}
        WidgetCallback callback;
        UIString label;
    };

    static char const* const dragSuffix_;
    static char const* const latchingBtnUpSuffix_;
    static char const* const latchingBtnDownSuffix_;

    Button(UIString const& text, char const* message, unsigned short w, unsigned short h,
           bool lightweight, Canvas* canvas);
    Button(UIString const& text, LightweightString<char> message, GlobCreationInfo const& info);
    explicit Button(InitArgs const& args);
    ~Button() override;

    // Virtual operations added here.
    virtual void setString(UIString const& text);
    virtual void setMessage(char const* message);
    virtual void setState(button_state state, eRedrawFlag redraw);
    virtual void switchState(button_state state, bool notify);
    bool isTabStopActive() override;
    void handleTabStopFocusReceipt(TabOrderable::eDirection direction) override;
    void handleTabStopFocusLoss() override;
    void setNewWidgetValue(LightweightString<wchar_t>& value, eRedrawFlag redraw) override;
    LightweightString<wchar_t> getWidgetValue() override;
    void setEnabledState(bool enabled) override;
    bool getEnabledState() const override;
    virtual void drawText();
    virtual Colour edgeColour() const;
    virtual Colour textColour() const;

    // Overrides of Glob.
    char const* idstring() const override { return "Button"; }
    MouseCursorID contextCursor(XY<int> const& rootPos) override;
    void handleMouseContainment(bool inside) override;
    void draw() override;
    void path() override;
    int react(Event const& event) override;
    void setActive(bool active, eRedrawFlag redraw) override;
    void setPalette(Palette const& palette) override;
    void handleUIChange(unsigned int mask) override;
    void handleKbdFocus() override;
    void drawBackground() override;
    void drawBorder() override;

    void setStyle(eButtonStyle style);
    eButtonStyle getStyle() const { return style_; }
    void setAlignment(int alignment) { alignment_ = alignment; }
    int getAlignment() const { return alignment_; }
    void setLatching(bool on, bool boldWhenDown);
    int getLatching() const { return latching_; }
    void setMessageOnMouseUp(bool onUp);
    void setMessageOnDrag(bool onDrag);
    void setCallbackEvents(unsigned mask) { callbackEvents_ = mask; }
    unsigned getCallbackEvents() const { return callbackEvents_; }
    void setIgnoreMouseClicks(bool ignore) { ignoreMouseClicks_ = ignore; }
    bool getIgnoreMouseClicks() const { return ignoreMouseClicks_; }
    // `rate` presses a second after a hold of `delay` seconds; a rate below 1 stops repeating.
    void setRepeating(int rate, double delay);
    void setCallback(WidgetCallback const& callback);
    WidgetCallback const& getCallback() const { return callback_; }
    LightweightString<char> const& getMessage() const { return callback_.message(); }
    void setCols(Colour const& fore, Colour const& back);
    void setUpCols(Colour const& fore, Colour const& back);
    void setDownCols(Colour const& fore, Colour const& back);
    Colour getForeCol() const;
    Colour getBackCol() const;
    void setHighlightOnMouseOver(bool on) { highlightOnMouseOver_ = on; }
    void setHighlightFactor(double factor) { highlightFactor_ = factor; }
    void setTextStyle(int style) { textStyle_ = style; }
    void setIcons(LightweightString<wchar_t> const& upName,
                  LightweightString<wchar_t> const& downName);
    void setIcon(LightweightString<wchar_t> const& name) { setIcons(name, name); }
    void setGlyph(LightweightString<wchar_t> const& name);
    Qor::Ptr<iHostImage> const& getCurrentIcon() const { return currentIcon_; }
    // The text shown while down, when not empty.
    void setDownString(UIString const& text);
    UIString const& getString() const { return textUp_; }
    button_state getState() const { return state_; }
    unsigned getModifiers() const { return modifiers_; }
    static XY<int> calcSizeFor(UIString const& text, Glib::FontDesc const& font);
    void autoResize();
    Box calcIconPosition() const;
    Qor::Ptr<iHostImage> getInactiveIcon();
    void informParent(LightweightString<char> name, unsigned flags);
    int sendMessageToParent(NotifyMsg const& msg);
    void getModifier(Event const& event);
    void setCustomDrawFn(CustomDrawFn fn);
    static void registerUIThemeParams();

protected:
    void init();
    bool isInsideFace(XY<int> const& rootPos) const;
    int reactToTimer();
    int reactToLeftMouse(Event const& event);
    int reactToMove(Event const& event);
    int reactToRelease(Event const& event);
    int reactToKey(Event const& event);
    int reactToMessage(Event const& event);
    void synthesiseClick();
    void dropCachedImages();
    unsigned edgeCorners() const;
    void drawIndicator(int textX, int textWidth);

private:
    Colour textUpCol_;
    Colour textDownCol_;
    Colour backUpCol_;
    Colour backDownCol_;
    bool ignoreMouseClicks_ = false;
    bool raised_ = true;
    double highlightFactor_ = 1.2;
    int textStyle_ = 1;
    button_state state_ = up;
    Icon iconUp_;
    Icon iconDown_;
    Qor::Ptr<iHostImage> currentIcon_;
    Qor::Ptr<iHostImage> cachedImages_[3];
    WidgetCallback callback_;
    UIString textUp_;
    UIString textDown_;
    eButtonStyle style_ = Standard;
    int alignment_ = AlignCentre;
    unsigned callbackEvents_ = MouseUpEvent;
    int latching_ = NotLatching;
    bool highlightOnMouseOver_ = true;
    CustomDrawFn customDrawFn_ = nullptr;
    bool firstRepeat_ = false;
    long repeatInterval_ = 0;
    long repeatDelay_ = 0;
    long lastRepeat_ = 0;
    unsigned modifiers_ = 0;
    // The face shade came from the theme, so a theme change shades it anew.
    bool faceFromTheme_ = false;
};
