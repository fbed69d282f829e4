// The entry of every test program. Tests never touch the user's own configuration, preferences or
// logs: the per-user folders point into the build tree before any test runs, whether the program
// is started by ctest or by hand.

#include <gtest/gtest.h>

#include <cstdlib>
#include <string>

// The leak checker ignores the caches that the font, text and window libraries keep for the
// process's life (the same list as tests/lsan.supp, which serves programs without this main).
extern "C" char const* __lsan_default_suppressions() {
    return "leak:libfontconfig.so\n"
           "leak:libpango-1.0.so\n"
           "leak:libpangoft2-1.0.so\n"
           "leak:libpangocairo-1.0.so\n"
           "leak:libglib-2.0.so\n"
           "leak:libgobject-2.0.so\n"
           "leak:libharfbuzz.so\n"
           "leak:libcairo.so\n"
           "leak:libX11.so\n";
}

int main(int argc, char** argv) {
    std::string home = PANELKIT_TEST_HOME;
    ::setenv("XDG_CONFIG_HOME", (home + "/config").c_str(), 1);
    ::setenv("XDG_STATE_HOME", (home + "/state").c_str(), 1);
    ::setenv("PANELKIT_DISPLAY", "headless", 0);
    ::testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
