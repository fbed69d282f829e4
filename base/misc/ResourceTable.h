#pragma once

// The resource string table: every text of the user interface by number, read once, on first use,
// from strings/en.txt in the resource directory. Any thread may look up texts.
//
// The resource directory is $PANELKIT_RESOURCES when that is set; otherwise it is share/panelkit
// beside the folder that holds this library (<libdir>/../share/panelkit, or one level further up
// for a multi-architecture libdir such as lib/x86_64-linux-gnu). The build tree and an installed
// tree are laid out alike, so the one rule finds the texts in both.
//
// The file holds one "id<TAB>text" a line, with "#" comment lines and blank lines allowed; in a
// text, \n, \t and \\ stand for a line feed, a tab and a backslash. The file is UTF-8. A line
// without a tab, with an id that is not a plain decimal number, with the reserved id 999999 or
// with an id already given is reported with file and line and skipped.

#include "misc/Resources.h"
#include "os/CriticalSection.h"

#include <string>
#include <unordered_map>
#include <unordered_set>

namespace Loki {
template <class T>
struct CreateUsingNew;
}

class ResourceTable {
public:
    static ResourceTable& instance();

    // The text of `id`, or "#<id>" when the table lacks it. A missing id is reported once (until
    // the next reload); when no table could be read at all, that one report said it all.
    LightweightString<wchar_t> text(ResId id);
    // The resource directory in UTF-8, without a trailing separator. When no table could be read
    // it is the first place that was tried.
    std::string resourceDirectory();
    // How many texts the table holds.
    unsigned size();
    // Forgets the table; the next use reads it again, following the environment as it is then.
    void reload();

private:
    friend struct Loki::CreateUsingNew<ResourceTable>;
    ResourceTable() = default;

    void ensureLoaded();
    void load();

    CriticalSection lock_;
    bool loaded_ = false;
    bool readable_ = false;
    std::string directory_;
    std::unordered_map<ResId, LightweightString<wchar_t>> texts_;
    std::unordered_set<ResId> reported_;
};
