#include "buttons/ImageView.h"

#include "glib/HostImage.h"
#include "glob/GlobManager.h"
#include "testing/UiTestDriver.h"

#include <gtest/gtest.h>

namespace {

bool isRed(NormalisedRGB const& p) {
    return p.r > 0.9f && p.g < 0.1f && p.b < 0.1f;
}

Qor::Ptr<iHostImage> redImage(int w, int h, double scale) {
    auto image = Qor::makePtr<HostImage>(w, h, scale);
    image->fill(Box(0, 0, w, h), NormalisedRGB(1, 0, 0));
    return image;
}

struct ImageViews : ::testing::Test {
    UiTestDriver driver;

    ImageView* makeView(Qor::Ptr<iHostImage> const& image) {
        Glob::setupRootPos({100, 100});
        ImageView::InitArgs args(image, 100, 60);
        args.border = Border(0);
        auto* view = new ImageView(args);
        GlobManager::instance().realize(view);
        driver.processEvents();
        return view;
    }
};

} // namespace

TEST_F(ImageViews, TheImageIsCentredOnTheBackground) {
    ImageView* view = makeView(redImage(20, 10, 1.0));
    EXPECT_TRUE(isRed(driver.pixel(view, {50, 30})));
    EXPECT_TRUE(isRed(driver.pixel(view, {41, 26})));
    EXPECT_FALSE(isRed(driver.pixel(view, {38, 30})));
    EXPECT_FALSE(isRed(driver.pixel(view, {50, 37})));
}

TEST_F(ImageViews, ADoubleScaleImageTakesItsSizeInInterfacePixels) {
    ImageView* view = makeView(redImage(40, 20, 2.0));
    EXPECT_TRUE(isRed(driver.pixel(view, {58, 30})));
    EXPECT_FALSE(isRed(driver.pixel(view, {62, 30})));
}

TEST_F(ImageViews, SetImageReplacesOrRemovesWhatIsShown) {
    ImageView* view = makeView({});
    EXPECT_FALSE(isRed(driver.pixel(view, {50, 30})));
    view->setImage(redImage(20, 10, 1.0));
    driver.processEvents();
    EXPECT_TRUE(isRed(driver.pixel(view, {50, 30})));
    view->setImage({});
    driver.processEvents();
    EXPECT_FALSE(isRed(driver.pixel(view, {50, 30})));
}
