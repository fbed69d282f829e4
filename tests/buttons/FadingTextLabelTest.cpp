#include "buttons/FadingTextLabel.h"

#include "LabelWindow.h"
#include "testing/UiTestDriver.h"

#include <gtest/gtest.h>

namespace {

struct FadingLabels : ::testing::Test {
    UiTestDriver driver;
    RecordingGlob* window = makeWindow({100, 100}, {400, 200});
    FadingTextLabel* label = nullptr;

    void SetUp() override {
        FadingTextLabel::InitArgs args(L"", 200, 22);
        args.fixedSize = true;
        args.holdMs = 1000;
        args.fadeMs = 1000;
        label = addLabel<FadingTextLabel>(window, args);
    }
    Colour textColour() const { return label->getPalette().text(); }
    Colour background() const { return label->getPalette().window(WindowShadeBase); }
};

} // namespace

TEST_F(FadingLabels, TheTextHoldsThenFadesAndIsGoneWhenItsTimeIsUp) {
    label->setText(L"Saved");
    driver.advanceTime(900);
    EXPECT_EQ(label->getText(), L"Saved");
    EXPECT_EQ(label->getEffectiveTextColour(), textColour());
    driver.advanceTime(600);
    Colour halfway = label->getEffectiveTextColour();
    EXPECT_NEAR(halfway.red(), Colour::mix(textColour(), background(), 0.5).red(), 0.03);
    driver.advanceTime(600);
    EXPECT_TRUE(label->getText().empty());
    EXPECT_FALSE(label->isTiming());
    EXPECT_FALSE(label->getTextColour().isSet());
}

TEST_F(FadingLabels, ANewTextStartsTheTimeAgainAtFullColourAndAnEmptyOneStopsIt) {
    label->setTextColour(Colour(0.8, 0.0, 0.0), NoRedraw);
    label->setText(L"First");
    driver.advanceTime(1500);
    label->setText(L"Second");
    EXPECT_EQ(label->getEffectiveTextColour(), Colour(0.8, 0.0, 0.0));
    driver.advanceTime(1900);
    EXPECT_EQ(label->getText(), L"Second");
    driver.advanceTime(200);
    EXPECT_TRUE(label->getText().empty());
    EXPECT_EQ(label->getTextColour(), Colour(0.8, 0.0, 0.0));
    label->setText(L"Third");
    driver.advanceTime(1500);
    label->setText(L"");
    EXPECT_FALSE(label->isTiming());
    EXPECT_EQ(label->getEffectiveTextColour(), Colour(0.8, 0.0, 0.0));
}
