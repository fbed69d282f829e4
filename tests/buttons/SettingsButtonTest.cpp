#include "buttons/SettingsButton.h"

#include "../glob/RecordingGlob.h"
#include "buttons/IconCache.h"
#include "foundation/ChoiceParam.h"
#include "glob/UifStd.h"
#include "testing/UiTestDriver.h"

#include <gtest/gtest.h>

namespace {

// A plain recording window: a panel would pass the settings message on rather than take it.
struct SettingsButtons : ::testing::Test {
    UiTestDriver driver;
    RecordingGlob* window = makeWindow({100, 100}, {200, 100});

    SettingsButton* makeButton() {
        auto* button = window->createChild<SettingsButton>(SettingsButton::InitArgs(24, 20),
                                                           Glob::BottomLeft(10, 10));
        button->update();
        return button;
    }
    void TearDown() override { UifStd::setTheme({}); }
};

iHostImage* iconFile(LightweightString<wchar_t> const& name) {
    return IconCache::instance().load(name, IconCache::Plain, 20).image.get();
}

} // namespace

TEST_F(SettingsButtons, AClickSendsScrewdriverToTheOwner) {
    SettingsButton* button = makeButton();
    driver.click(button);
    driver.processEvents();
    EXPECT_EQ(window->messages(), (std::vector<std::string>{"screwdriver"}));
    EXPECT_EQ(button->contextString({0, 0}, nullptr).getString(), resourceStrW(ResId(11497)));
}

TEST_F(SettingsButtons, TheRegisteredChoiceOfTheThemeChoosesTheIconAndAChangeShowsAtOnce) {
    SettingsButton::registerUIThemeParams();
    GenericParam::ChoiceParam const* choice = nullptr;
    for (ThemeParamEntry const& entry : UifStd::getThemeParams())
        if (entry.param->getID() == "settings") {
            choice = dynamic_cast<GenericParam::ChoiceParam const*>(entry.param.get());
            EXPECT_EQ(entry.group.getString(), resourceStrW(ResId(90201)));
        }
    ASSERT_NE(choice, nullptr);
    EXPECT_EQ(choice->getChoices().size(), 2u);

    SettingsButton* button = makeButton();
    EXPECT_EQ(button->getCurrentIcon().get(), iconFile(L"settings.png"));
    UifStd::setThemeValue("settings", L"1");
    driver.processEvents();
    EXPECT_EQ(button->getCurrentIcon().get(), iconFile(L"more.png"));
}
