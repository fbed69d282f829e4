#include "misc/Resources.h"
#include "misc/ResourceTable.h"

#include "support/DiagnosticCapture.h"
#include "support/OnThreads.h"
#include "support/ScopedEnvironment.h"
#include "support/ScopedResourceTable.h"

#include "qor/UTF8.h"

#include <gtest/gtest.h>

#include <atomic>
#include <dlfcn.h>
#include <filesystem>

namespace {

using WString = LightweightString<wchar_t>;

// Every id that the toolkit's widgets ask for.
constexpr ResId toolkitIds[] = {
    102,   10000, 10001, 10005, 10006, 10019, 10039, 10055, 10067, 10087, 10115, 10116,
    10243, 10404, 10488, 10493, 10566, 10633, 10786, 10787, 10800, 11265, 11274, 11277,
    11278, 11292, 11293, 11393, 11497, 11651, 11729, 11737, 11934, 11973, 11974, 11975,
    12292, 12293, 13054, 13055, 13060, 13061, 13079, 13083, 13153, 90001, 90002, 90004,
    90032, 90100, 90101, 90102, 90103, 90104, 90105, 90320,
};

// The shipped table, whatever PANELKIT_RESOURCES the developer has set.
TEST(ShippedResourceTable, LiesBesideTheLibraryAndHoldsEveryTextTheToolkitAsksFor) {
    ScopedEnvironment environment;
    environment.unset("PANELKIT_RESOURCES");
    ResourceTable::instance().reload();
    DiagnosticCapture diagnostics;
    Dl_info library{};
    ASSERT_NE(::dladdr(reinterpret_cast<void*>(&formatString), &library), 0);
    std::filesystem::path libraryFolder =
        std::filesystem::canonical(library.dli_fname).parent_path();
    EXPECT_EQ(std::filesystem::canonical(ResourceTable::instance().resourceDirectory()),
              std::filesystem::canonical(libraryFolder.parent_path() / "share" / "panelkit"));
    for (ResId id : toolkitIds) {
        WString text = resourceStrW(id);
        EXPECT_FALSE(text.empty() || text.startsWith(L"#")) << id;
        EXPECT_EQ(text, formatString(text, ResStrTrimmed)) << "stray white space in " << id;
    }
    EXPECT_TRUE(diagnostics.lines().empty()) << diagnostics.lines().front();
    // The words the widgets compare with.
    EXPECT_EQ(resourceStrW(10019), L"Copy");
    EXPECT_EQ(resourceStrW(10116), L"Paste");
    // A binary choice is recognised by these two texts, whatever their case, so they must differ.
    EXPECT_NE(resourceStrW(10000).compareCaseInsensitive(resourceStrW(10001)), 0);
}

TEST(ResourceLookup, NoResourceIdIsSilentlyEmptyAndAnUnknownIdShowsItsNumberReportedOnce) {
    ResourceTable::instance().reload();
    DiagnosticCapture diagnostics;
    EXPECT_TRUE(resourceStrW(noResourceId, ResStrUpperCase).empty());
    EXPECT_EQ(paddedResourceStrW(noResourceId, L"<", L">", ResStrAsIs), L"<>");
    EXPECT_TRUE(diagnostics.lines().empty());
    for (int i = 0; i < 3; ++i) {
        EXPECT_EQ(resourceStrW(424242), L"#424242");
        EXPECT_EQ(resourceStrW(424243, ResStrLowerCase), L"#424243");
    }
    EXPECT_EQ(diagnostics.count("424242"), 1u);
    EXPECT_EQ(diagnostics.count("424243"), 1u);
}

TEST(ResourceLookup, ManyThreadsLoadingAtOnceSeeOneTable) {
    DiagnosticCapture diagnostics;
    ScopedResourceTable table("9\tshared\n8\tshared\n8\tduplicate\n");
    std::atomic<int> matches = 0;
    onThreads(8, [&matches](int) {
        for (int i = 0; i < 200; ++i)
            matches += resourceStrW(9) == L"shared";
    });
    EXPECT_EQ(matches, 8 * 200);
    // Read once: its one fault is reported once.
    EXPECT_EQ(diagnostics.lines().size(), 1u);
}

TEST(FormatString, CasesAndTrimsAsAsked) {
    struct Case {
        wchar_t const* text;
        ResStrFmt format;
        wchar_t const* expected;
    } const cases[] = {
        {L"éclair à la crème", ResStrUpperCase, L"ÉCLAIR À LA CRÈME"},
        {L"straße", ResStrUpperCase, L"STRAßE"},
        {L"1, 2: 3 €", ResStrUpperCase, L"1, 2: 3 €"},
        {L"ПРИВЕТ ЁЖ", ResStrLowerCase, L"привет ёж"},
        {L"OK button", ResStrFirstCapital, L"OK button"},
        {L"  \téclair", ResStrFirstCapital, L"  \tÉclair"},
        {L"über  den\tfluss\nweg", ResStrTitleCase, L"Über  Den\tFluss\nWeg"},
        {L"keep UPPER", ResStrTitleCase, L"Keep UPPER"},
        {L"\u00A0nbsp\u3000", ResStrTrimmed, L"nbsp"},
        {L" \t ", ResStrTrimmed, L""},
    };
    for (Case const& c : cases)
        EXPECT_EQ(formatString(c.text, c.format), c.expected)
            << "format " << int(c.format) << " of \"" << toUTF8(c.text).c_str() << "\"";
}

TEST(ResourceTableFile, DecodesEscapesAndUtf8) {
    ScopedResourceTable table("\xEF\xBB\xBF"
                              "1\tline one\\nline two\\tTabbed \\\\ back\n"
                              "2\tunknown \\q stays, and so does a lone \\\n"
                              "3\tcaf\xC3\xA9 \xE2\x82\xAC \xF0\x9F\x98\x80\n"
                              "4\tbad \xFF byte\n"
                              "5\t\n"
                              "6\tcarriage return\r\n");
    EXPECT_EQ(resourceStrW(1), L"line one\nline two\tTabbed \\ back");
    EXPECT_EQ(resourceStrW(2), L"unknown \\q stays, and so does a lone \\");
    EXPECT_EQ(resourceStrW(3), L"café € \U0001F600");
    EXPECT_EQ(resourceStrW(4), L"bad \uFFFD byte");
    EXPECT_EQ(resourceStrW(5), L"");
    EXPECT_EQ(resourceStrW(6), L"carriage return");
    EXPECT_EQ(ResourceTable::instance().size(), 6u);
}

TEST(ResourceTableFile, ReportsEachMalformedLineWithFileAndLineAndSkipsIt) {
    DiagnosticCapture diagnostics;
    ScopedResourceTable table("# a comment\n"          // 1
                              "100\tfirst\n"           // 2
                              "no tab here\n"          // 3
                              "abc\tnot a number\n"    // 4
                              "100\tduplicate\n"       // 5
                              "\n"                     // 6
                              "101\tsecond\n"          // 7
                              "999999\treserved\n"     // 8
                              "99999999999\ttoo big\n" // 9
                              "\tno id\n");            // 10
    EXPECT_EQ(ResourceTable::instance().size(), 2u);
    std::string const file = table.tableFile();
    for (int line : {3, 4, 5, 8, 9, 10})
        EXPECT_EQ(diagnostics.count(file + ":" + std::to_string(line) + ":"), 1u) << line;
    EXPECT_EQ(diagnostics.lines().size(), 6u);
    EXPECT_EQ(resourceStrW(100), L"first");
    EXPECT_EQ(resourceStrW(101), L"second");
}

TEST(ResourceTableFile, MissingTableIsReportedOnceAndEveryLookupShowsTheId) {
    DiagnosticCapture diagnostics;
    ScopedResourceTable table("1\tone\n");
    std::filesystem::remove(table.tableFile());
    diagnostics.clear();
    ResourceTable::instance().reload();
    EXPECT_EQ(resourceStrW(1), L"#1");
    EXPECT_EQ(resourceStrW(10039), L"#10039");
    ASSERT_EQ(diagnostics.lines().size(), 1u);
    EXPECT_NE(diagnostics.lines().front().find(table.tableFile()), std::string::npos);
}

TEST(ResourceTableFile, ReloadReadsTheTableAnewAndReportsUnknownIdsAgain) {
    DiagnosticCapture diagnostics;
    ScopedResourceTable table("1\tbefore\n");
    EXPECT_EQ(resourceStrW(3), L"#3");
    table.write("1\tafter\n");
    EXPECT_EQ(resourceStrW(1), L"before");
    ResourceTable::instance().reload();
    EXPECT_EQ(resourceStrW(1), L"after");
    EXPECT_EQ(resourceStrW(3), L"#3");
    EXPECT_EQ(diagnostics.count("id 3 "), 2u);
}

} // namespace
