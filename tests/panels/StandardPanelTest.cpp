#include "panels/StandardPanel.h"

#include "buttons/PinButton.h"
#include "buttons/PootButton.h"
#include "buttons/SettingsButton.h"
#include "buttons/SizeButton.h"
#include "buttons/TextLabel.h"

#include "GroupFixture.h"
#include "glib/Region.h"
#include "glob/GlobManager.h"

#include <string>
#include <vector>

namespace {

// A panel that notes what its handlers were given.
class ProbePanel : public StandardPanel {
public:
    using StandardPanel::StandardPanel;

    int handleKeyboardEvent(int code) override {
        keys.push_back(code);
        return code == 'q' ? 1 : 0;
    }
    int handleMessageEvent(LightweightString<char> name, Glob* sender) override {
        messages.push_back(name.c_str());
        senders.push_back(sender);
        if (name == "close_yourself") {
            GlobManager::instance().requestDeletion(this);
            return 1;
        }
        return 0;
    }
    int handleDataMessageEvent(LightweightString<char> name, Glob* sender,
                               Qor::Ptr<iObject> data) override {
        dataMessages.push_back(name.c_str());
        senders.push_back(sender);
        lastData = data;
        return 1;
    }
    int handlePoot() override {
        ++poots;
        return allowPoot ? 1 : 0;
    }
    void handleFlipSize() override { ++flips; }

    std::vector<int> keys;
    std::vector<std::string> messages;
    std::vector<std::string> dataMessages;
    std::vector<Glob*> senders;
    Qor::Ptr<iObject> lastData;
    int poots = 0;
    int flips = 0;
    bool allowPoot = true;
};

class Payload : public iObject {};

struct Panels : ::testing::Test {
    UiTestDriver driver;

    ProbePanel* makePanel(Border const& border, XY<int> size = {300, 200}) {
        Glob::setupRootPos({100, 100});
        StandardPanel::InitArgs args((unsigned short)size.x, (unsigned short)size.y);
        args.border = border;
        auto* panel = new ProbePanel(args);
        GlobManager::instance().realize(panel);
        driver.processEvents();
        return panel;
    }
    ProbePanel* makeChildPanel(Glob* parent, XY<int> at, XY<int> size) {
        StandardPanel::InitArgs args((unsigned short)size.x, (unsigned short)size.y);
        args.canvas = parent->canvas();
        auto* panel = new ProbePanel(args);
        parent->addChild(panel, Glob::BottomLeft(at));
        panel->update();
        return panel;
    }
    void TearDown() override { UifStd::setTheme({}); }
};

} // namespace

// Event sorting

// Tab order itself is driven through a panel in TabNavigationTest.
TEST_F(Panels, AKeyPressReachesTheFocusedPanelAndUnusedKeysOrTabsWithoutStopsGoToItsParent) {
    ProbePanel* outer = makePanel(Border(Border::Panel, 0, 15));
    ProbePanel* inner = makeChildPanel(outer, {20, 20}, {100, 60});
    inner->claimKbdFocus();
    driver.keyPress('q');
    driver.keyPress('a');
    driver.keyPress(KeyCodes::Tab);
    EXPECT_EQ(inner->keys, (std::vector<int>{'q', 'a', KeyCodes::Tab}));
    EXPECT_EQ(outer->keys, (std::vector<int>{'a', KeyCodes::Tab}));
}

TEST_F(Panels, MessagesReachTheirHandlersWithTheSenderButMinifyOnlyFlipsTheSize) {
    ProbePanel* panel = makePanel(Border(Border::Panel, 0, 15));
    RecordingGlob* child = makeChild(panel, {10, 10}, {30, 20});
    child->sendMsg(panel, "hello");
    driver.processEvents();
    // Only the panel's own pin button may freeze the flip; from anyone else it is a message.
    child->callMsg(panel, "freeze_flip");
    Qor::Ptr<iObject> data = Qor::makePtr<Payload>();
    EXPECT_EQ(callMessageWithData(LightweightString<char>("payload"), panel, data, child), 1);
    for (char const* name : {"minify", "minify on", "minify off"})
        EXPECT_EQ(callMessage(LightweightString<char>(name), panel, nullptr), 1);

    EXPECT_EQ(panel->flips, 3);
    EXPECT_EQ(panel->messages, (std::vector<std::string>{"hello", "freeze_flip"}));
    EXPECT_EQ(panel->dataMessages, (std::vector<std::string>{"payload"}));
    EXPECT_EQ(panel->senders, (std::vector<Glob*>{child, child, child}));
    EXPECT_EQ(panel->lastData.get(), data.get());
}

