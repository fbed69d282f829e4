#include "SpecialButtonsPage.h"

#include "buttons/CommandButton.h"
#include "buttons/CycleButton.h"
#include "buttons/FavouriteButton.h"
#include "buttons/LinkButton.h"
#include "buttons/PinButton.h"
#include "buttons/PootButton.h"
#include "buttons/SettingsButton.h"
#include "buttons/SizeButton.h"
#include "buttons/SymbolButton.h"
#include "buttons/TitleButton.h"
#include "glob/CommandMap.h"
#include "glob/UifStd.h"
#include "os/Diagnostics.h"

namespace {

CommandRegistrar galleryCommand("gallery.sayHello", L"Say hello",
                                [](Qor::Ptr<iObject> const&) { diag_printf("Hello"); });

int square() {
    return UifStd::getRowHeight();
}

} // namespace

SpecialButtonsPage::SpecialButtonsPage(GlobCreationInfo const& info) : GalleryPage(info) {
    addTitleRowButtons();
    addSymbolButtons();
    addCycleButtons();
    addLinkAndCommandButtons();
}

int SpecialButtonsPage::rowY(int index) const {
    int pitch = square() * 2 + 3 * UifStd::getWidgetGap() + 20;
    return top() - 40 - square() - index * pitch;
}

void SpecialButtonsPage::addTitleRowButtons() {
    auto const s = (unsigned short)square();
    int gap = UifStd::getWidgetGap();
    int step = s + gap;
    int x = 24;
    int y = rowY(0);
    addLabel(L"Title row, icon look: close, size, pin, settings", XY<int>(x, y + s));
    createChild<PootButton>(PootButton::InitArgs(s, s), BottomLeft(x, y));
    createChild<SizeButton>(SizeButton::InitArgs(s, s), BottomLeft(x + step, y));
    createChild<PinButton>(PinButton::InitArgs(s, s), BottomLeft(x + 2 * step, y));
    createChild<SettingsButton>(SettingsButton::InitArgs(s, s), BottomLeft(x + 3 * step, y));

    x = 400;
    addLabel(L"Other look and pressed: close, size (full, small), pinned", XY<int>(x, y + s));
    auto* poot = createChild<PootButton>(PootButton::InitArgs(s, s), BottomLeft(x, y));
    poot->setAppearance(PootButton::ConfiguredAppearance);
    createChild<SizeButton>(SizeButton::InitArgs(s, s, SizeButton::TextAppearance),
                            BottomLeft(x + step, y));
    auto* small = createChild<SizeButton>(SizeButton::InitArgs(s, s, SizeButton::TextAppearance),
                                          BottomLeft(x + 2 * step, y));
    small->set_size(true);
    auto* pinned = createChild<PinButton>(PinButton::InitArgs(s, s), BottomLeft(x + 3 * step, y));
    pinned->setState(Button::down, NoRedraw);
}

void SpecialButtonsPage::addSymbolButtons() {
    auto const s = (unsigned short)square();
    int step = s + UifStd::getWidgetGap();
    int x = 24;
    int y = rowY(1);
    addLabel(L"Symbol buttons: arrows, tick, inactive", XY<int>(x, y + s));
    QorTTF::eGlyph const glyphs[] = {QorTTF::LeftArrow, QorTTF::RightArrow, QorTTF::UpArrow,
                                     QorTTF::DownArrow, QorTTF::Tick};
    for (QorTTF::eGlyph glyph : glyphs) {
        createChild<SymbolButton>(SymbolButton::InitArgs(glyph, WidgetCallback("symbol"), s, s),
                                  BottomLeft(x, y));
        x += step;
    }
    auto* inactive = createChild<SymbolButton>(
        SymbolButton::InitArgs(QorTTF::Tick, WidgetCallback("symbol"), s, s), BottomLeft(x, y));
    inactive->setActive(false, NoRedraw);
    auto* bordered = createChild<SymbolButton>(
        SymbolButton::InitArgs(QorTTF::UpArrow, WidgetCallback("symbol"), s, s),
        BottomLeft(x + step, y));
    bordered->setUseCustomBorderColour(true);
    bordered->setCustomBorderColours(Colour(0.18, 0.48, 0.92), Colour(0.9, 0.3, 0.1));

    x = 400;
    addLabel(L"Favourites: not chosen, chosen", XY<int>(x, y + s));
    Button::InitArgs star(UIString(), WidgetCallback("favourite"), s, s);
    createChild<FavouriteButton>(star, BottomLeft(x, y));
    auto* chosen = createChild<FavouriteButton>(star, BottomLeft(x + step, y));
    chosen->setState(Button::down, NoRedraw);
}

void SpecialButtonsPage::addCycleButtons() {
    auto const h = (unsigned short)square();
    int gap = UifStd::getWidgetGap();
    int x = 24;
    int y = rowY(2);
    addLabel(L"Cycle buttons: click to step; coloured choices; inactive", XY<int>(x, y + h));
    std::vector<UIString> speeds{UIString(L"Slow"), UIString(L"Normal"), UIString(L"Fast")};
    createChild<CycleButton>(CycleButton::InitArgs("speed", speeds, 110, h), BottomLeft(x, y));
    std::vector<UIString> lights{UIString(L"Stop"), UIString(L"Wait"), UIString(L"Go")};
    auto* coloured = createChild<CycleButton>(CycleButton::InitArgs("light", lights, 110, h),
                                              BottomLeft(x + 110 + gap, y));
    coloured->setPickColours(
        {Colour(0.85, 0.25, 0.2), Colour(0.95, 0.75, 0.2), Colour(0.3, 0.7, 0.35)});
    coloured->setTextColours({Colour(1.0, 1.0, 1.0), Colour(0.1, 0.1, 0.1), Colour(1.0, 1.0, 1.0)});
    auto* inactive = createChild<CycleButton>(CycleButton::InitArgs("speed", speeds, 110, h),
                                              BottomLeft(x + 2 * (110 + gap), y));
    inactive->setPickState(2, NoRedraw);
    inactive->setActive(false, NoRedraw);
}

void SpecialButtonsPage::addLinkAndCommandButtons() {
    auto const h = (unsigned short)square();
    int gap = UifStd::getWidgetGap();
    int x = 24;
    int y = rowY(3);
    addLabel(L"A link, a command button, titled buttons", XY<int>(x, y + h));
    createChild<LinkButton>(
        LinkButton::InitArgs(L"https://example.org/", UIString(L"Manual"), 110, h),
        BottomLeft(x, y));
    createChild<CommandButton>(CommandButton::InitArgs("gallery.sayHello", UIString(), 120, h),
                               BottomLeft(x + 110 + gap, y));
    int titledX = x + 230 + 2 * gap;
    createChild<TitleButton>(
        TitleButton::InitArgs(L"Colour", UIString(L"Choose"), WidgetCallback("choose"), 200, h),
        BottomLeft(titledX, y));
    auto* dropDown = createChild<TitleButton>(
        TitleButton::InitArgs(L"Shape", UIString(L"Circle"), WidgetCallback("shape"), 200, h),
        BottomLeft(titledX + 200 + gap, y));
    dropDown->setHasDropDownAppearance(true);
}
