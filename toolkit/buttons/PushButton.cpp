#include "buttons/PushButton.h"

#include "foundation/DoubleParam.h"
#include "glob/UIAppearanceSettings.h"
#include "glob/UifStd.h"

PushButton::PushButton(InitArgs const& args) : Button(args) {
    setStyle(Standard);
}

PushButton::PushButton(UIString const& text, char const* message, unsigned short w,
                       unsigned short h, bool lightweight, Canvas* canvas)
    : Button(text, message, w, h, lightweight, canvas) {
    setStyle(Standard);
}

int PushButton::calcHeight() {
    return calcHeight(*UifStd::getTheme());
}

int PushButton::calcHeight(UIAppearanceSettings const& theme) {
    return int(theme.titleHeight * theme.get<double>("buttonheight", 1.0) + 0.5);
}

void PushButton::registerUIThemeParams() {
    UIString const noText(noResourceId);
    UifStd::registerThemeParam(Qor::makePtr<GenericParam::DoubleParam>(
                                   UIString(ResId(90314)), "buttonheight", noText, 1.0, 1.0, 1.5),
                               UIString(ResId(90201)), noText);
}
