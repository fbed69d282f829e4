#include "panels/StandardPanel.h"

#include "buttons/PinButton.h"
#include "buttons/PootButton.h"
#include "buttons/PushButton.h"
#include "buttons/SettingsButton.h"
#include "buttons/SizeButton.h"
#include "buttons/TextLabel.h"
#include "foundation/GenericParam.h"
#include "glib/CanvasRenderer.h"
#include "glib/DrawingHelpers.h"
#include "glib/PathCalls.h"
#include "glib/Region.h"
#include "glib/StateSaver.h"
#include "glib/UpdateDeferrer.h"
#include "glob/GlobManager.h"
#include "glob/UifStd.h"
#include "misc/Resources.h"

#include <algorithm>

char const* const StandardPanel::doItMsg = "do_it";
char const* const StandardPanel::titleChangedMsg = "StdPanelTitleChanged";
char const* const StandardPanel::titleTypedMsg = "StdPanelTitleTyped";
char const* const StandardPanel::pootMsg = "poot";
char const* const StandardPanel::minifyMsg = "minify";
char const* const StandardPanel::freezeFlipMsg = "freeze_flip";
char const* const StandardPanel::dropDownClickMsg = "ddBtnClickMsg";
char const* const StandardPanel::screwdriverMsg = "screwdriver";

namespace {

bool startsWith(LightweightString<char> const& name, char const* prefix) {
    return name.startsWith(prefix);
}

WidgetSurround standardSurround() {
    return WidgetSurround{};
}

constexpr int TopRowBits = StandardPanel::Poot | StandardPanel::Settings | StandardPanel::SizeFlip |
                           StandardPanel::Pin | StandardPanel::DropDownSettings;
constexpr int TitleBits = StandardPanel::Title | StandardPanel::EditableTitle;
constexpr int SettingsBits = StandardPanel::Settings | StandardPanel::DropDownSettings;

} // namespace

// Construction

StandardPanel::StandardPanel(unsigned short w, unsigned short h, Palette const& palette,
                             bool lightweight, Canvas* canvas)
    : rect(w, h, palette, lightweight, canvas), TabOrderManager(false) {
    init();
}

StandardPanel::StandardPanel(unsigned short w, unsigned short h)
    : rect(w, h, false, nullptr), TabOrderManager(false) {
    init();
}

StandardPanel::StandardPanel(XY<int> const& size, Palette const& palette, bool lightweight,
                             Canvas* canvas)
    : rect((unsigned short)size.x, (unsigned short)size.y, palette, lightweight, canvas),
      TabOrderManager(false) {
    init();
}

StandardPanel::StandardPanel(XY<int> const& size)
    : rect((unsigned short)size.x, (unsigned short)size.y, false, nullptr), TabOrderManager(false) {
    init();
}

StandardPanel::StandardPanel(configb const&, unsigned short w, unsigned short h)
    : rect(w, h, false, nullptr), TabOrderManager(false) {
    init();
}

StandardPanel::StandardPanel(InitArgs const& args)
    : rect(static_cast<GlobCreationInfo const&>(args)), TabOrderManager(false) {
    init();
    setBorder(args.border);
}

StandardPanel::~StandardPanel() = default;

void StandardPanel::init() {
    border_ = Border(Border::None, 0, 15);
    titleText_ = UIString(noResourceId);
    standardWidgetFlags_ = 0;
    settingsWidget_ = nullptr;
    sizeButton_ = nullptr;
    pootButton_ = nullptr;
    actionButton_ = nullptr;
    titleWidget_ = nullptr;
    pinButton_ = nullptr;
    titleAreaColourAdjust_ = getDefaultTitleAreaColourAdjust();
    setBorderStyle(Border::None);
    setPersistable(false);
    sizeState_ = SizeNormal;
}

// The registry keeps the first parameter of each key, so a second call changes nothing.
void StandardPanel::registerUIThemeParams() {
    using namespace GenericParam;
    UIString const group(ResId(90200));
    UIString const subgroup(noResourceId);
    UIString const noTip(noResourceId);
    auto add = [&](Qor::Ptr<iParam> const& param) {
        UifStd::registerThemeParam(param, group, subgroup);
    };
    add(Qor::makePtr<BoolParam>(UIString(ResId(90300)), "panelcorners", noTip, false));
    add(Qor::makePtr<ColourParam>(UIString(ResId(90301)), "headingcolour",
                                  fromColour(Palette().headingText()), noTip));
    add(Qor::makePtr<BoolParam>(UIString(ResId(90302)), "titlefontbold", noTip, true));
    add(Qor::makePtr<DoubleParam>(UIString(ResId(90303)), "titlebg", noTip, 0.0, -0.25, 0.25));
    add(Qor::makePtr<DoubleParam>(UIString(ResId(90304)), "titlescale", noTip, 1.0, 1.0, 1.5));
    add(Qor::makePtr<DoubleParam>(UIString(ResId(90305)), "edgescale", noTip, 0.5, 0.0, 1.0));
    add(Qor::makePtr<BoolParam>(UIString(ResId(90306)), "edgedark", noTip, true));
    add(Qor::makePtr<BoolParam>(UIString(ResId(90307)), "edgelight", noTip, true));
}

