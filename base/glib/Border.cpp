#include "glib/Border.h"

#include "glob/UifStd.h"

#include <algorithm>

Border::Border(eType type_, unsigned short size_, unsigned int edges_)
    : size(size_), type(type_), edges(edges_) {}

Border::Border(unsigned short size_) : size(size_) {}

unsigned short Border::getSize() const {
    return size != 0 ? size : calcSize(type);
}

unsigned short Border::getVisibleSize() const {
    return std::min(getSize(), calcVisibleSize(type));
}

unsigned short Border::calcSize(eType type) {
    switch (type) {
    case Line:
    case Attached:
    case Inset:
        return UifStd::getIndentWidth();
    case Curved:
    case Panel:
        return 2 * UifStd::getWidgetGap();
    case Bevelled:
    case RoundedIndented:
        return 2 * UifStd::getIndentWidth();
    case Narrow:
        return UifStd::getWidgetGap();
    default:
        return 0;
    }
}

unsigned short Border::calcVisibleSize(eType type) {
    return std::min<unsigned short>(calcSize(type), 2 * UifStd::getIndentWidth());
}
