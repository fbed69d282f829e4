#include "buttons/Checkbox.h"

#include "buttons/Slider.h"

#include "RecordingPanel.h"
#include "glob/UifStd.h"
#include "testing/UiTestDriver.h"

#include <gtest/gtest.h>

#include <cmath>

namespace {

struct Checkboxes : ::testing::Test {
    UiTestDriver driver;
    RecordingPanel* window = makeRecordingWindow();

    Checkbox* addBox(XY<int> at = {20, 20}, bool state = false) {
        Checkbox::InitArgs args(UIString(L"Loop playback"), state, 160,
                                (unsigned short)UifStd::getRowHeight());
        auto* box = window->createWidget<Checkbox>(args, Glob::BottomLeft(at));
        box->update();
        return box;
    }
    XY<int> inside(Checkbox* box) const { return XY<int>(box->width() / 2, box->height() / 2); }
};

bool near(NormalisedRGB const& a, Colour const& c) {
    NormalisedRGB b = fromColour(c);
    return std::abs(a.r - b.r) < 0.03 && std::abs(a.g - b.g) < 0.03 && std::abs(a.b - b.b) < 0.03;
}

XY<int> centreOf(Box const& b) {
    return XY<int>((b.x1 + b.x2) / 2, (b.y1 + b.y2) / 2);
}

} // namespace

// Telling the owner

TEST_F(Checkboxes, ClicksTickAndClearTheBoxAndTellTheParentWhichItIs) {
    Checkbox* box = addBox();
    driver.click(box, inside(box));
    EXPECT_TRUE(box->getState());
    driver.click(box, inside(box));
    EXPECT_FALSE(box->getState());
    EXPECT_EQ(window->messages, (std::vector<std::string>{"Checkbox TICKED", "Checkbox CLEAR"}));
    EXPECT_EQ(window->senders, (std::vector<Glob*>{box, box}));
}

TEST_F(Checkboxes, SpaceAndReturnToggleTheFocusedBoxButNotAnInactiveOne) {
    Checkbox* box = addBox();
    box->claimKbdFocus();
    driver.keyPress(KeyCodes::Space);
    driver.keyPress(KeyCodes::Return);
    EXPECT_EQ(window->messages, (std::vector<std::string>{"Checkbox TICKED", "Checkbox CLEAR"}));

    box->setActive(false, Redraw);
    driver.keyPress(KeyCodes::Space);
    driver.click(box, inside(box));
    EXPECT_FALSE(box->getState());
    EXPECT_EQ(window->messages.size(), 2u);
}

TEST_F(Checkboxes, APrefixWithoutTheStateIsSentAlone) {
    Checkbox* box = addBox();
    box->setMsgPrefix("loop", false);
    driver.click(box, inside(box));
    box->setMsgPrefix("loop ", true);
    driver.click(box, inside(box));
    EXPECT_EQ(window->messages, (std::vector<std::string>{"loop", "loop CLEAR"}));
}

TEST_F(Checkboxes, ACallbackHearsTheNewStateAndTheBoxInsteadOfTheParent) {
    Checkbox* box = addBox();
    std::vector<std::pair<std::string, bool>> heard;
    Checkbox* sender = nullptr;
    box->setCallback(Qor::makeCallback<NotifyMsg>([&](NotifyMsg const& msg) {
                         auto change = Qor::dynamic_ptr_cast<Checkbox::Change>(msg.getData());
                         heard.emplace_back(msg.getName().c_str(), change->newState);
                         sender = change->sender;
                         return 0;
                     }),
                     "loopChanged");
    driver.click(box, inside(box));
    driver.click(box, inside(box));
    EXPECT_EQ(heard, (std::vector<std::pair<std::string, bool>>{{"loopChanged", true},
                                                                {"loopChanged", false}}));
    EXPECT_EQ(sender, box);
    EXPECT_TRUE(window->messages.empty());
}

