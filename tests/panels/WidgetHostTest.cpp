#include "panels/WidgetHost.h"

#include "GroupFixture.h"

namespace {

using Hosts = GroupFixture;

bool anyPixel(UiTestDriver& driver, Glob* g, Box const& box, Colour const& colour) {
    for (int x = box.x1; x < box.x2; ++x)
        for (int y = box.y1; y < box.y2; ++y)
            if (nearColour(driver.pixel(g, {x, y}), colour))
                return true;
    return false;
}

} // namespace

TEST_F(Hosts, TheCaptionShowsOnlyWhileNothingIsHosted) {
    auto* bg = add<WidgetBg>(WidgetBg::InitArgs(UIString(L"Drop columns here"), 300, 60), {20, 20});
    driver.processEvents();
    Colour faint = bg->getPalette().text(TextFaint);
    Box middle(100, 20, 200, 40);
    EXPECT_EQ(bg->hostedWidgetCount(), 0);
    EXPECT_TRUE(anyPixel(driver, bg, middle, faint));

    RecordingGlob* hosted = addProbe(bg, Glob::BottomLeft(0, 0), {10, 10});
    driver.processEvents();
    EXPECT_EQ(bg->hostedWidgetCount(), 1);
    EXPECT_FALSE(anyPixel(driver, bg, middle, faint));

    Glob* gone = hosted;
    bg->removeWidget(gone, true);
    driver.processEvents();
    EXPECT_EQ(bg->hostedWidgetCount(), 0);
    EXPECT_TRUE(anyPixel(driver, bg, middle, faint));
}
