// The entry of every test program. Tests never touch the user's own configuration, preferences or
// logs: the per-user folders point into the build tree before any test runs, whether the program
// is started by ctest or by hand.

#include <gtest/gtest.h>

#include <cstdlib>
#include <string>

int main(int argc, char** argv) {
    std::string home = PANELKIT_TEST_HOME;
    ::setenv("XDG_CONFIG_HOME", (home + "/config").c_str(), 1);
    ::setenv("XDG_STATE_HOME", (home + "/state").c_str(), 1);
    ::setenv("PANELKIT_DISPLAY", "headless", 0);
    ::testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
