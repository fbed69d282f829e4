#pragma once

// Every public header of the base layer and the toolkit.

#include "os/Clock.h"
#include "os/CriticalSection.h"
#include "os/Diagnostics.h"
#include "os/OS.h"
#include "os/Paths.h"
#include "qor/Box.h"
#include "qor/Exception.h"
#include "qor/IdStamp.h"
#include "qor/LightweightString.h"
#include "qor/Ptr.h"
#include "qor/Singleton.h"
#include "qor/XY.h"

#include "foundation/Version.h"
