#include "buttons/Button.h"

#include "SpecialButtonOwner.h"

#include "buttons/CustomBorderButton.h"
#include "buttons/PushButton.h"
#include "foundation/ButtonAdaptor.h"
#include "foundation/DoubleParam.h"
#include "foundation/ValServer.h"
#include "glob/UIAppearanceSettings.h"
#include "glob/UifStd.h"

namespace {

struct Told {
    std::string name;
    int flags;
    bool operator==(Told const&) const = default;
};

XY<int> const inside(40, 12);
XY<int> const outside(120, 12);

struct Buttons : SpecialButtons {
    void TearDown() override { UifStd::setTheme({}); }

    PushButton* makeButton(WidgetCallback const& callback = WidgetCallback("go")) {
        return make<PushButton>(PushButton::InitArgs(UIString(L"Go"), callback, 80, 24));
    }
    // A button whose callback records what it is told.
    PushButton* makeRecordedButton(std::vector<Told>& told) {
        auto record = Qor::makeCallback<NotifyMsg>([&told](NotifyMsg const& msg) {
            told.push_back({msg.getName().c_str(), msg.getFlags()});
            return 0;
        });
        return makeButton(WidgetCallback(record, "go"));
    }
};

} // namespace

TEST_F(Buttons, AClickWithNoCallbackReachesThePanelAsAMessageFromTheButton) {
    PushButton* button = makeButton();
    driver.click(button, inside);
    ASSERT_EQ(panel->messages, (std::vector<std::string>{"go"}));
    EXPECT_EQ(panel->senders.front(), button);
    EXPECT_EQ(button->getState(), Button::up);
}

TEST_F(Buttons, PressDragOutAndBackInThenReleaseIsOneClickAndReleaseOutsideIsNone) {
    std::vector<Told> told;
    PushButton* button = makeRecordedButton(told);
    driver.mouseDown(button, inside);
    EXPECT_EQ(button->getState(), Button::down);
    driver.mouseMove(button, outside);
    EXPECT_EQ(button->getState(), Button::up);
    driver.mouseMove(button, inside);
    EXPECT_EQ(button->getState(), Button::down);
    driver.mouseUp(button, inside);
    EXPECT_EQ(told, (std::vector<Told>{{"go", 1}}));

    driver.mouseDown(button, inside);
    driver.mouseMove(button, outside);
    driver.mouseUp(button, outside);
    EXPECT_EQ(told.size(), 1u);
    EXPECT_EQ(button->getState(), Button::up);
}

TEST_F(Buttons, LatchingAndPressToldButtonsTellAtThePressesAndStayDownUntilTheNextPress) {
    std::vector<Told> told;
    PushButton* button = makeRecordedButton(told);
    button->setLatching(true, false);
    driver.click(button, inside);
    driver.mouseMove(button, outside);
    EXPECT_EQ(button->getState(), Button::down);
    driver.click(button, inside);
    EXPECT_EQ(button->getState(), Button::up);

    button->setLatching(false, false);
    button->setMessageOnMouseUp(false);
    driver.click(button, inside);
    EXPECT_EQ(button->getState(), Button::down);
    driver.click(button, inside);
    EXPECT_EQ(told, (std::vector<Told>{{"go on", 2}, {"go off", 1}, {"go", 2}, {"go", 1}}));
}

TEST_F(Buttons, HeldRepeatingButtonRepeatsAfterItsDelayOnTheVirtualClockUntilReleased) {
    std::vector<Told> told;
    PushButton* button = makeRecordedButton(told);
    // Ten a second after half a second, each figure halved: 250 ms, then every 50 ms.
    button->setRepeating(10, 0.5);
    driver.mouseDown(button, inside);
    driver.advanceTime(240);
    EXPECT_TRUE(told.empty());
    driver.advanceTime(60);
    ASSERT_EQ(told.size(), 1u);
    EXPECT_EQ(told[0], (Told{"", int(Button::RepeatEvent)}));
    driver.advanceTime(300);
    std::size_t const held = told.size();
    EXPECT_GE(held, 5u);
    EXPECT_LE(held, 7u);
    driver.mouseUp(button, inside);
    driver.advanceTime(500);
    EXPECT_EQ(told.size(), held + 1);
    EXPECT_EQ(told.back(), (Told{"go", 1}));
}

