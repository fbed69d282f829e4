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
}

TEST_F(BoundWidgets, ARequestChangesTheDataAndEveryWidgetShowsItAndRepaintsOnce) {
    bool heldBack = false;
    right->onShow = [&] { heldBack = Drawable::redrawsDisabled(); };
    EXPECT_EQ(left->requestSetNewDataValue(0.75, DragEnd), 1);
    EXPECT_EQ(server.getValue(), 0.75);
    EXPECT_EQ(adaptor->types, (std::vector<DataChangeType>{DragEnd}));
    EXPECT_EQ(left->shown, 0.75);
    EXPECT_EQ(right->redraws, (std::vector<eRedrawFlag>{Redraw}));
    // Redraws are held back while the adaptor works, then let go.
    EXPECT_TRUE(heldBack);
    EXPECT_FALSE(Drawable::redrawsDisabled());
    EXPECT_EQ(left->draws, 1);
    EXPECT_EQ(right->draws, 1);
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

TEST_F(BoundWidgets, AWidgetDeletedByAnotherWidgetsCallbackIsPassedOver) {
    ValueGlob* first = std::min(left, right);
    ValueGlob* second = std::max(left, right);
    first->onShow = [&] { delete second; };
    server = 0.5;
    EXPECT_EQ(first->shown, 0.5);
    EXPECT_EQ(adaptor->attachedWidgets().size(), 1u);
}

TEST_F(BoundWidgets, TheAdaptorOutlivesItsLastWidgetsDeletingThemselvesDuringTheWalk) {
    adaptor = Qor::Ptr<ServerAdaptor>();
    left->onShow = [&] { delete left; };
    right->onShow = [&] { delete right; };
    server = 0.5;
    server = 0.75;
    EXPECT_EQ(server.registrationCount(), 0u);
}

TEST_F(BoundWidgets, EnabledStateGoesToEveryWidgetAndOnlyTheFirstIsRead) {
    adaptor->setWidgetEnabledState(false);
    EXPECT_FALSE(right->getEnabledState());
    std::max(left, right)->setEnabledState(true);
    EXPECT_FALSE(adaptor->getWidgetEnabledState());
    std::min(left, right)->setEnabledState(true);
    EXPECT_TRUE(adaptor->getWidgetEnabledState());
    EXPECT_FALSE(Qor::makePtr<ServerAdaptor>(&server)->getWidgetEnabledState());
}

TEST(ValWidget, WithoutAnAdaptorARequestAnswersOneAndTouchesNothing) {
    UiTestDriver driver;
    ValueGlob* widget = makeValueGlob(makeWindow({0, 0}, {100, 100}), {0, 0});
    EXPECT_EQ(widget->requestSetNewDataValue(2.0, DragStart), 1);
    EXPECT_EQ(widget->shown, -1.0);
    EXPECT_EQ(widget->getDataValue(), 0.0);
}
