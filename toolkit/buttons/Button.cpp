#include "buttons/Button.h"

#include "buttons/IconCache.h"
#include "foundation/BoolParam.h"
#include "foundation/ButtonAdaptor.h"
#include "foundation/DoubleParam.h"
#include "glib/Canvas.h"
#include "glib/CanvasRenderer.h"
#include "glib/DrawingHelpers.h"
#include "glib/PathCalls.h"
#include "glib/StateSaver.h"
#include "glib/UpdateDeferrer.h"
#include "glob/ScreenServices.h"
#include "glob/UIAppearanceSettings.h"
#include "glob/UifStd.h"
#include "os/Clock.h"
#include "os/OS.h"

#include <cmath>

char const* const Button::dragSuffix_ = " dragged";
char const* const Button::latchingBtnUpSuffix_ = " off";
char const* const Button::latchingBtnDownSuffix_ = " on";

namespace {

constexpr int minimumDragDistance = 4;
constexpr int minimumTextHeight = 8;
constexpr double downShadeFactor = 1.2;

using LabelAdaptor = ButtonAdaptor<LightweightString<wchar_t>>;

Qor::Ptr<LabelAdaptor> labelButtonAdaptor(ValWidget<LightweightString<wchar_t>> const& widget) {
    return Qor::dynamic_ptr_cast<LabelAdaptor>(widget.getAdaptor());
}

Colour windowShade(Palette const& palette) {
    return palette.window(WindowShadeBase);
}

// A pressed face is brighter than the face up; a face already at full brightness darkens
// instead, so that a press always shows.
Colour pressedShade(Colour const& back) {
    Colour lighter = scale(back, downShadeFactor);
    double change = std::abs(lighter.red() - back.red()) +
                    std::abs(lighter.green() - back.green()) +
                    std::abs(lighter.blue() - back.blue());
    return change > 0.06 ? lighter : scale(back, 1.0 / downShadeFactor);
}

} // namespace

void Button::Icon::load(LightweightString<wchar_t> const& file, unsigned short height) {
    name = file;
    isGlyph = false;
    image = IconCache::instance().load(file, IconCache::Plain, height).image;
}

void Button::Icon::loadGlyph(LightweightString<wchar_t> const& file, Colour const& colour) {
    name = file;
    isGlyph = true;
    image = IconCache::instance().createRecolouredIcon(file, colour);
}

Button::Button(UIString const& text, char const* message, unsigned short w, unsigned short h,
               bool lightweight, Canvas* canvas)
    : rect(w, h, lightweight, canvas), callback_(LightweightString<char>(message)), textUp_(text) {
    init();
}

Button::Button(UIString const& text, LightweightString<char> message, GlobCreationInfo const& info)
    : rect(info), callback_(message), textUp_(text) {
    init();
}

Button::Button(InitArgs const& args) : rect(args), callback_(args.callback), textUp_(args.label) {
    init();
}

Button::~Button() = default;

void Button::init() {
    ignoreMouseClicks_ = false;
    state_ = up;
    modifiers_ = 0;
    raised_ = theme().get<bool>("buttonraised", true);
    style_ = Standard;
    alignment_ = AlignCentre;
    textStyle_ = 1;
    highlightFactor_ = 1.2;
    callbackEvents_ = MouseUpEvent;
    setCols(getPalette().text(TextNormal), windowShade(getPalette()));
    setLatching(false, false);
    highlightOnMouseOver_ = true;
    setRepeating(0, 0.5);
    setCanBeIt(false);
    setMovable(false);
    glib_rescalecanvas(canvas());
    if (width() == 0 && !textUp_.getString().empty())
        autoResize();
    if (!callback_.hasCallback())
        setCallback(callback_);
}

void Button::setLatching(bool on, bool boldWhenDown) {
    if (!on) {
        latching_ = NotLatching;
        return;
    }
    callbackEvents_ = MouseDownEvent;
    latching_ = boldWhenDown ? LatchingBoldWhenDown : Latching;
}

void Button::setMessageOnMouseUp(bool onUp) {
    callbackEvents_ = onUp ? MouseUpEvent : MouseDownEvent;
}

void Button::setMessageOnDrag(bool onDrag) {
    if (onDrag)
        callbackEvents_ |= DragEvent;
    else
        callbackEvents_ &= ~unsigned(DragEvent);
}