// Event entry

int StandardPanel::react(Event const& event) {
    if (event.forward != 0)
        return reactToForwarded(event);
    if (isMessageEvent(event))
        return reactToMessage(event);
    if (isKeyPressEvent(event))
        return reactToKey(event);
    if (isKeyReleaseEvent(event))
        return handleKeyReleaseEvent((int)event.keyCode()) == 1 ? 1 : passOn(event);
    if (mouse_event(event)) {
        if (mouse_zoom_event(event)) {
            int zoomed = handleZoom(event.code);
            if (zoomed == 1)
                return 1;
            if (zoomed != 0)
                return passOn(event);
        }
        return handleMouseEvent(event) == 1 ? 1 : passOn(event);
    }
    if ((event.type & EventCode::Timer) != 0) {
        handleTimerEvent();
        return 1;
    }
    return passOn(event);
}

int StandardPanel::reactToForwarded(Event const& event) {
    bool responsible = false;
    for (Canvas* c = event.canvas; c != nullptr && !responsible; c = c->getParent()) {
        if (c == canvas())
            responsible = true;
        else if (c->isRoot())
            break;
    }
    if (!responsible && event.handler != nullptr && event.handler != this)
        for (Glob* child = visitChildren(nullptr); child != nullptr && !responsible;
             child = visitChildren(child))
            responsible = static_cast<EventHandler*>(child) == event.handler;
    if (!responsible && !isOwnCanvasOrChild(event.senderCanvas))
        return 1;
    if (event.handler == nullptr)
        return 1;
    Event copy = event;
    copy.forward = 0;
    event.handler->handleEvent(copy);
    return 1;
}

bool StandardPanel::isOwnCanvasOrChild(Canvas* c) {
    if (c == nullptr)
        return false;
    if (c == canvas())
        return true;
    for (Glob* child = visitChildren(nullptr); child != nullptr; child = visitChildren(child))
        if (child->canvas() == c)
            return true;
    return false;
}

int StandardPanel::reactToMessage(Event const& event) {
    Glob* sender = event_to_sender_glob(event);
    LightweightString<char> const& name = event.msg;
    if (name == pootMsg) {
        if (!handlePoot())
            return 1;
        if (passOn(event) == 1)
            return 1;
        GlobManager::instance().requestDeletion(this);
        return 1;
    }
    if (startsWith(name, minifyMsg)) {
        handleFlipSize();
        return 1;
    }
    if (sender != nullptr && sender == pinButton_ && startsWith(name, freezeFlipMsg)) {
        handlePinned(pinState() == 1);
        return 1;
    }
    if (name == titleChangedMsg) {
        if (Glob* title = titleWidget_)
            setTitle(UIString(titleText_.getString()), title->getFont(), Redraw);
        handleTitleChange();
        return 1;
    }
    if (name == titleTypedMsg) {
        handleTitleChangeInternal(Redraw);
        return 1;
    }
    if ((standardWidgetFlags_ & DropDownSettings) != 0 && name == dropDownClickMsg &&
        sender != nullptr && sender == settingsWidget_) {
        // The drop-down settings menu is prepared by the drop-down button class, which is still
        // to come; the action is recorded all the same.
        GlobManager::instance().recordAction(0x4342544e, TopLeft(0, 0));
        return passOn(event);
    }
    if (name == screwdriverMsg)
        return passOn(event);
    int used = event.data ? handleDataMessageEvent(name, sender, event.data)
                          : handleMessageEvent(name, sender);
    return used == 1 ? 1 : passOn(event);
}

int StandardPanel::reactToKey(Event const& event) {
    int code = (int)event.keyCode();
    int used = handleKeyboardEvent(code);
    if (used == 0) {
        if (event.keyCode() == KeyCodes::Tab)
            used = incrementTabStop() != None;
        else if (event.keyCode() == (KeyCodes::Shift | KeyCodes::Tab))
            used = decrementTabStop() != None;
    }
    return used == 1 ? 1 : passOn(event);
}

int StandardPanel::handleMessageEvent(LightweightString<char>, Glob*) {
    return 0;
}

int StandardPanel::handleKeyboardEvent(int) {
    return 0;
}

int StandardPanel::handleKeyReleaseEvent(int) {
    return 0;
}

int StandardPanel::handleMouseEvent(Event const&) {
    return 0;
}

int StandardPanel::handleZoom(int) {
    return 0;
}

int StandardPanel::handleDataMessageEvent(LightweightString<char>, Glob*, Qor::Ptr<iObject>) {
    return 0;
}

int StandardPanel::handlePoot() {
    return 1;
}

bool StandardPanel::isPinned() const {
    return pinButton_ != nullptr && pinState() == 1;
}

int StandardPanel::pinState() const {
    return pinButton_ != nullptr ? pinButton_->getState() : 0;
}

void StandardPanel::handleMouseContainment(bool inside) {
    mouseInside_ = inside;
    if (settingsWidget_ == nullptr || !showSettingsOnMouseOver_)
        return;
    settingsWidget_->setVisible(inside);
    if (inside)
        settingsWidget_->update();
    else
        eraseRectangle(getWidgetBounds(settingsWidget_),
                       settingsWidget_->getPalette().window(WindowShadeBase));
}

