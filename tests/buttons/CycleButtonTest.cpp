#include "buttons/CycleButton.h"

#include "SpecialButtonOwner.h"

#include <random>

namespace {

std::vector<UIString> speeds() {
    return {UIString(L"Slow"), UIString(L"Normal"), UIString(L"Fast")};
}

CycleButton::InitArgs speedArgs() {
    return CycleButton::InitArgs("speed", speeds(), 80, 24);
}

// The plain model of a cycle button's choice and direction.
struct CycleModel {
    unsigned count;
    unsigned pick = 0;
    int direction = 1;

    void step() { pick = (pick + count + direction) % count; }
    void reverse() {
        direction = -direction;
        step();
    }
    void set(unsigned index) {
        if (index < count)
            pick = index;
    }
};

} // namespace

TEST_F(SpecialButtons, ClicksStepAndWrapEitherWayAndEachClickTellsTheNewChoice) {
    auto* cycle = make<CycleButton>(speedArgs());
    EXPECT_EQ(cycle->getString().getString(), LightweightString<wchar_t>(L"Slow"));
    for (int i = 0; i < 3; ++i)
        driver.click(cycle);
    // Return and Space click the focused button in the same way.
    cycle->claimKbdFocus();
    driver.keyPress(KeyCodes::Return);
    driver.processEvents();
    EXPECT_EQ(cycle->getString().getString(), LightweightString<wchar_t>(L"Normal"));

    // Reversing steps back at once, and clicks then keep going back past the first choice.
    cycle->m_reverse_direction();
    EXPECT_EQ(cycle->getMessage(), LightweightString<char>("speed0"));
    driver.click(cycle);
    EXPECT_EQ(panel->messages,
              (std::vector<std::string>{"speed1", "speed2", "speed0", "speed1", "speed2"}));
}

TEST_F(SpecialButtons, PickingAnUnknownTextLeavesTheButtonAsItWas) {
    auto* cycle = make<CycleButton>(speedArgs());
    cycle->setPickState(L"Fast", Redraw);
    cycle->setPickState(L"Warp", Redraw);
    EXPECT_EQ(cycle->getPickState(), 2);
    EXPECT_EQ(cycle->getString().getString(), LightweightString<wchar_t>(L"Fast"));
}

TEST_F(SpecialButtons, StepsReversalsAndPicksFollowAPlainModel) {
    auto* cycle = make<CycleButton>(speedArgs());
    unsigned const seed = std::random_device()();
    SCOPED_TRACE("seed " + std::to_string(seed));
    std::mt19937 random(seed);
    CycleModel model{3};
    for (int i = 0; i < 200; ++i) {
        switch (random() % 3) {
        case 0:
            cycle->m_next_pick_state();
            model.step();
            break;
        case 1:
            cycle->m_reverse_direction();
            model.reverse();
            break;
        default: {
            unsigned short index = (unsigned short)(random() % 5);
            cycle->setPickState(index, NoRedraw);
            model.set(index);
        }
        }
        ASSERT_EQ(cycle->getPickState(), model.pick);
        ASSERT_EQ(cycle->getDirection(), model.direction);
        ASSERT_EQ(cycle->getString().getString(), speeds()[model.pick].getString());
    }
}

TEST_F(SpecialButtons, AChoiceBringsItsColoursAndOneWithoutColoursGoesBackToThePlainOnes) {
    auto* cycle = make<CycleButton>(speedArgs());
    Colour plainBack = cycle->getBackCol();
    Colour plainText = cycle->textColour();
    Colour red(0.8, 0.1, 0.1);
    Colour white(1.0, 1.0, 1.0);
    cycle->setPickColours({Colour(0.5, 0.5, 0.5), red});
    cycle->setTextColours({Colour(0.0, 0.0, 0.0), white});
    cycle->setPickState(1, Redraw);
    EXPECT_EQ(fromColour(cycle->getBackCol()), fromColour(red));
    EXPECT_EQ(fromColour(cycle->textColour()), fromColour(white));
    cycle->setPickState(2, Redraw);
    EXPECT_EQ(fromColour(cycle->getBackCol()), fromColour(plainBack));
    EXPECT_EQ(fromColour(cycle->textColour()), fromColour(plainText));
}

TEST_F(SpecialButtons, ResourceIdsMakeTheChoicesAndAnInactiveButtonDoesNotStep) {
    Vector<ResId> ids{ResId(11973), ResId(11974), ResId(11975)};
    auto* cycle = make<CycleButton>(CycleButton::InitArgs("rate", ids, 80, 24));
    ASSERT_EQ(cycle->getNumItems(), 3);
    for (unsigned short i = 0; i < 3; ++i)
        EXPECT_EQ(cycle->getItem(i).text.getString(), resourceStrW(ids[i]));
    cycle->setActive(false, Redraw);
    driver.click(cycle);
    EXPECT_EQ(cycle->getPickState(), 0);
    EXPECT_TRUE(panel->messages.empty());
}

TEST_F(SpecialButtons, ACycleButtonWhoseCallbackRequestsItsDeletionGoesSafely) {
    Glob* target = nullptr;
    CycleButton::InitArgs args = speedArgs();
    args.callback = deleter(&target, "");
    auto* cycle = make<CycleButton>(args);
    target = cycle;
    driver.click(cycle);
    driver.processEvents();
    EXPECT_FALSE(is_good_glob_ptr(target));
}