void Button::setRepeating(int rate, double delay) {
    if (rate < 1) {
        repeatInterval_ = 0;
        return;
    }
    // Half the nominal figures: the settled timing of a held button.
    repeatDelay_ = long(delay * 0.5 * 1e6);
    repeatInterval_ = 1000000 / rate / 2;
}

void Button::setCallback(WidgetCallback const& callback) {
    callback_ = callback;
    if (!callback_.hasCallback())
        callback_.setCallback(Qor::makeCallback(this, &Button::sendMessageToParent));
}

void Button::setCols(Colour const& fore, Colour const& back) {
    faceFromTheme_ = false;
    textUpCol_ = fore;
    textDownCol_ = fore;
    backUpCol_ = back;
    backDownCol_ = pressedShade(back);
}

void Button::setUpCols(Colour const& fore, Colour const& back) {
    faceFromTheme_ = false;
    textUpCol_ = fore;
    backUpCol_ = back;
}

void Button::setDownCols(Colour const& fore, Colour const& back) {
    faceFromTheme_ = false;
    textDownCol_ = fore;
    backDownCol_ = back;
}

Colour Button::getForeCol() const {
    return state_ == down ? textDownCol_ : textUpCol_;
}

Colour Button::getBackCol() const {
    Colour back = state_ == down ? backDownCol_ : backUpCol_;
    if (isActive() && isMouseInside() && highlightOnMouseOver_ && !cachedImages_[0])
        back = scale(back, highlightFactor_);
    return back;
}

Colour Button::textColour() const {
    return getPalette().text(isActive() ? TextNormal : TextInactive);
}

void Button::setPalette(Palette const& palette) {
    Glob::setPalette(palette);
    faceFromTheme_ = false;
    textUpCol_ = palette.text(TextNormal);
    textDownCol_ = textUpCol_;
    backUpCol_ = windowShade(palette);
    backDownCol_ = pressedShade(backUpCol_);
}

void Button::setStyle(eButtonStyle style) {
    style_ = style;
    setCornerMask(0);
    if (style != Standard)
        return;
    if (theme().get<bool>("buttonrounded", true))
        setCornerMask(15);
    double face = theme().get<double>("buttonface", 1.5);
    setCols(getPalette().text(TextNormal), scale(windowShade(getPalette()), face));
    faceFromTheme_ = true;
}

Colour Button::edgeColour() const {
    double v = theme().get<double>("buttonedges", 0.5);
    if (!isActive())
        v = v > 1 ? v - 0.5 * (v - 1) : v + 0.5 * (1 - v);
    return getPalette().scale(getBackCol(), v);
}

void Button::setIcons(LightweightString<wchar_t> const& upName,
                      LightweightString<wchar_t> const& downName) {
    if (upName.empty()) {
        iconUp_ = Icon();
        iconDown_ = Icon();
    } else {
        iconUp_.load(upName, height());
        if (downName.empty())
            iconDown_ = iconUp_;
        else
            iconDown_.load(downName, height());
    }
    dropCachedImages();
    currentIcon_ = iconUp_.image;
}

void Button::setGlyph(LightweightString<wchar_t> const& name) {
    iconUp_.loadGlyph(name, getPalette().text(TextNormal));
    iconDown_ = iconUp_;
    dropCachedImages();
    currentIcon_ = iconUp_.image;
}

void Button::dropCachedImages() {
    for (Qor::Ptr<iHostImage>& image : cachedImages_)
        image = {};
}

void Button::setString(UIString const& text) {
    textUp_ = text;
    Qor::Ptr<ValAdaptorBase<LightweightString<wchar_t>>> adaptor = getDataAdaptor();
    if (adaptor && adaptor->getDataValue() != text.getString())
        requestSetNewDataValue(text.getString(), DataChangeType(4));
}

void Button::setDownString(UIString const& text) {
    textDown_ = text;
}

void Button::setMessage(char const* message) {
    callback_.setMessage(message == nullptr ? LightweightString<char>() : message);
}

void Button::setNewWidgetValue(LightweightString<wchar_t>& value, eRedrawFlag redraw) {
    setString(UIString(value));
    if (redraw == Redraw)
        update();
}

LightweightString<wchar_t> Button::getWidgetValue() {
    return textUp_.getString();
}

void Button::setEnabledState(bool enabled) {
    setActive(enabled, Redraw);
}

bool Button::getEnabledState() const {
    return isActive();
}

