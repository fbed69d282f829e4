#pragma once

// A temporary icons folder for a test: PANELKIT_ICONS points at it, the interface scale is fixed,
// and the icon cache starts empty. Icons are drawn in one colour, or as a left half only.

#include "buttons/IconCache.h"
#include "glib/HostImage.h"
#include "glob/UifStd.h"
#include "support/ScopedEnvironment.h"
#include "support/TemporaryDirectory.h"

#include <string>

class IconFolder {
public:
    explicit IconFolder(double scale = 1.0) {
        environment_.set("PANELKIT_ICONS", folder_.path().string());
        UifStd::setScale(scale);
        Loki::DeletableSingleton<IconCache>::GracefulDelete();
    }
    ~IconFolder() {
        Loki::DeletableSingleton<IconCache>::GracefulDelete();
        UifStd::setScale(0);
    }
    IconFolder(IconFolder const&) = delete;
    IconFolder& operator=(IconFolder const&) = delete;

    void write(std::string const& name, int size, NormalisedRGB const& colour,
               bool leftHalfOnly = false) const {
        HostImage image(size, size);
        image.fill(Box(0, 0, leftHalfOnly ? size / 2 : size, size), colour);
        image.savePng(folder_.file(name).c_str());
    }

private:
    TemporaryDirectory folder_;
    ScopedEnvironment environment_;
};

inline NormalisedRGB const red{1, 0, 0, 1};
inline NormalisedRGB const green{0, 1, 0, 1};
inline NormalisedRGB const blue{0, 0, 1, 1};
