#pragma once

// The process's icon images: each icon file is read once per size and kind (plain, inactive,
// rounded) and shared by every widget that shows it. At an interface scale above 1 the "-2x"
// file of an icon is preferred. Changing the scale empties the cache.

#include "glib/Colour.h"
#include "glib/Image.h"
#include "os/CriticalSection.h"
#include "qor/Singleton.h"

#include <map>

class IconCache {
public:
    // Kinds of image, as a bit mask.
    enum eKind : unsigned int { Plain = 0, Inactive = 2, Rounded = 4 };

    struct CachedImage {
        Qor::Ptr<iHostImage> image;
        // The scale of the file that was read: 2 for a "-2x" file.
        float scale = 1.0f;
    };

    struct RecolouredImageKey {
        LightweightString<wchar_t> name;
        Colour colour;
        bool operator<(RecolouredImageKey const& other) const;
    };

    static IconCache& instance();

    // The plain image at its own size.
    CachedImage load(LightweightString<wchar_t> const& name);
    // `name` is the file name in the icons folder ("pin.png"); `height` in interface pixels
    // shrinks a larger image to that height (0 keeps its size). The image is empty when the file
    // is missing.
    CachedImage load(LightweightString<wchar_t> const& name, unsigned int kinds,
                     unsigned short height);

    static LightweightString<wchar_t> makeCacheKey(LightweightString<wchar_t> const& name,
                                                   unsigned short height, unsigned int kinds);
    void setScaleFactor(float scale);
    float getScaleFactor() const;
    // The scale of the monitors (the largest when they differ).
    static double getDeviceScale();

    static Qor::Ptr<iHostImage> createResizedIcon(Qor::Ptr<iHostImage> const& image,
                                                  unsigned short size);
    static Qor::Ptr<iHostImage> createInactiveIcon(Qor::Ptr<iHostImage> const& image);
    static Qor::Ptr<iHostImage> createRoundedIcon(Qor::Ptr<iHostImage> const& image,
                                                  unsigned int radius);
    // The file's plain image with every pixel in the colour, kept until the scale changes.
    Qor::Ptr<iHostImage> createRecolouredIcon(LightweightString<wchar_t> const& name,
                                              Colour const& colour);

private:
    friend struct Loki::CreateUsingNew<IconCache>;
    IconCache() = default;

    CachedImage loadPlain(LightweightString<wchar_t> const& name);
    CachedImage readFile(LightweightString<wchar_t> const& name) const;
    CachedImage shrunk(CachedImage const& entry, unsigned short height) const;

    std::map<LightweightString<wchar_t>, CachedImage> images_;
    float scaleFactor_ = 1.0f;
    std::map<RecolouredImageKey, Qor::Ptr<iHostImage>> recolouredImages_;
    mutable CriticalSection lock_;
};
