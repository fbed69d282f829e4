#include "buttons/CycleButton.h"

#include <string>

namespace {

std::vector<CycleButton::Item> itemsFor(std::vector<UIString> const& texts) {
    std::vector<CycleButton::Item> items(texts.size());
    for (size_t i = 0; i < texts.size(); ++i)
        items[i].text = texts[i];
    return items;
}

std::vector<UIString> textsFor(Vector<ResId> const& ids) {
    std::vector<UIString> texts;
    for (ResId id : ids)
        texts.push_back(UIString(id));
    return texts;
}

} // namespace

CycleButton::InitArgs::InitArgs(LightweightString<char> const& stem_,
                                std::vector<UIString> const& texts, unsigned short w,
                                unsigned short h)
    : Button::InitArgs(texts.empty() ? UIString() : texts.front(), WidgetCallback(), w, h),
      stem(stem_), items(itemsFor(texts)) {}

CycleButton::InitArgs::InitArgs(LightweightString<char> const& stem_, Vector<ResId> const& ids,
                                unsigned short w, unsigned short h)
    : InitArgs(stem_, textsFor(ids), w, h) {}

CycleButton::CycleButton(InitArgs const& args)
    : Button(args), stem_(args.stem), items_(args.items) {
    setStyle(Standard);
    plainFore_ = getForeCol();
    plainBack_ = getBackCol();
    showPick(NoRedraw);
}

CycleButton::CycleButton(Vector<ResId> const& ids, char const* stem, GlobCreationInfo const& info)
    : CycleButton(InitArgs(stem, ids, info.width, info.height)) {}

int CycleButton::react(Event const& event) {
    if (!getIgnoreMouseClicks() && mouse_event(event) && mouse_left_event(event) &&
        mouse_down_event(event)) {
        getModifier(event);
        m_next_pick_state();
        // Down, so that the release on the face tells the owner of the new choice.
        setState(down, Redraw);
        return 1;
    }
    return Button::react(event);
}

Colour CycleButton::textColour() const {
    if (isActive() && pick_ < items_.size() && items_[pick_].hasTextColour)
        return items_[pick_].textColour;
    return Button::textColour();
}

void CycleButton::m_next_pick_state() {
    if (direction_ == 1)
        m_increment_pick_state();
    else
        m_decrement_pick_state();
}

void CycleButton::m_increment_pick_state() {
    if (items_.empty())
        return;
    setPickState((unsigned short)((pick_ + 1) % items_.size()), Redraw);
}

void CycleButton::m_decrement_pick_state() {
    if (items_.empty())
        return;
    setPickState((unsigned short)(pick_ == 0 ? items_.size() - 1 : pick_ - 1), Redraw);
}

void CycleButton::m_reverse_direction() {
    direction_ = -direction_;
    m_next_pick_state();
    update();
}

void CycleButton::setPickState(unsigned short index, eRedrawFlag redraw) {
    if (index >= items_.size())
        return;
    pick_ = index;
    showPick(redraw);
}

void CycleButton::setPickState(LightweightString<wchar_t> const& text, eRedrawFlag redraw) {
    for (size_t i = 0; i < items_.size(); ++i)
        if (items_[i].text.getString() == text) {
            setPickState((unsigned short)i, redraw);
            return;
        }
}

void CycleButton::showPick(eRedrawFlag redraw) {
    if (pick_ >= items_.size())
        return;
    Item const item = items_[pick_];
    Button::setString(item.text);
    Button::setIcons(item.iconUp, item.iconDown);
    setCols(item.hasTextColour ? item.textColour : plainFore_,
            item.hasPickColour ? item.pickColour : plainBack_);
    setMessage((stem_ + std::to_string(pick_).c_str()).c_str());
    if (redraw == Redraw)
        update();
}

CycleButton::Item& CycleButton::itemAt(size_t index) {
    if (index >= items_.size())
        items_.resize(index + 1);
    return items_[index];
}

void CycleButton::setStrings(std::vector<UIString> const& texts) {
    for (size_t i = 0; i < texts.size(); ++i)
        itemAt(i).text = texts[i];
    showPick(Redraw);
}

void CycleButton::setPickColours(std::vector<Colour> const& colours) {
    for (size_t i = 0; i < colours.size(); ++i) {
        itemAt(i).pickColour = colours[i];
        itemAt(i).hasPickColour = true;
    }
    showPick(Redraw);
}

void CycleButton::setTextColours(std::vector<Colour> const& colours) {
    for (size_t i = 0; i < colours.size(); ++i) {
        itemAt(i).textColour = colours[i];
        itemAt(i).hasTextColour = true;
    }
    showPick(Redraw);
}

void CycleButton::setPickIcons(std::vector<LightweightString<wchar_t>> const& icons) {
    for (size_t i = 0; i < icons.size(); ++i) {
        itemAt(i).iconUp = icons[i];
        itemAt(i).iconDown = icons[i];
    }
    showPick(Redraw);
}
