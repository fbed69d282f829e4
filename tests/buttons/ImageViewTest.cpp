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

} // namespace

TEST(ImageView, TheImageIsCentredInInterfacePixelsAndSetImageReplacesOrRemovesIt) {
    UiTestDriver driver;
    Glob::setupRootPos({100, 100});
    ImageView::InitArgs args(redImage(20, 10, 1.0), 100, 60);
    args.border = Border(0);
    auto* view = new ImageView(args);
    GlobManager::instance().realize(view);
    driver.processEvents();
    EXPECT_TRUE(isRed(driver.pixel(view, {50, 30})));
    EXPECT_TRUE(isRed(driver.pixel(view, {41, 26})));
    EXPECT_FALSE(isRed(driver.pixel(view, {38, 30})));
    EXPECT_FALSE(isRed(driver.pixel(view, {50, 37})));

    // A double-scale image of 80 by 40 pixels takes 40 by 20 interface pixels.
    view->setImage(redImage(80, 40, 2.0));
    driver.processEvents();
    EXPECT_TRUE(isRed(driver.pixel(view, {68, 30})));
    EXPECT_FALSE(isRed(driver.pixel(view, {72, 30})));

    view->setImage({});
    driver.processEvents();
    EXPECT_FALSE(isRed(driver.pixel(view, {50, 30})));
}
