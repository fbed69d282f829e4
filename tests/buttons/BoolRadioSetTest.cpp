#include "buttons/BoolRadioSet.h"

#include "../support/DiagnosticCapture.h"
#include "RecordingPanel.h"
#include "glob/UifStd.h"
#include "testing/UiTestDriver.h"

#include <gtest/gtest.h>

namespace {

struct BoolSets : ::testing::Test {
    UiTestDriver driver;
    RecordingPanel* window = makeRecordingWindow();
    ValServer<bool> server{true};
    Qor::Ptr<ServerAdaptor<bool>> adaptor = Qor::makePtr<ServerAdaptor<bool>>(&server);

    Checkbox* addBox(int y, bool state = false) {
        Checkbox::InitArgs args(UIString(L"Choice"), state, 120,
                                (unsigned short)UifStd::getRowHeight());
        return window->createWidget<Checkbox>(args, Glob::BottomLeft(20, y));
    }
    void click(Checkbox* box) { driver.click(box, XY<int>(60, box->height() / 2)); }
};

} // namespace

TEST_F(BoolSets, TheFirstBoxShowsTrueAndAClickOnTheOtherAsksForFalse) {
    Checkbox* on = addBox(20);
    Checkbox* off = addBox(60);
    BoolRadioSet set;
    set.setDataAdaptor(adaptor);
    set.setWidgets(on, off, false);
    EXPECT_TRUE(on->getState());
    EXPECT_FALSE(off->getState());

    click(off);
    EXPECT_FALSE(server.getValue());
    EXPECT_EQ(adaptor->types, (std::vector<DataChangeType>{NewText}));
    EXPECT_FALSE(on->getState());
    EXPECT_TRUE(off->getState());
    EXPECT_TRUE(window->messages.empty());

    click(off);
    EXPECT_EQ(adaptor->types.size(), 1u);
    EXPECT_TRUE(off->getState());
}

TEST_F(BoolSets, InvertedTheFirstBoxMeansFalseAndServerChangesMoveTheTicks) {
    Checkbox* first = addBox(20);
    Checkbox* second = addBox(60);
    BoolRadioSet set;
    set.setDataAdaptor(adaptor);
    set.setWidgets(first, second, true);
    EXPECT_TRUE(second->getState());
    EXPECT_TRUE(set.getWidgetValue());
    server = false;
    EXPECT_TRUE(first->getState());
    EXPECT_FALSE(second->getState());
    EXPECT_FALSE(set.getWidgetValue());
}

TEST_F(BoolSets, WithoutAnAdaptorTheSetKeepsTheValueItself) {
    Checkbox* on = addBox(20);
    Checkbox* off = addBox(60);
    BoolRadioSet set;
    set.setWidgets(on, off, false);
    EXPECT_FALSE(set.getWidgetValue());
    click(on);
    EXPECT_TRUE(set.getWidgetValue());
    EXPECT_TRUE(on->getState());
    EXPECT_FALSE(off->getState());
}

TEST_F(BoolSets, ABoxThatDiesIsPassedOverAndNewWidgetsReleaseTheOldOnes) {
    Checkbox* on = addBox(20);
    Checkbox* off = addBox(60);
    BoolRadioSet set;
    set.setDataAdaptor(adaptor);
    set.setWidgets(on, off, false);
    Glob* doomed = on;
    window->removeWidget(doomed, true);
    server = false;
    EXPECT_TRUE(off->getState());
    server = true;
    EXPECT_FALSE(off->getState());

    Checkbox* yes = addBox(100);
    Checkbox* no = addBox(140);
    set.setWidgets(yes, no, false);
    click(off);
    EXPECT_TRUE(server.getValue());
    EXPECT_EQ(window->messages, (std::vector<std::string>{"Checkbox TICKED"}));
}

TEST_F(BoolSets, SetCurrentTogglesCheckboxesRatherThanSettingThem) {
    Checkbox* a = addBox(20);
    Checkbox* b = addBox(60, true);
    RadioSetBase<Checkbox> set;
    EXPECT_EQ(set.addItem(a), 0);
    EXPECT_EQ(set.addItem(b), 1);
    set.set_current(1, false);
    EXPECT_FALSE(b->getState());
    set.set_current(0, false);
    EXPECT_TRUE(a->getState());
    EXPECT_TRUE(b->getState());
    set.set_current(0, false);
    set.set_current(2, false);
    EXPECT_EQ(set.getCurrent(), 0);
    EXPECT_TRUE(a->getState());
    set.set_current(-1, false);
    EXPECT_FALSE(a->getState());
    EXPECT_EQ(set.getCurrent(), -1);
}

TEST_F(BoolSets, ASetOverItsLimitReportsEachExtraEntryOnceAndRefusesIt) {
    DiagnosticCapture capture;
    Checkbox* box = addBox(20);
    auto set = std::make_unique<RadioSetBase<Checkbox>>();
    for (int i = 0; i < RadioSetBase<Checkbox>::maxEntries; ++i)
        ASSERT_EQ(set->addItem(box), i);
    EXPECT_EQ(capture.lines().size(), 0u);
    EXPECT_EQ(set->addItem(box), -1);
    EXPECT_EQ(set->addItem(box), -1);
    EXPECT_EQ(capture.count("RadioSetBase:: attempt to exceed max no of radio buttons"), 2u);
    EXPECT_EQ(set->getCount(), RadioSetBase<Checkbox>::maxEntries);
}
