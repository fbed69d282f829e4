#include "glib/StateSaver.h"

namespace Glib {

StateSaver::StateSaver() : saved_(DrawingState::current()) {}

StateSaver::~StateSaver() {
    DrawingState::current() = saved_;
}

} // namespace Glib
