#include "os/Diagnostics.h"
#include "os/Paths.h"
#include "qor/IdStamp.h"

#include "support/DiagnosticCapture.h"
#include "support/OnThreads.h"

#include <gtest/gtest.h>

#include <string>

namespace {
std::size_t occurrences(std::string const& haystack, std::string const& needle) {
    std::size_t n = 0;
    for (auto at = haystack.find(needle); at != std::string::npos;
         at = haystack.find(needle, at + 1))
        ++n;
    return n;
}
} // namespace

TEST(Diagnostics, EachLineReachesTheLogFileAndTheListenerOnce) {
    std::string marker = std::string("marker ") + IdStamp().asString().c_str();
    {
        DiagnosticCapture capture;
        diag_printf("%s from diag_printf\n\n", marker.c_str());
        LogBoth("%s from LogBoth", marker.c_str());
        ASSERT_EQ(capture.lines().size(), 2u);
        EXPECT_EQ(capture.lines()[0], marker + " from diag_printf");
        EXPECT_EQ(capture.lines()[1], marker + " from LogBoth");
    }
    std::string log;
    ASSERT_TRUE(Paths::readFile(Diagnostics::logFilePath(), log));
    EXPECT_EQ(occurrences(log, marker + " from diag_printf\n"), 1u);
    EXPECT_EQ(occurrences(log, marker + " from LogBoth\n"), 1u);
    EXPECT_EQ(Diagnostics::logFilePath().rfind(Paths::stateDirectory(), 0), 0u);
}

TEST(Diagnostics, LinesFromManyThreadsNeverInterleave) {
    std::string marker = std::string("threaded ") + IdStamp().asString().c_str();
    DiagnosticCapture capture;
    onThreads(4, [&marker](int t) {
        for (int i = 0; i < 50; ++i)
            diag_printf("%s thread %d line %d end", marker.c_str(), t, i);
    });
    std::string log;
    ASSERT_TRUE(Paths::readFile(Diagnostics::logFilePath(), log));
    EXPECT_EQ(occurrences(log, marker), 200u);
    EXPECT_EQ(capture.count(marker), 200u);
    for (auto const& line : capture.lines())
        EXPECT_EQ(line.substr(line.size() - 4), " end");
}
