#pragma once

// The version of the toolkit a program runs against, which may differ from the one it was built
// with when the shared library is replaced.

namespace Panelkit {

char const* versionString();
int versionMajor();
int versionMinor();
int versionPatch();

} // namespace Panelkit
