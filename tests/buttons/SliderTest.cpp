#include "buttons/Slider.h"

#include "RecordingPanel.h"

#include "glob/GlobManager.h"
#include "support/DecimalCommaLocale.h"
#include "testing/UiTestDriver.h"

#include <gtest/gtest.h>

#include <cmath>
#include <string>
#include <vector>

namespace {

struct Told {
    Slider::eEventType kind;
    double value;
    bool operator==(Told const&) const = default;
};

// The run of a 200-pixel slider is 6..194 with the standard measures: 188 pixels.
struct Sliders : ::testing::Test {
    UiTestDriver driver;
    RecordingPanel* owner = nullptr;
    std::vector<Told> told;
    ValServer<double> server{0.5};
    Qor::Ptr<ServerAdaptor<double>> adaptor = Qor::makePtr<ServerAdaptor<double>>(&server);

    void SetUp() override {
        owner = makeRecordingWindow();
        driver.processEvents();
    }

    Slider* make(Slider::InitArgs args, XY<int> where = {20, 20}) {
        args.canvas = owner->canvas();
        args.palette = owner->getPalette();
        if (args.width == 0)
            args.width = args.orientation == OrientationHorizontal ? 200 : 22;
        if (args.height == 0)
            args.height = args.orientation == OrientationHorizontal ? 22 : 200;
        auto* slider = new Slider(args);
        owner->addChild(slider, Glob::BottomLeft(where));
        slider->update();
        driver.processEvents();
        return slider;
    }
    static Slider::InitArgs at(double position, WidgetCallback const& callback = {}) {
        Slider::InitArgs args;
        args.position = position;
        args.callback = callback;
        return args;
    }
    WidgetCallback recorder(std::function<void()> also = {}) {
        return WidgetCallback(Qor::makeCallback<NotifyMsg>([this, also](NotifyMsg const& msg) {
                                  auto* e = dynamic_cast<Slider::Event*>(msg.getData().get());
                                  told.push_back({e->kind(), e->value()});
                                  if (also)
                                      also();
                                  return 0;
                              }),
                              "moved");
    }
};

bool isRed(NormalisedRGB const& c) {
    return c.r > 0.9f && c.g < 0.1f && c.b < 0.1f;
}

} // namespace

// Mouse

TEST_F(Sliders, DraggingTellsTheParentOfEachChangeAndOnceOfTheReleaseInAnyLocale) {
    // The message text keeps its point under a decimal comma (when the machine has one).
    DecimalCommaLocale comma;
    Slider* slider = make(at(0.5));
    // The thumb is centred on pixel 100; the grab is 3 pixels right of its centre.
    driver.mouseDown(slider, {103, 11});
    driver.mouseMove(slider, {123, 11});
    driver.mouseMove(slider, {143, 11});
    driver.mouseUp(slider, {143, 11});
    driver.processEvents();
    EXPECT_EQ(owner->messages, (std::vector<std::string>{"slider 0.611000", "slider 0.718000",
                                                         "slider_released 0.718000"}));
    EXPECT_EQ(owner->senders.front(), slider);
    EXPECT_FALSE(slider->isThumbHeld());
}

TEST_F(Sliders, ACallbackHearsChangesAndTheReleaseAndTheAdaptorHearsTheDragsStages) {
    Slider* slider = make(at(0.5, recorder()));
    slider->setDataAdaptor(adaptor);
    driver.drag(slider, {100, 11}, {53, 11}, 2);
    EXPECT_EQ(told.back(), (Told{Slider::Released, 0.255}));
    EXPECT_EQ(told.front().kind, Slider::Changed);
    EXPECT_EQ(told.size(), 3u);
    EXPECT_EQ(adaptor->types, (std::vector<DataChangeType>{DragStart, DragStep, DragEnd}));
    EXPECT_EQ(server.getValue(), 0.255);
    EXPECT_TRUE(owner->messages.empty());
}

TEST_F(Sliders, AClickOnTheThumbOnlyReleasesItAndAClickOffItJumpsThereAsOneChange) {
    Slider* slider = make(at(0.5));
    slider->setDataAdaptor(adaptor);
    driver.click(slider, {100, 11});
    EXPECT_TRUE(adaptor->types.empty());
    driver.click(slider, {53, 11});
    driver.processEvents();
    EXPECT_EQ(owner->messages,
              (std::vector<std::string>{"slider_released 0.500000", "slider 0.255000",
                                        "slider_released 0.255000"}));
    EXPECT_EQ(adaptor->types, (std::vector<DataChangeType>{SetByProgram}));
    EXPECT_FALSE(slider->isThumbHeld());
}

TEST_F(Sliders, TheWheelStepsByTheIncrementAndAZeroIncrementIsAFiveHundredthOfTheRange) {
    Slider::InitArgs args = at(9.97, recorder());
    args.maximum = 10.0;
    Slider* slider = make(args);
    driver.wheel(slider, {30, 11}, 1);
    EXPECT_NEAR(slider->getPosition(), 9.99, 1e-9);
    driver.wheel(slider, {30, 11}, 1);
    driver.wheel(slider, {30, 11}, 1);
    // Stopped at the top, and silent there.
    EXPECT_EQ(slider->getPosition(), 10.0);
    EXPECT_EQ(told.size(), 4u);
    driver.wheel(slider, {30, 11}, -3);
    EXPECT_NEAR(slider->getPosition(), 9.98, 1e-9);
    slider->setIncrement(0.5);
    driver.wheel(slider, {30, 11}, -1);
    EXPECT_NEAR(slider->getPosition(), 9.48, 1e-9);
}

