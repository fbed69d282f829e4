#include "misc/Resources.h"
#include "misc/ResourceTable.h"

#include "support/DiagnosticCapture.h"
#include "support/ScopedEnvironment.h"
#include "support/ScopedResourceTable.h"

#include "qor/UTF8.h"

#include <gtest/gtest.h>

#include <dlfcn.h>
#include <filesystem>
#include <thread>
#include <vector>

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
class ShippedResourceTable : public ::testing::Test {
protected:
    void SetUp() override {
        environment_.unset("PANELKIT_RESOURCES");
        ResourceTable::instance().reload();
    }
    void TearDown() override {
        environment_.restore();
        ResourceTable::instance().reload();
    }

    ScopedEnvironment environment_;
};

TEST_F(ShippedResourceTable, IsFoundInTheShareFolderBesideTheLibrary) {
    Dl_info library{};
    ASSERT_NE(::dladdr(reinterpret_cast<void*>(&formatString), &library), 0);
    std::filesystem::path libraryFolder =
        std::filesystem::canonical(library.dli_fname).parent_path();
    std::filesystem::path dir = ResourceTable::instance().resourceDirectory();
    EXPECT_EQ(std::filesystem::canonical(dir),
              std::filesystem::canonical(libraryFolder.parent_path() / "share" / "panelkit"));
    EXPECT_TRUE(std::filesystem::is_regular_file(dir / "strings" / "en.txt"));
}

TEST_F(ShippedResourceTable, LoadsWithoutComplaint) {
    DiagnosticCapture diagnostics;
    ResourceTable::instance().reload();
    EXPECT_GE(ResourceTable::instance().size(), std::size(toolkitIds));
    EXPECT_TRUE(diagnostics.lines().empty()) << diagnostics.lines().front();
}

TEST_F(ShippedResourceTable, HoldsEveryTextTheToolkitAsksFor) {
    DiagnosticCapture diagnostics;
    for (ResId id : toolkitIds) {
        WString text = resourceStrW(id);
        EXPECT_FALSE(text.empty()) << id;
        EXPECT_FALSE(text.startsWith(L"#")) << id;
        EXPECT_EQ(text, formatString(text, ResStrTrimmed)) << "stray white space in " << id;
    }
    EXPECT_TRUE(diagnostics.lines().empty());
}

TEST_F(ShippedResourceTable, GivesTheWordsTheWidgetsCompareWith) {
    EXPECT_EQ(resourceStrW(10019), L"Copy");
    EXPECT_EQ(resourceStrW(10115), L"Cut");
    EXPECT_EQ(resourceStrW(10116), L"Paste");
    EXPECT_EQ(resourceStrW(102), L"\u25B6");
    // A binary choice is recognised by these two texts, whatever their case, so they must differ.
    EXPECT_NE(resourceStrW(10000).compareCaseInsensitive(resourceStrW(10001)), 0);
    // The tooltip speeds are told apart by their texts.
    EXPECT_NE(resourceStrW(11973), resourceStrW(11974));
    EXPECT_NE(resourceStrW(11973), resourceStrW(11975));
    EXPECT_NE(resourceStrW(11974), resourceStrW(11975));
}

TEST(ResourceLookup, NoResourceIdGivesTheEmptyTextSilently) {
    DiagnosticCapture diagnostics;
    EXPECT_TRUE(resourceStrW(noResourceId).empty());
    EXPECT_TRUE(resourceStrW(999999, ResStrUpperCase).empty());
    EXPECT_EQ(paddedResourceStrW(noResourceId, L"<", L">", ResStrAsIs), L"<>");
    EXPECT_TRUE(diagnostics.lines().empty());
}

TEST(ResourceLookup, UnknownIdAnswersItsNumberAndIsReportedOncePerId) {
    ResourceTable::instance().reload();
    DiagnosticCapture diagnostics;
    for (int i = 0; i < 3; ++i) {
        EXPECT_EQ(resourceStrW(424242), L"#424242");
        EXPECT_EQ(resourceStrW(424243, ResStrLowerCase), L"#424243");
    }
    EXPECT_EQ(diagnostics.lines().size(), 2u);
    EXPECT_EQ(diagnostics.count("424242"), 1u);
    EXPECT_EQ(diagnostics.count("424243"), 1u);
}

TEST(ResourceLookup, EllipsisAndPaddingWrapTheFormattedText) {
    ScopedResourceTable table("7\tsave as\n");
    EXPECT_EQ(ellipsisResourceStrW(7, ResStrTitleCase), L"Save As...");
    EXPECT_EQ(paddedResourceStrW(7, L"[", L"] : ", ResStrUpperCase), L"[SAVE AS] : ");
    EXPECT_EQ(paddedResourceStrW(7, nullptr, L" : ", ResStrAsIs), L"save as : ");
    EXPECT_EQ(paddedResourceStrW(7, L"> ", nullptr, ResStrAsIs), L"> save as");
}

TEST(ResourceLookup, FormatAppliesToTheTableText) {
    ScopedResourceTable table("8\t  éclair au Café \n");
    EXPECT_EQ(resourceStrW(8, ResStrTrimmed), L"éclair au Café");
    EXPECT_EQ(resourceStrW(8, ResStrFirstCapital), L"  Éclair au Café ");
    EXPECT_EQ(resourceStrW(8), L"  éclair au Café ");
}

