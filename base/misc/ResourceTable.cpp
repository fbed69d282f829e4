#include "misc/ResourceTable.h"

#include "os/Diagnostics.h"
#include "os/Paths.h"
#include "qor/Singleton.h"
#include "qor/UTF8.h"

#include <charconv>
#include <climits>
#include <cstdlib>
#include <dlfcn.h>
#include <string_view>
#include <vector>

namespace {

char const* const tableFile = "/strings/en.txt";

std::string withoutTrailingSeparators(std::string path) {
    while (path.size() > 1 && path.back() == '/')
        path.pop_back();
    return path;
}

std::string shareFolderOf(std::string const& prefix) {
    return (prefix == "/" ? std::string() : prefix) + "/share/panelkit";
}

// The folder of the shared object that holds this code, with links resolved.
std::string libraryDirectory() {
    Dl_info info{};
    if (::dladdr(reinterpret_cast<void*>(&libraryDirectory), &info) == 0 ||
        info.dli_fname == nullptr)
        return std::string();
    char resolved[PATH_MAX];
    if (::realpath(info.dli_fname, resolved) == nullptr)
        return Paths::parentOf(info.dli_fname);
    return Paths::parentOf(resolved);
}

// Where the resource directory may be, most likely first: share/panelkit under the library's
// prefix, or one level further up when the libdir has two levels (lib/x86_64-linux-gnu).
std::vector<std::string> candidateDirectories() {
    if (char const* variable = std::getenv("PANELKIT_RESOURCES"); variable && *variable)
        return {withoutTrailingSeparators(variable)};
    std::string prefix = Paths::parentOf(libraryDirectory());
    return {shareFolderOf(prefix), shareFolderOf(Paths::parentOf(prefix))};
}

bool parseId(std::string_view field, ResId& id) {
    if (field.empty() || field.find_first_not_of("0123456789") != std::string_view::npos)
        return false;
    auto [end, error] = std::from_chars(field.data(), field.data() + field.size(), id);
    return error == std::errc() && end == field.data() + field.size();
}

// Decodes \n, \t and \\; any other backslash stays as it is.
std::string unescape(std::string_view text) {
    std::string out;
    out.reserve(text.size());
    for (std::size_t i = 0; i < text.size(); ++i) {
        char c = text[i];
        if (c == '\\' && i + 1 < text.size()) {
            char next = text[i + 1];
            if (next == 'n' || next == 't' || next == '\\') {
                out += next == 'n' ? '\n' : next == 't' ? '\t' : '\\';
                ++i;
                continue;
            }
        }
        out += c;
    }
    return out;
}

class TableParser {
public:
    TableParser(std::string const& fileName,
                std::unordered_map<ResId, LightweightString<wchar_t>>& texts)
        : fileName_(fileName), texts_(texts) {}

    void parse(std::string_view contents) {
        if (contents.starts_with("\xEF\xBB\xBF"))
            contents.remove_prefix(3);
        while (!contents.empty()) {
            std::size_t end = contents.find('\n');
            std::string_view line = contents.substr(0, end);
            contents.remove_prefix(end == std::string_view::npos ? contents.size() : end + 1);
            ++lineNumber_;
            if (line.ends_with('\r'))
                line.remove_suffix(1);
            parseLine(line);
        }
    }

private:
    void parseLine(std::string_view line) {
        if (line.empty() || line.front() == '#')
            return;
        std::size_t tab = line.find('\t');
        if (tab == std::string_view::npos)
            return complain("has no tab between id and text");
        ResId id = 0;
        std::string_view field = line.substr(0, tab);
        if (!parseId(field, id))
            return complain("has an id that is not a decimal number: \"" + std::string(field) +
                            "\"");
        if (id == noResourceId)
            return complain("uses the id 999999, which means no text");
        std::string text = unescape(line.substr(tab + 1));
        if (!texts_.emplace(id, fromUTF8(text.c_str(), unsigned(text.size()))).second)
            return complain("repeats the id " + std::to_string(id) + ", kept the first");
    }

    void complain(std::string const& problem) {
        diag_printf("%s:%u: resource string line %s; line skipped", fileName_.c_str(), lineNumber_,
                    problem.c_str());
    }

    std::string const& fileName_;
    std::unordered_map<ResId, LightweightString<wchar_t>>& texts_;
    unsigned lineNumber_ = 0;
};

LightweightString<wchar_t> missingText(ResId id) {
    return fromUTF8(("#" + std::to_string(id)).c_str());
}

} // namespace

ResourceTable& ResourceTable::instance() {
    return Qor::Singleton<ResourceTable>::Instance();
}

LightweightString<wchar_t> ResourceTable::text(ResId id) {
    CriticalSection::Lock hold(lock_);
    ensureLoaded();
    if (auto found = texts_.find(id); found != texts_.end())
        return found->second;
    if (readable_ && reported_.insert(id).second)
        diag_printf("Resource strings: no text for id %u in %s%s", id, directory_.c_str(),
                    tableFile);
    return missingText(id);
}

std::string ResourceTable::resourceDirectory() {
    CriticalSection::Lock hold(lock_);
    ensureLoaded();
    return directory_;
}

unsigned ResourceTable::size() {
    CriticalSection::Lock hold(lock_);
    ensureLoaded();
    return unsigned(texts_.size());
}

void ResourceTable::reload() {
    CriticalSection::Lock hold(lock_);
    loaded_ = false;
}

void ResourceTable::ensureLoaded() {
    if (!loaded_)
        load();
}

void ResourceTable::load() {
    texts_.clear();
    reported_.clear();
    loaded_ = true;
    readable_ = false;
    std::vector<std::string> candidates = candidateDirectories();
    std::string tried;
    for (std::string const& dir : candidates) {
        std::string file = dir + tableFile;
        std::string contents;
        if (Paths::readFile(file, contents)) {
            directory_ = dir;
            readable_ = true;
            TableParser(file, texts_).parse(contents);
            return;
        }
        tried += (tried.empty() ? "" : ", ") + file;
    }
    directory_ = candidates.front();
    diag_printf("Resource strings: cannot read the table (tried %s); texts show as #<id>",
                tried.c_str());
}
