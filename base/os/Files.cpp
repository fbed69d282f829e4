#include "os/Files.h"

#include "misc/ResourceTable.h"
#include "qor/UTF8.h"

#include <cstdlib>
#include <sys/stat.h>
#include <unistd.h>

namespace {

using WString = LightweightString<wchar_t>;

constexpr wchar_t separator = L'/';

// Where the leaf begins.
unsigned leafStart(WString const& path) {
    unsigned slash = path.rfind(separator);
    return slash == WString::npos ? 0 : slash + 1;
}

// The index in `path` of the dot that starts the extension, or npos. Leading dots of the leaf are
// part of the name.
unsigned extensionDot(WString const& path) {
    unsigned start = leafStart(path);
    while (start < path.size() && path[start] == L'.')
        ++start;
    unsigned dot = path.rfind(L'.');
    return dot != WString::npos && dot > start ? dot : WString::npos;
}

bool isControl(wchar_t c) {
    return c < 0x20 || (c >= 0x7F && c <= 0x9F);
}

} // namespace

bool fileExists(LightweightString<wchar_t> const& path) {
    struct stat info;
    return !path.empty() && ::lstat(toUTF8(path).c_str(), &info) == 0;
}

bool deleteFile(LightweightString<wchar_t> const& path) {
    return !path.empty() && ::unlink(toUTF8(path).c_str()) == 0;
}

LightweightString<wchar_t> getPath(LightweightString<wchar_t> const& path) {
    return path.substr(0, leafStart(path));
}

LightweightString<wchar_t> stripPath(LightweightString<wchar_t> const& path) {
    return path.substr(leafStart(path));
}

LightweightString<wchar_t> getExtension(LightweightString<wchar_t> const& path) {
    unsigned dot = extensionDot(path);
    return dot == WString::npos ? WString() : path.substr(dot + 1);
}

LightweightString<wchar_t> stripExtension(LightweightString<wchar_t> const& path) {
    unsigned dot = extensionDot(path);
    return dot == WString::npos ? path : path.substr(0, dot);
}

LightweightString<wchar_t> stripPathAndExt(LightweightString<wchar_t> const& path) {
    return stripExtension(stripPath(path));
}

LightweightString<wchar_t> validateFileName(LightweightString<wchar_t> const& text, unsigned flags,
                                            wchar_t replacement) {
    bool keepSeparators = (flags & validateAllowSeparators) != 0;
    WString result = text;
    for (unsigned i = 0; i < result.size(); ++i) {
        wchar_t c = result[i];
        if (isControl(c) || (c == separator && !keepSeparators))
            result.setChar(i, replacement);
    }
    if (result.empty() || result == L"." || result == L"..")
        return WString(1, replacement);
    return result;
}

LightweightString<wchar_t> getIconsDirectory() {
    WString dir;
    if (char const* variable = std::getenv("PANELKIT_ICONS"); variable && *variable)
        dir = fromUTF8(variable);
    else
        dir = fromUTF8(ResourceTable::instance().resourceDirectory().c_str()) + L"/icons";
    if (dir.back() != separator)
        dir.push_back(separator);
    return dir;
}

LightweightString<wchar_t> getIconPath(LightweightString<wchar_t> const& name) {
    return getIconsDirectory() + name;
}

namespace Qor::FilespecUtils {

LightweightString<wchar_t> getIllegalNameCharacters() {
    return LightweightString<wchar_t>(L"/", 2);
}

} // namespace Qor::FilespecUtils