void StandardPanel::setShowSettingsOnMouseOver(bool show) {
    showSettingsOnMouseOver_ = show;
    if (show && settingsWidget_ != nullptr)
        settingsWidget_->setVisible(false);
}

bool StandardPanel::canMakeMenu(Event const&) {
    return settingsWidget_ == nullptr || settingsWidget_->isActive();
}

// Standard widgets

Palette StandardPanel::standardWidgetPalette() const {
    return (border_.style & Border::TitleArea) != 0 ? makeTitleAreaPalette() : getPalette();
}

void StandardPanel::addStandardWidgets(int mask) {
    standardWidgetFlags_ |= mask;
    makeStandardWidgets(mask);
    positionStandardWidgets();
}

template <class T>
T* StandardPanel::makeStandardWidget(typename T::InitArgs args) {
    args.canvas = canvas();
    args.palette = standardWidgetPalette();
    return new T(args);
}

void StandardPanel::makeStandardWidgets(int mask) {
    auto small = (unsigned short)Glib::getDefaultFontSize();
    auto h = (unsigned short)measure(TitleWidgetHeight);
    if ((mask & Poot) && pootButton_ == nullptr)
        pootButton_ = makeStandardWidget<PootButton>(PootButton::InitArgs(small, h));
    if ((mask & SizeFlip) && sizeButton_ == nullptr) {
        sizeButton_ = makeStandardWidget<SizeButton>(SizeButton::InitArgs(small, h));
        sizeButton_->setAppearance(SizeButton::TextAppearance);
    }
    // The drop-down settings button comes with drop-downs; until then bit 128 only keeps room.
    if ((mask & Settings) && settingsWidget_ == nullptr) {
        settingsWidget_ = makeStandardWidget<SettingsButton>(
            SettingsButton::InitArgs((unsigned short)(small + UifStd::getWidgetGap()), h));
        if (sizeState_ == SizeSmall)
            settingsWidget_->unmapCanvas();
    }
    if ((mask & DoIt) && actionButton_ == nullptr)
        actionButton_ = makeStandardWidget<PushButton>(
            PushButton::InitArgs(UIString(ResId(10039)), WidgetCallback(doItMsg), 0,
                                 (unsigned short)PushButton::calcHeight()));
    if ((mask & Pin) && pinButton_ == nullptr) {
        pinButton_ = makeStandardWidget<PinButton>(PinButton::InitArgs(small, h));
        pinButton_->setState(isMovable() ? Button::up : Button::down, NoRedraw);
    }
    if ((mask & TitleBits) && titleWidget_ == nullptr)
        makeTitleWidget(h);
}

// The title is shown by a label until the panel's editable title box exists.
void StandardPanel::makeTitleWidget(unsigned short height) {
    TextLabel::InitArgs args(titleText_.getString(),
                             (unsigned short)calcTitleWidthInternal(titleText_.getString()),
                             height);
    args.fixedSize = true;
    args.font = theme().titleFont;
    args.textColour = standardWidgetPalette().headingText();
    titleWidget_ = makeStandardWidget<TextLabel>(args);
    titleWidget_->setPalette(titleWidgetPalette());
}

bool StandardPanel::isStandardWidget(Glob const* widget) const {
    if (widget == nullptr)
        return false;
    return widget == titleWidget_ || widget == pinButton_ || widget == pootButton_ ||
           widget == actionButton_ || widget == sizeButton_;
}

void StandardPanel::removeStandardWidgets(int mask, bool destroy) {
    auto take = [&](Glob* widget, int bits) {
        if ((mask & bits) == 0 || widget == nullptr)
            return;
        Glob* w = widget;
        rect::removeWidget(w, destroy);
        if (destroy)
            standardWidgetFlags_ &= ~bits;
    };
    take(sizeButton_, SizeFlip);
    take(settingsWidget_, SettingsBits);
    take(titleWidget_, TitleBits);
    take(actionButton_, DoIt);
    take(pinButton_, Pin);
    take(pootButton_, Poot);
    if (!destroy)
        return;
    if (mask & SizeFlip)
        sizeButton_ = nullptr;
    if (mask & SettingsBits)
        settingsWidget_ = nullptr;
    if (mask & TitleBits)
        titleWidget_ = nullptr;
    if (mask & DoIt)
        actionButton_ = nullptr;
    if (mask & Pin)
        pinButton_ = nullptr;
    if (mask & Poot)
        pootButton_ = nullptr;
}

