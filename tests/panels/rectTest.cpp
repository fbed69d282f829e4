#include "panels/rect.h"
#include "glib/PathCalls.h"
#include "testing/UiTestDriver.h"

#include "display/HeadlessDisplay.h"
#include "glob/GlobManager.h"

#include <gtest/gtest.h>

namespace {
struct Rects : ::testing::Test {
    UiTestDriver driver;
    rect* window = nullptr;
    void SetUp() override {
        Glob::setupRootPos({100, 100});
        window = new rect(rect::InitArgs(300, 200));
        GlobManager::instance().realize(window);
    }
};
} // namespace

TEST_F(Rects, AVisibleRectMadeBeforeItsWindowIsShownWhenRealized) {
    EXPECT_TRUE(window->isVisible());
    EXPECT_TRUE(driver.display().windowOf(window->canvas())->mapped);
    EXPECT_EQ(driver.topLevels(), (std::vector<Glob*>{window}));
}

TEST_F(Rects, OnlyThePanelRadiusRoundsTheCornersAndResizeKeepsTwiceTheRadius) {
    window->set_radius(4.0);
    EXPECT_EQ(window->getCornerMask(), 15u);
    window->set_radius(10);
    EXPECT_EQ(window->getCornerMask(), 0u);
    window->clearShapeChanged();
    window->resize(5, 50);
    EXPECT_EQ(window->width(), 20);
    EXPECT_EQ(window->height(), 50);
    EXPECT_TRUE(window->shapeChanged());
    window->clearShapeChanged();
    window->resize(20, 50);
    EXPECT_FALSE(window->shapeChanged());
}

TEST_F(Rects, TheFacePathIsTheRoundedOutline) {
    window->set_radius(8);
    window->facepath();
    Qor::Ptr<iRegion> outline = glib_pathToRegion();
    ASSERT_TRUE(outline);
    EXPECT_EQ(outline->bounds(), Box(0, 0, 300, 200));
    EXPECT_FALSE(outline->contains({0, 0}));
    EXPECT_FALSE(outline->contains({299, 199}));
    EXPECT_TRUE(outline->contains({8, 0}));
    EXPECT_TRUE(outline->contains({150, 100}));
}
