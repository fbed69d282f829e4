#pragma once

// The settings button of a panel's title row: a click sends "screwdriver" to the panel. The theme
// key "settings" chooses its icon, a cog or three dots, and a theme change shows the new choice.

#include "buttons/ImageButton.h"

class UIAppearanceSettings;

class SettingsButton : public ImageButton {
public:
    enum eAppearance : int { CogAppearance = 0, MoreAppearance = 1 };

    struct InitArgs : ImageButton::InitArgs {
        InitArgs() = default;
        InitArgs(unsigned short w, unsigned short h);
    };

    static char const* const screwdriverMsg;

    explicit SettingsButton(InitArgs const& args);

    char const* idstring() const override { return "SettingsButton"; }
    void handleUIChange(unsigned int mask) override;

    static LightweightString<wchar_t> getIconFile(eAppearance appearance);
    static LightweightString<wchar_t> getIconFile(UIAppearanceSettings const& theme);
    // Makes the "settings" choice known to the theme editor.
    static void registerUIThemeParams();
};
