#pragma once

// Points the resource string table at a table of the test's own, in a fresh temporary folder, and
// restores the environment and the table when it goes. The table is read on its first use.

#include "misc/ResourceTable.h"
#include "support/ScopedEnvironment.h"
#include "support/TemporaryDirectory.h"

#include <filesystem>
#include <fstream>
#include <string>

class ScopedResourceTable {
public:
    explicit ScopedResourceTable(std::string const& contents) {
        std::filesystem::create_directories(folder_.path() / "strings");
        write(contents);
        environment_.set("PANELKIT_RESOURCES", directory());
        ResourceTable::instance().reload();
    }
    ~ScopedResourceTable() {
        environment_.restore();
        ResourceTable::instance().reload();
    }
    ScopedResourceTable(ScopedResourceTable const&) = delete;
    ScopedResourceTable& operator=(ScopedResourceTable const&) = delete;

    // Replaces the table file; the table itself changes only after a reload.
    void write(std::string const& contents) const {
        std::ofstream(tableFile(), std::ios::binary | std::ios::trunc) << contents;
    }
    std::string directory() const { return folder_.path().string(); }
    std::string tableFile() const { return (folder_.path() / "strings" / "en.txt").string(); }

private:
    TemporaryDirectory folder_;
    ScopedEnvironment environment_;
};
