#include "buttons/Checkbox.h"

#include "glib/CanvasRenderer.h"
#include "glib/DrawingHelpers.h"
#include "glib/Glyphs.h"
#include "glob/GlobManager.h"
#include "glob/UifStd.h"

#include <algorithm>

char const* const Checkbox::defaultMsgPrefix = "Checkbox ";
char const* const Checkbox::tickedSuffix = "TICKED";
char const* const Checkbox::clearSuffix = "CLEAR";

namespace {

constexpr unsigned BoldBit = Glib::FontDesc::Bold;

Glib::FontDesc defaultFont(bool bold) {
    return Glib::FontDesc(Glib::getDefaultFontName(), Glib::getDefaultFontSize(),
                          bold ? BoldBit : 0u);
}

} // namespace

// Construction

Checkbox::Checkbox(InitArgs const& args)
    : StandardPanel(args.width, args.height, args.palette, args.lightweight, args.canvas) {
    init(args.text, args.state);
    callback_ = args.callback;
    message_ = args.message;
}

Checkbox::Checkbox(UIString const& text, bool state, unsigned short w, unsigned short h,
                   Palette const& palette, Canvas* canvas)
    : StandardPanel(w, h, palette, false, canvas) {
    init(text, state);
}

Checkbox::~Checkbox() = default;

void Checkbox::init(UIString const& text, bool state) {
    text_ = text;
    state_ = state;
    tickCharacter_ = LightweightString<char>(1, char(QorTTF::Tick));
    tickPosition_ = TickRight;
    appearance_ = SquareWell;
    msgGeneration_ = OnMouseDown;
    msgPrefix_ = defaultMsgPrefix;
    appendState_ = true;
    setFont(defaultFont(false));
    colourWhenTicked_ = getPalette().text(TextNormal);
    Glob* owner = parent();
    rect::setCol(owner != nullptr ? owner->getCol() : getPalette().window(WindowShadeBase), false);
    setDefaultMouseCursor(CursorHand);
}

Checkbox* Checkbox::make(unsigned short w, unsigned short h, UIString const& text, bool state,
                         Palette const& palette, Canvas* canvas) {
    return new Checkbox(text, state, w, h, palette, canvas);
}

// The appearance plays no part: every kind of tick takes the same room.
int Checkbox::calcWidth(UIString const& text, Border::eType border, eAppearance, bool bold) {
    Qor::Ptr<iFont> font = Glib::loadFont(defaultFont(bold));
    int width = font->measure(text.getString()).x + UifStd::getWidgetGap() + UifStd::getRowHeight();
    if (border != Border::None)
        width += 2 * UifStd::getWidgetGap();
    return width;
}

// Settings

void Checkbox::setText(UIString const& text) {
    text_ = text;
    update();
}

void Checkbox::setCallback(Callback const& callback, LightweightString<char> const& message) {
    callback_ = callback;
    message_ = message;
}

void Checkbox::setUserFunction(UserFunction fn, void* data) {
    userFunction_ = fn;
    userData_ = data;
}

void Checkbox::setMsgPrefix(LightweightString<char> const& prefix, bool appendState) {
    msgPrefix_ = prefix;
    appendState_ = appendState;
}

void Checkbox::setAppearance(eAppearance appearance) {
    appearance_ = appearance;
    update();
}

void Checkbox::setTickCharacter(char c) {
    tickCharacter_ = LightweightString<char>(1, c);
    update();
}

void Checkbox::setTickPosition(int position) {
    tickPosition_ = position;
    update();
}

void Checkbox::setTextColourWhenTicked(Colour const& colour) {
    colourWhenTicked_ = colour;
    update();
}

void Checkbox::setBoldWhenTicked(bool bold) {
    boldWhenTicked_ = bold;
    applyBoldness();
    update();
}

void Checkbox::setClicksEnabled(bool enabled) {
    clicksEnabled_ = enabled;
    setDefaultMouseCursor(enabled ? CursorHand : CursorArrow);
}

void Checkbox::applyBoldness() {
    if (!boldWhenTicked_)
        return;
    Glib::FontDesc font = getFont();
    font.style = state_ ? (font.style | BoldBit) : (font.style & ~BoldBit);
    setFont(font);
}

// The ticked text colour follows the palette unless it was chosen.
void Checkbox::setPalette(Palette const& palette) {
    bool followText = colourWhenTicked_ == getPalette().text(TextNormal);
    StandardPanel::setPalette(palette);
    if (followText)
        colourWhenTicked_ = palette.text(TextNormal);
}

// State

void Checkbox::setState(bool value, bool notify) {
    if (notify)
        setState(value);
    else
        setStateInternal(value);
}

