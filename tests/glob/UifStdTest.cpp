#include "glob/UifStd.h"

#include <gtest/gtest.h>

#include <array>
#include <vector>

namespace {

// Every test starts from the default theme at scale 1.
class UifStdTest : public testing::Test {
protected:
    void SetUp() override {
        UifStd::setScale(1.0);
        UifStd::setTheme({});
    }
    void TearDown() override {
        UifStd::setTheme({});
        UifStd::setScale(0.0);
    }
};

// Widget gap, row height, row gap, indent width, title height and edge size.
std::array<int, 6> measures() {
    return {UifStd::getWidgetGap(),   UifStd::getRowHeight(),   UifStd::getRowGap(),
            UifStd::getIndentWidth(), UifStd::getTitleHeight(), UifStd::getEdgeSize()};
}

TEST_F(UifStdTest, MeasuresFollowTheScaleRounded) {
    EXPECT_EQ(measures(), (std::array<int, 6>{4, 22, 2, 2, 24, 2}));
    UifStd::setScale(2.0);
    EXPECT_EQ(measures(), (std::array<int, 6>{8, 44, 4, 4, 48, 4}));
    UifStd::setScale(1.5);
    EXPECT_EQ(UifStd::calcScaledValue(3), 5) << "rounded, not truncated";
}

TEST_F(UifStdTest, DefaultThemeIsBuiltOnceFromTheMeasuresAndKeptAsHandedOut) {
    auto const theme = UifStd::getTheme();
    ASSERT_TRUE(theme);
    EXPECT_EQ(theme, UifStd::getTheme()) << "made once";
    EXPECT_EQ(UifStd::getColourScheme(), Palette());
    EXPECT_EQ((std::array<int, 5>{theme->widgetGap, theme->rowHeight, theme->indentWidth,
                                  theme->titleHeight, theme->edgeSize}),
              (std::array<int, 5>{4, 22, 2, 24, 2}));
    EXPECT_EQ(theme->titleFont, UifStd::getTitleFont());

    UifStd::setScale(2.0);
    EXPECT_EQ(UifStd::getTheme()->rowHeight, 44);
    EXPECT_EQ(theme->rowHeight, 22) << "a theme handed out does not change";
}

TEST_F(UifStdTest, TitleAndSubheadingFontsAreBoldForms) {
    Glib::FontDesc const font = UifStd::getFont();
    Glib::FontDesc const title = UifStd::getTitleFont();
    Glib::FontDesc const subheading = UifStd::getSubheadingFont();
    EXPECT_EQ(font.style & Glib::FontDesc::Bold, 0u);
    EXPECT_NE(title.style & Glib::FontDesc::Bold, 0u);
    EXPECT_GT(title.size, font.size);
    EXPECT_NE(subheading.style & Glib::FontDesc::Bold, 0u);
    EXPECT_EQ(subheading.size, font.size);
}

TEST_F(UifStdTest, SetThemeValueAnnouncesOnceWithMaskOne) {
    std::vector<unsigned> first, second;
    auto const a = UifStd::addThemeListener([&](unsigned mask) { first.push_back(mask); });
    auto const b = UifStd::addThemeListener([&](unsigned mask) { second.push_back(mask); });

    auto const before = UifStd::getTheme();
    UifStd::setThemeValue("panelcorners", L"true");
    EXPECT_EQ(first, std::vector<unsigned>{1});
    EXPECT_EQ(second, std::vector<unsigned>{1});
    EXPECT_TRUE(UifStd::getTheme()->get("panelcorners", false));
    EXPECT_FALSE(before->get("panelcorners", false)) << "a theme handed out does not change";

    UifStd::setThemeValue("panelcorners", L"true");
    EXPECT_EQ(first.size(), 1u) << "an unchanged value is no change";
    UifStd::setThemeValue("panelcorners", L"false");
    EXPECT_EQ(first.size(), 2u);
}

TEST_F(UifStdTest, DroppedListenerIsNotCalledAgainEvenWhenAnEarlierListenerDropsIt) {
    int laterCalls = 0;
    Qor::Ptr<iObject> later = UifStd::addThemeListener([&](unsigned) { ++laterCalls; });
    UifStd::setThemeValue("titlescale", L"1.2");
    EXPECT_EQ(laterCalls, 1);
    later = nullptr;
    UifStd::setThemeValue("titlescale", L"1.3");
    EXPECT_EQ(laterCalls, 1);

    auto const earlier = UifStd::addThemeListener([&](unsigned) { later = nullptr; });
    later = UifStd::addThemeListener([&](unsigned) { ++laterCalls; });
    UifStd::setThemeValue("edgescale", L"0.3");
    EXPECT_EQ(laterCalls, 1);
}

TEST_F(UifStdTest, ListenerMayChangeTheThemeAgain) {
    int calls = 0;
    auto const handle = UifStd::addThemeListener([&](unsigned) {
        if (++calls == 1)
            UifStd::setThemeValue("edgelight", L"false");
    });
    UifStd::setThemeValue("edgedark", L"false");
    EXPECT_EQ(calls, 2);
    EXPECT_FALSE(UifStd::getTheme()->get("edgelight", true));
}

TEST_F(UifStdTest, SetThemeReplacesTheThemeAndEmptyRestoresTheDefault) {
    int calls = 0;
    auto const handle = UifStd::addThemeListener([&](unsigned) { ++calls; });
    auto custom = Qor::makePtr<UIAppearanceSettings>();
    custom->palette = Palette(Colour(0.2, 0.2, 0.2));
    UifStd::setTheme(custom);
    EXPECT_EQ(calls, 1);
    EXPECT_EQ(UifStd::getTheme(), custom);
    EXPECT_EQ(UifStd::getColourScheme(), custom->palette);

    UifStd::setTheme({});
    EXPECT_EQ(calls, 2);
    EXPECT_EQ(UifStd::getColourScheme(), Palette());
}

} // namespace
