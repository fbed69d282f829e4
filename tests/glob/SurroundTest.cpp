#include "glob/Surround.h"
#include "display/HeadlessDisplay.h"
#include "glib/WindowSurface.h"
#include "testing/UiTestDriver.h"

#include "glob/RecordingGlob.h"

#include <gtest/gtest.h>

namespace {

struct Framed : ::testing::Test {
    UiTestDriver driver;
    RecordingGlob* panel = makeWindow({300, 200}, {200, 100});

    Surround* frame() { return panel->getSurround(); }
    Box rootBox(Glob* g) {
        return Box(g->getX(), g->getY(), g->getX() + g->width(), g->getY() + g->height());
    }
};

} // namespace

TEST_F(Framed, TheFrameLiesUnderThePanelOnTheChosenSidesAndFadesOutward) {
    panel->addSurround(Colour(0, 0, 0), 8, 0.5f, 2 | 8);
    ASSERT_NE(frame(), nullptr);
    EXPECT_EQ(rootBox(frame()), Box(300, 192, 508, 300));
    EXPECT_EQ(driver.topLevels(), (std::vector<Glob*>{panel, frame()}));
    // Clicks on the panel reach the panel; the frame's middle is cut away.
    EXPECT_EQ(driver.widgetAt({400, 250}), panel);
    EXPECT_EQ(driver.widgetAt({400, 195}), frame());
    float nearEdge = driver.pixel(frame(), {100, 7}).a;
    float farEdge = driver.pixel(frame(), {100, 0}).a;
    EXPECT_GT(nearEdge, 0.3f);
    EXPECT_LT(farEdge, nearEdge);
    // No frame above or at the left.
    EXPECT_EQ(driver.widgetAt({400, 303}), nullptr);
    EXPECT_EQ(driver.widgetAt({297, 250}), nullptr);
}

TEST_F(Framed, TheFrameFollowsThePanelAsItMovesResizesHidesAndDies) {
    panel->addShadow();
    Surround* shadow = frame();
    int size = int(shadow->params().size);
    panel->reshapeAndDraw({50, 60});
    EXPECT_EQ(shadow->getX(), 50 - size);
    EXPECT_EQ(shadow->getY(), 60 - size);
    panel->resize(300, 150);
    EXPECT_EQ(shadow->width(), 300 + 2 * size);
    EXPECT_EQ(shadow->height(), 150 + 2 * size);
    panel->setVisible(false);
    EXPECT_FALSE(shadow->canvas()->mapped);
    panel->setVisible(true);
    EXPECT_TRUE(shadow->canvas()->mapped);
    delete panel;
    EXPECT_FALSE(is_good_glob_ptr(shadow));
}

TEST_F(Framed, OnlyTopLevelWidgetsTakeAFrameAndRemovingItDeletesIt) {
    RecordingGlob* child = makeChild(panel, {10, 10}, {50, 20});
    child->addShadow();
    EXPECT_FALSE(child->hasSurround());
    panel->addShadow();
    Surround* first = frame();
    panel->addSurround(Colour(1, 0, 0), 4, 0.35f, 15);
    EXPECT_FALSE(is_good_glob_ptr(first));
    panel->removeSurround();
    EXPECT_FALSE(panel->hasSurround());
    EXPECT_EQ(driver.topLevels(), (std::vector<Glob*>{panel}));
}