bool Button::isTabStopActive() {
    return isActive() && canvas_is_mapped_to_root(canvas());
}

void Button::handleTabStopFocusReceipt(TabOrderable::eDirection) {
    claimKbdFocus();
}

void Button::handleTabStopFocusLoss() {
    if (get_kbd_focus() == this && parent() != nullptr)
        parent()->claimKbdFocus();
}

void Button::handleKbdFocus() {
    update();
}

MouseCursorID Button::contextCursor(XY<int> const& rootPos) {
    setDefaultMouseCursor(ignoreMouseClicks_ ? CursorArrow : CursorHand);
    return Glob::contextCursor(rootPos);
}

void Button::path() {
    if (height() < 6 || getCornerMask() == 0)
        Glob::path();
}

XY<int> Button::calcSizeFor(UIString const& text, Glib::FontDesc const& font) {
    Qor::Ptr<iFont> loaded = Glib::loadFont(font.isEmpty() ? UifStd::getFont() : font);
    int row = UifStd::getRowHeight();
    return XY<int>(loaded->measure(text.getString()).x + row, row);
}

void Button::autoResize() {
    int w = calcSizeFor(textUp_, getFont()).x;
    if (currentIcon_)
        w += int(currentIcon_->width()) + UifStd::getWidgetGap();
    int h = height() != 0 ? height() : UifStd::getRowHeight();
    resize(w, h);
}

void Button::setState(button_state state, eRedrawFlag redraw) {
    bool changed = state != state_;
    state_ = state;
    if (state == down && repeatInterval_ > 0) {
        lastRepeat_ = uiClock();
        firstRepeat_ = true;
    }
    currentIcon_ = state == down ? iconDown_.image : iconUp_.image;
    if (redraw == Redraw && changed && canvas_is_mapped_to_root(canvas()))
        update();
}

void Button::switchState(button_state state, bool notify) {
    LightweightString<char> message = callback_.message();
    if (latching_ == NotLatching) {
        IdStamp const self = getIdStamp();
        if (notify)
            informParent(message, state == down ? MouseDownEvent : MouseUpEvent);
        // The owner may have deleted the button.
        if (!EventHandler::valid(this, self))
            return;
        setState(state, Redraw);
        return;
    }
    setState(state, Redraw);
    if (!notify)
        return;
    if (state_ == down)
        informParent(message + latchingBtnDownSuffix_, MouseDownEvent);
    else
        informParent(message + latchingBtnUpSuffix_, MouseUpEvent);
}

void Button::informParent(LightweightString<char> name, unsigned flags) {
    NotifyMsg msg(name, callback_.context());
    msg.setFlags(int(flags));
    WidgetCallback callback = callback_;
    callback.execute(msg);
}

int Button::sendMessageToParent(NotifyMsg const& msg) {
    LightweightString<char> name = msg.getName();
    if (name.empty())
        name = callback_.message();
    Glob* target = parent();
    if (target == nullptr) {
        Glob* nearest = findNearestGlob(nullptr);
        if (nearest == nullptr || !(glob_pseudo_distance(this, nearest) < 0))
            return 0;
        target = nearest;
    }
    Event event;
    event.init();
    event.type = EventCode::Message;
    event.keyCode(modifiers_);
    event.message(name);
    event.handler = target;
    event.senderCanvas = canvas();
    event_send(&event, false);
    return 0;
}

void Button::getModifier(Event const&) {
    modifiers_ = 0;
    for (unsigned bit : {unsigned(KeyCodes::Shift), unsigned(KeyCodes::Ctrl)})
        if (OS()->isKeyDown(bit))
            modifiers_ |= bit;
}

void Button::setCustomDrawFn(CustomDrawFn fn) {
    customDrawFn_ = fn;
    setStyle(Custom);
}

bool Button::isInsideFace(XY<int> const& rootPos) const {
    XY<int> p = screenXYToGlobXY(rootPos);
    return p.x >= 0 && p.y >= 0 && p.x < width() && p.y < height();
}

int Button::react(Event const& event) {
    if (event.type & EventCode::Timer)
        return reactToTimer();
    if (mouse_event(event) && mouse_left_event(event))
        return reactToLeftMouse(event);
    if (event.type == EventCode::KeyPress)
        return reactToKey(event);
    if (event.type == EventCode::Message)
        return reactToMessage(event);
    return rect::react(event);
}