void StandardPanel::positionStandardWidgets() {
    int flags = standardWidgetFlags_;
    int y = measure(TopRowOffset);
    int b = border_.getSize();
    int g = UifStd::getWidgetGap();
    removeStandardWidgets(127, false);
    for (WidgetDetails const& s : statusWidgets_) {
        Glob* w = s.widget;
        rect::removeWidget(w, false);
    }
    std::vector<WidgetDetails> users = takeChildren();

    placeTopRightRow();
    if (Glob* action = actionButton_; action != nullptr && (flags & DoIt))
        addChild(action, BottomLeft(b, b), standardSurround());
    Glob* lastStatus = nullptr;
    for (WidgetDetails const& s : statusWidgets_) {
        WidgetPosition at =
            lastStatus == nullptr ? TopLeft(s.getX(), s.getY()) : RightOf(s.getGap(), lastStatus);
        addChild(s.widget, at, standardSurround());
        lastStatus = s.widget;
    }
    if (Glob* title = titleWidget_; title != nullptr && (flags & TitleBits))
        addChild(title, lastStatus != nullptr ? RightOf(g, lastStatus) : TopLeft(b, y),
                 standardSurround());

    standardWidgetFlags_ = flags;
    for (WidgetDetails const& d : users)
        appendChild(d);
    resizeTitleWidget();
}

void StandardPanel::placeTopRightRow() {
    int flags = standardWidgetFlags_;
    int y = measure(TopRowOffset);
    int b = border_.getSize();
    int v = border_.getVisibleSize();
    int g = UifStd::getWidgetGap();
    Glob* poot = (flags & Poot) ? static_cast<Glob*>(pootButton_) : nullptr;
    Glob* size = (flags & SizeFlip) ? static_cast<Glob*>(sizeButton_) : nullptr;
    Glob* pin = (flags & Pin) ? static_cast<Glob*>(pinButton_) : nullptr;
    if (poot != nullptr)
        addChild(poot, TopRight(v + g, y), standardSurround());
    if (size != nullptr)
        addChild(size, poot != nullptr ? LeftOf(0, poot) : TopRight(b, y), standardSurround());
    if (pin != nullptr) {
        Glob* before = size != nullptr ? size : poot;
        addChild(pin, before != nullptr ? LeftOf(0, before) : TopRight(v + g, y),
                 standardSurround());
    }
    // Taking the widgets out unmapped them: what counts is whether the panel shows them. It
    // hides only the settings widget, while small.
    if ((flags & SettingsBits) && settingsWidget_ != nullptr && sizeState_ != SizeSmall) {
        Glob* before = pin != nullptr ? pin : size != nullptr ? size : poot;
        addChild(settingsWidget_, before != nullptr ? LeftOf(0, before) : TopRight(v, y),
                 standardSurround());
    }
}

void StandardPanel::addStatusWidget(Glob* widget, unsigned short gap) {
    if (widget == nullptr)
        return;
    WidgetDetails details;
    details.widget = widget;
    details.position = statusWidgets_.empty() ? TopLeft(gap, 0) : RightOf(gap, nullptr);
    statusWidgets_.push_back(details);
    positionStandardWidgets();
}

void StandardPanel::removeWidget(Glob*& child, bool destroy) {
    Glob* taken = child;
    auto status = std::find_if(statusWidgets_.begin(), statusWidgets_.end(),
                               [&](WidgetDetails const& d) { return d.widget == taken; });
    bool wasStatus = status != statusWidgets_.end();
    if (wasStatus)
        statusWidgets_.erase(status);
    if (destroy && taken != nullptr) {
        if (taken == settingsWidget_) {
            standardWidgetFlags_ &= ~SettingsBits;
            settingsWidget_ = nullptr;
        }
    }
    rect::removeWidget(child, destroy);
    if (wasStatus)
        positionStandardWidgets();
}

void StandardPanel::setSizeFlag(eSizeState state) {
    sizeState_ = state;
    if (settingsWidget_ != nullptr) {
        if (state == SizeSmall)
            settingsWidget_->unmapCanvas();
        else
            settingsWidget_->setVisible(true);
    }
    positionStandardWidgets();
}

Box StandardPanel::getWidgetBounds(Glob* widget) const {
    if (widget == nullptr || widget->canvas() == nullptr)
        return Box();
    return widget->canvas()->rect();
}

void StandardPanel::findRelativeWidgets(Glob* widget, std::list<Glob*>& out) {
    for (Glob* child = visitChildren(nullptr); child != nullptr; child = visitChildren(child)) {
        WidgetDetails* d = getWidget(child);
        if (d != nullptr && d->isRelative() && d->getSibling() == widget)
            out.push_back(child);
    }
}

void StandardPanel::eraseRectangle(Box const& box, Colour const& colour) {
    fillRect(box, colour);
}

// Title

int StandardPanel::calcTitleWidth(UIString const& text) const {
    return Glib::loadFont(theme().titleFont)->measure(text.getString()).x;
}

int StandardPanel::calcMaxTitleWidgetWidth() const {
    int width = getUserArea().width();
    int flags = standardWidgetFlags_;
    Glob* leftmost = nullptr;
    if (flags & TopRowBits) {
        for (Glob* w : {static_cast<Glob*>(pootButton_), static_cast<Glob*>(sizeButton_),
                        static_cast<Glob*>(pinButton_)})
            if (w != nullptr) {
                width -= w->width();
                leftmost = w;
            }
        if (settingsWidget_ != nullptr && settingsWidget_->isVisible()) {
            width -= settingsWidget_->width();
            leftmost = settingsWidget_;
        }
    }
    auto* self = const_cast<StandardPanel*>(this);
    if (Glob* title = titleWidget_) {
        WidgetDetails* d = self->getWidget(title);
        if (d != nullptr && !d->isRelative())
            width += border_.getSize() - d->getX();
    }
    while (leftmost != nullptr) {
        std::list<Glob*> beside;
        self->findRelativeWidgets(leftmost, beside);
        leftmost = nullptr;
        for (Glob* w : beside) {
            WidgetDetails* d = self->getWidget(w);
            if (d != nullptr && d->getRelativity() == RelativeLeft && w->isVisible()) {
                width -= w->width();
                leftmost = w;
                break;
            }
        }
    }
    return width;
}