void Checkbox::setState(bool value) {
    if (value == state_)
        return;
    setStateInternal(value);
    update();
    Qor::Ptr<ValAdaptorBase<bool>> adaptor = getDataAdaptor();
    if (adaptor && adaptor->getDataValue() != value)
        requestSetNewDataValue(value, SetByProgram);
}

void Checkbox::setStateInternal(bool value) {
    state_ = value;
    applyBoldness();
}

void Checkbox::setNewWidgetValue(bool& value, eRedrawFlag redraw) {
    setStateInternal(value);
    if (redraw == Redraw)
        update();
}

// The owner may delete the box when it hears of the click, so nothing here touches the box
// after telling.
void Checkbox::requestToggleState() {
    if (userFunction_ != nullptr) {
        userFunction_(this, userData_);
        return;
    }
    setState(!state_);
    if (!callback_ && message_.empty()) {
        informParent(this, appendState_);
        return;
    }
    Qor::Ptr<iObject> change(new Change(state_, this));
    if (callback_) {
        Callback callback = callback_;
        callback->execute(NotifyMsg(message_, change));
    } else {
        sendMessageWithData(message_, parent(), change, this);
    }
}

// Events

int Checkbox::react(Event const& event) {
    bool usable = clicksEnabled_ && isActive();
    if (usable && mouse_left_event(event)) {
        if (event.passOn)
            return StandardPanel::react(event);
        if ((msgGeneration_ == OnMouseDown && mouse_down_event(event)) ||
            (msgGeneration_ == OnMouseUp && mouse_up_event(event)))
            requestToggleState();
        return 1;
    }
    if (usable && isKeyPressEvent(event) &&
        (event.keyCode() == KeyCodes::Return || event.keyCode() == KeyCodes::Space)) {
        requestToggleState();
        return 1;
    }
    return StandardPanel::react(event);
}

void Checkbox::handleMouseContainment(bool inside) {
    StandardPanel::handleMouseContainment(inside);
    if (highlight_ && isActive())
        update();
}

// Tab order

bool Checkbox::isTabStopActive() {
    return isActive() && isVisible() && canvas() != nullptr && canvas()->isMappedToRoot();
}

void Checkbox::handleTabStopFocusReceipt(TabOrderable::eDirection) {
    if (get_kbd_focus() != this)
        claimKbdFocus();
}

void Checkbox::handleTabStopFocusLoss() {
    if (get_kbd_focus() != this)
        return;
    if (Glob* owner = parent())
        owner->claimKbdFocus();
    else
        set_kbd_focus(nullptr);
}

// Focus that comes by a click makes this the current stop of its tab order too.
void Checkbox::handleKbdFocus() {
    if (get_kbd_focus() == this && !TabOrderable::isTabStopFocus())
        TabOrderable::setTabStopFocus();
    update();
}

// Colours

Colour Checkbox::faceColour() const {
    Colour col = getCol();
    if (isActive() && isMouseInside() && highlight_)
        col = getPalette().scale(col, 1.2);
    return col;
}

Colour Checkbox::paletteText(Colour const& text) const {
    Palette p(getPalette().window(WindowShadeBase), text);
    return p.text(isActive() ? TextNormal : TextInactive);
}

Colour Checkbox::getLEDColour(eAppearance appearance) const {
    switch (appearance) {
    case RedLamp:
        return Colour(1.0, 0.3, 0.2);
    case GreenLamp:
        return Colour(0.5, 0.75, 0.43);
    case CyanLamp:
        return Colour(0.1, 0.8, 0.8);
    default:
        return getPalette().text(TextNormal);
    }
}

Colour Checkbox::getTickColour() const {
    if (isLamp()) {
        Colour led = getLEDColour(appearance_);
        return isActive() ? led : Colour::mix(led, getPalette().window(WindowShadeBase), 0.9);
    }
    return paletteText(state_ ? colourWhenTicked_ : getPalette().text(TextNormal));
}

Colour Checkbox::getTextColour() const {
    return paletteText(state_ ? colourWhenTicked_ : getPalette().text(TextNormal));
}

// Drawing

Box Checkbox::getTickExtents() const {
    Qor::Ptr<iFont> font = Glib::loadFont(getFont());
    LightweightString<wchar_t> tick(1, wchar_t(tickCharacter_.empty() ? ' ' : tickCharacter_[0]));
    int const c = font->measure(tick).y;
    int const w = width(), h = height();
    int const rowHeight = UifStd::getRowHeight();
    int size = h - 2 * UifStd::getIndentWidth();
    int left = 0;
    if (isLamp() || getFont().size > c) {
        int const d = 2 * rowHeight / 3;
        left = (rowHeight - d) / 2;
        size = std::min(size, d);
    } else {
        size = std::min(size, int(1.5 * c));
    }
    size = std::max(size, 2);
    int const bottom = (h - size) / 2;
    int const top = size + bottom;
    switch (tickPosition_) {
    case TickLeft:
        return Box(left, bottom, left + size, top);
    case TickRight:
        return Box(w - left - size, bottom, w - left, top);
    default:
        return Box((w - size) / 2, bottom, (w - size) / 2 + size, top);
    }
}

