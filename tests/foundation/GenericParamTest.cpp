#include "foundation/GenericParam.h"
#include "glob/RecordingGlob.h"
#include "glob/UifStd.h"
#include "panels/StandardPanel.h"
#include "testing/UiTestDriver.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <utility>
#include <vector>

using namespace GenericParam;

namespace {

using Heard = std::vector<std::pair<std::string, std::wstring>>;

class RecordingHandler : public iValueChangeHandler {
public:
    void handleValueChange(LightweightString<char> const& id,
                           LightweightString<wchar_t> const& value) override {
        heard.emplace_back(id.c_str(), value.c_str());
    }
    Heard heard;
};

// Rounds every proposed number down to a whole one.
class WholeNumbers : public iValueConstraint {
public:
    LightweightString<wchar_t> constrain(LightweightString<wchar_t> const& proposed) override {
        double value = 0.0;
        DataConvert::convert(proposed, value);
        return DataConvert::convert<double, LightweightString<wchar_t>>(double(long(value)));
    }
};

class UiChangeGlob : public RecordingGlob {
public:
    using RecordingGlob::RecordingGlob;
    void handleUIChange(unsigned int mask) override {
        masks.push_back(mask);
        RecordingGlob::handleUIChange(mask);
    }
    std::vector<unsigned> masks;
};

std::wstring themeValue(char const* key) {
    LightweightString<wchar_t> text;
    if (!UifStd::getTheme()->find(key, text))
        return L"<absent>";
    return text.c_str();
}

Qor::Ptr<RecordingHandler> listenTo(iParam& param) {
    auto handler = Qor::makePtr<RecordingHandler>();
    param.addChangeHandler(handler);
    return handler;
}

UIString const legend(L"legend");
UIString const tip(L"tip");

} // namespace

TEST(GenericParam, EachTypeWritesItsValueAsTextAndReadsItBack) {
    BoolParam flag(legend, "flag", tip, true);
    DoubleParam number(legend, "number", tip, 0.25, -1.0, 1.0);
    ColourParam colour(legend, "colour", NormalisedRGB(0.5f, 0.25f, 1.0f), tip);
    ChoiceParam choice(legend, "choice", tip, {{L"a"}, {L"b"}, {L"c"}}, 1);
    struct Case {
        iParam& param;
        wchar_t const* written;
        wchar_t const* newText;
        char const* type;
    };
    for (Case const& c :
         {Case{flag, L"true", L"false", "bool"}, Case{number, L"0.25", L"-0.5", "double"},
          Case{colour, L"0.5,0.25,1,1", L"0,0.5,0.75,1", "colour"},
          Case{choice, L"1", L"2", "choice"}}) {
        SCOPED_TRACE(c.type);
        EXPECT_EQ(std::wstring(c.param.getValueAsString().c_str()), c.written);
        EXPECT_EQ(std::string(c.param.getValueType().c_str()), c.type);
        EXPECT_TRUE(c.param.setValueFromString(c.newText));
        EXPECT_EQ(std::wstring(c.param.getValueAsString().c_str()), c.newText);
        EXPECT_FALSE(c.param.setValueFromString(L"not a value"));
        EXPECT_EQ(std::wstring(c.param.getValueAsString().c_str()), c.newText);
    }
}

TEST(GenericParam, ADoubleKeepsToItsRangeFromTextTheServerAndItsOwnStart) {
    DoubleParam number(legend, "range", tip, 7.0, 0.5, 2.0);
    EXPECT_EQ(number.getValue(), 2.0);
    number.setValueFromString(L"-3");
    EXPECT_EQ(number.getValue(), 0.5);
    number.getServer() = 1.5;
    EXPECT_EQ(number.getValue(), 1.5);
    number.getServer() = 9.0;
    EXPECT_EQ(number.getValue(), 2.0);

    ChoiceParam choice(legend, "pick", tip, {{L"a"}, {L"b"}}, 0);
    choice.getServer() = 5;
    EXPECT_EQ(choice.getValue(), 1u);
}

TEST(GenericParam, ConstraintsCorrectAProposedValueAndHandlersHearWhatWasKept) {
    DoubleParam number(legend, "whole", tip, 1.75, 0.0, 10.0);
    auto handler = listenTo(number);
    number.addValueConstraint(Qor::makePtr<WholeNumbers>());
    // Already-held values are corrected only when asked for.
    EXPECT_EQ(number.getValue(), 1.75);
    number.enforceConstraints();
    EXPECT_EQ(number.getValue(), 1.0);

    EXPECT_TRUE(number.setValueFromString(L"4.9"));
    EXPECT_EQ(number.getValue(), 4.0);
    EXPECT_EQ(handler->heard, (Heard{{"whole", L"1"}, {"whole", L"4"}}));
}

TEST(GenericParam, ResetGoesBackToTheResetValueAndSendsNothingWhenAlreadyThere) {
    DoubleParam face(legend, "face", tip, 1.5, 0.5, 2.0);
    face.setResetValue(1.0);
    auto handler = listenTo(face);
    face.reset();
    EXPECT_EQ(face.getValue(), 1.0);
    face.reset();
    EXPECT_EQ(handler->heard, (Heard{{"face", L"1"}}));
}