TEST_F(Buttons, ReturnAndSpaceClickTheFocusedButtonWithTheModifiersHeldThen) {
    PushButton* button = makeButton();
    button->claimKbdFocus();
    driver.setModifiers(KeyCodes::Shift);
    driver.keyPress(KeyCodes::Return);
    EXPECT_EQ(button->getModifiers(), unsigned(KeyCodes::Shift));
    driver.setModifiers(0);
    driver.keyPress(KeyCodes::Space);
    EXPECT_EQ(button->getModifiers(), 0u);
    EXPECT_EQ(panel->messages, (std::vector<std::string>{"go", "go"}));
    driver.keyPress('x');
    EXPECT_EQ(panel->messages.size(), 2u);
}

TEST_F(Buttons, AnInactiveButtonIgnoresClicksAndARightPressGoesOnToItsOwner) {
    PushButton* button = makeButton();
    button->setActive(false, Redraw);
    driver.click(button, inside);
    EXPECT_TRUE(panel->messages.empty());
    EXPECT_EQ(button->getState(), Button::up);
    EXPECT_EQ(button->contextCursor({0, 0}), CursorArrow);

    button->setEnabledState(true);
    EXPECT_EQ(button->contextCursor({0, 0}), CursorHand);
    panel->mouseCodes.clear();
    driver.mouseDown(button, inside, 3);
    EXPECT_EQ(panel->mouseCodes, (std::vector<int>{EventCode::RightPress}));
    EXPECT_TRUE(panel->messages.empty());
}

TEST_F(Buttons, ADragOfFourPixelsIsADragAndEndsThePressButThreeIsNot) {
    std::vector<Told> told;
    PushButton* button = makeRecordedButton(told);
    button->setMessageOnDrag(true);
    driver.mouseDown(button, inside);
    driver.mouseMove(button, {43, 12});
    EXPECT_TRUE(told.empty());
    driver.mouseMove(button, {44, 12});
    EXPECT_EQ(told, (std::vector<Told>{{"go dragged", 4}}));
    EXPECT_EQ(button->getState(), Button::up);
    driver.mouseUp(button, {44, 12});
    EXPECT_EQ(told.size(), 1u);
}

TEST_F(Buttons, ACallbackThatDeletesItsButtonLeavesNothingDangling) {
    PushButton* button = nullptr;
    auto close = Qor::makeCallback<NotifyMsg>([&](NotifyMsg const&) {
        Glob* gone = button;
        panel->removeWidget(gone, true);
        return 0;
    });
    button = makeButton(WidgetCallback(close, "go"));
    button->setRepeating(10, 0.5);
    driver.click(button, inside);
    driver.advanceTime(500);
    EXPECT_EQ(panel->widgetCount(), 0);

    PushButton* latched = makeButton(WidgetCallback(close, "latch"));
    button = latched;
    latched->setLatching(true, false);
    driver.click(latched, inside);
    driver.advanceTime(100);
    EXPECT_EQ(panel->widgetCount(), 0);
}

TEST_F(Buttons, AButtonAdaptorHearsClicksAndMayTakeMessages) {
    struct Adaptor : ButtonAdaptor<LightweightString<wchar_t>> {
        int clicks = 0;
        int messageReceived(LightweightString<char> name) override {
            return name == "mine" ? 1 : 0;
        }
        void widgetLeftClicked() override { ++clicks; }
    };
    auto adaptor = Qor::makePtr<Adaptor>();
    PushButton* button = makeButton();
    button->setDataAdaptor(adaptor);
    driver.click(button, inside);
    EXPECT_EQ(adaptor->clicks, 1);
    EXPECT_EQ(panel->callMsg(button, "mine"), 1);
    EXPECT_EQ(panel->callMsg(button, "other"), 0);
}