void Checkbox::drawBackground() {
    CanvasRenderer& r = canvas()->renderer();
    fillRect(face(), faceColour());
    int const indent = UifStd::getIndentWidth();
    if (width() <= 2 * indent || height() <= 2 * indent)
        return;
    if (getBorder().type == Border::RoundedIndented)
        Glib::drawIndentBox(r, faceColour(), face());
    drawTickBox();
    if (state_)
        drawTick(isActive());
    drawText();
}

void Checkbox::drawTickBox() {
    CanvasRenderer& r = canvas()->renderer();
    Palette const& p = getPalette();
    Colour const col = faceColour();
    Box const box = getTickExtents();
    switch (appearance_) {
    case RoundedBox:
    case SquareBox:
        Glib::drawRoundedRect(r, p.childWindow(ChildWindowInset), p.scale(col, 0.55), box, 1,
                              appearance_ == RoundedBox ? 15u : 0u, 1);
        break;
    case RoundedWell:
        Glib::drawRoundedRect(r, p.scale(col, 0.85), p.scale(col, 0.55), box, 2, 15, 1);
        break;
    case SquareWell:
        Glib::drawRoundedRect(r, p.scale(col, 0.85), p.scale(col, 0.55), box, 2, 0,
                              UifStd::getIndentWidth());
        break;
    case Lamp:
    case RedLamp:
    case GreenLamp:
    case CyanLamp: {
        Glib::EllipseDescription lamp;
        lamp.box = box;
        Colour const tick = getTickColour();
        lamp.colour = fromColour(state_ ? tick : Colour::mix(tick, p.window(WindowShadeBase), 0.9));
        r.renderPrimitive(lamp);
        break;
    }
    default:
        break;
    }
    if (get_kbd_focus() == this)
        Glib::drawFocusRect(r, face().inset(UifStd::getIndentWidth()),
                            Colour::mix(col, p.text(TextNormal), 0.5));
}

void Checkbox::drawTick(bool) {
    if (appearance_ == NoBoxNoTick)
        return;
    CanvasRenderer& r = canvas()->renderer();
    Box const box = getTickExtents();
    if (isLamp()) {
        // The lit centre of the lamp, a shade brighter than its rim.
        Glib::EllipseDescription centre;
        centre.box = box.inset(2 * UifStd::getIndentWidth());
        centre.colour = fromColour(getPalette().scale(getTickColour(), 1.25));
        centre.startDeg = 0.0;
        centre.extentDeg = 360.0;
        if (!centre.box.isEmpty())
            r.renderPrimitive(centre);
        return;
    }
    if (tickCharacter_.empty())
        return;
    drawGlyph(r, QorTTF::eGlyph(wchar_t(tickCharacter_[0])), box.inset(UifStd::getIndentWidth()),
              getTickColour());
}

void Checkbox::drawText() {
    LightweightString<wchar_t> const& label = text_.getString();
    if (label.empty() || tickPosition_ == TickCentre)
        return;
    Box const tick = getTickExtents();
    int const gap = UifStd::getWidgetGap();
    int const x1 = tickPosition_ == TickLeft ? tick.x2 + gap : gap;
    int const x2 = tickPosition_ == TickLeft ? width() - gap : tick.x1 - gap;
    if (x2 <= x1)
        return;
    Qor::Ptr<iFont> font = Glib::loadFont(getFont());
    Glib::TextDescription t;
    t.text = Glib::fitTextToWidth(font, label, x2 - x1);
    t.font = font;
    t.colour = fromColour(getTextColour());
    t.origin = XY<int>(x1, getFontYOffset(height(), font));
    t.style = Glib::mapTextStyle(Glib::TextStyles::Normal);
    canvas()->renderer().renderPrimitive(t);
}

// Telling the parent

void informParent(Checkbox* box, bool appendState) {
    Glob* owner = box->parent();
    if (owner == nullptr)
        return;
    LightweightString<char> name = box->getMsgPrefix();
    if (appendState)
        name.append(box->getState() ? Checkbox::tickedSuffix : Checkbox::clearSuffix);
    Event event;
    event.type = EventCode::Message;
    event.msg = name;
    event.handler = owner;
    event.senderCanvas = box->canvas();
    event_send(&event, false);
}
