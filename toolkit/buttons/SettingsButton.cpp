#include "buttons/SettingsButton.h"

#include "foundation/ChoiceParam.h"
#include "glob/UIAppearanceSettings.h"
#include "glob/UifStd.h"

char const* const SettingsButton::screwdriverMsg = "screwdriver";

namespace {

constexpr char const* themeKey = "settings";

} // namespace

SettingsButton::InitArgs::InitArgs(unsigned short w, unsigned short h)
    : ImageButton::InitArgs(getIconFile(*UifStd::getTheme()), LightweightString<wchar_t>(),
                            WidgetCallback(LightweightString<char>(screwdriverMsg)), w, h) {}

SettingsButton::SettingsButton(InitArgs const& args) : ImageButton(args) {
    setStyle(Flat);
    UIString const help(ResId(11497));
    setContextString(help, help);
}

void SettingsButton::handleUIChange(unsigned int mask) {
    ImageButton::handleUIChange(mask);
    setIcon(getIconFile(theme()));
}

LightweightString<wchar_t> SettingsButton::getIconFile(eAppearance appearance) {
    return appearance == MoreAppearance ? L"more.png" : L"settings.png";
}

LightweightString<wchar_t> SettingsButton::getIconFile(UIAppearanceSettings const& theme) {
    return getIconFile(eAppearance(theme.get<int>(themeKey, CogAppearance)));
}

void SettingsButton::registerUIThemeParams() {
    using GenericParam::ChoiceParam;
    std::vector<ChoiceParam::Choice> choices{{UIString(ResId(90316))}, {UIString(ResId(90317))}};
    UIString const noText(noResourceId);
    UifStd::registerThemeParam(Qor::makePtr<ChoiceParam>(UIString(ResId(90315)), themeKey, noText,
                                                         choices, unsigned(CogAppearance)),
                               UIString(ResId(90201)), noText);
}