TEST_F(Panels, PootOrAHandlerDeletesThePanelOnlyAfterTheMessageIsHandled) {
    ProbePanel* goner = makePanel(Border(Border::Panel, 0, 15));
    EXPECT_EQ(callMessage(LightweightString<char>("poot"), goner, nullptr), 1);
    EXPECT_EQ(goner->poots, 1);
    EXPECT_TRUE(goner->messages.empty());
    EXPECT_TRUE(is_good_glob_ptr(goner));
    driver.processEvents();
    EXPECT_FALSE(is_good_glob_ptr(goner));

    ProbePanel* panel = makePanel(Border(Border::Panel, 0, 15));
    makeChild(panel, {10, 10}, {30, 20})->sendMsg(panel, "close_yourself");
    driver.processEvents();
    EXPECT_FALSE(is_good_glob_ptr(panel));
}

// Finds the child of the class among the panel's widgets.
template <class T>
T* childOf(Glob* panel) {
    std::vector<Glob*> children;
    panel->getChildren(children);
    for (Glob* child : children)
        if (auto* found = dynamic_cast<T*>(child))
            return found;
    return nullptr;
}

TEST_F(Panels, TheTitleRowButtonsPinFlipAndCloseThePanelWhenClicked) {
    ProbePanel* panel = makePanel(Border(Border::Panel, 0, 15));
    panel->addStandardWidgets(StandardPanel::Poot | StandardPanel::SizeFlip | StandardPanel::Pin |
                              StandardPanel::Settings);
    panel->setTitle(UIString(L"Layers"), UifStd::getTitleFont(), Redraw);
    auto* pin = childOf<PinButton>(panel);
    auto* size = childOf<SizeButton>(panel);
    auto* settings = childOf<SettingsButton>(panel);
    auto* title = childOf<TextLabel>(panel);
    ASSERT_TRUE(pin && size && settings && title && childOf<PootButton>(panel));
    EXPECT_EQ(title->getText(), L"Layers");
    // Right to left along the top: close, size, pin, settings, all on the title row.
    EXPECT_GT(size->getX(), pin->getX());
    EXPECT_GT(pin->getX(), settings->getX());
    EXPECT_EQ(size->getY(), pin->getY());

    // A panel that cannot be moved starts pinned; the pin frees it and pins it again.
    bool pinned = panel->isPinned();
    EXPECT_EQ(pinned, !panel->isMovable());
    driver.click(pin);
    EXPECT_EQ(panel->isPinned(), !pinned);
    EXPECT_EQ(panel->isMovable(), pinned);
    driver.click(size);
    EXPECT_EQ(panel->flips, 1);

    panel->allowPoot = false;
    PootButton* poot = childOf<PootButton>(panel);
    driver.click(poot);
    EXPECT_EQ(panel->poots, 1);
    ASSERT_TRUE(is_good_glob_ptr(panel));
    panel->allowPoot = true;
    driver.click(poot);
    EXPECT_FALSE(is_good_glob_ptr(panel));
}

TEST_F(Panels, AForwardedWheelEventReachesTheRecordedHandlerUnforwarded) {
    ProbePanel* panel = makePanel(Border(Border::Panel, 0, 15));
    RecordingGlob* handler = makeChild(panel, {200, 10}, {30, 20});
    panel->addEventHandler(handler, EventCode::Mouse | EventCode::WheelBit);
    driver.wheel(panel, {100, 100}, 2);
    ASSERT_EQ(handler->count(EventCode::MouseWheel), 1);
    EXPECT_EQ(handler->events.back().forward, 0);
    EXPECT_EQ(handler->events.back().code, 2);
}

// Drawing

