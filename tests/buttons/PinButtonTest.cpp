#include "buttons/PinButton.h"

#include "SpecialButtonOwner.h"

TEST_F(SpecialButtons, PinPressesLatchOnAndOffAndTheReleaseChangesNothing) {
    auto* pin = make<PinButton>(PinButton::InitArgs(20, 20));
    Qor::Ptr<iHostImage> unpinned = pin->getCurrentIcon();
    ASSERT_TRUE(unpinned);

    driver.mouseDown(pin, {10, 10});
    EXPECT_TRUE(pin->isPinned());
    driver.mouseUp(pin, {10, 10});
    EXPECT_TRUE(pin->isPinned());
    EXPECT_TRUE(pin->getCurrentIcon());
    EXPECT_NE(pin->getCurrentIcon().get(), unpinned.get());

    driver.click(pin);
    EXPECT_FALSE(pin->isPinned());
    EXPECT_EQ(pin->getCurrentIcon().get(), unpinned.get());
    EXPECT_EQ(panel->messages, (std::vector<std::string>{"freeze_flip on", "freeze_flip off"}));
    EXPECT_EQ(panel->senders, (std::vector<Glob*>{pin, pin}));
}

TEST_F(SpecialButtons, APinWhoseCallbackRequestsItsDeletionGoesSafely) {
    Glob* target = nullptr;
    PinButton::InitArgs args(20, 20);
    args.callback = deleter(&target, "freeze_flip");
    auto* pin = make<PinButton>(args);
    target = pin;
    driver.mouseDown(pin, {10, 10});
    driver.mouseUp(pin, {10, 10});
    driver.processEvents();
    EXPECT_FALSE(is_good_glob_ptr(target));
}
