#include "panels/WidgetGroup2.h"
#include "panels/WidgetGroup3.h"
#include "panels/WidgetGroupEx.h"

#include "GroupFixture.h"

namespace {

struct Groups : GroupFixture {
    WidgetGroupEx* makeGroup(XY<int> size = {240, 120}, bool autoResize = true) {
        WidgetGroupEx::InitArgs args(UIString(L"Options"), (unsigned short)size.x,
                                     (unsigned short)size.y);
        args.autoResize = autoResize;
        return add<WidgetGroupEx>(args, {20, 20});
    }
    static int border(WidgetGroupEx* g) { return g->getBorder().getSize(); }
};

} // namespace

// Layout

TEST_F(Groups, ControlsStartBelowTheTitleRowAndAreIndentedByTheChildOffset) {
    WidgetGroupEx* group = makeGroup();
    int row = UifStd::getRowHeight();
    EXPECT_EQ(group->getOriginXY(OriginUserTopLeft),
              XY<int>(border(group), group->height() - row - border(group)));
    group->setChildrenOffset(WidgetGroupEx::childXOffset());
    RecordingGlob* probe = addProbe(group, Glob::UserTopLeft(0, 0), {40, 10});
    EXPECT_EQ(probe->getParentRelativePosition(),
              XY<int>(border(group) + 3 * UifStd::getWidgetGap(),
                      group->height() - row - border(group) - 10));
}

TEST_F(Groups, HeightForRowsLeavesTheBottomGapOutOnlyForTheOpenStyle) {
    int row = UifStd::getRowHeight(), gap = UifStd::getWidgetGap();
    EXPECT_EQ(WidgetGroupEx::calcHeightForRows(3, 20, 4, WidgetGroupEx::SeparatorEtched),
              2 * 4 + 3 * 20 + row + gap);
    EXPECT_EQ(WidgetGroupEx::calcHeightForRows(3, 20, 4, WidgetGroupEx::SeparatorOpen),
              2 * 4 + 3 * 20 + row);
}

TEST_F(Groups, AutoResizeGrowsToClearTheBorderAndNeverShrinks) {
    WidgetGroupEx* group = makeGroup({240, 120});
    int top = group->height() - UifStd::getRowHeight() - border(group);

    addProbe(group, Glob::UserTopLeft(0, 10), {40, 20});
    EXPECT_EQ(group->height(), 120) << "a control above the bottom edge leaves the height alone";

    RecordingGlob* deep = addProbe(group, Glob::UserTopLeft(0, top + 15), {40, 20});
    int grown = 120 + border(group) + 15 + 20;
    EXPECT_EQ(group->height(), grown);
    EXPECT_EQ(deep->getParentRelativePosition().y, border(group));

    addProbe(group, Glob::UserTopLeft(0, 0), {40, 5});
    EXPECT_EQ(group->height(), grown) << "a small control later never shrinks the group";
}

TEST_F(Groups, WithoutAutoResizeAControlMayHangBelowTheBorder) {
    WidgetGroupEx* group = makeGroup({240, 120}, false);
    addProbe(group, Glob::UserTopLeft(0, 200), {40, 20});
    EXPECT_EQ(group->height(), 120);
    group->setAutoResize(true);
    RecordingGlob* probe = addProbe(group, Glob::UserTopLeft(60, 200), {40, 20});
    group->resizeToAccomodateWidget(probe);
    EXPECT_GT(group->height(), 120);
}

TEST_F(Groups, WidgetGroup2GrowsAndIndentsOnItsOwnAndWidgetGroup3StartsAGapLower) {
    auto* two = add<WidgetGroup2>(WidgetGroup::InitArgs(UIString(L"Two"), 200, 60), {20, 20});
    EXPECT_EQ(two->getChildrenOffset(), WidgetGroupEx::childXOffset());
    addProbe(two, Glob::UserTopLeft(0, 0), {40, 80});
    EXPECT_GT(two->height(), 60);

    auto* three = add<WidgetGroup3>(WidgetGroup::InitArgs(UIString(L"Three"), 200, 100), {20, 20});
    auto* ex = add<WidgetGroupEx>(WidgetGroupEx::InitArgs(UIString(L"Ex"), 200, 100), {300, 20});
    EXPECT_EQ(three->getOriginXY(OriginUserTopLeft).y,
              ex->getOriginXY(OriginUserTopLeft).y - UifStd::getWidgetGap());
}

// Title

TEST_F(Groups, TheTitleTextGoesToTheTitleRowAndCanBeRemovedOrMadeEditable) {
    WidgetGroupEx* group = makeGroup();
    EXPECT_EQ(group->getTitleW(), LightweightString<wchar_t>(L"Options"));
    EXPECT_NE(group->getStandardWidgetFlags() & StandardPanel::Title, 0);
    group->setGroupTitle(LightweightString<wchar_t>(L"Renamed"), true);
    EXPECT_EQ(group->getTitleW(), LightweightString<wchar_t>(L"Renamed"));
    group->setBoldText(true);
    EXPECT_NE(group->getTitleFont().style & Glib::FontDesc::Bold, 0u);
    group->setGroupTitle(LightweightString<wchar_t>(), true);
    EXPECT_TRUE(group->getGroupTitle().empty());

    WidgetGroupEx::InitArgs args(UIString(L"Edit me"), 200, 80);
    args.editableTitle = true;
    int flags = add<WidgetGroupEx>(args, {300, 20})->getStandardWidgetFlags();
    EXPECT_NE(flags & StandardPanel::EditableTitle, 0);
    EXPECT_EQ(flags & StandardPanel::Title, 0);
}

