#include "buttons/CheckboxRadioSet.h"

#include "RecordingPanel.h"
#include "buttons/CheckboxRadioSetManager.h"
#include "glob/UifStd.h"
#include "testing/UiTestDriver.h"

#include <gtest/gtest.h>

#include <iostream>
#include <random>

namespace {

std::string const changed = CheckboxRadioSet::selectionChangedMsg;

struct RadioSets : ::testing::Test {
    UiTestDriver driver;
    RecordingPanel* window = makeRecordingWindow();

    CheckboxRadioSet* addSet(int selected, int rows = 4) {
        std::vector<UIString> items;
        wchar_t const* names[] = {L"Fit", L"Fill", L"Stretch", L"Centre", L"Tile", L"Crop"};
        for (int i = 0; i < rows; ++i)
            items.emplace_back(names[i % 6]);
        auto* set = window->createWidget<CheckboxRadioSet>(
            CheckboxRadioSet::InitArgs(items, selected, 180), Glob::BottomLeft(20, 20));
        set->update();
        driver.processEvents();
        return set;
    }
    Checkbox* row(CheckboxRadioSet* set, int i) { return set->getCheckboxes()[unsigned(i)]; }
    XY<int> middle(Checkbox* box) { return XY<int>(box->width() / 2, box->height() / 2); }
    void clickRow(CheckboxRadioSet* set, int i) { driver.click(row(set, i), middle(row(set, i))); }
    // A wheel turn over the row; positive away from the user.
    void wheelOver(CheckboxRadioSet* set, int i, int steps) {
        driver.wheel(row(set, i), middle(row(set, i)), steps);
    }
};

} // namespace

// Choosing

TEST_F(RadioSets, AClickOrSpaceChoosesARowOnceAndTheParentHearsFromTheSet) {
    CheckboxRadioSet* set = addSet(1);
    clickRow(set, 3);
    EXPECT_EQ(set->getSelectedItem(), 3);
    EXPECT_EQ(window->messages, (std::vector<std::string>{changed}));
    EXPECT_EQ(window->senders, (std::vector<Glob*>{set}));

    clickRow(set, 3);
    row(set, 3)->claimKbdFocus();
    driver.keyPress(KeyCodes::Space);
    EXPECT_EQ(set->getSelectedItem(), 3);
    row(set, 0)->claimKbdFocus();
    driver.keyPress(KeyCodes::Space);
    EXPECT_EQ(set->getSelectedItem(), 0);
    EXPECT_EQ(window->messages.size(), 2u);
}

// The wheel

TEST_F(RadioSets, TheWheelStartsAtThePointerIsUsedUpAtTheEndsAndAnInactiveSetPassesItOn) {
    CheckboxRadioSet* set = addSet(-1);
    wheelOver(set, 1, -1);
    EXPECT_EQ(set->getSelectedItem(), 1);
    wheelOver(set, 0, 1);
    wheelOver(set, 0, 1);
    EXPECT_EQ(set->getSelectedItem(), 0);
    EXPECT_EQ(window->messages.size(), 2u);
    EXPECT_EQ(window->wheels, 0);

    set->setActive(false, Redraw);
    EXPECT_FALSE(row(set, 2)->isActive());
    wheelOver(set, 2, -1);
    clickRow(set, 2);
    EXPECT_EQ(set->getSelectedItem(), 0);
    EXPECT_EQ(window->wheels, 1);
}

// Value binding

TEST_F(RadioSets, AClickAsksTheAdaptorButTheWheelDoesNot) {
    CheckboxRadioSet* set = addSet(0);
    ValServer<int> server(0);
    auto adaptor = Qor::makePtr<ServerAdaptor<int>>(&server);
    set->setDataAdaptor(adaptor);
    server = 2;
    EXPECT_EQ(set->getSelectedItem(), 2);

    clickRow(set, 1);
    EXPECT_EQ(server.getValue(), 1);
    EXPECT_EQ(adaptor->types, (std::vector<DataChangeType>{NewText}));
    EXPECT_TRUE(window->messages.empty());

    wheelOver(set, 0, -1);
    EXPECT_EQ(set->getSelectedItem(), 2);
    EXPECT_EQ(server.getValue(), 1);
    EXPECT_EQ(window->messages, (std::vector<std::string>{changed}));
}

// Members and owners that go away

