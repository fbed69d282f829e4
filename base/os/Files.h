#pragma once

// Small operations on file paths and names, over wide text: splitting a path into folder, leaf and
// extension, testing for and deleting a file, making a text safe as a file name, and finding the
// icons that ship with the toolkit. Paths go to the system in UTF-8. The separator is "/".

#include "qor/LightweightString.h"

// True when something of that name exists: a file, a folder, or a link (even a dangling one).
bool fileExists(LightweightString<wchar_t> const& path);
// Deletes a file or a link; a folder is left alone. True when the name has gone.
bool deleteFile(LightweightString<wchar_t> const& path);

// The folder part with its trailing separator: "/a/b/c.txt" gives "/a/b/", "c.txt" gives "".
LightweightString<wchar_t> getPath(LightweightString<wchar_t> const& path);
// The leaf: "/a/b/c.txt" gives "c.txt", "/a/b/" gives "".
LightweightString<wchar_t> stripPath(LightweightString<wchar_t> const& path);
// The extension of the leaf without its dot: "c.tar.gz" gives "gz". Dots that begin a leaf do not
// start an extension (".bashrc" has none), and dots in folder names never count.
LightweightString<wchar_t> getExtension(LightweightString<wchar_t> const& path);
// The path without the extension and its dot: "/a/b/c.tar.gz" gives "/a/b/c.tar".
LightweightString<wchar_t> stripExtension(LightweightString<wchar_t> const& path);
// The leaf without the extension: "/a/b/c.tar.gz" gives "c.tar".
LightweightString<wchar_t> stripPathAndExt(LightweightString<wchar_t> const& path);

// Bit of validateFileName's flags: the text is a relative path, so separators stay.
constexpr unsigned validateAllowSeparators = 1;

// The text with every character that a file name cannot hold replaced by `replacement`: the
// illegal name characters (the separator only without validateAllowSeparators) and the control
// characters. A result of "", "." or "..", which name no file of its own, becomes the replacement
// character alone.
LightweightString<wchar_t> validateFileName(LightweightString<wchar_t> const& text, unsigned flags,
                                            wchar_t replacement);

// The icons folder with a trailing separator: $PANELKIT_ICONS when set, else the icons folder in
// the resource directory (see ResourceTable).
LightweightString<wchar_t> getIconsDirectory();
// The full path of an icon file: the icons folder followed by the name.
LightweightString<wchar_t> getIconPath(LightweightString<wchar_t> const& name);

namespace Qor::FilespecUtils {

// The characters that no file name may hold: "/" and NUL (the NUL counts in the length).
LightweightString<wchar_t> getIllegalNameCharacters();

} // namespace Qor::FilespecUtils