TEST_F(Panels, EdgesAreDarkOutsideAndLightInsideOrLightAlone) {
    Border both(Border::Panel, 0, 15);
    both.style = Border::DarkEdge | Border::LightEdge;
    ProbePanel* panel = makePanel(both);
    int e = panel->theme().edgeSize;
    ASSERT_GT(e, 0);
    Colour s3 = panel->getCol();
    Colour hi = panel->getPalette().scale(s3, 1 + both.scale);
    Colour lo = panel->getPalette().scale(s3, 1 - both.scale);
    EXPECT_TRUE(nearColour(driver.pixel(panel, {0, 100}), lo));
    EXPECT_TRUE(nearColour(driver.pixel(panel, {e, 100}), hi));
    EXPECT_TRUE(nearColour(driver.pixel(panel, {299, 100}), lo));
    EXPECT_TRUE(nearColour(driver.pixel(panel, {150, 0}), lo));
    EXPECT_TRUE(nearColour(driver.pixel(panel, {150, 2 * e + 5}), s3));

    Border light(Border::Panel, 0, Border::Left);
    light.style = Border::LightEdge;
    ProbePanel* plain = makePanel(light);
    EXPECT_TRUE(nearColour(driver.pixel(plain, {0, 100}), hi));
    EXPECT_TRUE(nearColour(driver.pixel(plain, {299, 100}), s3));
}

TEST_F(Panels, TheTitleAreaTakesTheAdjustedColour) {
    UifStd::setThemeValue("titlebg", L"0.2");
    Border titled(Border::Panel, 0, 15);
    titled.style = Border::TitleArea;
    ProbePanel* panel = makePanel(titled);
    Colour title = panel->makeTitleAreaPalette().window(WindowShadeBase);
    EXPECT_FALSE(nearColour(fromColour(title), panel->getCol()));
    int depth = panel->measure(StandardPanel::TitleAreaHeight);
    EXPECT_TRUE(nearColour(driver.pixel(panel, {150, 199 - depth / 2}), title));
    EXPECT_TRUE(nearColour(driver.pixel(panel, {150, 50}), panel->getCol()));
}

TEST_F(Panels, TheCurvedBorderCornersFollowTheCurvedRegion) {
    Border curved(Border::Curved, 0, 15);
    ProbePanel* panel = makePanel(curved, {120, 90});
    Qor::Ptr<iRegion> outline = makeCurvedRegion({120, 90}, 15, CurvedRegionRounded);
    Colour frame = panel->getPalette().window(WindowShadeDarkest);
    for (int row = 0; row < 9; ++row) {
        int inset = curvedRegionInset(row, CurvedRegionRounded);
        for (XY<int> p : {XY<int>(inset, row), XY<int>(119 - inset, row), XY<int>(inset, 89 - row),
                          XY<int>(119 - inset, 89 - row)}) {
            EXPECT_TRUE(outline->contains(p)) << p.x << "," << p.y;
            EXPECT_TRUE(nearColour(driver.pixel(panel, p), frame)) << p.x << "," << p.y;
        }
        if (inset > 0) {
            EXPECT_FALSE(outline->contains({inset - 1, row}));
        }
    }
    EXPECT_TRUE(nearColour(driver.pixel(panel, {60, 20}), panel->getCol()));
}

// Geometry

TEST_F(Panels, OriginsFollowTheBorderTheTitleAndTheActionRow) {
    UIAppearanceSettings const& theme = *UifStd::getTheme();
    Border plain(Border(12));
    XY<int> size(400, 300);
    int title = StandardPanel::calcSize(StandardPanel::TitleAreaHeight, theme, plain);
    int raised = 12 + StandardPanel::calcActionButtonHeight() +
                 StandardPanel::calcSize(StandardPanel::StatusAreaHeight, theme, plain);
    struct Case {
        eCoordinateOrigin origin;
        int flags;
        XY<int> expected;
    };
    Case cases[] = {
        {OriginBottomLeft, 0, {0, 0}},
        {OriginTopLeft, 0, {0, 300}},
        {OriginBottomRight, 0, {400, 0}},
        {OriginTopRight, 0, {400, 300}},
        {OriginUserBottomLeft, 0, {12, 12}},
        {OriginUserTopLeft, 0, {12, 288}},
        {OriginUserBottomRight, 0, {388, 12}},
        {OriginUserTopRight, 0, {388, 288}},
        {OriginUserBottomLeft, StandardPanel::DoIt, {12, raised}},
        {OriginUserBottomRight, StandardPanel::DoIt, {388, raised}},
        {OriginUserTopLeft, StandardPanel::Poot, {12, 288 - title}},
        {OriginUserTopRight, StandardPanel::EditableTitle, {388, 288 - title}},
        {OriginUserTopRight, StandardPanel::Settings, {388, 288}},
    };
    for (Case const& c : cases) {
        XY<int> got = StandardPanel::getOriginXY(c.origin, c.flags, size, plain, theme);
        EXPECT_EQ(got, c.expected) << "origin " << c.origin << " flags " << c.flags;
    }
    Border status(Border(12));
    status.style = Border::StatusArea;
    int raisedStatus = 12 + StandardPanel::calcActionButtonHeight() +
                       StandardPanel::calcSize(StandardPanel::StatusAreaHeight, theme, status);
    EXPECT_EQ(StandardPanel::getOriginXY(OriginUserBottomLeft, 0, size, status, theme),
              XY<int>(12, raisedStatus));
    EXPECT_EQ(StandardPanel::getOriginXY(OriginUserBottomRight, 0, size, status, theme),
              XY<int>(388, 12));
    EXPECT_EQ(StandardPanel::getUserArea(StandardPanel::DoIt, size, plain),
              Box(12, raised, 388, 288));
}

