#pragma once

// The shaping engine behind every font: one text context for the process, and the lock that every
// call into the text libraries runs under, since their objects may not be shared between threads
// without one.

#include "os/CriticalSection.h"

typedef struct _PangoContext PangoContext;
typedef struct _PangoFontDescription PangoFontDescription;

class TextEngine {
public:
    struct Metrics {
        // Pango units (1/1024 pixel).
        int ascent = 0;
        int descent = 0;
    };

    // Held around every use of the context, its layouts and its fonts.
    static CriticalSection& lock();
    // The shared context; call with the lock held.
    static PangoContext* context();
    // The metrics of the font that best matches the description; zero when there is no font.
    static Metrics metrics(PangoFontDescription const* desc);
};