int Button::reactToTimer() {
    if (repeatInterval_ < 1 || state_ != down)
        return 0;
    long now = uiClock();
    if (now - lastRepeat_ <= (firstRepeat_ ? repeatDelay_ : repeatInterval_))
        return 0;
    lastRepeat_ = now;
    firstRepeat_ = false;
    informParent(LightweightString<char>(), RepeatEvent);
    return 1;
}

int Button::reactToLeftMouse(Event const& event) {
    if (ignoreMouseClicks_)
        return rect::react(event);
    if (mouse_up_event(event))
        return reactToRelease(event);
    IdStamp const self = getIdStamp();
    if (mouse_down_event(event)) {
        getModifier(event);
        switchState(state_ == up ? down : up, (callbackEvents_ & MouseDownEvent) != 0);
        if (!EventHandler::valid(this, self))
            return 1;
        if (Qor::Ptr<LabelAdaptor> adaptor = labelButtonAdaptor(*this))
            adaptor->widgetLeftClicked();
        if (EventHandler::valid(this, self) && repeatInterval_ > 0)
            setInterest(EventCode::Timer);
    } else if (mouse_move_event(event)) {
        reactToMove(event);
    }
    if (!EventHandler::valid(this, self))
        return 1;
    return event.passOn ? rect::react(event) : 1;
}

int Button::reactToMove(Event const& event) {
    if (callbackEvents_ & DragEvent) {
        double length = std::sqrt(double(event.motion.x) * event.motion.x +
                                  double(event.motion.y) * event.motion.y);
        if (state_ == down && int(length) >= minimumDragDistance) {
            IdStamp const self = getIdStamp();
            informParent(callback_.message() + dragSuffix_, DragEvent);
            if (EventHandler::valid(this, self) && latching_ == NotLatching)
                setState(up, Redraw);
        }
        return 1;
    }
    if (latching_ != NotLatching)
        return 1;
    bool inside = isInsideFace(event.rootPos);
    if (inside && state_ == up)
        setState(down, Redraw);
    else if (!inside && state_ == down)
        setState(up, Redraw);
    return 1;
}

int Button::reactToRelease(Event const& event) {
    if (event.passOn)
        return rect::react(event);
    if ((callbackEvents_ & MouseUpEvent) == 0)
        return 1;
    IdStamp const self = getIdStamp();
    // A press that a drag ended, or that moved off the face, is no click.
    bool click = isInsideFace(event.rootPos) && (state_ == down || latching_ != NotLatching);
    switchState(up, click);
    if (EventHandler::valid(this, self) && repeatInterval_ > 0)
        clearInterest(EventCode::Timer);
    return 1;
}

int Button::reactToKey(Event const& event) {
    unsigned key = event.keyCode();
    if (key != KeyCodes::Return && key != KeyCodes::Space)
        return rect::react(event);
    synthesiseClick();
    return 1;
}

void Button::synthesiseClick() {
    IdStamp const self = getIdStamp();
    Event event;
    event.init();
    event.type = EventCode::LeftPress;
    event.canvas = canvas();
    event.pos = XY<int>(width() / 2, height() / 2);
    event.startPos = event.pos;
    event.rootPos = XY<int>(event.pos.x + getX(), event.pos.y + getY());
    event.startRootPos = event.rootPos;
    Event release = event;
    release.type = EventCode::LeftRelease;
    event_send(&event, false);
    if (EventHandler::valid(this, self))
        event_send(&release, false);
}

int Button::reactToMessage(Event const& event) {
    if (Qor::Ptr<LabelAdaptor> adaptor = labelButtonAdaptor(*this))
        if (adaptor->messageReceived(event.msg) == 1)
            return 1;
    return rect::react(event);
}

void Button::handleMouseContainment(bool inside) {
    Glob::handleMouseContainment(inside);
    if (isActive() && highlightOnMouseOver_ && !(inside && ignoreMouseClicks_))
        update();
}

void Button::setActive(bool active, eRedrawFlag redraw) {
    if (active == isActive())
        return;
    if (!active) {
        if (latching_ == NotLatching && state_ == down)
            setState(up, NoRedraw);
        if (canvas() != nullptr && glib_getCurrentMouseCanvas() == canvas())
            handleMouseContainment(false);
    }
    setIgnoreMouseClicks(!active);
    rect::setActive(active, redraw);
}

