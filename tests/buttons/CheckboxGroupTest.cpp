#include "buttons/CheckboxGroup.h"

#include "RecordingPanel.h"
#include "glob/UifStd.h"
#include "testing/UiTestDriver.h"

#include <gtest/gtest.h>

namespace {

struct CheckboxGroups : ::testing::Test {
    UiTestDriver driver;
    RecordingPanel* window = makeRecordingWindow();

    CheckboxGroup* addGroup(bool state) {
        CheckboxGroup::InitArgs args(UIString(L"Proxy server"), state, 300, 160);
        auto* group = window->createWidget<CheckboxGroup>(args, Glob::BottomLeft(20, 20));
        for (int i = 0; i < 2; ++i)
            controls.push_back(group->createWidget<Checkbox>(
                Checkbox::InitArgs(UIString(L"Option"), false, 120, UifStd::getRowHeight()),
                Glob::UserTopLeft(20, 10 + 30 * i)));
        group->update();
        driver.processEvents();
        return group;
    }
    void clickTitle(CheckboxGroup* group) {
        Checkbox* box = group->getCheckbox();
        driver.click(box, XY<int>(box->width() / 2, box->height() / 2));
        driver.processEvents();
    }
    std::vector<bool> activity() const {
        std::vector<bool> out;
        for (Checkbox* c : controls)
            out.push_back(c->isActive());
        return out;
    }

    std::vector<Checkbox*> controls;
};

} // namespace

TEST_F(CheckboxGroups, ControlsFollowTheTitleBoxWhileTheGroupIsActiveAndOnlyClicksAreTold) {
    CheckboxGroup* group = addGroup(false);
    EXPECT_EQ(activity(), (std::vector<bool>{false, false}));
    clickTitle(group);
    EXPECT_TRUE(group->getState());
    EXPECT_EQ(activity(), (std::vector<bool>{true, true}));
    clickTitle(group);
    EXPECT_EQ(activity(), (std::vector<bool>{false, false}));
    EXPECT_EQ(window->messages,
              (std::vector<std::string>{CheckboxGroup::clickedMsg, CheckboxGroup::clickedMsg}));
    EXPECT_EQ(window->senders, (std::vector<Glob*>{group, group}));

    group->setState(true, false);
    EXPECT_EQ(activity(), (std::vector<bool>{true, true}));
    group->setState(false, true);
    EXPECT_EQ(activity(), (std::vector<bool>{false, false}));
    driver.processEvents();
    EXPECT_EQ(window->messages.size(), 2u);

    group->setActive(false, Redraw);
    EXPECT_FALSE(group->getCheckbox()->isActive());
    group->setState(true, false);
    EXPECT_EQ(activity(), (std::vector<bool>{false, false}));
    group->setActive(true, Redraw);
    EXPECT_EQ(activity(), (std::vector<bool>{true, true}));
    group->setState(false, false);
    group->setActive(false, Redraw);
    group->setActive(true, Redraw);
    EXPECT_EQ(activity(), (std::vector<bool>{false, false}));
}

TEST_F(CheckboxGroups, TheTabOrderRunsFromTheBoxThroughTheControls) {
    CheckboxGroup* group = addGroup(true);
    window->addTabStopsFrom(group, TabOrderManager::AfterAll);
    group->getCheckbox()->claimKbdFocus();
    driver.keyPress(KeyCodes::Tab);
    EXPECT_EQ(get_kbd_focus(), controls[0]);
    driver.keyPress(KeyCodes::Tab);
    EXPECT_EQ(get_kbd_focus(), controls[1]);
    driver.keyPress(KeyCodes::Tab);
    EXPECT_EQ(get_kbd_focus(), group->getCheckbox());
    driver.keyPress(KeyCodes::Space);
    driver.processEvents();
    EXPECT_FALSE(group->getState());
    driver.keyPress(KeyCodes::Tab);
    EXPECT_EQ(get_kbd_focus(), group->getCheckbox());
}

TEST_F(CheckboxGroups, TheParentMayDeleteTheGroupWhenItHearsOfTheClick) {
    CheckboxGroup* group = addGroup(false);
    IdStamp stamp = group->getIdStamp();
    window->onMessage = [](std::string const&, Glob* sender) {
        GlobManager::instance().requestDeletion(sender);
    };
    clickTitle(group);
    driver.processEvents();
    EXPECT_FALSE(EventHandler::valid(group, stamp));
}