int StandardPanel::calcTitleWidthInternal(LightweightString<wchar_t> const& text) const {
    Glob* title = titleWidget_;
    Glib::FontDesc font = title != nullptr ? title->getFont() : theme().titleFont;
    int width = Glib::loadFont(font)->measure(text).x + UifStd::getWidgetGap();
    if ((standardWidgetFlags_ & EditableTitle) && width < 30)
        width = 30;
    return std::min(width, calcMaxTitleWidgetWidth());
}

bool StandardPanel::resizeTitleWidget() {
    Glob* title = titleWidget_;
    if (title == nullptr)
        return false;
    int width = calcTitleWidthInternal(titleText_.getString());
    if (width == title->width())
        return false;
    title->resize(width, title->height());
    return true;
}

void StandardPanel::setTitle(UIString const& text, Glib::FontDesc const& font, eRedrawFlag redraw) {
    Drawable::disableRedraws();
    {
        Glib::StateSaver saved;
        titleText_ = text;
        if (titleWidget_ != nullptr) {
            titleWidget_->setFont(font);
            titleWidget_->setText(titleText_.getString(), NoRedraw);
            handleTitleChangeInternal(redraw);
        } else {
            addStandardWidgets(Title);
            if (Glob* made = titleWidget_)
                made->setFont(font);
            resizeTitleWidget();
        }
        if (Glob* title = titleWidget_; title != nullptr && redraw == Redraw)
            title->update();
    }
    Drawable::enableRedraws();
}

void StandardPanel::setEditableTitle(bool editable) {
    if (editable)
        standardWidgetFlags_ = (standardWidgetFlags_ & ~Title) | EditableTitle;
    else
        standardWidgetFlags_ = (standardWidgetFlags_ & ~EditableTitle) | Title;
    resizeTitleWidget();
}

void StandardPanel::handleTitleChangeInternal(eRedrawFlag redraw) {
    Glob* title = titleWidget_;
    if (title == nullptr)
        return;
    int width = calcTitleWidthInternal(titleText_.getString());
    if (width == title->width()) {
        if (redraw == Redraw)
            title->update();
        return;
    }
    Colour shade = title->getPalette().window(WindowShadeBase);
    std::list<Glob*> relatives;
    findRelativeWidgets(title, relatives);
    if (relatives.empty()) {
        if (redraw == Redraw && width < title->width())
            eraseRectangle(getWidgetBounds(title), shade);
        title->resize(width, title->height());
        if (redraw == Redraw)
            if (WidgetDetails* d = getWidget(title))
                positionChildWidget(*d);
        return;
    }
    title->resize(width, title->height());
    Box area = getWidgetBounds(title);
    for (Glob* w : relatives)
        if (w->isVisible())
            area = area.unite(getWidgetBounds(w));
    eraseRectangle(area, shade);
    handleTitleWidgetResize();
    reshape();
    relatives.push_back(title);
    for (Glob* w : relatives) {
        if (WidgetDetails* d = getWidget(w))
            positionChildWidget(*d);
        w->update();
    }
}

// Palette

Palette StandardPanel::makeTitleAreaPalette() const {
    Palette p = getPalette();
    double a = titleAreaColourAdjust_;
    Colour base = p.window(WindowShadeBase);
    if (a > 0)
        p.setWindow(offsetColour(base, a, a, a));
    else if (a < 0)
        p.setWindow(p.scale(base, 1 + a));
    return p;
}

void StandardPanel::setPalette(Palette const& palette) {
    rect::setPalette(palette);
    Palette title = makeTitleAreaPalette();
    for (Glob* w :
         {static_cast<Glob*>(pootButton_), static_cast<Glob*>(pinButton_), settingsWidget_})
        if (w != nullptr)
            w->setPalette(title);
    if (Glob* t = titleWidget_)
        t->setPalette(titleWidgetPalette());
    for (Glob* w : {static_cast<Glob*>(sizeButton_), static_cast<Glob*>(actionButton_)})
        if (w != nullptr)
            w->setPalette(palette);
}

void StandardPanel::setCol(Colour const& colour, bool redraw) {
    rect::setCol(colour, redraw);
    if (Glob* t = titleWidget_)
        t->setCol(makeTitleAreaPalette().window(WindowShadeBase), redraw);
}

