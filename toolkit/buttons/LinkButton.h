#pragma once

// A link: a flat, underlined text in the selection colour that hands its address to the desktop's
// opener when clicked. Without a label it shows the address itself.

#include "buttons/Button.h"

class LinkButton : public Button {
public:
    struct InitArgs : Button::InitArgs {
        InitArgs() = default;
        InitArgs(LightweightString<wchar_t> const& link_, UIString const& label_, unsigned short w,
                 unsigned short h)
            : Button::InitArgs(label_.getString().empty() ? UIString(link_) : label_,
                               WidgetCallback(), w, h),
              link(link_) {}
        LightweightString<wchar_t> link;
    };

    explicit LinkButton(InitArgs const& args);

    char const* idstring() const override { return "LinkButton"; }
    Colour textColour() const override;

    void setLink(LightweightString<wchar_t> const& link) { link_ = link; }
    LightweightString<wchar_t> const& getLink() const { return link_; }
    // The callback of every click: opens the link. Answers 0.
    int visitLink(NotifyMsg const& msg);

private:
    LightweightString<wchar_t> link_;
};
