#include "foundation/Version.h"

namespace Panelkit {

char const* versionString() {
    return PANELKIT_VERSION_STRING;
}
int versionMajor() {
    return PANELKIT_VERSION_MAJOR;
}
int versionMinor() {
    return PANELKIT_VERSION_MINOR;
}
int versionPatch() {
    return PANELKIT_VERSION_PATCH;
}

} // namespace Panelkit
