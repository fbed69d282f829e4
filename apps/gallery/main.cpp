// The gallery: a showcase of what Panelkit can do, one page per family. It opens a window on the
// display in use (closing when the window manager closes it), or with --screenshot DIR renders
// every page headless to PNG files. It also reports what the base layer found on this machine:
// where settings, preferences, resources and the log live, the process settings the toolkit
// reads, and sample resource texts.

#include "ButtonsPage.h"
#include "CheckboxesPage.h"
#include "ClockPage.h"
#include "ControlsPage.h"
#include "DrawingPage.h"
#include "GalleryWindow.h"
#include "GroupsPage.h"
#include "IconsPage.h"
#include "PanelsPage.h"
#include "ShapesPage.h"
#include "SpecialButtonsPage.h"
#include "TextPage.h"

#include "Panelkit.h"
#include "display/HeadlessDisplay.h"
#include "glib/WindowSurface.h"
#include "glob/EventLoop.h"
#include "glob/GlobManager.h"

#include <algorithm>
#include <cstdio>
#include <cstring>
#include <fstream>
#include <sstream>
#include <string>

namespace {

struct SettingKey {
    char const* key;
    double defaultValue;
    bool isDouble;
};

// The switches the toolkit reads at start-up, with their defaults.
SettingKey const settingKeys[] = {
    {"poots_rule", 0, false},
    {"log_messages", 0, false},
    {"disk_menu_space", 1, false},
    {"menu_auto_close", 0, false},
    {"menu_auto_cascade", 1, false},
    {"fade_tooltips", 0, false},
    {"allow_table_spacer_column", 1, false},
    {"pulloff_allowed", 0, false},
    {"adjust", 0.7, true},
};

// Labels that every panel shows somewhere, to prove the string table is there and readable.
ResId const sampleTexts[] = {10039, 10006, 10019, 10115, 10116, 10404, 11274, 11497};

std::string narrow(LightweightString<wchar_t> const& text) {
    return toUTF8(text).str();
}

void reportPlaces(std::ostream& out) {
    out << "Panelkit " << Panelkit::versionString() << "\n\n";
    out << "Places\n";
    out << "  settings file     " << Settings::instance().sourcePath() << "\n";
    out << "  preferences       " << prefs().path() << "\n";
    out << "  resources         " << ResourceTable::instance().resourceDirectory() << "\n";
    out << "  icons             " << narrow(getIconsDirectory()) << "\n";
    out << "  log file          " << Diagnostics::logFilePath() << "\n\n";
}

void reportSettings(std::ostream& out) {
    out << "Process settings (default in brackets)\n";
    for (auto const& s : settingKeys) {
        char line[160];
        if (s.isDouble)
            std::snprintf(line, sizeof line, "  %-26s %g  [%g]\n", s.key,
                          config_double(s.key, s.defaultValue), s.defaultValue);
        else
            std::snprintf(line, sizeof line, "  %-26s %d  [%d]\n", s.key,
                          config_int(s.key, int(s.defaultValue)), int(s.defaultValue));
        out << line;
    }
    out << "\n";
}

void reportResources(std::ostream& out) {
    out << "Resource table: " << ResourceTable::instance().size() << " texts\n";
    for (ResId id : sampleTexts)
        out << "  " << id << "  " << narrow(resourceStrW(id)) << "\n";
    out << "\n";
}

int usage() {
    std::fprintf(stderr, "usage: panelkit-gallery [--screenshot DIR]\n");
    return 2;
}

// What a theme editor would offer: every key of the widget classes shown here.
void registerThemeKeys() {
    StandardPanel::registerUIThemeParams();
    Button::registerUIThemeParams();
    PushButton::registerUIThemeParams();
    SettingsButton::registerUIThemeParams();
}

GalleryWindow* makeGallery(XY<int> const& screen) {
    XY<int> size(1200, 740);
    Glob::setupRootPos(
        XY<int>(std::max(0, (screen.x - size.x) / 2), std::max(0, (screen.y - size.y) / 2)));
    auto* window = new GalleryWindow(size);
    window->addPage<PanelsPage>();
    window->addPage<ButtonsPage>();
    window->addPage<CheckboxesPage>();
    window->addPage<GroupsPage>();
    window->addPage<SpecialButtonsPage>();
    window->addPage<ControlsPage>();
    window->addPage<TextPage>();
    window->addPage<DrawingPage>();
    window->addPage<ShapesPage>();
    window->addPage<ClockPage>();
    window->addPage<IconsPage>();
    window->showPage(0);
    GlobManager::instance().realize(window);
    return window;
}

// Renders every page headless to DIR/NN-name.png, with the base layer's report beside them.
int renderPages(std::string const& dir, std::string const& report) {
    if (!Paths::makeDirectories(dir)) {
        std::fprintf(stderr, "panelkit-gallery: cannot make %s\n", dir.c_str());
        return 1;
    }
    std::ofstream(dir + "/base-layer.txt") << report;
    Glib::setDisplay(std::make_unique<HeadlessDisplay>(XY<int>(1280, 800)));
    GalleryWindow* window = makeGallery(Glib::display().screenSize());
    int failures = 0;
    for (unsigned i = 0; i < window->pageCount(); ++i) {
        window->showPage(i);
        EventLoop::instance().processPending();
        char name[32];
        std::snprintf(name, sizeof name, "%02u-%s.png", i + 1, window->page(i)->fileStem());
        std::string path = dir + "/" + name;
        bool saved = window->canvas()->surface()->savePng(path.c_str());
        std::printf("%s %s\n", saved ? "wrote" : "could not write", path.c_str());
        failures += saved ? 0 : 1;
    }
    delete window;
    Glib::setDisplay(nullptr);
    return failures == 0 ? 0 : 1;
}

int runLive() {
    GalleryWindow* window = makeGallery(Glib::display().screenSize());
    EventLoop& loop = EventLoop::instance();
    while (is_good_glob_ptr(window))
        loop.runOnce(-1);
    return 0;
}

} // namespace

int main(int argc, char** argv) {
    std::string outputDir;
    registerThemeKeys();
    for (int i = 1; i < argc; ++i) {
        if (std::strcmp(argv[i], "--screenshot") == 0 && i + 1 < argc)
            outputDir = argv[++i];
        else
            return usage();
    }
    std::ostringstream report;
    reportPlaces(report);
    reportSettings(report);
    reportResources(report);
    std::fputs(report.str().c_str(), stdout);
    return outputDir.empty() ? runLive() : renderPages(outputDir, report.str());
}
