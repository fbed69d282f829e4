#include "display/HeadlessDisplay.h"
#include "glib/WindowSurface.h"
#include "glob/GlobManager.h"
#include "glob/UifStd.h"
#include "testing/UiTestDriver.h"

#include "glob/RecordingGlob.h"
#include "support/ColourMatch.h"

#include <gtest/gtest.h>

namespace {

struct Widgets : ::testing::Test {
    UiTestDriver driver;
    RecordingGlob* window = makeWindow({200, 100}, {300, 200}, Colour(1, 1, 1));

    RecordingGlob* child(XY<int> const& size, Colour colour = Colour(0, 0, 1)) {
        GlobCreationInfo info((unsigned short)size.x, (unsigned short)size.y);
        info.canvas = window->canvas();
        return new RecordingGlob(info, colour);
    }
    Box box(Glob* g) {
        XY<int> p = g->getParentRelativePosition();
        return Box(p.x, p.y, p.x + g->width(), p.y + g->height());
    }
};

} // namespace

TEST_F(Widgets, OriginsPlaceChildrenInwardFromEachCorner) {
    struct Case {
        eCoordinateOrigin origin;
        Box expected;
    } const cases[] = {
        {OriginBottomLeft, Box(10, 5, 50, 25)},
        {OriginTopLeft, Box(10, 200 - 5 - 20, 50, 200 - 5)},
        {OriginBottomRight, Box(300 - 10 - 40, 5, 300 - 10, 25)},
        {OriginTopRight, Box(300 - 10 - 40, 175, 290, 195)},
    };
    for (auto const& c : cases) {
        RecordingGlob* g = child({40, 20});
        window->addWidget(g, 10, 5, c.origin);
        EXPECT_EQ(box(g), c.expected) << "origin " << c.origin;
        delete g;
    }
}

TEST_F(Widgets, RelativePlacementFollowsTheSiblingAndItsAlignment) {
    RecordingGlob* anchor = child({100, 40});
    window->addWidget(anchor, 50, 100);
    struct Case {
        eWidgetRelativity relativity;
        eWidgetAlignment alignment;
        Box expected;
    } const cases[] = {
        {RelativeRight, AlignLeading, Box(154, 120, 174, 140)},
        {RelativeLeft, AlignTrailing, Box(26, 100, 46, 120)},
        {RelativeAbove, AlignLeading, Box(50, 144, 70, 164)},
        {RelativeBelow, AlignTrailing, Box(130, 76, 150, 96)},
        {RelativeBelow, AlignCentre, Box(90, 76, 110, 96)},
    };
    for (auto const& c : cases) {
        RecordingGlob* g = child({20, 20});
        window->addWidgetRelative(g, anchor, 4, c.relativity, WidgetSurround{}, c.alignment);
        EXPECT_EQ(box(g), c.expected) << "relativity " << c.relativity;
        delete g;
    }
}

TEST_F(Widgets, ANullSiblingMeansTheChildAddedJustBefore) {
    RecordingGlob* a = child({30, 20});
    window->addChild(a, Glob::TopLeft(4, 4));
    RecordingGlob* b = child({30, 20});
    window->addChild(b, Glob::RightOf(4, nullptr));
    RecordingGlob* c = child({30, 20});
    window->addChild(c, Glob::RightOf(4, nullptr));
    EXPECT_EQ(box(b).x1, box(a).x2 + 4);
    EXPECT_EQ(box(c).x1, box(b).x2 + 4);
    // Resizing moves top-anchored children and those beside them.
    window->resize(300, 260);
    EXPECT_EQ(box(a).y2, 256);
    EXPECT_EQ(box(c).y2, 256);
    EXPECT_EQ(window->oldHeight(), 200);
    // A sibling that goes leaves its neighbour where it was.
    Box before = box(c);
    delete b;
    EXPECT_EQ(box(c), before);
    window->positionChildWidgets();
    EXPECT_EQ(box(c), before);
}

TEST_F(Widgets, DrawingRunsUpwardFromTheBottomLeftAndIsClippedToAncestors) {
    RecordingGlob* corner = child({20, 10}, Colour(1, 0, 0));
    window->addWidget(corner, 0, 0);
    // Half of this one lies outside the window.
    RecordingGlob* overhang = child({40, 40}, Colour(0, 1, 0));
    window->addWidget(overhang, 280, 100);
    window->update();

    EXPECT_TRUE(nearColour(driver.pixel(window, {2, 2}), NormalisedRGB(1, 0, 0)));
    EXPECT_TRUE(nearColour(driver.pixel(window, {2, 12}), NormalisedRGB(1, 1, 1)));
    EXPECT_TRUE(nearColour(driver.pixel(window, {299, 120}), NormalisedRGB(0, 1, 0)));
    EXPECT_TRUE(nearColour(driver.pixel(overhang, {5, 5}), NormalisedRGB(0, 1, 0)));
    // Nothing outside the window was painted into a neighbour's store either: the store is the
    // window's size.
    EXPECT_EQ(window->canvas()->surface()->size(), XY<int>(300, 200));
    EXPECT_EQ(driver.pixel(overhang, {30, 5}).a, 0.0f);
}