TEST_F(Checkboxes, AMessageNameWithoutACallbackGoesAsADataMessageWithTheChange) {
    Checkbox* box = addBox();
    box->setMessage("loopChanged");
    driver.click(box, inside(box));
    ASSERT_EQ(window->dataMessages, (std::vector<std::string>{"loopChanged"}));
    auto change = Qor::dynamic_ptr_cast<Checkbox::Change>(window->lastData);
    ASSERT_TRUE(change);
    EXPECT_TRUE(change->newState);
    EXPECT_EQ(change->sender, box);
    EXPECT_EQ(window->senders.back(), box);
}

TEST_F(Checkboxes, AUserFunctionTakesTheClickOverAndTheStateStays) {
    Checkbox* box = addBox();
    std::vector<Checkbox*> calls;
    box->setUserFunction(
        [](Checkbox* b, void* d) { static_cast<std::vector<Checkbox*>*>(d)->push_back(b); },
        &calls);
    driver.click(box, inside(box));
    driver.keyPress(KeyCodes::Space);
    EXPECT_EQ(calls, (std::vector<Checkbox*>{box}));
    EXPECT_FALSE(box->getState());
    EXPECT_TRUE(window->messages.empty());
}

TEST_F(Checkboxes, TheMessageGenerationChoosesPressReleaseOrNeither) {
    struct Case {
        Checkbox::eMsgGeneration generation;
        bool afterPress;
        bool afterRelease;
    } const cases[] = {
        {Checkbox::OnMouseDown, true, true},
        {Checkbox::OnMouseUp, false, true},
        {Checkbox::Never, false, false},
    };
    int x = 20;
    for (Case const& c : cases) {
        Checkbox* box = addBox({x, 20});
        x += 170;
        box->setMessageGeneration(c.generation);
        driver.mouseMove(box, inside(box));
        driver.mouseDown(box, inside(box));
        EXPECT_EQ(box->getState(), c.afterPress) << c.generation;
        driver.mouseUp(box, inside(box));
        EXPECT_EQ(box->getState(), c.afterRelease) << c.generation;
        EXPECT_EQ(window->messages.size(), c.afterRelease ? 1u : 0u) << c.generation;
        window->messages.clear();
    }
    EXPECT_EQ(window->wheels, 0);
}

TEST_F(Checkboxes, ClicksDisabledLeaveTheBoxAsItIs) {
    Checkbox* box = addBox();
    box->setClicksEnabled(false);
    driver.click(box, inside(box));
    EXPECT_FALSE(box->getState());
    EXPECT_TRUE(window->messages.empty());
}

TEST_F(Checkboxes, SetStateWithoutNotifyShowsTheValueOnlyAndBoldFollowsTheState) {
    Checkbox* box = addBox();
    box->setBoldWhenTicked(true);
    box->setState(true, false);
    EXPECT_TRUE(box->getState());
    EXPECT_EQ(box->getFont().style & Glib::FontDesc::Bold, unsigned(Glib::FontDesc::Bold));
    box->setState(false, true);
    EXPECT_EQ(box->getFont().style & Glib::FontDesc::Bold, 0u);
    EXPECT_TRUE(window->messages.empty());
}

// Value binding

TEST_F(Checkboxes, AServerChangeTicksTheBoxAndAClickChangesTheServer) {
    Checkbox* box = addBox();
    ValServer<bool> server(false);
    auto adaptor = Qor::makePtr<ServerAdaptor<bool>>(&server);
    box->setDataAdaptor(adaptor);
    server = true;
    EXPECT_TRUE(box->getState());
    EXPECT_TRUE(adaptor->types.empty());

    driver.click(box, inside(box));
    EXPECT_FALSE(server.getValue());
    EXPECT_FALSE(box->getState());
    EXPECT_EQ(adaptor->types, (std::vector<DataChangeType>{SetByProgram}));
    EXPECT_EQ(window->messages, (std::vector<std::string>{"Checkbox CLEAR"}));
}

