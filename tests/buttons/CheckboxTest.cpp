#include "buttons/Checkbox.h"

#include "buttons/Slider.h"

#include "RecordingPanel.h"
#include "glob/UifStd.h"
#include "support/ColourMatch.h"
#include "testing/UiTestDriver.h"

#include <gtest/gtest.h>

#include <cmath>

namespace {

struct Checkboxes : ::testing::Test {
    UiTestDriver driver;
    RecordingPanel* window = makeRecordingWindow();

    Checkbox* addBox(XY<int> at = {20, 20}) {
        Checkbox::InitArgs args(UIString(L"Loop playback"), false, 160,
                                (unsigned short)UifStd::getRowHeight());
        auto* box = window->createWidget<Checkbox>(args, Glob::BottomLeft(at));
        box->update();
        return box;
    }
    XY<int> inside(Checkbox* box) const { return XY<int>(box->width() / 2, box->height() / 2); }
};

// Lamps are blended, so their colours are matched a little more loosely.
bool near(NormalisedRGB const& a, Colour const& c) {
    return nearColour(a, c, 0.03);
}

XY<int> centreOf(Box const& b) {
    return XY<int>((b.x1 + b.x2) / 2, (b.y1 + b.y2) / 2);
}

} // namespace

// Telling the owner

TEST_F(Checkboxes, ClicksAndKeysToggleAnActiveBoxAndTellTheParentButSetStateTellsNobody) {
    Checkbox* box = addBox();
    driver.click(box, inside(box));
    EXPECT_TRUE(box->getState());
    driver.click(box, inside(box));
    EXPECT_FALSE(box->getState());
    box->claimKbdFocus();
    driver.keyPress(KeyCodes::Space);
    driver.keyPress(KeyCodes::Return);
    EXPECT_EQ(window->messages, (std::vector<std::string>{"Checkbox TICKED", "Checkbox CLEAR",
                                                          "Checkbox TICKED", "Checkbox CLEAR"}));
    EXPECT_EQ(window->senders, (std::vector<Glob*>(4, box)));

    box->setActive(false, Redraw);
    driver.keyPress(KeyCodes::Space);
    driver.click(box, inside(box));
    box->setActive(true, Redraw);
    box->setClicksEnabled(false);
    driver.click(box, inside(box));
    EXPECT_FALSE(box->getState());

    box->setBoldWhenTicked(true);
    box->setState(true, false);
    EXPECT_EQ(box->getFont().style & Glib::FontDesc::Bold, unsigned(Glib::FontDesc::Bold));
    box->setState(false, true);
    EXPECT_EQ(box->getFont().style & Glib::FontDesc::Bold, 0u);
    EXPECT_EQ(window->messages.size(), 4u);
}

TEST_F(Checkboxes, APrefixGoesAloneOrWithTheStateAndAMessageNameOrCallbackCarriesTheChange) {
    Checkbox* box = addBox();
    box->setMsgPrefix("loop", false);
    driver.click(box, inside(box));
    box->setMsgPrefix("loop ", true);
    driver.click(box, inside(box));
    EXPECT_EQ(window->messages, (std::vector<std::string>{"loop", "loop CLEAR"}));

    box->setMessage("loopChanged");
    driver.click(box, inside(box));
    ASSERT_EQ(window->dataMessages, (std::vector<std::string>{"loopChanged"}));
    auto change = Qor::dynamic_ptr_cast<Checkbox::Change>(window->lastData);
    ASSERT_TRUE(change);
    EXPECT_TRUE(change->newState);
    EXPECT_EQ(change->sender, box);
    EXPECT_EQ(window->senders.back(), box);

    std::vector<std::pair<std::string, bool>> heard;
    Checkbox* sender = nullptr;
    box->setCallback(Qor::makeCallback<NotifyMsg>([&](NotifyMsg const& msg) {
                         auto change = Qor::dynamic_ptr_cast<Checkbox::Change>(msg.getData());
                         heard.emplace_back(msg.getName().c_str(), change->newState);
                         sender = change->sender;
                         return 0;
                     }),
                     "heard");
    driver.click(box, inside(box));
    driver.click(box, inside(box));
    EXPECT_EQ(heard,
              (std::vector<std::pair<std::string, bool>>{{"heard", false}, {"heard", true}}));
    EXPECT_EQ(sender, box);
    EXPECT_EQ(window->messages.size() + window->dataMessages.size(), 3u);
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
        bool afterPress, afterRelease;
    } const cases[] = {{Checkbox::OnMouseDown, true, true},
                       {Checkbox::OnMouseUp, false, true},
                       {Checkbox::Never, false, false}};
    for (Case const& c : cases) {
        SCOPED_TRACE(c.generation);
        Checkbox* box = addBox({20 + 170 * int(&c - cases), 20});
        box->setMessageGeneration(c.generation);
        driver.mouseMove(box, inside(box));
        driver.mouseDown(box, inside(box));
        EXPECT_EQ(box->getState(), c.afterPress);
        driver.mouseUp(box, inside(box));
        EXPECT_EQ(box->getState(), c.afterRelease);
        EXPECT_EQ(window->messages.size(), c.afterRelease ? 1u : 0u);
        window->messages.clear();
    }
}