TEST_F(Buttons, ALabelBoundToAServerFollowsItAndANewTextIsAskedOfIt) {
    ValServer<LightweightString<wchar_t>> server(L"first");
    PushButton* a = makeButton();
    PushButton* b = makeButton();
    auto adaptor = Qor::makePtr<ServerAdaptor<LightweightString<wchar_t>>>(&server);
    a->setDataAdaptor(adaptor);
    b->setDataAdaptor(adaptor);
    EXPECT_EQ(b->getWidgetValue(), L"first");
    a->setString(UIString(L"second"));
    EXPECT_EQ(server.getValue(), L"second");
    EXPECT_EQ(b->getWidgetValue(), L"second");
}

TEST_F(Buttons, IconsShowInTheirStatesAndAnEmptyDownNameShowsTheUpIcon) {
    PushButton* button = makeButton();
    button->setIcons(L"pin.png", L"");
    ASSERT_TRUE(button->getCurrentIcon());
    Qor::Ptr<iHostImage> upIcon = button->getCurrentIcon();
    driver.mouseDown(button, inside);
    EXPECT_EQ(button->getCurrentIcon(), upIcon);
    driver.mouseUp(button, inside);

    button->setIcons(L"pin.png", L"pinned.png");
    driver.mouseDown(button, inside);
    EXPECT_NE(button->getCurrentIcon(), upIcon);
    driver.mouseUp(button, inside);
    button->setActive(false, Redraw);
    EXPECT_TRUE(button->getInactiveIcon());

    button->setIcons(L"", L"");
    EXPECT_FALSE(button->getCurrentIcon());
}

TEST_F(Buttons, FaceFollowsTheThemeUntilThePaletteIsSetAndAResetFaceReadsOne) {
    Button::registerUIThemeParams();
    PushButton* button = makeButton();
    button->setHighlightOnMouseOver(false);
    XY<int> face(6, 6);
    NormalisedRGB before = driver.pixel(button, face);

    Qor::Ptr<GenericParam::DoubleParam> shade;
    for (ThemeParamEntry const& entry : UifStd::getThemeParams())
        if (auto p = Qor::dynamic_ptr_cast<GenericParam::DoubleParam>(entry.param))
            if (p->getID() == "buttonface")
                shade = p;
    ASSERT_TRUE(shade);
    shade->setValueFromString(L"0.6");
    driver.processEvents();
    NormalisedRGB darker = driver.pixel(button, face);
    EXPECT_LT(darker.r + darker.g + darker.b, before.r + before.g + before.b - 0.3);

    shade->reset();
    EXPECT_EQ(UifStd::getTheme()->get<double>("buttonface", 0.0), 1.0);

    button->setPalette(Palette(Colour(0.2, 0.4, 0.6)));
    button->update();
    EXPECT_TRUE(shows(button, face, Colour(0.2, 0.4, 0.6)));
}

TEST_F(Buttons, ALowButtonDrawsNoTextAndCustomEdgesFollowTheState) {
    auto* low = make<PushButton>(
        PushButton::InitArgs(UIString(L"MMMMMM"), WidgetCallback("x"), 80, 7), {200, 20});
    low->setPalette(Palette(Colour(1.0, 1.0, 1.0), Colour(0.0, 0.0, 0.0)));
    low->setStyle(Button::Flat);
    low->update();
    for (int x = 5; x < 75; ++x)
        EXPECT_TRUE(shows(low, {x, 3}, Colour(1.0, 1.0, 1.0)));

    auto* edged = make<CustomBorderButton>(
        Button::InitArgs(UIString(L"e"), WidgetCallback("e"), 40, 20), {300, 20});
    EXPECT_EQ(edged->edgeColour(), edged->Button::edgeColour());
    edged->setUseCustomBorderColour(true);
    edged->setCustomBorderColours(Colour(1, 0, 0), Colour(0, 0, 1));
    EXPECT_EQ(edged->edgeColour(), Colour(1, 0, 0));
    driver.mouseDown(edged, {10, 10});
    EXPECT_EQ(edged->edgeColour(), Colour(0, 0, 1));
}

TEST_F(Buttons, PushButtonHeightFollowsTheThemeKey) {
    UIAppearanceSettings theme = *UifStd::getTheme();
    EXPECT_EQ(PushButton::calcHeight(theme), theme.titleHeight);
    theme.params["buttonheight"] = L"1.5";
    EXPECT_EQ(PushButton::calcHeight(theme), int(theme.titleHeight * 1.5 + 0.5));
}