TEST_F(Checkboxes, ABoxWhoseServerDiedStillTogglesOnItsOwn) {
    Checkbox* box = addBox();
    Qor::Ptr<ServerAdaptor<bool>> adaptor;
    {
        ValServer<bool> server(true);
        adaptor = Qor::makePtr<ServerAdaptor<bool>>(&server);
        box->setDataAdaptor(adaptor);
        EXPECT_TRUE(box->getState());
    }
    driver.click(box, inside(box));
    driver.click(box, inside(box));
    EXPECT_TRUE(box->getState());
    EXPECT_EQ(window->messages, (std::vector<std::string>{"Checkbox CLEAR", "Checkbox TICKED"}));
}

TEST_F(Checkboxes, ABoxThatDiesFirstLeavesItsAdaptorUsable) {
    ValServer<bool> server(false);
    auto adaptor = Qor::makePtr<ServerAdaptor<bool>>(&server);
    Checkbox* box = addBox();
    box->setDataAdaptor(adaptor);
    Glob* doomed = box;
    window->removeWidget(doomed, true);
    server = true;
    EXPECT_TRUE(adaptor->attachedWidgets().empty());
}

// Deletion from a notification

TEST_F(Checkboxes, ACallbackMayRequestTheDeletionOfItsBox) {
    Checkbox* box = addBox();
    IdStamp stamp = box->getIdStamp();
    box->setCallback(Qor::makeCallback<NotifyMsg>([box](NotifyMsg const&) {
                         GlobManager::instance().requestDeletion(box);
                         return 0;
                     }),
                     "bye");
    driver.click(box, inside(box));
    driver.processEvents();
    EXPECT_FALSE(EventHandler::valid(box, stamp));
    EXPECT_EQ(window->widgetCount(), 0u);
}

TEST_F(Checkboxes, AParentMayDeleteTheBoxWhenItHearsOfTheClick) {
    Checkbox* box = addBox();
    IdStamp stamp = box->getIdStamp();
    window->onMessage = [](std::string const&, Glob* sender) {
        GlobManager::instance().requestDeletion(sender);
    };
    driver.click(box, inside(box));
    driver.processEvents();
    EXPECT_FALSE(EventHandler::valid(box, stamp));
    EXPECT_EQ(window->messages, (std::vector<std::string>{"Checkbox TICKED"}));
}

// Focus

TEST_F(Checkboxes, TabMovesTheFocusRoundTheBoxesOfAFormAndSpaceTicksTheFocusedOne) {
    std::vector<Checkbox*> boxes;
    for (int i = 0; i < 3; ++i) {
        boxes.push_back(addBox({20, 20 + 40 * i}));
        window->addTabStop(*boxes.back(), TabOrderManager::AfterAll);
    }
    boxes[0]->claimKbdFocus();
    std::vector<Glob*> seen;
    for (int i = 0; i < 3; ++i) {
        driver.keyPress(KeyCodes::Tab);
        seen.push_back(get_kbd_focus());
    }
    EXPECT_EQ(seen, (std::vector<Glob*>{boxes[1], boxes[2], boxes[0]}));
    driver.keyPress(KeyCodes::Shift | KeyCodes::Tab);
    driver.keyPress(KeyCodes::Space);
    EXPECT_EQ(std::vector<bool>({boxes[0]->getState(), boxes[1]->getState(), boxes[2]->getState()}),
              (std::vector<bool>{false, false, true}));

    boxes[1]->setActive(false, Redraw);
    driver.keyPress(KeyCodes::Tab);
    EXPECT_EQ(get_kbd_focus(), boxes[0]);
    driver.keyPress(KeyCodes::Tab);
    EXPECT_EQ(get_kbd_focus(), boxes[2]);
}

// Look

