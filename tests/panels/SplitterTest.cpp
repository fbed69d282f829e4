#include "panels/Splitter.h"

#include "GroupFixture.h"
#include "glob/GlobManager.h"

#include <vector>

namespace {

struct Seen {
    std::string name;
    Splitter::Event::eKind kind;
    XY<int> pos, startPos, rootPos, startRootPos;
};

struct Splitters : GroupFixture {
    std::vector<Seen> seen;
    Splitter* splitter = nullptr;

    WidgetCallback::Callback recorder() {
        return Qor::makeCallback<NotifyMsg>([this](NotifyMsg const& msg) {
            auto* e = dynamic_cast<Splitter::Event*>(msg.getData().get());
            if (e != nullptr)
                seen.push_back({msg.getName().c_str(), e->kind, e->pos, e->startPos, e->rootPos,
                                e->startRootPos});
            return 0;
        });
    }
    Splitter* makeSplitter(Orientation o, WidgetCallback::Callback const& callback) {
        return add<Splitter>(Splitter::InitArgs(callback, o, 200), {100, 100});
    }
};

// A parent that takes splitter events as data messages.
struct DataHost : StandardPanel {
    using StandardPanel::StandardPanel;
    int handleDataMessageEvent(LightweightString<char> name, Glob*,
                               Qor::Ptr<iObject> data) override {
        if (auto* e = dynamic_cast<Splitter::Event*>(data.get()))
            kinds.push_back(std::string(name.c_str()) + char('0' + e->kind));
        return 1;
    }
    std::vector<std::string> kinds;
};

} // namespace

TEST_F(Splitters, ThicknessDimensionsAndPointerFollowTheOrientation) {
    int t = UifStd::getRowHeight() / 6 * 2;
    EXPECT_EQ(Splitter::calcThickness(), t);
    EXPECT_EQ(Splitter::calcDimensions(OrientationVertical, 120), XY<int>(t, 120));
    EXPECT_EQ(Splitter::calcDimensions(OrientationHorizontal, 120), XY<int>(120, t));
    Splitter* vertical = makeSplitter(OrientationVertical, recorder());
    Splitter* horizontal =
        add<Splitter>(Splitter::InitArgs(recorder(), OrientationHorizontal, 200), {300, 300});
    EXPECT_EQ(vertical->contextCursor({0, 0}), CursorHorizontalResize);
    EXPECT_EQ(horizontal->contextCursor({0, 0}), CursorVerticalResize);
}

TEST_F(Splitters, ADragReportsPressMovesAndReleaseWithTheirPositions) {
    splitter = makeSplitter(OrientationVertical, recorder());
    XY<int> from(splitter->width() / 2, 100), to(from.x + 40, 100);
    driver.drag(splitter, from, to, 4);

    ASSERT_GE(seen.size(), 3u);
    EXPECT_EQ(seen.front().kind, Splitter::Event::Pressed);
    EXPECT_EQ(seen.back().kind, Splitter::Event::Released);
    for (size_t i = 1; i + 1 < seen.size(); ++i)
        EXPECT_EQ(seen[i].kind, Splitter::Event::Moved);
    for (Seen const& s : seen) {
        EXPECT_EQ(s.name, "SplitterMsg");
        EXPECT_EQ(s.startPos, from);
        EXPECT_EQ(s.startRootPos, XY<int>(splitter->getX(), splitter->getY()) + from);
    }
    EXPECT_EQ(seen.back().pos, to);
    EXPECT_EQ(seen.back().rootPos, XY<int>(splitter->getX(), splitter->getY()) + to);
}

TEST_F(Splitters, HoverRightButtonAndInactiveSplittersReportNothing) {
    splitter = makeSplitter(OrientationHorizontal, recorder());
    driver.mouseMove(splitter, {50, 1});
    driver.click(splitter, {50, 1}, 3);
    EXPECT_TRUE(seen.empty());
    splitter->setActive(false, Redraw);
    driver.drag(splitter, {50, 1}, {50, 30});
    EXPECT_TRUE(seen.empty());
    EXPECT_EQ(splitter->contextCursor({0, 0}), CursorArrow);
}

TEST_F(Splitters, WithoutACallbackTheParentGetsDataMessages) {
    StandardPanel::InitArgs hostArgs(300, 300);
    auto* host = add<DataHost>(hostArgs, {300, 100});
    Splitter::InitArgs args({}, OrientationVertical, 100);
    args.canvas = host->canvas();
    auto* orphan = new Splitter(args);
    host->addChild(orphan, Glob::BottomLeft(50, 50));
    driver.drag(orphan, {2, 50}, {30, 50}, 1);
    ASSERT_GE(host->kinds.size(), 2u);
    EXPECT_EQ(host->kinds.front(), "SplitterMsg1");
    EXPECT_EQ(host->kinds.back(), "SplitterMsg2");
}

TEST_F(Splitters, TheOwnerMayDeleteTheSplitterFromItsCallback) {
    int calls = 0;
    splitter = makeSplitter(OrientationVertical,
                            Qor::makeCallback<NotifyMsg>([this, &calls](NotifyMsg const&) {
                                ++calls;
                                GlobManager::instance().requestDeletion(splitter);
                                return 0;
                            }));
    Splitter* doomed = splitter;
    driver.mouseDown(doomed, {2, 50});
    driver.processEvents();
    EXPECT_FALSE(is_good_glob_ptr(doomed));
    EXPECT_GE(calls, 1);
    driver.mouseUp(window, {102, 150});
}
