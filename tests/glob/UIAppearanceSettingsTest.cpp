#include "glob/UIAppearanceSettings.h"

#include <gtest/gtest.h>

namespace {

UIAppearanceSettings themeWith(char const* key, wchar_t const* value) {
    UIAppearanceSettings theme;
    theme.params[key] = value;
    return theme;
}

TEST(ThemeMap, FindReportsPresenceAndValue) {
    UIAppearanceSettings const theme = themeWith("edgescale", L"0.25");
    LightweightString<wchar_t> value = L"untouched";
    EXPECT_FALSE(theme.find("panelcorners", value));
    EXPECT_EQ(value, LightweightString<wchar_t>(L"untouched"));
    EXPECT_TRUE(theme.find("edgescale", value));
    EXPECT_EQ(value, LightweightString<wchar_t>(L"0.25"));
}

TEST(ThemeMap, TypedReadsConvertOrFallBackOnTheDefault) {
    EXPECT_DOUBLE_EQ(themeWith("edgescale", L"0.25").get("edgescale", 0.5), 0.25);
    EXPECT_DOUBLE_EQ(themeWith("edgescale", L"wide").get("edgescale", 0.5), 0.5);
    EXPECT_DOUBLE_EQ(UIAppearanceSettings().get("edgescale", 0.5), 0.5);
    EXPECT_FALSE(themeWith("edgedark", L"false").get("edgedark", true));
    EXPECT_TRUE(themeWith("edgedark", L"maybe").get("edgedark", true));
    EXPECT_EQ(themeWith("buttonheight", L"30").get("buttonheight", 0u), 30u);
    EXPECT_EQ(themeWith("buttonheight", L"-3").get("buttonheight", 7u), 7u);
    EXPECT_EQ(themeWith("titlebg", L"0.1,0.2,0.3").get("titlebg", NormalisedRGB()),
              NormalisedRGB(0.1f, 0.2f, 0.3f));
    EXPECT_EQ(themeWith("titlebg", L"2,0,0").get("titlebg", NormalisedRGB(0.5f, 0.5f, 0.5f)),
              NormalisedRGB(0.5f, 0.5f, 0.5f));
}

} // namespace
