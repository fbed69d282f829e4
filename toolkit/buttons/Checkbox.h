#pragma once

// A tick box with a label: a small panel that shows one bool, either its own or a value server's
// through a ValAdaptorBase<bool>, and is a tab stop.
//
// Interaction, while active with clicks enabled:
//   left press            message generation 0: the box asks to toggle; used up
//   left release          message generation 1: the box asks to toggle; used up
//   other left events     used up
//   Return or Space       the box asks to toggle (with the keyboard focus)
// Asking to toggle: a user function, when set, takes the click over and nothing else happens.
// Otherwise the state flips (and the adaptor is asked for it), then the owner is told: by the
// callback with a Checkbox::Change, by a data message carrying one when only a message name is
// set, and with neither by the message prefix plus "TICKED" or "CLEAR" to the parent.

#include "foundation/ValWidget.h"
#include "panels/StandardPanel.h"
#include "panels/TabOrderable.h"
#include "qor/Callback.h"
#include "qor/NotifyMsg.h"

class Checkbox : public StandardPanel, public ValWidget<bool>, public TabOrderable {
public:
    enum eAppearance : int {
        RoundedBox = 0,
        SquareBox = 1,
        RoundedWell = 2,
        SquareWell = 3,
        Lamp = 4,
        RedLamp = 5,
        GreenLamp = 6,
        CyanLamp = 7,
        NoBox = 8,
        NoBoxNoTick = 9,
    };
    enum eMsgGeneration : int { OnMouseDown = 0, OnMouseUp = 1, Never = 2 };
    // The tick's place; the label takes the other side.
    enum eTickPosition : int { TickLeft = 0, TickRight = 1, TickCentre = 2 };

    using Callback = Qor::Ptr<iCallbackBase<int, NotifyMsg>>;
    using UserFunction = void (*)(Checkbox*, void*);

    // What the owner hears of a click: the state the box now has, and the box.
    class Change : public iObject {
    public:
        Change(bool state, Checkbox* box) : newState(state), sender(box) {}
        bool newState;
        Checkbox* sender;
    };

    struct InitArgs : GlobCreationInfo {
        InitArgs() = default;
        InitArgs(UIString const& text_, bool state_, unsigned short w, unsigned short h)
            : GlobCreationInfo(w, h), text(text_), state(state_) {}
        UIString text;
        bool state = false;
        Callback callback;
        LightweightString<char> message;
    };

    static char const* const defaultMsgPrefix;
    static char const* const tickedSuffix;
    static char const* const clearSuffix;

    explicit Checkbox(InitArgs const& args);
    Checkbox(UIString const& text, bool state, unsigned short w, unsigned short h,
             Palette const& palette, Canvas* canvas);
    ~Checkbox() override;

    // A box of that size on the canvas, not yet added to a parent.
    static Checkbox* make(unsigned short w, unsigned short h, UIString const& text, bool state,
                          Palette const& palette, Canvas* canvas);
    // The width that shows the whole label beside the tick.
    static int calcWidth(UIString const& text, Border::eType border, eAppearance appearance,
                         bool bold);

    // Virtual operations added here.
    virtual void requestToggleState();
    virtual void setState(bool value);
    bool isTabStopActive() override;
    void handleTabStopFocusReceipt(TabOrderable::eDirection direction) override;
    void handleTabStopFocusLoss() override;
    virtual Box getTickExtents() const;
    virtual void drawTick(bool active);
    virtual void drawTickBox();
    virtual void drawText();
    virtual Colour getTextColour() const;
    virtual Colour getTickColour() const;
    virtual void setStateInternal(bool value);
    void setNewWidgetValue(bool& value, eRedrawFlag redraw) override;
    bool getWidgetValue() override { return state_; }
    void setEnabledState(bool enabled) override { setActive(enabled, Redraw); }
    bool getEnabledState() const override { return isActive(); }

    // Overrides.
    char const* idstring() const override { return "Checkbox"; }
    int react(Event const& event) override;
    void drawBackground() override;
    void setPalette(Palette const& palette) override;
    void handleKbdFocus() override;
    void handleMouseContainment(bool inside) override;

    // With `notify` the state goes through setState(value), so the adaptor hears of it;
    // otherwise it is only shown.
    void setState(bool value, bool notify);
    bool getState() const { return state_; }
    void setText(UIString const& text);
    UIString const& getText() const { return text_; }
    void setCallback(Callback const& callback, LightweightString<char> const& message);
    void setMessage(LightweightString<char> const& message) { message_ = message; }
    LightweightString<char> const& getMessage() const { return message_; }
    void setUserFunction(UserFunction fn, void* data);
    // The name sent to the parent when there is no callback; with `appendState` "TICKED" or
    // "CLEAR" goes after it.
    void setMsgPrefix(LightweightString<char> const& prefix, bool appendState);
    LightweightString<char> const& getMsgPrefix() const { return msgPrefix_; }
    bool getAppendState() const { return appendState_; }
    void setAppearance(eAppearance appearance);
    eAppearance getAppearance() const { return appearance_; }
    void setMessageGeneration(eMsgGeneration generation) { msgGeneration_ = generation; }
    void setTickCharacter(char c);
    void setTickPosition(int position);
    void setTextColourWhenTicked(Colour const& colour);
    void setBoldWhenTicked(bool bold);
    void setClicksEnabled(bool enabled);
    bool getClicksEnabled() const { return clicksEnabled_; }
    void setHighlight(bool on) { highlight_ = on; }
    Colour getLEDColour(eAppearance appearance) const;

protected:
    void init(UIString const& text, bool state);
    // The face colour: the panel's, brighter under the mouse when highlighting.
    Colour faceColour() const;
    bool isLamp() const { return appearance_ >= Lamp && appearance_ <= CyanLamp; }
    // The colour of a palette of `text` on the window colour, inactive when the box is.
    Colour paletteText(Colour const& text) const;

private:
    void applyBoldness();

    bool state_ = false;
    LightweightString<char> tickCharacter_;
    int tickPosition_ = TickRight;
    Colour colourWhenTicked_;
    Callback callback_;
    LightweightString<char> message_;
    UserFunction userFunction_ = nullptr;
    void* userData_ = nullptr;
    LightweightString<char> msgPrefix_;
    bool appendState_ = true;
    bool boldWhenTicked_ = false;
    bool clicksEnabled_ = true;
    bool highlight_ = true;
    eAppearance appearance_ = SquareWell;
    eMsgGeneration msgGeneration_ = OnMouseDown;
    UIString text_;
};

// Tells the box's parent, by a message event delivered at once, the box's message prefix with
// "TICKED" or "CLEAR" after it when `appendState`. Nothing happens without a parent.
void informParent(Checkbox* box, bool appendState);
