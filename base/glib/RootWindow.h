#pragma once

// The window's own object, through which text boxes steer the input method.

#include "qor/Ptr.h"
#include "qor/XY.h"

class iRootWindow : public iObject {
public:
    // Where the input method shows its window, in the window system's coordinates.
    virtual void setIMEWindowPosition(XY<int> const& osPosition) = 0;
    virtual void setIMEEnabled(bool enabled) = 0;
};