TEST_F(Groups, ATitleWidgetSitsOnTheSideItsAlignmentNamesInTheTitleColour) {
    WidgetGroupEx* group = makeGroup({240, 120});
    RecordingGlob* left = addProbe(group, Glob::TopLeft(0, 0), {30, 10});
    group->setWidget(left, LightweightString<wchar_t>(), TextAlignLeft);
    int row = UifStd::getRowHeight();
    XY<int> at = left->getParentRelativePosition();
    EXPECT_EQ(at.x, UifStd::getWidgetGap());
    EXPECT_EQ(at.y, group->height() - (row - 10) / 2 - 10);

    RecordingGlob* right = addProbe(group, Glob::TopLeft(0, 0), {30, 10});
    group->setWidget(right, LightweightString<wchar_t>(), TextAlignRight);
    EXPECT_EQ(right->getParentRelativePosition().x, 240 - UifStd::getWidgetGap() - 30);
    EXPECT_EQ(group->getTitleWidget(), right);

    Colour red(0.8, 0.1, 0.1);
    group->setGroupTitleColour(red);
    EXPECT_EQ(right->getPalette().text(), red);
    EXPECT_EQ(group->getPalette().headingText(), red);
}

TEST_F(Groups, AGoneTitleWidgetIsForgotten) {
    WidgetGroupEx* group = makeGroup();
    RecordingGlob* title = addProbe(group, Glob::TopLeft(0, 0), {30, 10});
    group->setWidget(title, LightweightString<wchar_t>());
    delete title;
    EXPECT_EQ(group->getTitleWidget(), nullptr);
    // Both reach the title widget when there is one.
    group->setWidgetActive(false, true);
    group->setActive(false, Redraw);
}

// Activity

TEST_F(Groups, SetActiveReachesEveryControlSetWidgetsActiveSparesTheTitleWidget) {
    WidgetGroupEx* group = makeGroup();
    RecordingGlob* title = addProbe(group, Glob::TopLeft(0, 0), {30, 10});
    group->setWidget(title, LightweightString<wchar_t>());
    RecordingGlob* a = addProbe(group, Glob::UserTopLeft(0, 0), {30, 10});
    RecordingGlob* b = addProbe(group, Glob::UserTopLeft(0, 20), {30, 10});

    group->setActive(false, Redraw);
    EXPECT_FALSE(group->isActive() || a->isActive() || b->isActive() || title->isActive());
    group->setActive(true, Redraw);
    EXPECT_TRUE(a->isActive() && b->isActive() && title->isActive());

    group->setWidgetsActive(false, Redraw);
    EXPECT_FALSE(a->isActive() || b->isActive());
    EXPECT_TRUE(title->isActive());
    group->setWidgetActive(false, true);
    EXPECT_FALSE(title->isActive());

    auto* plain = add<WidgetGroup>(WidgetGroup::InitArgs(UIString(L"Plain"), 200, 80), {300, 20});
    RecordingGlob* control = addProbe(plain, Glob::UserTopLeft(0, 0), {30, 10});
    plain->setActive(false, NoRedraw);
    EXPECT_FALSE(control->isActive());
}

TEST_F(Groups, RecolourGivesNestedGroupsControlsTheOuterGroupsColours) {
    WidgetGroupEx* outer = makeGroup({300, 200});
    WidgetGroupEx::InitArgs args(UIString(L"Inner"), 200, 80);
    args.canvas = outer->canvas();
    auto* inner = new WidgetGroupEx(args);
    outer->addChild(inner, Glob::UserTopLeft(0, 0));
    RecordingGlob* deep = addProbe(inner, Glob::UserTopLeft(0, 0), {30, 10});
    outer->setCol(Colour(0.2, 0.5, 0.3), false);
    WidgetGroupEx::recolourChildren(outer);
    EXPECT_EQ(inner->getCol(), outer->getCol());
    EXPECT_EQ(deep->getCol(), outer->getCol());
}

// Drawing

TEST_F(Groups, TheSeparatorIsAnEtchedLineUnderTheTitleRowUnlessTurnedOff) {
    WidgetGroupEx* group = makeGroup({240, 120});
    driver.processEvents();
    Colour base = group->getCol();
    int y = group->height() - UifStd::getRowHeight();
    int x = group->width() - 2 * UifStd::getWidgetGap();
    NormalisedRGB face = driver.pixel(group, {x, y - 6});
    EXPECT_FALSE(nearColour(face, scale(base, 0.6)));
    for (auto style : {WidgetGroupEx::SeparatorEtched, WidgetGroupEx::SeparatorOpen}) {
        group->setSeparatorStyle(style);
        driver.processEvents();
        SCOPED_TRACE(style);
        EXPECT_TRUE(nearColour(driver.pixel(group, {x, y}), scale(base, 0.6)));
        EXPECT_TRUE(nearColour(driver.pixel(group, {x, y - 1}), scale(base, 1.4)));
    }

    group->setSeparatorStyle(WidgetGroupEx::SeparatorNone);
    driver.processEvents();
    EXPECT_EQ(driver.pixel(group, {x, y}), face);
    EXPECT_EQ(driver.pixel(group, {x, y - 1}), face);
}

TEST_F(Groups, ASeparatorStyleChangeKeepsAGroupAtItsMinimumAtTheNewMinimum) {
    WidgetGroupEx* group = makeGroup({240, 120});
    int row = UifStd::getRowHeight();
    EXPECT_EQ(group->getMinSize().y, row);
    group->resize(240, row);
    group->setSeparatorStyle(WidgetGroupEx::SeparatorOpen);
    EXPECT_EQ(group->height(), row);
    group->resize(240, 150);
    group->setSeparatorStyle(WidgetGroupEx::SeparatorEtched);
    EXPECT_EQ(group->height(), 150);
}
