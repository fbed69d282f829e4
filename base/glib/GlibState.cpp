#include "glib/GlibState.h"

#include "qor/Singleton.h"

GlibState& GlibState::instance() {
    return Qor::Singleton<GlibState>::Instance();
}