void StandardPanel::handleUIChange(unsigned int mask) {
    rect::handleUIChange(mask);
    if (mask & 1) {
        titleAreaColourAdjust_ = (float)theme().get<double>("titlebg", titleAreaColourAdjust_);
        setPalette(theme().palette);
    }
    int small = Glib::getDefaultFontSize();
    int h = measure(TitleWidgetHeight);
    if (Glob* poot = pootButton_)
        poot->resize(small, h);
    if (Glob* title = titleWidget_) {
        title->setFont(theme().titleFont);
        title->resize(calcTitleWidthInternal(titleText_.getString()), h);
    }
    if (settingsWidget_ != nullptr)
        settingsWidget_->resize(small + UifStd::getWidgetGap(), h);
    if (Glob* size = sizeButton_)
        size->resize(small, h);
    if (Glob* action = actionButton_) {
        action->setFont(theme().buttonFont);
        action->forceReshape();
    }
    if ((mask & 8) && titleWidget_ != nullptr) {
        UIString text = titleText_;
        if (text.id != noResourceId)
            text.text = LightweightString<wchar_t>();
        setTitle(text, theme().titleFont, Redraw);
    }
    resize(width(), height());
    forceReshape();
    positionStandardWidgets();
}

// Border

Border StandardPanel::getDefaultBorder() {
    UIAppearanceSettings const& t = *UifStd::getTheme();
    Border b(Border::Panel, 0, 15);
    if (UifStd::getWindowArrangement() == 0 && t.get<bool>("panelcorners", false))
        b.type = Border::Curved;
    b.style = Border::TitleArea;
    if (t.get<bool>("edgedark", true))
        b.style |= Border::DarkEdge;
    if (t.get<bool>("edgelight", true))
        b.style |= Border::LightEdge;
    b.scale = (float)t.get<double>("edgescale", 0.5);
    return b;
}

float StandardPanel::getDefaultTitleAreaColourAdjust() {
    return (float)UifStd::getTheme()->get<double>("titlebg", 0.0);
}

unsigned short StandardPanel::calcBorderSize(Border::eType type) {
    return Border::calcSize(type);
}

void StandardPanel::setBorder(Border const& border) {
    border_ = border;
    switch (border.type) {
    case Border::Line:
    case Border::Attached:
    case Border::Curved:
    case Border::Bevelled:
    case Border::Panel:
    case Border::Narrow:
        if (!isChildGlob())
            addSurround(Colour(0, 0, 0), 2 * UifStd::getWidgetGap(), 0.35f,
                        border.type == Border::Attached ? 14 : 15);
        break;
    default:
        removeSurround();
        break;
    }
    if (canvas() != nullptr) {
        if (border.type != Border::Curved)
            glib_reshapecanvas(canvas(), {});
        reshapeCanvas();
    }
}

void StandardPanel::setBorderStyle(Border::eType type) {
    setBorder(Border(type, 0, 15));
}

void StandardPanel::reparentTo(Glob* newParent) {
    if (newParent == parent())
        return;
    if (newParent != nullptr)
        removeSurround();
    rect::reparentTo(newParent);
    if (parent() == nullptr)
        setBorder(border_);
}

void StandardPanel::reshapeCanvas() {
    if (border_.type == Border::Curved)
        glib_reshapecanvas(canvas(),
                           makeCurvedRegion(XY<int>(width(), height()), 15, CurvedRegionRounded));
    else
        rect::reshapeCanvas();
}

void StandardPanel::drawBackground() {
    rect::drawBackground();
    if (border_.type != Border::RoundedIndented || canvas() == nullptr)
        return;
    Colour s3 = getPalette().window(WindowShadeBase);
    Glib::drawRoundedRect(canvas()->renderer(), faceColour(), getIndentBoxColour(s3), face(), 2, 15,
                          1);
}

Colour StandardPanel::faceColour() const {
    Palette const& p = getPalette();
    Colour s3 = p.window(WindowShadeBase);
    return border_.type == Border::RoundedIndented ? p.scale(s3, 0.8) : s3;
}

// The title sits on the title area, or on the face where there is none.
Palette StandardPanel::titleWidgetPalette() const {
    Palette title = standardWidgetPalette();
    if ((border_.style & Border::TitleArea) == 0)
        title.setWindow(faceColour());
    return makeTextPalette(title, title.headingText());
}

void StandardPanel::drawBorder() {
    if (canvas() == nullptr)
        return;
    Glib::UpdateDeferrer deferred(canvas());
    drawBorder(border_);
}

void StandardPanel::fillBand(Box const& box, Colour const& colour) {
    if (box.width() > 0 && box.height() > 0)
        fillRect(box, colour);
}

void StandardPanel::drawBorder(Border const& border) {
    Palette const& p = getPalette();
    Colour s3 = p.window(WindowShadeBase);
    if (border.type == Border::Curved) {
        drawCurvedBorder();
        return;
    }
    // The well of a rounded indented border is painted under the children, in drawBackground.
    if (border.type == Border::RoundedIndented)
        return;
    unsigned f = border.style;
    if (f == 0)
        return;
    if (f & Border::TitleArea)
        drawTitleSeparator();
    if (f & Border::StatusArea)
        drawStatusSeparator();
    Colour hi = p.scale(s3, 1 + border.scale);
    Colour lo = p.scale(s3, 1 - border.scale);
    if (getCornerMask() != 0) {
        bool dark = (f & Border::DarkEdge) != 0;
        Glib::drawRoundedRectOutline(canvas()->renderer(), dark ? lo : hi, face(), 2,
                                     getCornerMask(), 1);
        if (dark && (f & Border::LightEdge))
            Glib::drawRoundedRectOutline(canvas()->renderer(), hi, face().inset(1), 2,
                                         getCornerMask(), 1);
        return;
    }
    drawEdgeStrips(border, hi, lo);
}

