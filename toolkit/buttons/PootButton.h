#pragma once

// The close button of a panel's title row. A click sends "poot" to the panel, which decides
// whether it closes. It shows the close icon, or by configuration a close sign as text.

#include "buttons/Button.h"

// The text of the close sign: "*" when the "poots_rule" setting is on, otherwise a
// multiplication sign. The setting is read once.
LightweightString<wchar_t> getPootString();

class PootButton : public Button {
public:
    // 0 the close icon; any other look the configured close sign or the older poot icon.
    enum eAppearance : int { IconAppearance = 0, ConfiguredAppearance = 1 };

    struct InitArgs : Button::InitArgs {
        InitArgs() = default;
        InitArgs(unsigned short w, unsigned short h);
    };

    static char const* const pootMsg;

    explicit PootButton(InitArgs const& args);

    char const* idstring() const override { return "PootButton"; }
    void resize(double w, double h) override;

    void setAppearance(eAppearance appearance);
    eAppearance getAppearance() const { return appearance_; }

private:
    void init();
    void applyFont();

    eAppearance appearance_ = IconAppearance;
};
