#pragma once

// A button that steps through a list of choices, one per click, and wraps at either end. The
// choice shown names the message: with the stem "speed", choosing the third item (index 2) makes
// the button's message "speed2", which the release of that click sends.
//   left press     the next choice shows (the step direction says which way); nothing is told
//   release        on the face: the owner is told the message of the new choice
//   Return, Space  a press and a release, as for any button
// Each choice may bring its own text, icons, face colour and text colour.

#include "buttons/Button.h"
#include "misc/Vector.h"

#include <vector>

class CycleButton : public Button {
public:
    struct Item {
        UIString text;
        LightweightString<wchar_t> iconUp;
        LightweightString<wchar_t> iconDown;
        Colour pickColour;
        Colour textColour;
        bool hasPickColour = false;
        bool hasTextColour = false;
    };

    struct InitArgs : Button::InitArgs {
        InitArgs() = default;
        InitArgs(LightweightString<char> const& stem_, std::vector<UIString> const& texts,
                 unsigned short w, unsigned short h);
        InitArgs(LightweightString<char> const& stem_, Vector<ResId> const& ids, unsigned short w,
                 unsigned short h);
        LightweightString<char> stem;
        std::vector<Item> items;
    };

    explicit CycleButton(InitArgs const& args);
    CycleButton(Vector<ResId> const& ids, char const* stem, GlobCreationInfo const& info);

    char const* idstring() const override { return "CycleButton"; }
    int react(Event const& event) override;
    Colour textColour() const override;

    void m_next_pick_state();
    void m_increment_pick_state();
    void m_decrement_pick_state();
    // Turns the step direction round, steps once that way and redraws.
    void m_reverse_direction();

    // An index at or past the number of choices changes nothing.
    void setPickState(unsigned short index, eRedrawFlag redraw);
    // The first choice with that text; nothing changes when there is none.
    void setPickState(LightweightString<wchar_t> const& text, eRedrawFlag redraw);
    unsigned short getPickState() const { return pick_; }
    int getDirection() const { return direction_; }
    unsigned short getNumItems() const { return (unsigned short)items_.size(); }
    Item const& getItem(unsigned short index) const { return items_[index]; }
    LightweightString<char> const& getStem() const { return stem_; }

    // Each fills the items in order, adding items where the list is longer.
    void setStrings(std::vector<UIString> const& texts);
    void setPickColours(std::vector<Colour> const& colours);
    void setTextColours(std::vector<Colour> const& colours);
    // One icon per item, shown in both states.
    void setPickIcons(std::vector<LightweightString<wchar_t>> const& icons);

private:
    Item& itemAt(size_t index);
    void showPick(eRedrawFlag redraw);

    LightweightString<char> stem_;
    std::vector<Item> items_;
    // The colours of a choice that brings none.
    Colour plainFore_;
    Colour plainBack_;
    int direction_ = 1;
    unsigned short pick_ = 0;
};
