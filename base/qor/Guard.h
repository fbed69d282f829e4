#pragma once

// The handle of a registration, held as Qor::Ptr<Qor::Guard>: dropping the last reference ends the
// registration. What is registered, and with whom, is the business of the class that hands the
// guard out; its guards must stay safe to drop after the thing they registered with has gone.

#include "qor/Ptr.h"

namespace Qor {

class Guard : public iObject {
public:
    Guard(Guard const&) = delete;
    Guard& operator=(Guard const&) = delete;

protected:
    Guard() = default;
};

} // namespace Qor
