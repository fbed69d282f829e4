// The gallery: a showcase of what Panelkit can do, one page per widget family. Until the drawing
// layer arrives it reports what the base layer found on this machine: where settings, preferences,
// resources and the log live, the process settings the toolkit reads, and sample resource texts.

#include "Panelkit.h"

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

} // namespace

int main(int argc, char** argv) {
    std::string outputDir;
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
    if (!outputDir.empty()) {
        std::string path = outputDir + "/base-layer.txt";
        if (!Paths::makeDirectories(outputDir) || !(std::ofstream(path) << report.str())) {
            std::fprintf(stderr, "panelkit-gallery: cannot write %s\n", path.c_str());
            return 1;
        }
        std::printf("\nReport written to %s\n", path.c_str());
    }
    return 0;
}
