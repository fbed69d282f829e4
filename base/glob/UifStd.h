#pragma once

// The user-interface standards: the layout measures, fonts and colours every widget sizes and
// paints itself with, and the current theme. Layout code uses these numbers and never a fixed
// pixel size. All operations are static, so they read as UifStd::getWidgetGap() as well as through
// instance(); the singleton holds the state behind them.

#include "glib/Font.h"
#include "glib/Palette.h"
#include "glob/ThemeParam.h"
#include "glob/UIAppearanceSettings.h"
#include "os/CriticalSection.h"
#include "qor/Ptr.h"
#include "qor/Singleton.h"
#include "qor/UIString.h"
#include "qor/XY.h"

#include <atomic>
#include <functional>
#include <map>
#include <vector>

class UifStd {
public:
    static UifStd& instance();

    // Measures in pixels at the current scale.
    static unsigned short getWidgetGap();
    static unsigned short getRowHeight();
    static unsigned short getRowGap();
    static unsigned short getIndentWidth();
    // The base height of a title area.
    static unsigned short getTitleHeight();
    static unsigned short getEdgeSize();

    // The display's interface scale (1 without a display), unless one was set.
    static double getScale();
    // Fixes the scale (0 follows the display again). The theme's measures and fonts follow, and
    // the change is announced.
    static void setScale(double scale);
    // The pixel value at the current scale, rounded.
    static unsigned short calcScaledValue(unsigned short value);

    static Glib::FontDesc getFont();
    // Bold and a little larger than the interface font.
    static Glib::FontDesc getTitleFont();
    static Glib::FontDesc getSubheadingFont();
    // The text's width and line height in getFont().
    static XY<int> measure(UIString const& text);

    // The theme's palette.
    static Palette getColourScheme();
    // Made on first use from the measures and fonts above and the default palette.
    static Qor::Ptr<UIAppearanceSettings> getTheme();
    // 0: panels may round their corners, menus have a pin; 1: file browsers keep their buttons in
    // the title strip.
    static int getWindowArrangement();

    // Changes of the theme replace it with a changed copy, so a theme already handed out never
    // changes under its holder, and are announced when something changed.
    static void setThemeValue(LightweightString<char> const& key,
                              LightweightString<wchar_t> const& value);
    // An empty pointer goes back to the default theme.
    static void setTheme(Qor::Ptr<UIAppearanceSettings> const& theme);

    // Keeps the parameter for the theme editor, puts its value under its id in the theme's map
    // and follows its later changes there. The first parameter of an id stays: another one with
    // the same id is ignored.
    static void registerThemeParam(Qor::Ptr<iThemeParam> const& param, UIString const& group,
                                   UIString const& subgroup);
    // The registered parameters, in order of registration.
    static std::vector<ThemeParamEntry> getThemeParams();

    // Called with mask 1 after each change of the theme, on the thread that made the change.
    using ThemeListener = std::function<void(unsigned mask)>;
    // The listener stays registered while the handle lives.
    [[nodiscard]] static Qor::Ptr<iObject> addThemeListener(ThemeListener listener);

private:
    class ListenerHandle;
    class ParamFollower;
    friend struct Loki::CreateUsingNew<UifStd>;

    UifStd() = default;

    static Qor::Ptr<UIAppearanceSettings> makeDefaultTheme();
    static void applyStandards(UIAppearanceSettings& theme);
    static void removeThemeListener(unsigned id);
    static void announce(unsigned mask);
    static bool isRegisteredParam(iThemeParam const* param);

    // 0 while the display decides.
    std::atomic<double> fixedScale_ = 0.0;
    CriticalSection lock_;
    Qor::Ptr<UIAppearanceSettings> theme_;
    std::map<unsigned, ThemeListener> listeners_;
    unsigned nextListenerId_ = 1;
    std::vector<ThemeParamEntry> themeParams_;
};