TEST(ResourceLookup, ManyThreadsLoadingAtOnceSeeOneTable) {
    DiagnosticCapture diagnostics;
    ScopedResourceTable table("9\tshared\n8\tshared\n8\tduplicate\n");
    std::vector<std::thread> threads;
    std::vector<int> matches(8, 0);
    for (std::size_t t = 0; t < matches.size(); ++t)
        threads.emplace_back([&matches, t] {
            for (int i = 0; i < 200; ++i)
                matches[t] += resourceStrW(9) == L"shared";
        });
    for (std::thread& thread : threads)
        thread.join();
    for (int count : matches)
        EXPECT_EQ(count, 200);
    // Read once: its one fault is reported once.
    EXPECT_EQ(diagnostics.lines().size(), 1u);
}

struct FormatCase {
    wchar_t const* text;
    ResStrFmt format;
    wchar_t const* expected;
};

TEST(FormatString, CasesAndTrimsAsAsked) {
    FormatCase const cases[] = {
        {L"Mixed Case", ResStrAsIs, L"Mixed Case"},
        {L" spaced ", ResStrAsIs, L" spaced "},
        {L"hello world", ResStrUpperCase, L"HELLO WORLD"},
        {L"éclair à la crème", ResStrUpperCase, L"ÉCLAIR À LA CRÈME"},
        {L"straße", ResStrUpperCase, L"STRAßE"},
        {L"ÿ łódź", ResStrUpperCase, L"Ÿ ŁÓDŹ"},
        {L"αβγ ός", ResStrUpperCase, L"ΑΒΓ ΌΣ"},
        {L"привет ёж", ResStrUpperCase, L"ПРИВЕТ ЁЖ"},
        {L"HELLO World", ResStrLowerCase, L"hello world"},
        {L"ÉCLAIR ŁÓDŹ Ÿ", ResStrLowerCase, L"éclair łódź ÿ"},
        {L"ΆΈΏ ΣΑ", ResStrLowerCase, L"άέώ σα"},
        {L"ПРИВЕТ ЁЖ", ResStrLowerCase, L"привет ёж"},
        {L"1, 2: 3 €", ResStrUpperCase, L"1, 2: 3 €"},
        {L"éclair", ResStrFirstCapital, L"Éclair"},
        {L"open the file", ResStrFirstCapital, L"Open the file"},
        {L"OK button", ResStrFirstCapital, L"OK button"},
        {L"  \tnew", ResStrFirstCapital, L"  \tNew"},
        {L"save as", ResStrTitleCase, L"Save As"},
        {L"über  den\tfluss\nweg", ResStrTitleCase, L"Über  Den\tFluss\nWeg"},
        {L"keep UPPER", ResStrTitleCase, L"Keep UPPER"},
        {L"  padded text \t\n", ResStrTrimmed, L"padded text"},
        {L"\u00A0nbsp\u3000", ResStrTrimmed, L"nbsp"},
        {L" \t ", ResStrTrimmed, L""},
        {L"Kept As Is", ResStrTrimmed, L"Kept As Is"},
        {L"", ResStrUpperCase, L""},
        {L"", ResStrFirstCapital, L""},
    };
    for (FormatCase const& c : cases)
        EXPECT_EQ(formatString(c.text, c.format), c.expected)
            << "format " << int(c.format) << " of \"" << toUTF8(c.text).c_str() << "\"";
}

TEST(FormatString, LeavesTheCallersTextUntouched) {
    WString original(L"shared body");
    WString copy = original;
    EXPECT_EQ(formatString(copy, ResStrUpperCase), L"SHARED BODY");
    EXPECT_EQ(original, L"shared body");
    EXPECT_EQ(copy, L"shared body");
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
                              "-5\tnegative\n"         // 9
                              " 102\tspaced id\n"      // 10
                              "99999999999\ttoo big\n" // 11
                              "\tno id\n");            // 12
    EXPECT_EQ(ResourceTable::instance().size(), 2u);
    std::string const file = table.tableFile();
    for (int line : {3, 4, 5, 8, 9, 10, 11, 12})
        EXPECT_EQ(diagnostics.count(file + ":" + std::to_string(line) + ":"), 1u) << line;
    EXPECT_EQ(diagnostics.lines().size(), 8u);
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
    ASSERT_EQ(diagnostics.lines().size(), 1u);
    EXPECT_NE(diagnostics.lines().front().find(table.tableFile()), std::string::npos);
    EXPECT_EQ(resourceStrW(10039), L"#10039");
    EXPECT_EQ(ResourceTable::instance().size(), 0u);
    EXPECT_EQ(ResourceTable::instance().resourceDirectory(), table.directory());
    EXPECT_EQ(diagnostics.lines().size(), 1u);
}

TEST(ResourceTableFile, ReloadReadsTheTableAnewAndReportsUnknownIdsAgain) {
    DiagnosticCapture diagnostics;
    ScopedResourceTable table("1\tbefore\n");
    EXPECT_EQ(resourceStrW(2), L"#2");
    table.write("1\tafter\n2\tadded\n");
    EXPECT_EQ(resourceStrW(1), L"before");
    ResourceTable::instance().reload();
    EXPECT_EQ(resourceStrW(1), L"after");
    EXPECT_EQ(resourceStrW(2), L"added");
    EXPECT_EQ(resourceStrW(3), L"#3");
    table.write("");
    ResourceTable::instance().reload();
    EXPECT_EQ(resourceStrW(3), L"#3");
    EXPECT_EQ(diagnostics.count("id 2 "), 1u);
    EXPECT_EQ(diagnostics.count("id 3 "), 2u);
}

} // namespace
