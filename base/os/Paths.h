#pragma once

// Where the per-user files live, following the XDG base directories, and the few file-system steps
// that writing them needs. Narrow UTF-8 paths.

#include <string>

namespace Paths {

// $XDG_CONFIG_HOME/panelkit, else ~/.config/panelkit.
std::string configDirectory();
// $XDG_STATE_HOME/panelkit, else ~/.local/state/panelkit.
std::string stateDirectory();
// $HOME, else the password database's home, else "/".
std::string homeDirectory();

// The folder part of a path, without the trailing separator ("." for a bare name).
std::string parentOf(std::string const& path);
// Creates the folder and its missing ancestors; true when it exists afterwards.
bool makeDirectories(std::string const& path);
// Writes the whole text to a temporary file beside `path`, flushes it to disk and renames it over
// `path`, so a crash leaves either the old file or the new one, never half of one.
bool writeFileAtomically(std::string const& path, std::string const& contents);
// Reads a whole file; false when it cannot be read.
bool readFile(std::string const& path, std::string& contents);

} // namespace Paths
