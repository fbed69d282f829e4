#include "CheckboxesPage.h"

#include "buttons/CheckboxGroup.h"
#include "buttons/CheckboxRadioSet.h"
#include "buttons/RadioSet.h"
#include "glob/UifStd.h"

namespace {

struct Appearance {
    Checkbox::eAppearance appearance;
    wchar_t const* name;
};

Appearance const appearances[] = {
    {Checkbox::RoundedBox, L"Rounded box"},
    {Checkbox::SquareBox, L"Square box"},
    {Checkbox::RoundedWell, L"Rounded well"},
    {Checkbox::SquareWell, L"Square well"},
    {Checkbox::Lamp, L"Lamp"},
    {Checkbox::RedLamp, L"Red lamp"},
    {Checkbox::GreenLamp, L"Green lamp"},
    {Checkbox::CyanLamp, L"Cyan lamp"},
    {Checkbox::NoBox, L"Tick, no box"},
    {Checkbox::NoBoxNoTick, L"Neither"},
};

} // namespace

CheckboxesPage::CheckboxesPage(GlobCreationInfo const& info) : GalleryPage(info) {
    int const gap = UifStd::getWidgetGap();
    addAppearances(XY<int>(24, top() - 40));
    addChoices(XY<int>(24 + 4 * (150 + 3 * gap) + 24, top() - 40));
}

// Four columns: ticked and clear, then both again inactive.
void CheckboxesPage::addAppearances(XY<int> const& at) {
    int const gap = UifStd::getWidgetGap();
    int const rowHeight = UifStd::getRowHeight();
    int const w = 150, step = w + 3 * gap;
    wchar_t const* columns[] = {L"Ticked", L"Clear", L"Ticked, inactive", L"Clear, inactive"};
    for (int c = 0; c < 4; ++c)
        addLabel(columns[c], XY<int>(at.x + c * step, at.y));
    int y = at.y - gap - rowHeight;
    for (Appearance const& a : appearances) {
        for (int c = 0; c < 4; ++c) {
            bool const ticked = c % 2 == 0;
            auto* box =
                createChild<Checkbox>(Checkbox::InitArgs(UIString(a.name), ticked, w, rowHeight),
                                      BottomLeft(at.x + c * step, y));
            box->setTickPosition(Checkbox::TickLeft);
            box->setAppearance(a.appearance);
            if (c >= 2)
                box->setActive(false, NoRedraw);
            if (focused_ == nullptr && c == 1 && a.appearance == Checkbox::SquareWell)
                focused_ = box;
        }
        y -= rowHeight + gap;
    }
    addLabel(L"The clear square well holds the keyboard focus", XY<int>(at.x, y));
}

void CheckboxesPage::addChoices(XY<int> const& at) {
    int const gap = UifStd::getWidgetGap();
    int const rowHeight = UifStd::getRowHeight();
    int const w = 280;
    int y = at.y;

    addLabel(L"A set of round boxes: one choice", XY<int>(at.x, y));
    CheckboxRadioSet::InitArgs choices({UIString(L"Fit to window"), UIString(L"Fill the window"),
                                        UIString(L"Actual size"), UIString(L"Stretch")},
                                       1, (unsigned short)w);
    y -= gap + CheckboxRadioSet::calcHeightForRows(4, rowHeight);
    createChild<CheckboxRadioSet>(choices, BottomLeft(at.x, y));

    y -= 7 * gap;
    addLabel(L"Radio buttons", XY<int>(at.x, y));
    RadioSet::InitArgs buttons({L"Left", L"Centre", L"Right"}, (unsigned short)w,
                               (unsigned short)(rowHeight + 2 * gap));
    buttons.selected = 1;
    y -= gap + buttons.height;
    createChild<RadioSet>(buttons, BottomLeft(at.x, y));

    y -= 7 * gap;
    addLabel(L"A group headed by a check box", XY<int>(at.x, y));
    int const rows = 2;
    CheckboxGroup::InitArgs group(UIString(L"Use a proxy server"), true, (unsigned short)w,
                                  (unsigned short)WidgetGroupEx::calcHeightForRows(
                                      rows, rowHeight, gap, WidgetGroupEx::SeparatorEtched));
    // Open, so that the controls stand on the page's own colour.
    group.separatorStyle = WidgetGroupEx::SeparatorOpen;
    y -= gap + group.height;
    auto* proxy = createChild<CheckboxGroup>(group, BottomLeft(at.x, y));
    wchar_t const* options[] = {L"Same proxy for every protocol", L"Bypass for local addresses"};
    for (int i = 0; i < rows; ++i) {
        auto* option = proxy->createChild<Checkbox>(
            Checkbox::InitArgs(UIString(options[i]), i == 0,
                               (unsigned short)(w - 2 * WidgetGroupEx::childXOffset()),
                               (unsigned short)rowHeight),
            UserTopLeft(WidgetGroupEx::childXOffset(), i * (rowHeight + gap)));
        option->setTickPosition(Checkbox::TickLeft);
    }
}

void CheckboxesPage::drawWidgets() {
    // The focus is put on one box when the page is first seen.
    if (!focusShown_ && focused_ != nullptr) {
        focusShown_ = true;
        focused_->claimKbdFocus();
    }
    GalleryPage::drawWidgets();
}