TEST_F(Sliders, AChordSnapsToTheNearestPointOfInterestAndDropsTheThumb) {
    server = 0.6;
    Slider* slider = make(at(0.6, recorder()));
    slider->setDataAdaptor(adaptor);
    slider->setPointsOfInterest({{0.25}, {0.75}});
    int thumb = int(std::lround(slider->v2x(0.6)));
    driver.mouseDown(slider, {thumb, 11}, 1);
    driver.mouseDown(slider, {thumb, 11}, 3);
    EXPECT_EQ(told, (std::vector<Told>{{Slider::Changed, 0.75}, {Slider::Released, 0.75}}));
    EXPECT_EQ(adaptor->types, (std::vector<DataChangeType>{SetByProgram}));
    EXPECT_FALSE(slider->isThumbHeld());
    driver.mouseMove(slider, {thumb + 30, 11});
    driver.mouseUp(slider, {thumb + 30, 11}, 1);
    EXPECT_EQ(told.size(), 2u);
    EXPECT_EQ(server.getValue(), 0.75);
}

TEST_F(Sliders, AnInactiveSliderIgnoresTheMouse) {
    Slider* slider = make(at(0.5, recorder()));
    slider->setActive(false, Redraw);
    driver.drag(slider, {100, 11}, {150, 11});
    driver.click(slider, {30, 11});
    driver.wheel(slider, {30, 11}, 1);
    EXPECT_TRUE(told.empty());
    EXPECT_EQ(slider->getPosition(), 0.5);
}

// Mapping

TEST_F(Sliders, PixelValuesAreExactAtTheEndsAndTheRoundestTheyCoverInBetween) {
    struct Range {
        double minimum, maximum;
    } const ranges[] = {{0.0, 1.0}, {-3.7, 12.345}, {0.1, 0.3}, {10.0, -10.0}};
    for (Range const& range : ranges) {
        Slider::InitArgs args;
        args.minimum = range.minimum;
        args.maximum = range.maximum;
        Slider* slider = make(args);
        double start = slider->getStartPixel(), end = slider->getEndPixel();
        EXPECT_EQ(slider->x2v(start), range.minimum);
        EXPECT_EQ(slider->x2v(end), range.maximum);
        auto raw = [&](double x) {
            return range.minimum + (x - start) / (end - start) * (range.maximum - range.minimum);
        };
        for (double x = start + 1; x < end; ++x) {
            double v = slider->x2v(x);
            EXPECT_GE(v, std::min(raw(x), raw(x + 1)) - 1e-12) << x;
            EXPECT_LE(v, std::max(raw(x), raw(x + 1)) + 1e-12) << x;
            EXPECT_NEAR(v * 1000, std::round(v * 1000), 1e-6) << x;
        }
        slider->setRoundedPixelValues(false);
        EXPECT_NEAR(slider->x2v(slider->v2x(range.minimum * 0.3 + range.maximum * 0.7)),
                    range.minimum * 0.3 + range.maximum * 0.7, 1e-9);
        delete slider;
    }
}

// Binding and lifetime

TEST_F(Sliders, TwoSlidersBoundToOneServerShowTheSameValueAfterEitherIsDragged) {
    Slider* across = make(at(0.0), {20, 20});
    Slider::InitArgs args = at(0.0);
    args.orientation = OrientationVertical;
    Slider* upright = make(args, {300, 20});
    across->setDataAdaptor(adaptor);
    upright->setDataAdaptor(adaptor);
    EXPECT_EQ(upright->getPosition(), 0.5);
    driver.drag(across, {100, 11}, {140, 11});
    EXPECT_EQ(upright->getPosition(), 0.718);
    // The thumb's centre line is drawn at the value's pixel.
    EXPECT_TRUE(isRed(driver.pixel(upright, {11, 141})));
    driver.drag(upright, {11, 141}, {11, 53});
    EXPECT_EQ(across->getPosition(), 0.255);
    EXPECT_EQ(server.getValue(), 0.255);
    EXPECT_TRUE(isRed(driver.pixel(across, {54, 11})));
}

TEST_F(Sliders, ACallbackThatDeletesTheSliderEndsTheDragSafely) {
    Slider* slider = nullptr;
    slider = make(at(0.5, recorder([&] { GlobManager::instance().requestDeletion(slider); })));
    driver.mouseDown(slider, {100, 11});
    driver.mouseMove(slider, {120, 11});
    EXPECT_FALSE(is_good_glob_ptr(slider));
    driver.mouseMove(owner, {160, 31});
    driver.mouseUp(owner, {160, 31});
    driver.wheel(owner, {100, 31}, 1);
    EXPECT_EQ(told.size(), 1u);
}