void Button::handleUIChange(unsigned int mask) {
    raised_ = theme().get<bool>("buttonraised", true);
    if ((mask & 1) && faceFromTheme_)
        setStyle(style_);
    if (!iconUp_.name.empty() && !iconUp_.isGlyph)
        setIcons(iconUp_.name, iconDown_.name);
    if (mask & 8) {
        for (UIString* text : {&textUp_, &textDown_})
            if (text->id != noResourceId)
                text->text = LightweightString<wchar_t>();
    }
    rect::handleUIChange(mask);
}

void Button::draw() {
    if (!canvas_is_mapped_to_root(canvas()) && isLightweight())
        return;
    if (style_ != Custom) {
        rect::draw();
        return;
    }
    if (customDrawFn_ == nullptr || !canDraw())
        return;
    Glib::UpdateDeferrer deferrer(canvas());
    Glib::StateSaver saver;
    makeCanvasCurrent();
    customDrawFn_(*this);
}

Box Button::calcIconPosition() const {
    if (!currentIcon_)
        return Box();
    int iw = int(currentIcon_->width());
    int ih = int(currentIcon_->height());
    int x = (width() - iw) / 2;
    int y = (height() - ih) / 2;
    int x2 = x + iw;
    int gap = UifStd::getWidgetGap();
    if (style_ == MenuStyle || style_ == TreeStyle) {
        x = gap;
        x2 = x + iw;
    } else if (!textUp_.getString().empty()) {
        int m = std::max(gap, y);
        if (style_ == Standard)
            m += 2 * UifStd::getIndentWidth();
        if (alignment_ != AlignLeft) {
            x = m;
            x2 = x + iw;
        } else {
            x = width() - m;
        }
    }
    if (height() < ih)
        return Box(x, 0, x + int(float(height()) / float(ih) * float(iw)), height());
    return Box(x, y, x2, y + ih);
}

Qor::Ptr<iHostImage> Button::getInactiveIcon() {
    if (cachedImages_[2] || !currentIcon_)
        return cachedImages_[2];
    Icon const& icon = state_ == down && iconDown_.image ? iconDown_ : iconUp_;
    if (icon.isGlyph)
        cachedImages_[2] =
            IconCache::instance().createRecolouredIcon(icon.name, getPalette().text(TextInactive));
    else
        cachedImages_[2] =
            IconCache::instance().load(icon.name, IconCache::Inactive, height()).image;
    return cachedImages_[2];
}

void Button::drawBackground() {
    CanvasRenderer& r = canvas()->renderer();
    // A standard face and its edge are one picture, kept by size and colours: a form copies it.
    if (style_ == Standard)
        Glib::drawRoundedRect(r, getBackCol(), edgeColour(), Box(0, 0, width(), height()), 2,
                              edgeCorners(), 1);
    else if (style_ != Custom)
        fillRect(Box(0, 0, width(), height()), getBackCol());
    if (currentIcon_) {
        Glib::ImageDescription picture;
        picture.image = isActive() ? currentIcon_ : getInactiveIcon();
        picture.box = calcIconPosition();
        if (picture.image)
            r.renderPrimitive(picture);
    }
    if (get_kbd_focus() == this && !(style_ == MenuStyle && state_ == down)) {
        int m = UifStd::getIndentWidth();
        if (style_ != Flat && style_ != MenuStyle)
            m *= 2;
        Glib::drawFocusRect(r, Box(m, m, width() - m, height() - m),
                            Colour::mix(getBackCol(), getPalette().text(TextNormal), 0.6));
    }
    drawText();
}

