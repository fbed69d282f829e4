#include "ButtonsPage.h"

#include "buttons/CustomBorderButton.h"
#include "buttons/PushButton.h"
#include "buttons/TextLabel.h"
#include "glob/UifStd.h"

#include <string>

namespace {

constexpr int sampleWidth = 96;

int row() {
    return UifStd::getRowHeight();
}

int gap() {
    return UifStd::getWidgetGap();
}

struct StyleRow {
    wchar_t const* name;
    Button::eButtonStyle style;
};

constexpr StyleRow styleRows[] = {
    {L"Standard", Button::Standard},
    {L"Flat", Button::Flat},
    {L"Menu", Button::MenuStyle},
    {L"Tree", Button::TreeStyle},
};

} // namespace

ButtonsPage::ButtonsPage(GlobCreationInfo const& info) : GalleryPage(info) {
    int left = row();
    addStyleRows(XY<int>(left, top() - row()));
    int below = addBehaviours(XY<int>(left, top() - 9 * row()));
    addIcons(XY<int>(left, below - 2 * row()));
}

void ButtonsPage::shown() {
    focused_->claimKbdFocus();
}

Button* ButtonsPage::addButton(wchar_t const* label, XY<int> const& at, int width) {
    PushButton::InitArgs args(UIString(label), WidgetCallback("sample"), (unsigned short)width);
    return createChild<PushButton>(args, BottomLeft(at.x, at.y - args.height));
}

// One row a style: up, down, inactive, latched down; the first standard one has the focus.
void ButtonsPage::addStyleRows(XY<int> const& at) {
    addLabel(L"Styles and states", at, true);
    wchar_t const* states[] = {L"Up", L"Down", L"Inactive", L"Latched"};
    int x0 = at.x + 90;
    for (int s = 0; s < 4; ++s)
        addLabel(states[s], XY<int>(x0 + s * (sampleWidth + 2 * gap()), at.y - row()), false);
    int y = at.y - row() - gap();
    for (StyleRow const& r : styleRows) {
        addLabel(r.name, XY<int>(at.x, y - gap()), false);
        for (int s = 0; s < 4; ++s) {
            Button* b =
                addButton(r.name, XY<int>(x0 + s * (sampleWidth + 2 * gap()), y), sampleWidth);
            b->setStyle(r.style);
            // The plain styles sit on the page's own colour.
            if (r.style != Button::Standard)
                b->setCols(getPalette().text(TextNormal), getCol());
            if (r.style == Button::MenuStyle || r.style == Button::TreeStyle)
                b->setAlignment(Button::AlignLeft);
            if (s == 1)
                b->setState(Button::down, NoRedraw);
            if (s == 2)
                b->setActive(false, NoRedraw);
            if (s == 3) {
                b->setLatching(true, false);
                b->setState(Button::down, NoRedraw);
            }
            if (s == 0 && r.style == Button::Standard)
                focused_ = b;
        }
        y -= row() + 2 * gap();
    }
}

// Latching, repeating and coloured edges, each with what it tells its owner.
int ButtonsPage::addBehaviours(XY<int> const& at) {
    addLabel(L"Behaviour", at, true);
    int y = at.y - row() - gap();
    Button* latch = addButton(L"Latching", XY<int>(at.x, y), 110);
    latch->setLatching(true, true);
    latch->setCallback(WidgetCallback(Qor::makeCallback(this, &ButtonsPage::noteLatch), "latch"));
    latchState_ = createChild<TextLabel>(TextLabel::InitArgs(L"Released: press to latch"),
                                         RightOf(gap(), latch));

    y -= latch->height() + 2 * gap();
    Button* repeat = addButton(L"Hold me", XY<int>(at.x, y), 110);
    repeat->setRepeating(10, 0.5);
    repeat->setCallback(
        WidgetCallback(Qor::makeCallback(this, &ButtonsPage::countRepeat), "repeat"));
    repeatCount_ = createChild<TextLabel>(TextLabel::InitArgs(L"Repeats while held: 0"),
                                          RightOf(gap(), repeat));

    y -= repeat->height() + 2 * gap();
    auto* edged = createChild<CustomBorderButton>(
        Button::InitArgs(UIString(L"Custom edge"), WidgetCallback("edge"), 110,
                         (unsigned short)PushButton::calcHeight()),
        BottomLeft(at.x, y - PushButton::calcHeight()));
    edged->setStyle(Button::Standard);
    edged->setUseCustomBorderColour(true);
    edged->setCustomBorderColours(Colour(0.85, 0.35, 0.1), Colour(0.1, 0.45, 0.85));
    Button* wide = addButton(L"A label far too long for its button", XY<int>(at.x + 130, y), 120);
    wide->setAlignment(Button::AlignLeft);
    return y - edged->height();
}

void ButtonsPage::addIcons(XY<int> const& at) {
    addLabel(L"Icons", at, true);
    int y = at.y - row() - gap();
    int x = at.x;
    struct Sample {
        wchar_t const* text;
        wchar_t const* up;
        wchar_t const* down;
        int width;
    };
    Sample const samples[] = {
        {L"", L"settings.png", L"", row() + 2 * gap()},
        {L"", L"pin.png", L"pinned.png", row() + 2 * gap()},
        {L"Folder", L"folder.png", L"", 100},
        {L"Show", L"eye-open.png", L"eye-closed.png", 100},
    };
    for (Sample const& s : samples) {
        Button* b = addButton(s.text, XY<int>(x, y), s.width);
        b->setIcons(s.up, s.down);
        if (s.down[0] != 0)
            b->setLatching(true, false);
        x += s.width + 2 * gap();
    }
    Button* inactive = addButton(L"Inactive", XY<int>(x, y), 100);
    inactive->setIcon(L"folder.png");
    inactive->setActive(false, NoRedraw);
}

int ButtonsPage::countRepeat(NotifyMsg const& msg) {
    if (msg.getFlags() == Button::RepeatEvent)
        ++repeats_;
    std::wstring text = L"Repeats while held: " + std::to_wstring(repeats_);
    repeatCount_->setText(text.c_str());
    return 0;
}

int ButtonsPage::noteLatch(NotifyMsg const& msg) {
    bool on = msg.getName().endsWith(Button::latchingBtnDownSuffix_);
    latchState_->setText(on ? L"Latched: told \"latch on\"" : L"Released: told \"latch off\"");
    return 0;
}
