#include "buttons/ColRect.h"

#include "LabelWindow.h"
#include "support/ColourMatch.h"
#include "testing/UiTestDriver.h"

#include <gtest/gtest.h>

namespace {

class ColourAdaptor : public ValAdaptorBase<ColourData> {
public:
    ColourData getDataValue() override { return value; }
    int requestSetNewDataValue(ColourData const& v, DataChangeType) override {
        value = v;
        setNewWidgetValue(value, Redraw);
        return 1;
    }
    ColourData value{0.18, 0.48, 0.92};
};

struct Swatches : ::testing::Test {
    UiTestDriver driver;
    RecordingGlob* window = makeWindow({100, 100}, {300, 200});
};

} // namespace

TEST_F(Swatches, AColRectShowsItsAdaptorsColourAndSpellsItOutInItsTip) {
    auto* swatch = addLabel<ColRect>(window, ColRect::InitArgs(ColourData(), 40, 30));
    auto adaptor = Qor::makePtr<ColourAdaptor>();
    swatch->setDataAdaptor(adaptor);
    swatch->update();
    EXPECT_TRUE(nearColour(driver.pixel(swatch, {20, 15}), NormalisedRGB(0.18f, 0.48f, 0.92f)));
    wchar_t const* spelt = L"R : 0.18, G : 0.48, B : 0.92, A : 1";
    EXPECT_EQ(swatch->contextString({}, nullptr).getString(), spelt);
    EXPECT_EQ(swatch->getTooltipDetails({}, nullptr).text.getString(), spelt);
    adaptor->requestSetNewDataValue(ColourData(1.0, 0.5, 0.0, ColourSpace::RGB, 0.25),
                                    SetByProgram);
    EXPECT_EQ(swatch->contextString({}, nullptr).getString(), L"R : 1, G : 0.5, B : 0, A : 0.25");
}

TEST_F(Swatches, ATranslucentColourShowsOverAChequerAndAnOpaqueOneIsEven) {
    auto* swatch =
        addLabel<ColourSwatch>(window, ColourSwatch::InitArgs(Colour(0.0, 0.0, 1.0), 60, 30));
    driver.processEvents();
    EXPECT_EQ(driver.pixel(swatch, {3, 3}), driver.pixel(swatch, {12, 3}));
    swatch->setColour(Colour(0.0, 0.0, 1.0), 0.5);
    EXPECT_TRUE(nearColour(driver.pixel(swatch, {3, 3}), NormalisedRGB(0.5f, 0.5f, 1.0f)));
    EXPECT_TRUE(nearColour(driver.pixel(swatch, {12, 3}), NormalisedRGB(0.375f, 0.375f, 0.875f)));
}