void Button::drawText() {
    if (height() < minimumTextHeight)
        return;
    int gap = UifStd::getWidgetGap();
    bool indicator = style_ == MenuStyle || style_ == TreeStyle;
    int left = indicator ? 0 : UifStd::getIndentWidth();
    int right = indicator ? 3 * gap : UifStd::getIndentWidth();
    int available = width() - left - right;
    LightweightString<wchar_t> text = textUp_.getString();
    if (state_ == down && !textDown_.getString().empty())
        text = textDown_.getString();
    Glib::FontDesc desc = getFont().isEmpty() ? UifStd::getFont() : getFont();
    if (latching_ == LatchingBoldWhenDown) {
        if (state_ == down)
            desc.style |= Glib::FontDesc::Bold;
        else
            desc.style &= ~unsigned(Glib::FontDesc::Bold);
    }
    Qor::Ptr<iFont> font = canvas()->createFont(desc);
    int iconWidth = currentIcon_ ? int(currentIcon_->width()) : 0;
    Glib::TextDescription td;
    td.font = font;
    td.text = Glib::fitTextToWidth(font, text, available, Glib::ShortenEnd);
    td.colour = fromColour(textColour());
    td.style = Glib::mapTextStyle(Glib::TextStyles::TextStyle(textStyle_));
    int x = left + gap;
    if (alignment_ == AlignRight) {
        x = width() - (right + gap);
        td.alignment = Glib::TextDescription::Right;
    } else if (alignment_ == AlignCentre) {
        x = currentIcon_ ? iconWidth + (width() - iconWidth) / 2 : left + available / 2;
        td.alignment = Glib::TextDescription::Centre;
    } else if (indicator && currentIcon_) {
        x = left + 2 * gap + iconWidth;
    }
    td.origin = XY<int>(x, getFontYOffset(height(), font));
    if (!td.text.empty())
        canvas()->renderer().renderPrimitive(td);
    if (indicator)
        drawIndicator(x, td.text.empty() ? 0 : font->measure(td.text).x);
}

void Button::drawIndicator(int textX, int textWidth) {
    LightweightString<wchar_t> name = style_ == TreeStyle ? L"tree-collapsed.png"
                                      : state_ == down    ? L"button-menu-hide.png"
                                                          : L"button-menu-reveal.png";
    Colour colour = UifStd::getColourScheme().text(isActive() ? TextNormal : TextInactive);
    Qor::Ptr<iHostImage> image = IconCache::instance().createRecolouredIcon(name, colour);
    if (!image)
        return;
    int iw = int(image->width());
    int ih = int(image->height());
    int y = (height() - ih) / 2;
    int x;
    if (alignment_ == AlignLeft)
        x = textWidth > 0 ? textX + textWidth + UifStd::getWidgetGap() : textX;
    else
        x = width() - (height() - 2 * UifStd::getIndentWidth()) / 2 - iw;
    Glib::ImageDescription picture;
    picture.image = image;
    picture.box = Box(x, y, x + iw, y + ih);
    canvas()->renderer().renderPrimitive(picture);
}

// Rounded corners only where the face is taller than a gap.
unsigned Button::edgeCorners() const {
    return height() > UifStd::getWidgetGap() ? getCornerMask() : 0;
}

// The edge of a standard face came with its picture; the raised outline lies over the face's
// inner side, clear of the edge, so it may follow it.
void Button::drawBorder() {
    CanvasRenderer& r = canvas()->renderer();
    Box face(0, 0, width(), height());
    if (style_ == Standard) {
        // Where the highlight has the face's own colour it would change no pixel.
        Colour highlight = getPalette().scale(getBackCol(), 1.2);
        if (raised_ && highlight != getBackCol()) {
            int i = UifStd::getIndentWidth();
            Box shifted = state_ == up ? Box(face.x1 + i, face.y1 - i, face.x2 + i, face.y2 - i)
                                       : Box(face.x1 - i, face.y1 + i, face.x2 - i, face.y2 + i);
            Glib::drawRoundedRectOutline(r, highlight, shifted, 2, edgeCorners(), 1);
        }
        return;
    }
    if ((style_ == MenuStyle || style_ == TreeStyle) && latching_ != NotLatching && state_ == down)
        Glib::drawRoundedRectOutline(r, getPalette().scale(getBackCol(), 1.5),
                                     Box(0, -1, width(), height()), 2, getCornerMask(), 1);
}

void Button::registerUIThemeParams() {
    using namespace GenericParam;
    UIString const group(ResId(90201));
    UIString const noText(noResourceId);
    auto add = [&](Qor::Ptr<iParam> const& param) {
        UifStd::registerThemeParam(param, group, noText);
    };
    auto shading = [&](ResId legend, char const* key, double value, double min, double max) {
        auto param = Qor::makePtr<DoubleParam>(UIString(legend), key, noText, value, min, max);
        param->setResetValue(1.0);
        add(param);
    };
    add(Qor::makePtr<BoolParam>(UIString(ResId(90310)), "buttonrounded", noText, true));
    add(Qor::makePtr<BoolParam>(UIString(ResId(90311)), "buttonraised", noText, true));
    shading(ResId(90312), "buttonface", 1.5, 0.5, 2.0);
    shading(ResId(90313), "buttonedges", 0.5, 0.2, 2.0);
}
