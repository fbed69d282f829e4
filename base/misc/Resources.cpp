#include "misc/Resources.h"

#include "misc/ResourceTable.h"
#include "qor/CharCase.h"

namespace {

wchar_t toUpperChar(wchar_t c) {
    return Qor::wideToUpper(c);
}

wchar_t toLowerChar(wchar_t c) {
    return Qor::wideToLower(c);
}

bool isWhiteSpace(wchar_t c) {
    return c == L' ' || (c >= L'\t' && c <= L'\r') || c == 0xA0 || (c >= 0x2000 && c <= 0x200A) ||
           c == 0x3000;
}

LightweightString<wchar_t> mapped(LightweightString<wchar_t> text, wchar_t (*map)(wchar_t)) {
    for (unsigned i = 0; i < text.size(); ++i)
        if (wchar_t c = map(text[i]); c != text[i])
            text.setChar(i, c);
    return text;
}

LightweightString<wchar_t> firstCapital(LightweightString<wchar_t> text) {
    for (unsigned i = 0; i < text.size(); ++i) {
        if (!isWhiteSpace(text[i])) {
            text.setChar(i, toUpperChar(text[i]));
            break;
        }
    }
    return text;
}

LightweightString<wchar_t> titleCase(LightweightString<wchar_t> text) {
    bool wordStart = true;
    for (unsigned i = 0; i < text.size(); ++i) {
        wchar_t c = text[i];
        if (wordStart && !isWhiteSpace(c))
            text.setChar(i, toUpperChar(c));
        wordStart = isWhiteSpace(c);
    }
    return text;
}

LightweightString<wchar_t> trimmed(LightweightString<wchar_t> const& text) {
    unsigned first = 0;
    unsigned end = text.size();
    while (first < end && isWhiteSpace(text[first]))
        ++first;
    while (end > first && isWhiteSpace(text[end - 1]))
        --end;
    return first == 0 && end == text.size() ? text : text.substr(first, end - first);
}

} // namespace

LightweightString<wchar_t> formatString(LightweightString<wchar_t> const& text, ResStrFmt format) {
    switch (format) {
    case ResStrUpperCase:
        return mapped(text, toUpperChar);
    case ResStrLowerCase:
        return mapped(text, toLowerChar);
    case ResStrFirstCapital:
        return firstCapital(text);
    case ResStrTitleCase:
        return titleCase(text);
    case ResStrTrimmed:
        return trimmed(text);
    case ResStrAsIs:
        break;
    }
    return text;
}

LightweightString<wchar_t> resourceStrW(ResId id) {
    return resourceStrW(id, ResStrAsIs);
}

LightweightString<wchar_t> resourceStrW(ResId id, ResStrFmt format) {
    if (id == noResourceId)
        return LightweightString<wchar_t>();
    return formatString(ResourceTable::instance().text(id), format);
}

LightweightString<wchar_t> ellipsisResourceStrW(ResId id, ResStrFmt format) {
    return resourceStrW(id, format) + L"...";
}

LightweightString<wchar_t> paddedResourceStrW(ResId id, wchar_t const* prefix,
                                              wchar_t const* suffix, ResStrFmt format) {
    LightweightString<wchar_t> result(prefix);
    result.append(resourceStrW(id, format));
    result.append(suffix);
    return result;
}