// Value binding

TEST_F(Checkboxes, BoxesShareAServerOutlivingEitherSideAndAloneABoxTogglesOnItsOwn) {
    Checkbox* box = addBox();
    Checkbox* other = addBox({200, 20});
    Qor::Ptr<ServerAdaptor<bool>> adaptor;
    {
        ValServer<bool> server(false);
        adaptor = Qor::makePtr<ServerAdaptor<bool>>(&server);
        box->setDataAdaptor(adaptor);
        other->setDataAdaptor(adaptor);
        server = true;
        EXPECT_TRUE(box->getState());
        EXPECT_TRUE(other->getState());
        EXPECT_TRUE(adaptor->types.empty());

        Glob* doomed = other;
        window->removeWidget(doomed, true);
        EXPECT_EQ(adaptor->attachedWidgets().size(), 1u);
        driver.click(box, inside(box));
        EXPECT_FALSE(server.getValue());
        EXPECT_FALSE(box->getState());
        EXPECT_EQ(adaptor->types, (std::vector<DataChangeType>{SetByProgram}));
    }
    driver.click(box, inside(box));
    EXPECT_TRUE(box->getState());
    driver.click(box, inside(box));
    EXPECT_EQ(window->messages,
              (std::vector<std::string>{"Checkbox CLEAR", "Checkbox TICKED", "Checkbox CLEAR"}));
}

// Deletion from a notification

TEST_F(Checkboxes, ACallbackOrTheParentMayDeleteTheBoxThatSpeaks) {
    Checkbox* own = addBox();
    Checkbox* told = addBox({200, 20});
    IdStamp ownStamp = own->getIdStamp();
    IdStamp toldStamp = told->getIdStamp();
    own->setCallback(Qor::makeCallback<NotifyMsg>([own](NotifyMsg const&) {
                         GlobManager::instance().requestDeletion(own);
                         return 0;
                     }),
                     "bye");
    window->onMessage = [](std::string const&, Glob* sender) {
        GlobManager::instance().requestDeletion(sender);
    };
    driver.click(own, inside(own));
    driver.processEvents();
    EXPECT_FALSE(EventHandler::valid(own, ownStamp));
    driver.click(told, inside(told));
    driver.processEvents();
    EXPECT_FALSE(EventHandler::valid(told, toldStamp));
    EXPECT_EQ(window->widgetCount(), 0u);
    EXPECT_EQ(window->messages, (std::vector<std::string>{"Checkbox TICKED"}));
}

// Focus

TEST_F(Checkboxes, TabMovesTheFocusRoundTheActiveBoxesOfAFormAndSpaceTicksTheFocusedOne) {
    std::vector<Checkbox*> boxes;
    for (int i = 0; i < 3; ++i) {
        boxes.push_back(addBox({20, 20 + 40 * i}));
        window->addTabStop(*boxes.back(), TabOrderManager::AfterAll);
    }
    boxes[0]->claimKbdFocus();
    driver.keyPress(KeyCodes::Tab);
    EXPECT_EQ(get_kbd_focus(), boxes[1]);
    driver.keyPress(KeyCodes::Shift | KeyCodes::Tab);
    driver.keyPress(KeyCodes::Shift | KeyCodes::Tab);
    EXPECT_EQ(get_kbd_focus(), boxes[2]);
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

TEST_F(Checkboxes, TheTickSitsAtTheChosenSideAndShowsWhenTickedOrAsALampLitOrDim) {
    Checkbox* box = addBox();
    box->setText(UIString(L""));
    Box right = box->getTickExtents();
    EXPECT_GT(right.x1, box->width() / 2);
    box->setTickPosition(Checkbox::TickLeft);
    Box const left = box->getTickExtents();
    EXPECT_LT(left.x2, box->width() / 2);
    EXPECT_EQ(left.width(), right.width());
    EXPECT_EQ(box->width() - right.x2, left.x1);

    auto darkPixels = [&] {
        driver.processEvents();
        int n = 0;
        for (int x = left.x1; x < left.x2; ++x)
            for (int y = left.y1; y < left.y2; ++y)
                n += driver.pixel(box, XY<int>(x, y)).r < 0.3f ? 1 : 0;
        return n;
    };
    EXPECT_EQ(darkPixels(), 0);
    box->setState(true, false);
    box->update();
    EXPECT_GT(darkPixels(), 3);
    box->setAppearance(Checkbox::NoBoxNoTick);
    EXPECT_EQ(darkPixels(), 0);

    box->setAppearance(Checkbox::GreenLamp);
    Box const lamp = box->getTickExtents();
    XY<int> const edge(lamp.x1 + 2, centreOf(lamp).y);
    Colour const green(0.5, 0.75, 0.43);
    driver.processEvents();
    EXPECT_TRUE(near(driver.pixel(box, edge), green));
    EXPECT_TRUE(near(driver.pixel(box, centreOf(lamp)), box->getPalette().scale(green, 1.25)));
    box->setState(false, false);
    box->update();
    driver.processEvents();
    EXPECT_TRUE(near(driver.pixel(box, edge),
                     Colour::mix(green, box->getPalette().window(WindowShadeBase), 0.9)));
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
