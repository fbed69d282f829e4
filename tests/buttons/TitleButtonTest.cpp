#include "buttons/TitleButton.h"

#include "SpecialButtonOwner.h"

TEST_F(SpecialButtons, ATitleButtonsClickReachesTheRowsOwnerFromTheButton) {
    auto* row = make<TitleButton>(
        TitleButton::InitArgs(L"Colour", UIString(L"Choose"), WidgetCallback("choose"), 200, 24));
    Button* button = row->getBtn();
    ASSERT_NE(button, nullptr);
    EXPECT_GT(button->getX(), row->getX());
    driver.click(button);
    driver.processEvents();
    EXPECT_EQ(panel->messages, (std::vector<std::string>{"choose"}));
    EXPECT_EQ(panel->senders, (std::vector<Glob*>{button}));
    EXPECT_EQ(row->getState(), Button::up);

    row->setString(UIString(L"Pick"), true);
    EXPECT_EQ(button->getString().getString(), LightweightString<wchar_t>(L"Pick"));
    row->setHasDropDownAppearance(true);
    EXPECT_EQ(button->getStyle(), Button::MenuStyle);
}

TEST_F(SpecialButtons, ATitleButtonWhoseButtonRequestsTheRowsDeletionGoesSafely) {
    Glob* target = nullptr;
    auto* row = make<TitleButton>(
        TitleButton::InitArgs(L"Colour", UIString(L"Choose"), deleter(&target, "choose"), 200, 24));
    target = row;
    driver.click(row->getBtn());
    driver.processEvents();
    EXPECT_FALSE(is_good_glob_ptr(target));
}
