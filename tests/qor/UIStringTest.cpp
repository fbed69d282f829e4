#include "qor/UIString.h"

#include "support/DiagnosticCapture.h"
#include "support/ScopedResourceTable.h"

#include <gtest/gtest.h>

namespace {

TEST(UIString, IdResolvesOnceThroughTheTableUntilTheTextIsCleared) {
    ScopedResourceTable table("500\tbefore\n");
    UIString s(500, ResStrFirstCapital);
    EXPECT_TRUE(s.text.empty());
    EXPECT_EQ(s.getString(), L"Before");
    EXPECT_EQ(s.text, L"Before");
    table.write("500\tafter\n");
    ResourceTable::instance().reload();
    EXPECT_EQ(s.getString(), L"Before");
    s.text.clear();
    EXPECT_EQ(s.getString(), L"After");
}

TEST(UIString, FlagBitZeroAppendsTwoDotsToTheResourceTextOnce) {
    ScopedResourceTable table("500\tsave as\n");
    EXPECT_EQ(UIString(500, ResStrTitleCase, 3).getString(), L"Save As..");
    EXPECT_EQ(UIString(500, ResStrAsIs, 2).getString(), L"save as");
    UIString resolvedTwice(500, ResStrAsIs, UIString::appendDots);
    resolvedTwice.getString();
    EXPECT_EQ(resolvedTwice.getString(), L"save as..");
}

TEST(UIString, OwnTextAndNoResourceIdAreNeverDecorated) {
    ScopedResourceTable table("500\tfrom table\n");
    DiagnosticCapture diagnostics;
    UIString own(500, ResStrUpperCase, UIString::appendDots);
    own.text = L"own text";
    EXPECT_EQ(own.getString(), L"own text");
    EXPECT_TRUE(UIString(noResourceId, ResStrUpperCase, UIString::appendDots).getString().empty());
    EXPECT_TRUE(diagnostics.lines().empty());
}

TEST(UIString, EqualityComparesTheResolvedTexts) {
    ScopedResourceTable table("500\tCopy\n501\tcopy\n");
    EXPECT_EQ(UIString(500), UIString(L"Copy"));
    EXPECT_EQ(UIString(501, ResStrFirstCapital), UIString(500));
    EXPECT_NE(UIString(500), UIString(501));
    EXPECT_NE(UIString(500, ResStrAsIs, UIString::appendDots), UIString(500));
    EXPECT_EQ(UIString(), UIString(L""));
}

} // namespace
