#include "glob/UifStd.h"

#include "glib/Display.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <vector>

namespace {

// The measures at scale 1.
constexpr unsigned short widgetGap = 4;
constexpr unsigned short rowHeight = 22;
constexpr unsigned short rowGap = 2;
constexpr unsigned short indentWidth = 2;
constexpr unsigned short titleHeight = 24;
constexpr unsigned short edgeSize = 2;

} // namespace

// Unregisters its listener when the last reference goes.
class UifStd::ListenerHandle : public iObject {
public:
    explicit ListenerHandle(unsigned id) : id_(id) {}
    ~ListenerHandle() override { UifStd::removeThemeListener(id_); }

private:
    unsigned id_;
};

// Copies a registered parameter's changes into the theme's map. It holds no reference on the
// parameter, which owns it; a parameter whose registration was refused is not followed.
class UifStd::ParamFollower : public iThemeValueListener {
public:
    explicit ParamFollower(iThemeParam const* param) : param_(param) {}

    void handleThemeValueChange(LightweightString<char> const& id,
                                LightweightString<wchar_t> const& value) override {
        if (UifStd::isRegisteredParam(param_))
            UifStd::setThemeValue(id, value);
    }

private:
    iThemeParam const* param_;
};

UifStd& UifStd::instance() {
    return Qor::Singleton<UifStd>::Instance();
}

unsigned short UifStd::getWidgetGap() {
    return calcScaledValue(widgetGap);
}

unsigned short UifStd::getRowHeight() {
    return calcScaledValue(rowHeight);
}

unsigned short UifStd::getRowGap() {
    return calcScaledValue(rowGap);
}

unsigned short UifStd::getIndentWidth() {
    return calcScaledValue(indentWidth);
}

unsigned short UifStd::getTitleHeight() {
    return calcScaledValue(titleHeight);
}

unsigned short UifStd::getEdgeSize() {
    return calcScaledValue(edgeSize);
}

double UifStd::getScale() {
    double const fixed = instance().fixedScale_.load();
    if (fixed > 0.0)
        return fixed;
    return Glib::hasDisplay() ? Glib::display().scale() : 1.0;
}

void UifStd::setScale(double scale) {
    UifStd& self = instance();
    self.fixedScale_.store(scale > 0.0 ? scale : 0.0);
    {
        CriticalSection::Lock hold(self.lock_);
        if (self.theme_) {
            auto changed = Qor::makePtr<UIAppearanceSettings>(*self.theme_);
            applyStandards(*changed);
            self.theme_ = changed;
        }
    }
    announce(1);
}

unsigned short UifStd::calcScaledValue(unsigned short value) {
    double const scaled = std::round(value * getScale());
    return (unsigned short)std::clamp(scaled, 0.0,
                                      double(std::numeric_limits<unsigned short>::max()));
}

Glib::FontDesc UifStd::getFont() {
    return Glib::getDefaultFont();
}

Glib::FontDesc UifStd::getTitleFont() {
    Glib::FontDesc font = getSubheadingFont();
    font.size = (unsigned short)std::lround(font.size * 9.0 / 8.0);
    return font;
}

Glib::FontDesc UifStd::getSubheadingFont() {
    Glib::FontDesc font = getFont();
    font.style |= Glib::FontDesc::Bold;
    return font;
}

XY<int> UifStd::measure(UIString const& text) {
    return Glib::loadFont(getFont())->measure(text.getString());
}

Palette UifStd::getColourScheme() {
    return getTheme()->palette;
}

Qor::Ptr<UIAppearanceSettings> UifStd::getTheme() {
    UifStd& self = instance();
    CriticalSection::Lock hold(self.lock_);
    if (!self.theme_)
        self.theme_ = makeDefaultTheme();
    return self.theme_;
}

int UifStd::getWindowArrangement() {
    return 0;
}

void UifStd::setThemeValue(LightweightString<char> const& key,
                           LightweightString<wchar_t> const& value) {
    UifStd& self = instance();
    {
        CriticalSection::Lock hold(self.lock_);
        Qor::Ptr<UIAppearanceSettings> const current = getTheme();
        LightweightString<wchar_t> old;
        if (current->find(key, old) && old == value)
            return;
        auto changed = Qor::makePtr<UIAppearanceSettings>(*current);
        changed->params[key] = value;
        self.theme_ = changed;
    }
    announce(1);
}

void UifStd::setTheme(Qor::Ptr<UIAppearanceSettings> const& theme) {
    UifStd& self = instance();
    {
        CriticalSection::Lock hold(self.lock_);
        self.theme_ = theme;
    }
    announce(1);
}

void UifStd::registerThemeParam(Qor::Ptr<iThemeParam> const& param, UIString const& group,
                                UIString const& subgroup) {
    if (!param)
        return;
    UifStd& self = instance();
    LightweightString<char> const id = param->getID();
    {
        CriticalSection::Lock hold(self.lock_);
        for (ThemeParamEntry const& entry : self.themeParams_)
            if (entry.param == param || entry.param->getID() == id)
                return;
        self.themeParams_.push_back(ThemeParamEntry{param, group, subgroup});
    }
    param->addThemeValueListener(Qor::makePtr<ParamFollower>(param.get()));
    setThemeValue(id, param->getValueAsString());
}

std::vector<ThemeParamEntry> UifStd::getThemeParams() {
    UifStd& self = instance();
    CriticalSection::Lock hold(self.lock_);
    return self.themeParams_;
}

bool UifStd::isRegisteredParam(iThemeParam const* param) {
    UifStd& self = instance();
    CriticalSection::Lock hold(self.lock_);
    return std::any_of(
        self.themeParams_.begin(), self.themeParams_.end(),
        [param](ThemeParamEntry const& entry) { return entry.param.get() == param; });
}

Qor::Ptr<iObject> UifStd::addThemeListener(ThemeListener listener) {
    UifStd& self = instance();
    CriticalSection::Lock hold(self.lock_);
    unsigned const id = self.nextListenerId_++;
    self.listeners_.emplace(id, std::move(listener));
    return Qor::makePtr<ListenerHandle>(id);
}

Qor::Ptr<UIAppearanceSettings> UifStd::makeDefaultTheme() {
    auto theme = Qor::makePtr<UIAppearanceSettings>();
    applyStandards(*theme);
    return theme;
}

void UifStd::applyStandards(UIAppearanceSettings& theme) {
    theme.font = getFont();
    theme.buttonFont = getFont();
    theme.titleFont = getTitleFont();
    theme.edgeSize = getEdgeSize();
    theme.titleHeight = getTitleHeight();
    theme.rowHeight = getRowHeight();
    theme.indentWidth = getIndentWidth();
    theme.widgetGap = getWidgetGap();
}

void UifStd::removeThemeListener(unsigned id) {
    UifStd& self = instance();
    CriticalSection::Lock hold(self.lock_);
    self.listeners_.erase(id);
}

// Listeners run outside the lock, so they may take other locks or change the theme again; one
// whose handle went while earlier listeners ran is not called.
void UifStd::announce(unsigned mask) {
    UifStd& self = instance();
    std::vector<unsigned> ids;
    {
        CriticalSection::Lock hold(self.lock_);
        for (auto const& entry : self.listeners_)
            ids.push_back(entry.first);
    }
    for (unsigned id : ids) {
        ThemeListener listener;
        {
            CriticalSection::Lock hold(self.lock_);
            auto const found = self.listeners_.find(id);
            if (found == self.listeners_.end())
                continue;
            listener = found->second;
        }
        listener(mask);
    }
}
