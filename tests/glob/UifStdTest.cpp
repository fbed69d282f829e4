#include "glob/UifStd.h"

#include <gtest/gtest.h>

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

struct Measures {
    unsigned short gap, rowHeight, rowGap, indent, titleHeight, edge;
};

Measures currentMeasures() {
    return {UifStd::getWidgetGap(),   UifStd::getRowHeight(),   UifStd::getRowGap(),
            UifStd::getIndentWidth(), UifStd::getTitleHeight(), UifStd::getEdgeSize()};
}

void expectMeasures(Measures const& m, Measures const& expected) {
    EXPECT_EQ(m.gap, expected.gap);
    EXPECT_EQ(m.rowHeight, expected.rowHeight);
    EXPECT_EQ(m.rowGap, expected.rowGap);
    EXPECT_EQ(m.indent, expected.indent);
    EXPECT_EQ(m.titleHeight, expected.titleHeight);
    EXPECT_EQ(m.edge, expected.edge);
}

TEST_F(UifStdTest, MeasuresFollowTheScale) {
    expectMeasures(currentMeasures(), {4, 22, 2, 2, 24, 2});
    UifStd::setScale(2.0);
    EXPECT_EQ(UifStd::getScale(), 2.0);
    expectMeasures(currentMeasures(), {8, 44, 4, 4, 48, 4});
    UifStd::setScale(1.5);
    EXPECT_EQ(UifStd::calcScaledValue(3), 5) << "rounded, not truncated";
    EXPECT_EQ(UifStd::calcScaledValue(0), 0);
}

TEST_F(UifStdTest, DefaultThemeIsBuiltFromTheMeasures) {
    auto const theme = UifStd::getTheme();
    ASSERT_TRUE(theme);
    EXPECT_EQ(theme, UifStd::getTheme()) << "made once";
    EXPECT_EQ(theme->palette, Palette());
    EXPECT_EQ(UifStd::getColourScheme(), theme->palette);
    EXPECT_TRUE(theme->params.empty());
    expectMeasures({theme->widgetGap, theme->rowHeight, 0, theme->indentWidth, theme->titleHeight,
                    theme->edgeSize},
                   {4, 22, 0, 2, 24, 2});
    EXPECT_EQ(theme->font, UifStd::getFont());
    EXPECT_EQ(theme->titleFont, UifStd::getTitleFont());

    UifStd::setScale(2.0);
    auto const scaled = UifStd::getTheme();
    EXPECT_EQ(scaled->rowHeight, 44);
    EXPECT_EQ(scaled->edgeSize, 4);
    EXPECT_EQ(theme->rowHeight, 22) << "a theme handed out does not change";
}

TEST_F(UifStdTest, TitleAndSubheadingFontsAreBoldForms) {
    Glib::FontDesc const font = UifStd::getFont();
    Glib::FontDesc const title = UifStd::getTitleFont();
    Glib::FontDesc const subheading = UifStd::getSubheadingFont();
    EXPECT_EQ(font.style & Glib::FontDesc::Bold, 0u);
    EXPECT_NE(title.style & Glib::FontDesc::Bold, 0u);
    EXPECT_GT(title.size, font.size);
    EXPECT_EQ(title.name, font.name);
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

TEST_F(UifStdTest, DroppedListenerIsNotCalledAgain) {
    int calls = 0;
    auto handle = UifStd::addThemeListener([&](unsigned) { ++calls; });
    UifStd::setThemeValue("titlescale", L"1.2");
    EXPECT_EQ(calls, 1);
    handle = nullptr;
    UifStd::setThemeValue("titlescale", L"1.3");
    EXPECT_EQ(calls, 1);
}

TEST_F(UifStdTest, ListenerDroppedByAnEarlierListenerIsSkipped) {
    int laterCalls = 0;
    Qor::Ptr<iObject> later;
    auto const earlier = UifStd::addThemeListener([&](unsigned) { later = nullptr; });
    later = UifStd::addThemeListener([&](unsigned) { ++laterCalls; });
    UifStd::setThemeValue("edgescale", L"0.3");
    EXPECT_EQ(laterCalls, 0);
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

TEST_F(UifStdTest, MeasuredTextGrowsWithItsLength) {
    XY<int> const one = UifStd::measure(UIString(L"W"));
    XY<int> const three = UifStd::measure(UIString(L"WWW"));
    EXPECT_GT(one.x, 0);
    EXPECT_GT(three.x, 2 * one.x);
    EXPECT_EQ(three.y, one.y);
    EXPECT_GT(one.y, 0);
}

} // namespace