TEST_F(Checkboxes, ALampShowsItsColourLitWhenTickedAndDimWhenClear) {
    Checkbox* box = addBox();
    box->setAppearance(Checkbox::GreenLamp);
    Box const lamp = box->getTickExtents();
    Colour const green(0.5, 0.75, 0.43);
    Colour const window3 = box->getPalette().window(WindowShadeBase);
    driver.processEvents();
    EXPECT_TRUE(near(driver.pixel(box, XY<int>(lamp.x1 + 2, centreOf(lamp).y)),
                     Colour::mix(green, window3, 0.9)));
    box->setState(true, false);
    box->update();
    driver.processEvents();
    EXPECT_TRUE(near(driver.pixel(box, XY<int>(lamp.x1 + 2, centreOf(lamp).y)), green));
    EXPECT_TRUE(near(driver.pixel(box, centreOf(lamp)), box->getPalette().scale(green, 1.25)));
}

TEST_F(Checkboxes, TheTickSitsAtTheChosenSideAndOnlyATickedBoxShowsIt) {
    Checkbox* box = addBox();
    box->setText(UIString(L""));
    Box right = box->getTickExtents();
    EXPECT_GT(right.x1, box->width() / 2);
    box->setTickPosition(Checkbox::TickLeft);
    Box left = box->getTickExtents();
    EXPECT_LT(left.x2, box->width() / 2);
    EXPECT_EQ(left.width(), right.width());
    EXPECT_EQ(box->width() - right.x2, left.x1);

    auto darkPixels = [&] {
        int n = 0;
        for (int x = left.x1; x < left.x2; ++x)
            for (int y = left.y1; y < left.y2; ++y)
                n += driver.pixel(box, XY<int>(x, y)).r < 0.3f ? 1 : 0;
        return n;
    };
    driver.processEvents();
    EXPECT_EQ(darkPixels(), 0);
    box->setState(true, false);
    box->update();
    driver.processEvents();
    EXPECT_GT(darkPixels(), 3);
    box->setAppearance(Checkbox::NoBoxNoTick);
    driver.processEvents();
    EXPECT_EQ(darkPixels(), 0);
}

// A host's value: a level that a check box shows as on (above zero) or off, and a slider shows as
// it is. Both widgets reach the one server through adaptors; neither knows of the other.
TEST_F(Checkboxes, ACheckboxAndASliderOnOneServerShowTheSameValueAfterEitherIsUsed) {
    struct LevelAdaptor : ValAdaptorBase<bool>, ValClient<double> {
        explicit LevelAdaptor(ValServer<double>* server) { registerWith(server); }
        bool getDataValue() override { return getServerValue() > 0.0; }
        int requestSetNewDataValue(bool const& on, DataChangeType) override {
            setServerValue(on ? 1.0 : 0.0);
            return 1;
        }
        void valChangedNtfy() override { setNewWidgetValue(getDataValue(), Redraw); }
    };
    ValServer<double> level(0.0);
    Checkbox* box = addBox();
    box->setDataAdaptor(Qor::makePtr<LevelAdaptor>(&level));
    auto* slider = window->createWidget<Slider>(
        Slider::InitArgs(200, (unsigned short)UifStd::getRowHeight()), Glob::BottomLeft(20, 80));
    slider->setDataAdaptor(Qor::makePtr<ServerAdaptor<double>>(&level));
    slider->update();

    driver.click(box, inside(box));
    EXPECT_EQ(level.getValue(), 1.0);
    EXPECT_EQ(slider->getWidgetValue(), 1.0);

    int y = slider->height() / 2;
    driver.drag(slider, {int(slider->v2x(1.0)), y}, {int(slider->getStartPixel()), y});
    EXPECT_EQ(level.getValue(), 0.0);
    EXPECT_FALSE(box->getState());

    driver.drag(slider, {int(slider->getStartPixel()), y}, {int(slider->v2x(0.5)), y});
    EXPECT_GT(level.getValue(), 0.4);
    EXPECT_TRUE(box->getState());
    EXPECT_EQ(slider->getWidgetValue(), level.getValue());
}