void StandardPanel::drawEdgeStrips(Border const& border, Colour const& hi, Colour const& lo) {
    int e = theme().edgeSize;
    Box f = face();
    bool dark = (border.style & Border::DarkEdge) != 0;
    bool both = dark && (border.style & Border::LightEdge) != 0;
    Colour outer = dark ? lo : hi;
    // Each strip is the outer band at depth 0, the inner at depth e.
    auto strip = [&](unsigned edge, int depth) -> Box {
        switch (edge) {
        case Border::Bottom:
            return Box(f.x1, f.y1 + depth, f.x2, f.y1 + depth + e);
        case Border::Left:
            return Box(f.x1 + depth, f.y1, f.x1 + depth + e, f.y2);
        case Border::Right:
            return Box(f.x2 - depth - e, f.y1, f.x2 - depth, f.y2);
        default:
            return Box(f.x1, f.y2 - depth - e, f.x2, f.y2 - depth);
        }
    };
    for (unsigned edge : {unsigned(Border::Bottom), unsigned(Border::Left), unsigned(Border::Right),
                          unsigned(Border::Top)}) {
        if ((border.edges & edge) == 0)
            continue;
        fillBand(strip(edge, 0), outer);
        if (both)
            fillBand(strip(edge, e), hi);
    }
}

void StandardPanel::drawStatusSeparator() {
    Colour s3 = getPalette().window(WindowShadeBase);
    int y = border_.getSize() + calcActionButtonHeight() + measure(StatusAreaHeight) / 2;
    int x1 = border_.getVisibleSize() + UifStd::getIndentWidth();
    int x2 = width() - border_.getVisibleSize() - UifStd::getIndentWidth();
    fillBand(Box(x1, y, x2, y + 1), getPalette().scale(s3, 1.1));
    fillBand(Box(x1, y - 1, x2, y), getPalette().scale(s3, 0.8));
}

void StandardPanel::drawCurvedBorder() {
    if (sizeState_ == SizeNormal)
        drawTitleSeparator();
    Palette const& p = getPalette();
    Colour s6 = p.window(WindowShadeDarkest);
    Colour s3 = p.window(WindowShadeBase);
    Colour dark = Colour::mix(s6, s3, 0.4);
    Colour light = Colour::mix(p.window(WindowShadeLightest), s3, 0.4);
    int w = width(), h = height();
    // Along the sides, short of the corners, which the pattern below rounds.
    int y1 = 9, y2 = h - 9;
    fillBand(Box(1, y1, 2, y2), light);
    fillBand(Box(w - 2, y1, w - 1, y2), light);
    fillBand(Box(2, y1, 3, y2), dark);
    fillBand(Box(w - 3, y1, w - 2, y2), dark);
    Glib::drawFrame(canvas()->renderer(), s6, face(), 1);
    drawCurvedCorners(s6);
}

void StandardPanel::drawCurvedCorners(Colour const& colour) {
    int w = width(), h = height();
    // Row r of each corner has its first inside pixel at the inset; where the inset falls
    // quickly from the row before, the run reaches back to meet it, so the edge stays unbroken.
    for (int row = 0; row < 9; ++row) {
        int inset = curvedRegionInset(row, CurvedRegionRounded);
        int before = row == 0 ? inset : curvedRegionInset(row - 1, CurvedRegionRounded);
        int run = std::max(1, before - inset);
        fillBand(Box(inset, row, inset + run, row + 1), colour);
        fillBand(Box(w - inset - run, row, w - inset, row + 1), colour);
        fillBand(Box(inset, h - row - 1, inset + run, h - row), colour);
        fillBand(Box(w - inset - run, h - row - 1, w - inset, h - row), colour);
    }
}

void StandardPanel::drawSquarePanelBorder(unsigned int edges) {
    if (sizeState_ == SizeNormal && (titleWidget_ != nullptr || parent() == nullptr))
        drawTitleSeparator();
    Border b = border_;
    b.edges = edges;
    b.style = Border::DarkEdge | Border::LightEdge;
    drawEdgeStrips(b, getPalette().window(WindowShadeLight),
                   getPalette().window(WindowShadeDarker));
}

void StandardPanel::drawTitleSeparator() {
    Box f = face();
    int e = theme().edgeSize;
    int top = f.y2 - measure(TitleAreaHeight);
    Palette const& p = getPalette();
    if (titleAreaColourAdjust_ == 0.0f) {
        fillBand(Box(f.x1 + e, top, f.x2 - e, top + e), p.scale(getCol(), 1.7));
        fillBand(Box(f.x1 + e, top - e, f.x2 - e, top), p.scale(getCol(), 0.3));
        return;
    }
    int v = border_.getVisibleSize();
    fillBand(Box(f.x1 + v, top, f.x2 - v, f.y2 - v),
             makeTitleAreaPalette().window(WindowShadeBase));
    Colour edge = p.window(titleAreaColourAdjust_ > 0 ? WindowShadeDark : WindowShadeLight);
    fillBand(Box(f.x1 + v, top - e, f.x2 - v, top), edge);
}

