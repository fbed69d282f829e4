#include "buttons/RadioSet.h"

#include "buttons/StdRadioButton.h"

#include <cstdio>

char const* const RadioSet::radioSetMsg = "radio_set_message";

RadioSet::RadioSet(InitArgs const& args)
    : StandardPanel(args.width, args.height, args.palette, args.lightweight, args.canvas) {
    int const n = int(args.items.size());
    bool const across = args.orientation == OrientationHorizontal;
    for (int i = 0; i < n; ++i) {
        // Even shares of the side, the last taking what the division leaves.
        int const side = across ? width() : height();
        int const from = side * i / n, to = side * (i + 1) / n;
        unsigned short const w = (unsigned short)(across ? to - from : width());
        unsigned short const h = (unsigned short)(across ? height() : to - from);
        char message[16];
        std::snprintf(message, sizeof message, "%d", i);
        StdRadioButton::InitArgs button(UIString(args.items[unsigned(i)]), message, this, w, h);
        createChild<StdRadioButton>(button, across ? BottomLeft(from, 0) : TopLeft(0, from));
    }
    set_current(args.selected, false);
}

RadioSet::~RadioSet() = default;

radio_button* RadioSet::getButton(int index) const {
    return dynamic_cast<radio_button*>(getItem(index));
}

bool RadioSet::isOwnButton(Glob const* glob) const {
    for (int i = 0; i < getCount(); ++i)
        if (glob != nullptr && getItem(i) == glob)
            return true;
    return false;
}

int RadioSet::react(Event const& event) {
    if (!isMessageEvent(event) || !isOwnButton(event_to_sender_glob(event)))
        return StandardPanel::react(event);
    if (event.msg.size() >= 3 && event.msg.endsWith(" on"))
        if (Glob* owner = parent())
            callMsg(owner, radioSetMsg);
    return 1;
}
