#include "panels/MinimizableGroup.h"

#include "GroupFixture.h"
#include "buttons/SizeButton.h"

namespace {

// Groups in a window, with the points on them that the folding tests press.
struct Folding : GroupFixture {
    // Untitled, so that its children are only the size button and what a test adds.
    MinimizableGroup* makeGroup(int height = 150) {
        MinimizableGroup::InitArgs args(UIString(), 260, (unsigned short)height);
        args.autoResize = true;
        return add<MinimizableGroup>(args, {20, 200});
    }
    // The middle of the title row, clear of the size button.
    static XY<int> onTitleRow(MinimizableGroup* g) {
        return XY<int>(g->width() - 20, g->height() - g->getMinSize().y / 2);
    }
    static XY<int> root(Glob* g, XY<int> const& p) { return XY<int>(g->getX(), g->getY()) + p; }
};

} // namespace

TEST_F(Folding, TheTitleRowOrSizeButtonFoldsAllButTheTitleRowAndOpensAtTheOldHeight) {
    MinimizableGroup* group = makeGroup(150);
    RecordingGlob* title = addProbe(group, Glob::TopLeft(0, 0), {30, 10});
    group->setWidget(title, LightweightString<wchar_t>());
    RecordingGlob* control = addProbe(group, Glob::UserTopLeft(0, 0), {60, 20});
    EXPECT_FALSE(group->widgetVisibilityCanChange(group->getSizeButton()));
    EXPECT_FALSE(group->widgetVisibilityCanChange(title));
    EXPECT_TRUE(group->widgetVisibilityCanChange(control));
    int row = UifStd::getRowHeight();
    group->setSize(Glob::SizeNormal);
    EXPECT_EQ(group->height(), 150) << "opening an open group changes nothing";

    driver.click(group, onTitleRow(group));
    EXPECT_TRUE(group->isFolded());
    EXPECT_EQ(group->height(), std::max<int>(row, group->getMinSize().y));
    EXPECT_EQ(group->getStoredHeight(), 150);
    EXPECT_FALSE(control->canvas()->mapped);
    EXPECT_TRUE(title->canvas()->mapped);
    EXPECT_TRUE(group->getSizeButton()->canvas()->mapped);
    EXPECT_EQ(group->getSizeButton()->getState(), Button::down);

    driver.click(group->getSizeButton());
    driver.processEvents();
    EXPECT_FALSE(group->isFolded());
    EXPECT_EQ(group->height(), 150);
    EXPECT_TRUE(control->canvas()->mapped && control->isVisible());
    EXPECT_EQ(group->getSizeButton()->getState(), Button::up);
    driver.click(group->getSizeButton());
    driver.processEvents();
    EXPECT_TRUE(group->isFolded());
}

TEST_F(Folding, APressOnTheTitleRowThatEndsBelowItDoesNotFold) {
    MinimizableGroup* group = makeGroup(150);
    XY<int> start = onTitleRow(group);
    driver.mouseDown(group, start);
    driver.mouseMove(group, {start.x, 40});
    driver.mouseUp(group, {start.x, 40});
    EXPECT_FALSE(group->isFolded());

    driver.mouseDown(group, {start.x, 40});
    driver.mouseUp(group, start);
    EXPECT_FALSE(group->isFolded());
    EXPECT_EQ(group->height(), 150);
}

TEST_F(Folding, AFoldedGroupKeepsItsStoredHeightUpToDateWhenAWidgetArrives) {
    MinimizableGroup* open = makeGroup(150);
    MinimizableGroup* folded = makeGroup(150);
    folded->setSize(Glob::SizeSmall);
    int top = 150 - UifStd::getRowHeight() - open->getBorder().getSize();

    RecordingGlob* late = addProbe(folded, Glob::UserTopLeft(0, top + 30), {50, 20});
    addProbe(open, Glob::UserTopLeft(0, top + 30), {50, 20});
    EXPECT_FALSE(late->canvas()->mapped) << "a widget arriving in a folded group stays hidden";
    EXPECT_EQ(folded->getStoredHeight(), open->height());

    folded->setSize(Glob::SizeNormal);
    EXPECT_EQ(folded->height(), open->height());
    EXPECT_TRUE(late->canvas()->mapped);
    EXPECT_EQ(late->getParentRelativePosition().y, folded->getBorder().getSize());
}

TEST_F(Folding, FoldingTellsTheParentHowMuchTheGroupChanged) {
    MinimizableGroup::InitArgs outerArgs(UIString(L"Outer"), 300, 300);
    MinimizableGroup* outer = add<MinimizableGroup>(outerArgs, {300, 100});
    MinimizableGroup::InitArgs innerArgs(UIString(L"Inner"), 260, 150);
    innerArgs.canvas = outer->canvas();
    auto* inner = new MinimizableGroup(innerArgs);
    outer->addChild(inner, Glob::UserTopLeft(0, 0));

    inner->handleFlipSize();
    int shrink = 150 - inner->height();
    EXPECT_EQ(outer->height(), 300 - shrink);
    inner->handleFlipSize();
    EXPECT_EQ(outer->height(), 300);
}

TEST_F(Folding, WithTheSizeButtonInactiveOrAbsentTheTitleRowShowsAnArrowAndNeverFolds) {
    MinimizableGroup* group = makeGroup(150);
    XY<int> title = onTitleRow(group);
    EXPECT_EQ(group->contextCursor(root(group, title)), CursorHand);
    EXPECT_EQ(group->contextCursor(root(group, {title.x, 30})), CursorArrow);
    group->setSizeChangeEnabled(false);
    EXPECT_EQ(group->contextCursor(root(group, title)), CursorArrow);
    driver.click(group, title);
    EXPECT_FALSE(group->isFolded());
    EXPECT_EQ(group->height(), 150);

    GlobCreationInfo info(200, 120);
    info.canvas = window->canvas();
    auto* fixed = new MinimizableGroup(LightweightString<wchar_t>(L"Fixed"), false, info);
    window->addChild(fixed, Glob::BottomLeft(400, 300));
    EXPECT_EQ(fixed->getSizeButton(), nullptr);
    driver.click(fixed, {100, 115});
    EXPECT_FALSE(fixed->isFolded());
    EXPECT_EQ(fixed->contextCursor(root(fixed, {100, 115})), CursorArrow);
}
