#include "qor/UIString.h"

#include "support/DiagnosticCapture.h"
#include "support/ScopedResourceTable.h"

#include <gtest/gtest.h>

namespace {

using WString = LightweightString<wchar_t>;

TEST(UIString, DefaultHoldsNoTextAndNoResource) {
    UIString s;
    EXPECT_TRUE(s.text.empty());
    EXPECT_EQ(s.id, noResourceId);
    EXPECT_EQ(s.format, ResStrAsIs);
    EXPECT_EQ(s.flags, 0u);
    EXPECT_TRUE(s.getString().empty());
}

TEST(UIString, TextAloneCarriesNoResourceId) {
    for (UIString const& s : {UIString(L"plain"), UIString(WString(L"plain"))}) {
        EXPECT_EQ(s.text, L"plain");
        EXPECT_EQ(s.id, noResourceId);
        EXPECT_EQ(s.format, ResStrAsIs);
        EXPECT_EQ(s.flags, 0u);
        EXPECT_EQ(s.getString(), L"plain");
    }
}

TEST(UIString, IdAloneResolvesThroughTheTableAndKeepsTheText) {
    ScopedResourceTable table("500\tnew folder\n");
    UIString s(500, ResStrFirstCapital);
    EXPECT_TRUE(s.text.empty());
    EXPECT_EQ(s.getString(), L"New folder");
    EXPECT_EQ(s.text, L"New folder");
}

TEST(UIString, ResolvesOnlyOnceUntilTheTextIsCleared) {
    ScopedResourceTable table("500\tbefore\n");
    UIString s(500);
    EXPECT_EQ(s.getString(), L"before");
    table.write("500\tafter\n");
    ResourceTable::instance().reload();
    EXPECT_EQ(s.getString(), L"before");
    s.text.clear();
    EXPECT_EQ(s.getString(), L"after");
}

TEST(UIString, FlagBitZeroAppendsTwoDotsToTheResourceText) {
    ScopedResourceTable table("500\tsave as\n");
    EXPECT_EQ(UIString(500, ResStrAsIs, 1).getString(), L"save as..");
    EXPECT_EQ(UIString(500, ResStrTitleCase, 3).getString(), L"Save As..");
    EXPECT_EQ(UIString(500, ResStrAsIs, 2).getString(), L"save as");
    UIString resolvedTwice(500, ResStrAsIs, UIString::appendDots);
    resolvedTwice.getString();
    EXPECT_EQ(resolvedTwice.getString(), L"save as..");
}

TEST(UIString, OwnTextIsNeverDecorated) {
    ScopedResourceTable table("500\tfrom table\n");
    UIString s(500, ResStrUpperCase, UIString::appendDots);
    s.text = L"own text";
    EXPECT_EQ(s.getString(), L"own text");
}

TEST(UIString, NoResourceIdGivesEmptyTextWithoutDiagnostic) {
    DiagnosticCapture diagnostics;
    UIString s(noResourceId, ResStrUpperCase, UIString::appendDots);
    EXPECT_TRUE(s.getString().empty());
    EXPECT_TRUE(diagnostics.lines().empty());
}

TEST(UIString, UnknownIdShowsItsNumber) {
    ScopedResourceTable table("500\tknown\n");
    DiagnosticCapture diagnostics;
    UIString s(501);
    EXPECT_EQ(s.getString(), L"#501");
    EXPECT_EQ(s.getString(), L"#501");
    EXPECT_EQ(diagnostics.count("501"), 1u);
}

TEST(UIString, EqualityComparesTheResolvedTexts) {
    ScopedResourceTable table("500\tCopy\n501\tcopy\n");
    EXPECT_EQ(UIString(500), UIString(L"Copy"));
    EXPECT_EQ(UIString(501, ResStrFirstCapital), UIString(500));
    EXPECT_NE(UIString(500), UIString(501));
    EXPECT_NE(UIString(500, ResStrAsIs, UIString::appendDots), UIString(500));
    EXPECT_EQ(UIString(), UIString(noResourceId));
    EXPECT_EQ(UIString(), UIString(L""));
}

} // namespace