TEST_F(Widgets, UpdatingOneChildSendsOnlyItsAreaToTheDisplay) {
    RecordingGlob* small = child({100, 24});
    window->addWidget(small, 30, 40);
    window->update();
    HeadlessWindow* shown = driver.display().windowOf(window->canvas());
    int before = shown->presents;
    small->update();
    driver.processEvents();
    EXPECT_EQ(shown->presents, before + 1);
    ASSERT_EQ(shown->lastPresented.size(), 1u);
    EXPECT_EQ(shown->lastPresented[0], Box(30, 40, 130, 64));
}

TEST_F(Widgets, RedrawsHeldBackAreDoneOnceAtTheOutermostEnable) {
    RecordingGlob* small = child({10, 10});
    window->addWidget(small, 0, 0);
    HeadlessWindow* shown = driver.display().windowOf(window->canvas());
    int before = shown->presents;
    Drawable::disableRedraws();
    Drawable::disableRedraws();
    small->update();
    small->update();
    Drawable::enableRedraws();
    EXPECT_EQ(shown->presents, before);
    Drawable::enableRedraws();
    EXPECT_EQ(shown->presents, before + 1);
}

TEST_F(Widgets, ChildrenDieWithTheirParentAndStampsTellHoldersSo) {
    RecordingGlob* parent = child({100, 100});
    window->addWidget(parent, 0, 0);
    GlobCreationInfo info(10, 10);
    info.canvas = parent->canvas();
    auto* grandchild = new RecordingGlob(info);
    parent->addWidget(grandchild, 1, 1);
    IdStamp stamp = grandchild->getIdStamp();
    EventHandler* handler = grandchild;
    EXPECT_TRUE(EventHandler::valid(handler, stamp));
    Glob* gone = parent;
    window->removeWidget(gone, true);
    EXPECT_EQ(gone, nullptr);
    EXPECT_FALSE(EventHandler::valid(handler, stamp));
    EXPECT_FALSE(is_good_glob_ptr(grandchild));
    EXPECT_EQ(window->widgetCount(), 0);
}

TEST_F(Widgets, VisitorsWalkChildrenSubtreeAndPostOrder) {
    RecordingGlob* a = child({10, 10});
    window->addWidget(a, 0, 0);
    GlobCreationInfo info(5, 5);
    info.canvas = a->canvas();
    auto* a1 = new RecordingGlob(info);
    a->addWidget(a1, 0, 0);
    RecordingGlob* b = child({10, 10});
    window->addWidget(b, 20, 0);

    std::vector<Glob*> pre, post;
    for (Glob* g = window->visitSubtree(nullptr); g; g = window->visitSubtree(g))
        pre.push_back(g);
    for (Glob* g = window->visitPostOrder(nullptr); g; g = window->visitPostOrder(g))
        post.push_back(g);
    EXPECT_EQ(pre, (std::vector<Glob*>{a, a1, b}));
    EXPECT_EQ(post, (std::vector<Glob*>{a1, a, b}));
    EXPECT_EQ(a->visitSiblings(nullptr), b);
    EXPECT_EQ(a1->visitAncestors(nullptr), a);
    EXPECT_EQ(a1->visitAncestors(a), window);
}

TEST_F(Widgets, AMovableWindowFollowsALeftDragOnItsBackground) {
    window->setMovable(true);
    driver.drag(window, {150, 100}, {180, 80});
    EXPECT_EQ(window->getX(), 230);
    EXPECT_EQ(window->getY(), 80);
    EXPECT_EQ(driver.display().windowOf(window->canvas())->bounds, Box(230, 80, 530, 280));
}

TEST_F(Widgets, ThemeAndTextChangesReachEveryWidgetOnce) {
    struct Counting : RecordingGlob {
        using RecordingGlob::RecordingGlob;
        void handleUIChange(unsigned mask) override {
            masks.push_back(mask);
            RecordingGlob::handleUIChange(mask);
        }
        std::vector<unsigned> masks;
    };
    GlobCreationInfo info(10, 10);
    info.canvas = window->canvas();
    auto* c = new Counting(info);
    window->addWidget(c, 0, 0);
    GlobManager::instance().broadcastUIChange(8);
    UifStd::setThemeValue(LightweightString<char>("panelcorners"),
                          LightweightString<wchar_t>(L"1"));
    EXPECT_EQ(c->masks, (std::vector<unsigned>{8, 1}));
}

TEST_F(Widgets, AShapedChildPaintsOnlyInsideItsShapeAndSoDoItsChildren) {
    RecordingGlob* curved = child({40, 40}, Colour(1, 0, 0));
    window->addWidget(curved, 10, 10);
    curved->canvas()->shape(makeCurvedRegion({40, 40}, 15, CurvedRegionRounded));
    GlobCreationInfo info(40, 40);
    info.canvas = curved->canvas();
    auto* inner = new RecordingGlob(info, Colour(0, 1, 0));
    curved->addWidget(inner, 0, 0);
    window->update();
    // The corner pixel is cut away: the window's white shows through.
    EXPECT_TRUE(nearColour(driver.pixel(window, {10, 10}), NormalisedRGB(1, 1, 1)));
    EXPECT_TRUE(nearColour(driver.pixel(window, {30, 30}), NormalisedRGB(0, 1, 0)));
    EXPECT_TRUE(nearColour(driver.pixel(window, {49, 49}), NormalisedRGB(1, 1, 1)));
}
