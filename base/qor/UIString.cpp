#include "qor/UIString.h"

UIString::UIString() : id(noResourceId), format(ResStrAsIs), flags(0) {}

UIString::UIString(LightweightString<wchar_t> const& text)
    : text(text), id(noResourceId), format(ResStrAsIs), flags(0) {}

UIString::UIString(wchar_t const* text)
    : text(text), id(noResourceId), format(ResStrAsIs), flags(0) {}

UIString::UIString(ResId id, ResStrFmt format, unsigned flags)
    : id(id), format(format), flags(flags) {}

LightweightString<wchar_t> const& UIString::getString() const {
    if (text.empty() && id != noResourceId) {
        text = resourceStrW(id, format);
        if (flags & appendDots)
            text.append(L"..");
    }
    return text;
}