// Measures and coordinates

int StandardPanel::calcActionButtonHeight() {
    // The do-it button is one row of text with a gap above and below.
    return UifStd::getRowHeight() + UifStd::getWidgetGap();
}

int StandardPanel::calcSize(eSpacing spacing, UIAppearanceSettings const& theme,
                            Border const& border) {
    int t = theme.titleHeight;
    int e = theme.edgeSize;
    switch (spacing) {
    case TitleWidgetHeight:
        return (int)(t * theme.get<double>("titlescale", 1.0) + 0.5);
    case EdgeSize:
    case EdgeSize2:
        return e;
    case TopRowOffset:
        return 2 * e;
    case TitleAreaHeight: {
        Border def = getDefaultBorder();
        int area = calcSize(TitleWidgetHeight, theme, def) + calcSize(TopRowOffset, theme, def);
        return (def.style & Border::TitleArea) ? area + 2 * e : area;
    }
    case StatusAreaHeight: {
        int s = std::max(t / 3, (int)border.getSize());
        return (border.style & Border::StatusArea) ? 2 * s : s;
    }
    }
    return 0;
}

int StandardPanel::measure(eSpacing spacing) const {
    return calcSize(spacing, theme(), border_);
}

XY<int> StandardPanel::getOriginXY(eCoordinateOrigin origin, int flags, XY<int> const& size,
                                   Border const& border, UIAppearanceSettings const& theme) {
    int b = border.getSize();
    int raise = b + calcActionButtonHeight() + calcSize(StatusAreaHeight, theme, border);
    int low = (flags & DoIt) ? raise : b;
    int lowUser = ((flags & DoIt) || (border.style & Border::StatusArea)) ? raise : b;
    bool titled = (flags & (Poot | SizeFlip | Pin | TitleBits)) != 0 ||
                  (border.style & Border::TitleArea) != 0;
    int high = size.y - (titled ? calcSize(TitleAreaHeight, theme, border) : 0) - b;
    switch (origin) {
    case OriginTopLeft:
        return XY<int>(0, size.y);
    case OriginBottomRight:
        return XY<int>(size.x, 0);
    case OriginTopRight:
        return size;
    case OriginUserBottomLeft:
        return XY<int>(b, lowUser);
    case OriginUserTopLeft:
        return XY<int>(b, high);
    case OriginUserBottomRight:
        return XY<int>(size.x - b, low);
    case OriginUserTopRight:
        return XY<int>(size.x - b, high);
    default:
        return XY<int>(0, 0);
    }
}

XY<int> StandardPanel::getOriginXY(eCoordinateOrigin origin) const {
    return getOriginXY(origin, standardWidgetFlags_, XY<int>(width(), height()), border_, theme());
}

Box StandardPanel::getUserArea(int flags, XY<int> const& size, Border const& border) {
    UIAppearanceSettings const& t = *UifStd::getTheme();
    XY<int> from = getOriginXY(OriginUserBottomLeft, flags, size, border, t);
    XY<int> to = getOriginXY(OriginUserTopRight, flags, size, border, t);
    return Box(from.x, from.y, to.x, to.y);
}

Box StandardPanel::getUserArea() const {
    return getUserArea(standardWidgetFlags_, XY<int>(width(), height()), border_);
}

XY<int> StandardPanel::calcPanelSize(XY<int> const& userSize, int flags, Border const& border) {
    Box user = getUserArea(flags, XY<int>(200, 200), border);
    return XY<int>(userSize.x + 200 - user.width(), userSize.y + 200 - user.height());
}

Box StandardPanel::getUserAreaBorders(int flags, Border const& border) {
    Box user = getUserArea(flags, XY<int>(500, 500), border);
    return Box(user.x1, user.y1, 500 - user.x2, 500 - user.y2);
}

// Resizing

void StandardPanel::resize(double w, double h) {
    int old = width();
    rect::resize(w, h);
    resizeTitleWidget();
    if (resizeChildrenWithPanel_)
        resizeChildren(width() - old);
}

void StandardPanel::resize(XY<int> const& size, ResizeArea area) {
    XY<int> panel =
        area == ResizeUserArea ? calcPanelSize(size, standardWidgetFlags_, border_) : size;
    resize(panel.x, panel.y);
}

void StandardPanel::resizeChildren(int widthChange) {
    if (widthChange == 0)
        return;
    int userWidth = getUserArea().width();
    int oldWidth = width() - widthChange;
    std::vector<Glob*> children;
    getChildren(children);
    for (Glob* child : children) {
        WidgetDetails* d = getWidget(child);
        if (d == nullptr || isStandardWidget(child))
            continue;
        int origin = d->getOrigin();
        bool onUser =
            !d->isRelative() && origin >= OriginUserBottomLeft && origin <= OriginUserTopRight;
        bool spans =
            onUser ? child->width() + widthChange == userWidth : child->width() == oldWidth;
        if (spans)
            child->resize(child->width() + widthChange, child->height());
    }
    positionChildWidgets();
}
