#include "panels/TitleGlob.h"

#include "GroupFixture.h"

namespace {

using TitledProbe = TitledGlob<RecordingGlob>;

struct Titled : GroupFixture {
    TitledProbe* make(int titleWidth = 0) {
        TitledProbe::InitArgs args(LightweightString<wchar_t>(L"Name"), GlobCreationInfo(0, 20),
                                   240, 28);
        args.titleWidth = titleWidth;
        return add<TitledProbe>(args, {20, 20});
    }
};

} // namespace

TEST_F(Titled, TheControlTakesWhatTheTitleColumnLeavesAndFollowsResizesAndRetitles) {
    TitledProbe* titled = make(80);
    RecordingGlob* control = titled->getWidget();
    ASSERT_NE(control, nullptr);
    EXPECT_EQ(control->width(), 240 - 80);
    EXPECT_EQ(control->getParentRelativePosition(), XY<int>(80, (28 - 20) / 2));
    titled->resize(300, 28);
    EXPECT_EQ(control->width(), 300 - 80);
    titled->setTitleWidth(0);
    EXPECT_GT(titled->calcTitleAreaWidth(), 2 * UifStd::getWidgetGap());
    int narrow = titled->calcTitleAreaWidth();
    EXPECT_EQ(control->width(), 300 - narrow);
    titled->setTitle(LightweightString<wchar_t>(L"A much longer name"));
    EXPECT_GT(titled->calcTitleAreaWidth(), narrow);
    EXPECT_EQ(control->width(), 300 - titled->calcTitleAreaWidth());
}

TEST_F(Titled, ActivityPaletteAndFocusReachTheControl) {
    TitledProbe* titled = make();
    RecordingGlob* control = titled->getWidget();
    titled->setActive(false, Redraw);
    EXPECT_FALSE(control->isActive());
    Palette p(Colour(0.3, 0.3, 0.5));
    titled->setPalette(p);
    EXPECT_EQ(control->getPalette(), p);
    titled->claimKbdFocus();
    EXPECT_EQ(get_kbd_focus(), control);
}

TEST_F(Titled, EventsFromTheControlCountAsTheTitledWidgets) {
    TitledProbe* titled = make();
    RecordingGlob* stranger = addProbe(window, Glob::BottomLeft(400, 20), {20, 20});
    Event fromControl;
    fromControl.senderCanvas = titled->getWidget()->canvas();
    Event fromStranger;
    fromStranger.senderCanvas = stranger->canvas();
    EXPECT_TRUE(titled->isEventSource(fromControl));
    EXPECT_FALSE(titled->isEventSource(fromStranger));
    EXPECT_FALSE(titled->isEventSource(Event()));
}

TEST_F(Titled, TheLabelIsDrawnInItsColourOnTheLeft) {
    TitledProbe* titled = make(80);
    Colour red(0.9, 0.0, 0.0);
    titled->setLabelColour(red);
    titled->setTitleAlignment(TextAlignLeft);
    driver.processEvents();
    bool found = false;
    for (int x = 0; x < 80 && !found; ++x)
        for (int y = 0; y < 28 && !found; ++y)
            found = nearColour(driver.pixel(titled, {x, y}), red);
    EXPECT_TRUE(found);
}