TEST_F(RadioSets, ARowThatIsDeletedDropsOutAndTheParentMayDeleteTheSetOnAChange) {
    CheckboxRadioSet* set = addSet(1);
    IdStamp stamp = set->getIdStamp();
    Glob* doomed = row(set, 1);
    set->removeWidget(doomed, true);
    EXPECT_EQ(set->getCheckboxes().size(), 3u);
    EXPECT_EQ(set->getSelectedItem(), -1);
    clickRow(set, 2);
    wheelOver(set, 0, 1);
    EXPECT_EQ(set->getSelectedItem(), 1);
    EXPECT_EQ(window->messages.size(), 2u);

    window->onMessage = [](std::string const&, Glob* sender) {
        GlobManager::instance().requestDeletion(sender);
    };
    clickRow(set, 0);
    driver.processEvents();
    EXPECT_FALSE(EventHandler::valid(set, stamp));
}

// The older manager

TEST_F(RadioSets, TheManagerTicksTheClickedBoxClearsTheOthersAndSendsThePrefixAlone) {
    CheckboxRadioSetManager manager;
    std::vector<RadioSetCheckbox*> boxes;
    for (int i = 0; i < 3; ++i) {
        Checkbox::InitArgs args(UIString(L"Choice"), false, 120,
                                (unsigned short)UifStd::getRowHeight());
        boxes.push_back(
            window->createWidget<RadioSetCheckbox>(args, Glob::BottomLeft(20, 20 + 40 * i)));
        manager.add(boxes.back());
    }
    EXPECT_EQ(manager.getSelected(), 0);
    driver.click(boxes[2], XY<int>(60, 10));
    EXPECT_EQ(manager.getSelected(), 2);
    driver.click(boxes[1], XY<int>(60, 10));
    EXPECT_EQ(manager.getSelected(), 1);
    EXPECT_FALSE(boxes[2]->getState());
    EXPECT_EQ(window->messages, (std::vector<std::string>{"Checkbox ", "Checkbox "}));
    EXPECT_EQ(window->senders, (std::vector<Glob*>{boxes[2], boxes[1]}));

    Glob* doomed = boxes[1];
    window->removeWidget(doomed, true);
    EXPECT_EQ(manager.getSelected(), 0);
    driver.click(boxes[0], XY<int>(60, 10));
    EXPECT_EQ(manager.getSelected(), 0);
    EXPECT_TRUE(boxes[0]->getState());
}

// Against a plain model

TEST_F(RadioSets, ClicksWheelTurnsAndSettingsFollowAPlainModel) {
    unsigned const seed = std::random_device{}();
    std::cout << "seed " << seed << "\n";
    SCOPED_TRACE(seed);
    std::mt19937 rng(seed);
    int const rows = 5;
    CheckboxRadioSet* set = addSet(-1, rows);
    int shadow = -1;
    ASSERT_EQ(set->getSelectedItem(), shadow);
    std::size_t messages = 0;
    auto pick = [&](int lo, int hi) { return std::uniform_int_distribution<int>(lo, hi)(rng); };
    for (int step = 0; step < 300; ++step) {
        int const target = pick(0, rows - 1);
        switch (pick(0, 3)) {
        case 0:
        case 1:
            // A click, or a quiet choice that still tells the parent of a change.
            if (pick(0, 1) == 0)
                clickRow(set, target);
            else
                set->setSelectedItem((unsigned short)target);
            if (target != shadow) {
                shadow = target;
                ++messages;
            }
            break;
        case 2: {
            int const steps = pick(0, 1) == 0 ? 1 : -1;
            wheelOver(set, target, steps);
            int next = shadow < 0 ? target : shadow - steps;
            if (next >= 0 && next < rows) {
                shadow = next;
                ++messages;
            }
            break;
        }
        default: {
            int const index = pick(-1, rows);
            set->setSelectedItem(index);
            shadow = index < rows ? index : -1;
            break;
        }
        }
        ASSERT_EQ(set->getSelectedItem(), shadow) << "step " << step;
        ASSERT_EQ(window->messages.size(), messages) << "step " << step;
        for (int i = 0; i < rows; ++i) {
            ASSERT_EQ(row(set, i)->getState(), i == shadow) << "step " << step;
            ASSERT_EQ(row(set, i)->getClicksEnabled(), i != shadow) << "step " << step;
        }
    }
}