TEST(GenericParam, ACloneHasItsOwnServerSettingsAndListeners) {
    DoubleParam original(legend, "orig", tip, 0.5, 0.0, 1.0);
    original.addValueConstraint(Qor::makePtr<WholeNumbers>());
    original.setPresentationHints(3);
    original.isActiveIf("other", L"true");
    auto handler = listenTo(original);

    Qor::Ptr<iParam> copy = original.clone();
    auto* number = dynamic_cast<DoubleParam*>(copy.get());
    ASSERT_NE(number, nullptr);
    EXPECT_EQ(number->getPresentationHints(), 3u);
    EXPECT_EQ(number->getRules().size(), 1u);
    number->setValueFromString(L"7.5");
    // The range and the constraint came along; the value and the handler did not leave.
    EXPECT_EQ(number->getValue(), 1.0);
    EXPECT_EQ(original.getValue(), 0.5);
    EXPECT_TRUE(handler->heard.empty());
    number->isVisibleIf("x", L"1");
    EXPECT_EQ(original.getRules().size(), 1u);
}

TEST(GenericParam, AnActionCountsItsTriggersAndAMultiKeepsOnlyBitsWithAChoice) {
    ActionParam action(legend, "act", tip);
    auto handler = listenTo(action);
    action.trigger();
    action.trigger();
    EXPECT_EQ(handler->heard, (Heard{{"act", L"1"}, {"act", L"2"}}));

    MultiParam multi(legend, "multi", tip, {{L"a"}, {L"b"}, {L"c"}}, 0xff);
    EXPECT_EQ(multi.getValue(), 7u);
    EXPECT_TRUE(multi.isChosen(2));
    EXPECT_FALSE(multi.isChosen(3));
}

TEST(ThemeRegistry, ARegisteredValueIsInTheMapAndItsChangesReachTheMapAndTheWidgets) {
    UiTestDriver driver;
    Glob::setupRootPos({100, 100});
    auto* window = new UiChangeGlob(GlobCreationInfo(200, 100));
    GlobManager::instance().realize(window);

    auto param = Qor::makePtr<DoubleParam>(legend, "test.registry", tip, 0.75, 0.0, 1.0);
    UifStd::registerThemeParam(param, UIString(L"group"), UIString(L"sub"));
    EXPECT_EQ(themeValue("test.registry"), L"0.75");
    window->masks.clear();

    param->setValueFromString(L"3");
    EXPECT_EQ(themeValue("test.registry"), L"1");
    EXPECT_EQ(UifStd::getTheme()->get<double>("test.registry", 0.0), 1.0);
    EXPECT_EQ(window->masks, (std::vector<unsigned>{1u}));

    // A later parameter of the same id is not followed, and does not replace the first.
    auto rival = Qor::makePtr<DoubleParam>(legend, "test.registry", tip, 0.25, 0.0, 1.0);
    UifStd::registerThemeParam(rival, UIString(L"group"), UIString(L"sub"));
    rival->setValueFromString(L"0.5");
    EXPECT_EQ(themeValue("test.registry"), L"1");
    GlobManager::instance().requestDeletion(window);
    driver.processEvents();
}

TEST(ThemeRegistry, StandardPanelRegistersEachOfItsKeysOnceWithItsDefault) {
    StandardPanel::registerUIThemeParams();
    StandardPanel::registerUIThemeParams();
    struct Key {
        char const* id;
        char const* type;
        std::wstring value;
    };
    std::wstring const heading = DataConvert::convert<NormalisedRGB, LightweightString<wchar_t>>(
                                     fromColour(Palette().headingText()))
                                     .c_str();
    std::vector<ThemeParamEntry> const entries = UifStd::getThemeParams();
    for (Key const& key :
         {Key{"panelcorners", "bool", L"false"}, Key{"headingcolour", "colour", heading},
          Key{"titlefontbold", "bool", L"true"}, Key{"titlebg", "double", L"0"},
          Key{"titlescale", "double", L"1"}, Key{"edgescale", "double", L"0.5"},
          Key{"edgedark", "bool", L"true"}, Key{"edgelight", "bool", L"true"}}) {
        SCOPED_TRACE(key.id);
        auto const count =
            std::count_if(entries.begin(), entries.end(), [&](ThemeParamEntry const& entry) {
                return entry.param->getID() == key.id;
            });
        EXPECT_EQ(count, 1);
        EXPECT_EQ(themeValue(key.id), key.value);
        auto const found =
            std::find_if(entries.begin(), entries.end(), [&](ThemeParamEntry const& entry) {
                return entry.param->getID() == key.id;
            });
        ASSERT_NE(found, entries.end());
        auto param = Qor::dynamic_ptr_cast<iParam>(found->param);
        ASSERT_TRUE(param);
        EXPECT_EQ(std::string(param->getValueType().c_str()), key.type);
    }
    auto range = std::find_if(entries.begin(), entries.end(), [](ThemeParamEntry const& entry) {
        return entry.param->getID() == "titlebg";
    });
    auto* titlebg = dynamic_cast<DoubleParam*>(range->param.get());
    ASSERT_NE(titlebg, nullptr);
    EXPECT_EQ(titlebg->getMin(), -0.25);
    EXPECT_EQ(titlebg->getMax(), 0.25);
}
