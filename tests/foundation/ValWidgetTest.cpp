#include "foundation/ValWidget.h"
#include "testing/UiTestDriver.h"

#include "foundation/ValueGlob.h"
#include "glob/RecordingGlob.h"

#include <gtest/gtest.h>

namespace {

struct BoundWidgets : ::testing::Test {
    UiTestDriver driver;
    ValServer<double> server{0.25};
    RecordingGlob* window = makeWindow({100, 100}, {300, 200});
    ValueGlob* left = makeValueGlob(window, {10, 10});
    ValueGlob* right = makeValueGlob(window, {100, 10});
    Qor::Ptr<ServerAdaptor> adaptor = Qor::makePtr<ServerAdaptor>(&server);

    void SetUp() override {
        left->setDataAdaptor(adaptor);
        right->setDataAdaptor(adaptor);
        driver.processEvents();
        left->draws = right->draws = 0;
        left->redraws.clear();
        right->redraws.clear();
    }
};

} // namespace

TEST_F(BoundWidgets, AttachingShowsTheSourcesValueInEveryWidgetWithoutARedraw) {
    ValueGlob* third = makeValueGlob(window, {200, 10});
    third->setDataAdaptor(adaptor);
    EXPECT_EQ(third->shown, 0.25);
    EXPECT_EQ(third->redraws, (std::vector<eRedrawFlag>{NoRedraw}));
    EXPECT_EQ(left->redraws, (std::vector<eRedrawFlag>{NoRedraw}));
    EXPECT_EQ(third->getDataValue(), 0.25);
}

TEST_F(BoundWidgets, ARequestChangesTheDataAndEveryWidgetShowsItAndRepaintsOnce) {
    EXPECT_EQ(left->requestSetNewDataValue(0.75, DragEnd), 1);
    EXPECT_EQ(server.getValue(), 0.75);
    EXPECT_EQ(adaptor->types, (std::vector<DataChangeType>{DragEnd}));
    EXPECT_EQ(left->shown, 0.75);
    EXPECT_EQ(right->shown, 0.75);
    EXPECT_EQ(right->redraws.back(), Redraw);
    EXPECT_FALSE(Drawable::redrawsDisabled());
    EXPECT_EQ(left->draws, 1);
    EXPECT_EQ(right->draws, 1);
}

TEST_F(BoundWidgets, RedrawsAreHeldBackWhileTheAdaptorWorks) {
    bool heldBack = false;
    right->onShow = [&] { heldBack = Drawable::redrawsDisabled(); };
    left->requestSetNewDataValue(0.5, SetByProgram);
    EXPECT_TRUE(heldBack);
}

TEST_F(BoundWidgets, TheWidgetShowsOnlyWhatTheAdaptorTellsIt) {
    adaptor->registerWith(nullptr);
    adaptor->answer = 0;
    EXPECT_EQ(left->requestSetNewDataValue(0.9, NewText), 0);
    EXPECT_EQ(left->shown, 0.25);
    adaptor->forceWidgetUpdate(NoRedraw);
    EXPECT_EQ(left->shown, 0.0);
    EXPECT_EQ(left->draws, 0);
}

TEST_F(BoundWidgets, AChangeAtTheServerReachesEachWidgetOnce) {
    server = 0.125;
    EXPECT_EQ(left->redraws, (std::vector<eRedrawFlag>{Redraw}));
    EXPECT_EQ(right->redraws, (std::vector<eRedrawFlag>{Redraw}));
    EXPECT_EQ(right->shown, 0.125);
}

TEST_F(BoundWidgets, AWidgetDeletedByAnotherWidgetsCallbackIsPassedOver) {
    ValueGlob* first = std::min(left, right);
    ValueGlob* second = std::max(left, right);
    first->onShow = [&] { delete second; };
    server = 0.5;
    EXPECT_EQ(first->shown, 0.5);
    EXPECT_EQ(adaptor->attachedWidgets().size(), 1u);
}

TEST_F(BoundWidgets, AWidgetMayDeleteItselfWhenTold) {
    ValueGlob* first = std::min(left, right);
    ValueGlob* second = std::max(left, right);
    first->onShow = [&] { delete first; };
    server = 0.5;
    EXPECT_EQ(second->shown, 0.5);
    server = 0.625;
    EXPECT_EQ(second->shown, 0.625);
}

TEST_F(BoundWidgets, TheAdaptorOutlivesItsLastWidgetDeletedDuringTheWalk) {
    adaptor = Qor::Ptr<ServerAdaptor>();
    left->onShow = [&] { delete left; };
    right->onShow = [&] { delete right; };
    server = 0.5;
    server = 0.75;
    EXPECT_EQ(server.registrationCount(), 0u);
}

TEST_F(BoundWidgets, EnabledStateGoesToEveryWidgetAndOnlyTheFirstIsRead) {
    adaptor->setWidgetEnabledState(false);
    EXPECT_FALSE(left->getEnabledState());
    EXPECT_FALSE(right->getEnabledState());
    ValueGlob* second = std::max(left, right);
    second->setEnabledState(true);
    EXPECT_FALSE(adaptor->getWidgetEnabledState());
    std::min(left, right)->setEnabledState(true);
    EXPECT_TRUE(adaptor->getWidgetEnabledState());
}

TEST(ValAdaptor, WithNoWidgetsTheEnabledStateIsFalse) {
    ValServer<double> server(0.0);
    auto adaptor = Qor::makePtr<ServerAdaptor>(&server);
    EXPECT_FALSE(adaptor->getWidgetEnabledState());
}

TEST_F(BoundWidgets, MessagesForTheParentGoToTheAdaptor) {
    left->handleMsgForParent("picked");
    ASSERT_EQ(adaptor->messages.size(), 1u);
    EXPECT_EQ(adaptor->messages[0], LightweightString<char>("picked"));
}

TEST_F(BoundWidgets, AMutedAdaptorLeavesTheWidgetsAlone) {
    adaptor->disable();
    server = 0.5;
    EXPECT_EQ(left->shown, 0.25);
    adaptor->enable();
    server = 0.625;
    EXPECT_EQ(left->shown, 0.625);
}

TEST_F(BoundWidgets, AServerDyingFirstLeavesTheAdaptorUnbound) {
    auto transient = std::make_unique<ValServer<double>>(3.0);
    adaptor->registerWith(transient.get());
    transient.reset();
    EXPECT_EQ(adaptor->getValServer(), nullptr);
    EXPECT_EQ(left->getDataValue(), 0.0);
}

TEST(ValWidget, WithoutAnAdaptorARequestAnswersOneAndTouchesNothing) {
    UiTestDriver driver;
    RecordingGlob* window = makeWindow({0, 0}, {100, 100});
    ValueGlob* widget = makeValueGlob(window, {0, 0});
    EXPECT_EQ(widget->requestSetNewDataValue(2.0, DragStart), 1);
    EXPECT_EQ(widget->shown, -1.0);
    EXPECT_EQ(widget->getDataValue(), 0.0);
    EXPECT_FALSE(Drawable::redrawsDisabled());
}
