#include "buttons/PootButton.h"

#include "SpecialButtonOwner.h"

TEST_F(SpecialButtons, APootClickAsksThePanelWhichClosesOnlyWhenItAllows) {
    IdStamp const stamp = panel->getIdStamp();
    PootButton* poot = make<PootButton>(PootButton::InitArgs(20, 20));
    panel->allowPoot = false;
    driver.click(poot);
    driver.processEvents();
    EXPECT_EQ(panel->poots, 1);
    ASSERT_TRUE(EventHandler::valid(panel, stamp));
    EXPECT_TRUE(panel->messages.empty());

    // The panel, and the button with it, go while the button is still handling its click.
    panel->allowPoot = true;
    driver.click(poot);
    driver.processEvents();
    EXPECT_FALSE(EventHandler::valid(panel, stamp));
}

TEST_F(SpecialButtons, APootButtonShowsTheCloseIconOrTheOlderOneSaysCloseAndSizesItsFont) {
    PootButton* poot = make<PootButton>(PootButton::InitArgs(20, 16));
    Qor::Ptr<iHostImage> closeIcon = poot->getCurrentIcon();
    EXPECT_TRUE(closeIcon);
    EXPECT_TRUE(poot->getString().getString().empty());
    // Without the setting the other look is the older poot icon, still without text.
    poot->setAppearance(PootButton::ConfiguredAppearance);
    EXPECT_TRUE(poot->getCurrentIcon());
    EXPECT_NE(poot->getCurrentIcon().get(), closeIcon.get());
    EXPECT_TRUE(poot->getString().getString().empty());
    EXPECT_EQ(poot->contextString({0, 0}, nullptr).getString(), resourceStrW(ResId(11393)));

    EXPECT_EQ(poot->getFont().getSize(), 18);
    poot->resize(24, 24);
    EXPECT_EQ(poot->getFont().getSize(), 27);
}