TEST_F(Panels, APanelSizedForAUserAreaHasExactlyThatUserArea) {
    Border titled(Border::Panel, 0, 15);
    titled.style = Border::TitleArea | Border::StatusArea;
    for (int flags : {0, (int)StandardPanel::DoIt, (int)StandardPanel::Poot | StandardPanel::DoIt})
        for (XY<int> user : {XY<int>(50, 40), XY<int>(321, 123)}) {
            XY<int> panel = StandardPanel::calcPanelSize(user, flags, titled);
            Box area = StandardPanel::getUserArea(flags, panel, titled);
            EXPECT_EQ(area.width(), user.x);
            EXPECT_EQ(area.height(), user.y);
        }
    Box margins = StandardPanel::getUserAreaBorders(StandardPanel::DoIt, titled);
    XY<int> panel = StandardPanel::calcPanelSize({100, 100}, StandardPanel::DoIt, titled);
    EXPECT_EQ(margins.x1 + margins.x2 + 100, panel.x);
    EXPECT_EQ(margins.y1 + margins.y2 + 100, panel.y);

    ProbePanel* resized = makePanel(titled);
    resized->resize(XY<int>(150, 80), StandardPanel::ResizeUserArea);
    EXPECT_EQ(resized->getUserArea().width(), 150);
    EXPECT_EQ(resized->getUserArea().height(), 80);
}

TEST_F(Panels, ResizeChildrenWidensOnlyChildrenThatSpanThePanelOrItsUserArea) {
    ProbePanel* panel = makePanel(Border(12), {300, 200});
    panel->setResizeChildrenWithPanel(true);
    int userWidth = panel->getUserArea().width();
    auto* spansUser = makeChild(panel, {0, 0}, {userWidth, 20});
    panel->setWidgetOrigin(spansUser, OriginUserBottomLeft, {0, 0});
    auto* spansPanel = makeChild(panel, {0, 40}, {300, 20});
    auto* narrow = makeChild(panel, {0, 80}, {50, 20});
    panel->resize(340, 200);
    EXPECT_EQ(spansUser->width(), userWidth + 40);
    EXPECT_EQ(spansPanel->width(), 340);
    EXPECT_EQ(narrow->width(), 50);
    panel->setResizeChildrenWithPanel(false);
    panel->resize(300, 200);
    EXPECT_EQ(spansPanel->width(), 340);
}

TEST_F(Panels, ATopLevelPanelGetsASurroundOnlyForFramedBorderTypes) {
    ProbePanel* panel = makePanel(Border(Border::Panel, 0, 15));
    EXPECT_TRUE(panel->hasSurround());
    panel->setBorder(Border(Border::RoundedIndented, 0, 15));
    EXPECT_FALSE(panel->hasSurround());
    panel->setBorder(Border(Border::Attached, 0, 15));
    EXPECT_TRUE(panel->hasSurround());
    ProbePanel* child = makeChildPanel(panel, {10, 10}, {60, 40});
    child->setBorder(Border(Border::Line, 0, 15));
    EXPECT_FALSE(child->hasSurround());
}
