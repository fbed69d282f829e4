#include "buttons/GenIcon.h"

#include "../glob/RecordingGlob.h"
#include "IconFolder.h"
#include "misc/Config.h"
#include "testing/UiTestDriver.h"

#include <gtest/gtest.h>

namespace {

class Toolbox : public RecordingGlob {
public:
    using RecordingGlob::RecordingGlob;
    char const* idstring() const override { return "toolbox"; }
};

struct GenIcons : ::testing::Test {
    UiTestDriver driver;
    IconFolder icons;
    RecordingGlob* window = makeWindow({100, 100}, {300, 200});

    GenIcons() { icons.write("tool.png", 16, NormalisedRGB(1, 0, 0), true); }

    GenIcon* makeIcon(Glob* parent, XY<int> at, unsigned short size = 0) {
        GenIcon::InitArgs args(IconSet(L"tool.png"), size);
        args.canvas = parent->canvas();
        auto* icon = new GenIcon(args);
        parent->addChild(icon, Glob::BottomLeft(at));
        icon->update();
        return icon;
    }
};

} // namespace

TEST_F(GenIcons, TakesTheImagesSizeAndItsOpaquePixelsAsRegionAndReInitShowsTheNewSet) {
    GenIcon* icon = makeIcon(window, {10, 10});
    EXPECT_EQ(icon->width(), 16);
    EXPECT_EQ(icon->height(), 16);
    Qor::Ptr<iRegion> region = icon->getRegionForImage();
    ASSERT_TRUE(region);
    EXPECT_TRUE(region->contains({3, 8}));
    EXPECT_FALSE(region->contains({12, 8}));

    icons.write("wide.png", 24, NormalisedRGB(0, 0, 1));
    icon->reInit(IconSet(L"wide.png", L"tool.png"));
    EXPECT_EQ(icon->width(), 24);
    EXPECT_TRUE(icon->getRegionForImage()->contains({12, 8}));
}

TEST_F(GenIcons, SizeIsDumpedAndLoadedBackAsSIZE) {
    GenIcon* icon = makeIcon(window, {10, 10}, 8);
    EXPECT_EQ(icon->getImage()->height(), 8);
    configb config;
    icon->dump(config);
    int size = 0;
    ASSERT_TRUE(config.in("SIZE", size));
    EXPECT_EQ(size, 8);

    configb changed;
    changed.set("SIZE", 12);
    icon->load(changed);
    EXPECT_EQ(icon->getIconSize(), 12);
    EXPECT_EQ(icon->getImage()->height(), 12);

    configb bad;
    bad.set("SIZE", LightweightString<char>("big"));
    icon->load(bad);
    EXPECT_EQ(icon->getIconSize(), 12);
}

TEST_F(GenIcons, ADropInsideAToolboxAsksItToRepopulateAndSuchIconsAreNotMagnetic) {
    auto* tray = new Toolbox(GlobCreationInfo(200, 100));
    tray->update();
    window->addChild(tray, Glob::BottomLeft({0, 0}));
    GenIcon* inTray = makeIcon(tray, {10, 10});
    GenIcon* free = makeIcon(window, {250, 150});

    EXPECT_TRUE(inTray->containedInsideToolbox());
    EXPECT_FALSE(inTray->isMagnetic());
    EXPECT_TRUE(free->isMagnetic());

    free->drop(Glob::DropMove);
    inTray->drop(Glob::DropMove);
    driver.processEvents();
    EXPECT_EQ(tray->messages(), (std::vector<std::string>{GenIcon::toolboxRepopulateMsg}));
}

TEST_F(GenIcons, ACancelledDropPutsTheIconBackWhereItWasPicked) {
    GenIcon* icon = makeIcon(window, {10, 20});
    icon->pick();
    icon->reshapeAndDraw({80, 90});
    EXPECT_EQ(icon->getParentRelativePosition(), XY<int>(80, 90));
    icon->drop(Glob::DropCancel);
    EXPECT_EQ(icon->getParentRelativePosition(), XY<int>(10, 20));
}
