#include "buttons/BoolRadioSet.h"

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

TEST_F(BoolSets, TheTrueBoxFollowsTheServerAndAClickOnTheOtherAsksForFalseOnce) {
    for (bool inverted : {false, true}) {
        SCOPED_TRACE(inverted);
        server = true;
        adaptor->types.clear();
        Checkbox* first = addBox(inverted ? 120 : 20);
        Checkbox* second = addBox(inverted ? 160 : 60);
        Checkbox* yes = inverted ? second : first;
        Checkbox* no = inverted ? first : second;
        BoolRadioSet set;
        set.setDataAdaptor(adaptor);
        set.setWidgets(first, second, inverted);
        EXPECT_TRUE(yes->getState());
        EXPECT_FALSE(no->getState());

        click(no);
        click(no);
        EXPECT_FALSE(server.getValue());
        EXPECT_EQ(adaptor->types, (std::vector<DataChangeType>{NewText}));
        EXPECT_FALSE(yes->getState());
        EXPECT_TRUE(no->getState());
        server = true;
        EXPECT_TRUE(yes->getState());
        EXPECT_FALSE(no->getState());
        EXPECT_TRUE(set.getWidgetValue());
    }
    EXPECT_TRUE(window->messages.empty());
}

TEST_F(BoolSets, WithoutAnAdaptorTheSetKeepsTheValueItself) {
    Checkbox* on = addBox(20);
    Checkbox* off = addBox(60);
    BoolRadioSet set;
    set.setWidgets(on, off, false);
    EXPECT_FALSE(set.getWidgetValue());
    click(on);
    EXPECT_TRUE(set.getWidgetValue());
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

    set.setWidgets(addBox(100), addBox(140), false);
    click(off);
    EXPECT_TRUE(server.getValue());
    EXPECT_EQ(window->messages, (std::vector<std::string>{"Checkbox TICKED"}));
}

TEST_F(BoolSets, SetCurrentTogglesCheckboxesRatherThanSettingThem) {
    Checkbox* a = addBox(20);
    Checkbox* b = addBox(60, true);
    RadioSetBase<Checkbox> set;
    set.addItem(a);
    set.addItem(b);
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
