#pragma once

// The fonts of the process, one per description: loading a description again gives the font
// loaded before, with everything it has measured and shaped. Safe to use from any thread.

#include "glib/Font.h"
#include "os/CriticalSection.h"
#include "qor/Singleton.h"

#include <map>
#include <string>

typedef struct _PangoFontDescription PangoFontDescription;

class FontCache {
public:
    static FontCache& instance();

    // An empty family stands for the default face, a zero size for the default size.
    Qor::Ptr<iFont> load(Glib::FontDesc const& desc);

private:
    friend struct Loki::CreateUsingNew<FontCache>;
    FontCache() = default;

    struct Proportions {
        double ascent = 0;
        double descent = 0;
    };

    Qor::Ptr<iFont> create(Glib::FontDesc const& desc);
    // The em size, in pixels, whose ascent plus descent comes nearest to `height` without
    // exceeding it.
    double emSizeFor(PangoFontDescription* face, int height);
    // Ascent and descent per pixel of em size; measured once for each face.
    Proportions proportions(PangoFontDescription* face);

    CriticalSection lock_;
    std::map<Glib::FontDesc, Qor::Ptr<iFont>> fonts_;
    std::map<std::string, Proportions> proportions_;
};
