#include "buttons/RadioSet.h"

#include "../support/DiagnosticCapture.h"
#include "RecordingPanel.h"
#include "buttons/radio_button.h"
#include "testing/UiTestDriver.h"

#include <gtest/gtest.h>

#include <memory>

namespace {

std::string const radioSetMsg = RadioSet::radioSetMsg;

struct RadioButtons : ::testing::Test {
    UiTestDriver driver;
    RecordingPanel* window = makeRecordingWindow({500, 300});

    RadioSet* addSet(int selected) {
        RadioSet::InitArgs args({L"Left", L"Centre", L"Right"}, 300, 30);
        args.selected = selected;
        auto* set = window->createWidget<RadioSet>(args, Glob::BottomLeft(20, 20));
        set->update();
        driver.processEvents();
        return set;
    }
    void press(Button* b) { driver.click(b, XY<int>(b->width() / 2, b->height() / 2)); }
    std::vector<Button::button_state> states(RadioSet* set) {
        std::vector<Button::button_state> out;
        for (int i = 0; i < set->getCount(); ++i)
            out.push_back(set->getButton(i)->getState());
        return out;
    }
};

using S = Button::button_state;

// A plain radio_button made on a window, with its own set.
radio_button* makeButton(Glob* parent, radio_set* set, int x, char const* message) {
    radio_button::InitArgs args(UIString(L"Choice"), message, set, 80, 24);
    return parent->createChild<radio_button>(args, Glob::BottomLeft(x, 200));
}

} // namespace

TEST_F(RadioButtons, APressOrSpaceChoosesAnActiveButtonAndTellsTheParentOnceButSettingTellsNobody) {
    RadioSet* set = addSet(0);
    press(set->getButton(2));
    press(set->getButton(2));
    driver.processEvents();
    EXPECT_EQ(states(set), (std::vector<S>{Button::up, Button::up, Button::down}));
    EXPECT_EQ(window->messages, (std::vector<std::string>{radioSetMsg}));
    EXPECT_EQ(window->senders, (std::vector<Glob*>{set}));

    set->getButton(1)->claimKbdFocus();
    driver.keyPress(KeyCodes::Space);
    driver.processEvents();
    EXPECT_EQ(set->getSelectedItem(), 1);
    set->getButton(0)->setActive(false, Redraw);
    press(set->getButton(0));
    driver.processEvents();
    EXPECT_EQ(set->getSelectedItem(), 1);
    EXPECT_EQ(window->messages.size(), 2u);

    set->setSelectedItem(2);
    set->setSelectedItem(5);
    driver.processEvents();
    EXPECT_EQ(states(set), (std::vector<S>{Button::up, Button::up, Button::down}));
    set->setSelectedItem(-1);
    EXPECT_EQ(set->getSelectedItem(), -1);
    EXPECT_EQ(states(set), (std::vector<S>{Button::up, Button::up, Button::up}));
    EXPECT_EQ(window->messages, (std::vector<std::string>{radioSetMsg, radioSetMsg}));
}

TEST_F(RadioButtons, LooseButtonsTellTheirParentOnAndOffAndADeletedOneLeavesTheSet) {
    radio_set set;
    radio_button* a = makeButton(window, &set, 20, "a");
    radio_button* b = makeButton(window, &set, 120, "b");
    press(a);
    press(b);
    driver.processEvents();
    EXPECT_EQ(window->messages, (std::vector<std::string>{"a on", "a off", "b on"}));

    Glob* doomed = b;
    window->removeWidget(doomed, true);
    EXPECT_EQ(set.getCurrent(), -1);
    press(a);
    set.set_current(1, true);
    driver.processEvents();
    EXPECT_EQ(set.getCurrent(), 1);
    EXPECT_EQ(a->getState(), Button::up);
    EXPECT_EQ(window->messages,
              (std::vector<std::string>{"a on", "a off", "b on", "a on", "a off"}));
}

TEST_F(RadioButtons, ASetThatDiesFirstLeavesItsButtonsWorkingAlone) {
    auto set = std::make_unique<radio_set>();
    radio_button* a = makeButton(window, set.get(), 20, "a");
    set.reset();
    EXPECT_EQ(a->getSet(), nullptr);
    press(a);
    driver.processEvents();
    EXPECT_EQ(a->getState(), Button::down);
}

TEST_F(RadioButtons, ASetOverItsLimitReportsEachExtraButtonOnceAndIgnoresIt) {
    DiagnosticCapture capture;
    radio_set set;
    for (int i = 0; i < RadioSetBase<Button>::maxEntries; ++i)
        makeButton(window, &set, 0, "x");
    EXPECT_EQ(capture.count("RadioSetBase:: attempt to exceed max no of radio buttons"), 0u);
    radio_button* extra = makeButton(window, &set, 400, "extra");
    radio_button* another = makeButton(window, &set, 400, "another");
    EXPECT_EQ(capture.count("RadioSetBase:: attempt to exceed max no of radio buttons"), 2u);
    EXPECT_EQ(extra->getIndex(), -1);
    EXPECT_EQ(another->getIndex(), -1);
    press(extra);
    driver.processEvents();
    EXPECT_EQ(set.getCurrent(), -1);
    EXPECT_TRUE(window->messages.empty());
}
