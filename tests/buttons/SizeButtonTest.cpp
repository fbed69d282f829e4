#include "buttons/SizeButton.h"

#include "SpecialButtonOwner.h"
#include "glob/UifStd.h"

namespace {

LightweightString<wchar_t> helpOf(Glob* button) {
    return button->contextString({0, 0}, nullptr).getString();
}

} // namespace

TEST_F(SpecialButtons, EachSizePressFlipsThePanelAndTheStateShowsInTextAndHelp) {
    auto* size = make<SizeButton>(SizeButton::InitArgs(24, 24, SizeButton::TextAppearance));
    EXPECT_EQ(size->getString().getString(), LightweightString<wchar_t>(L"H"));
    EXPECT_EQ(helpOf(size), resourceStrW(ResId(11277)));

    driver.click(size);
    EXPECT_EQ(panel->flips, 1);
    EXPECT_EQ(size->getState(), Button::down);
    EXPECT_EQ(size->getString().getString(), LightweightString<wchar_t>(L">"));
    EXPECT_EQ(helpOf(size), resourceStrW(ResId(11278)));
    EXPECT_NE(resourceStrW(ResId(11277)), resourceStrW(ResId(11278)));

    driver.click(size);
    EXPECT_EQ(panel->flips, 2);
    EXPECT_EQ(size->getString().getString(), LightweightString<wchar_t>(L"H"));

    // The panel sets the state without being told back.
    size->set_size(true);
    driver.processEvents();
    EXPECT_EQ(panel->flips, 2);
    EXPECT_EQ(size->getState(), Button::down);
    EXPECT_EQ(helpOf(size), resourceStrW(ResId(11278)));
    EXPECT_TRUE(panel->messages.empty());
}

TEST_F(SpecialButtons, TheTextLookDrawsABarAtFullSizeAndASecondFrameWhenSmall) {
    auto* size = make<SizeButton>(SizeButton::InitArgs(24, 24, SizeButton::TextAppearance));
    XY<int> onBar(12, UifStd::getWidgetGap());
    EXPECT_TRUE(shows(size, onBar, size->getForeCol()));
    size->set_size(true);
    driver.processEvents();
    EXPECT_FALSE(shows(size, onBar, size->getForeCol()));

    size->setAppearance(SizeButton::IconAppearance);
    EXPECT_TRUE(size->getCurrentIcon());
    EXPECT_TRUE(size->getString().getString().empty());
}
