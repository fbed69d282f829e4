#include "qor/CharCase.h"

#include <clocale>
#include <cwctype>
#include <locale.h>

namespace {

// The C.UTF-8 locale carries the full Unicode case tables; the plain "C" locale that a program
// starts in knows only ASCII.
locale_t unicodeLocale() {
    static locale_t const locale = [] {
        locale_t l = ::newlocale(LC_CTYPE_MASK, "C.UTF-8", locale_t(0));
        return l != locale_t(0) ? l : ::newlocale(LC_CTYPE_MASK, "C", locale_t(0));
    }();
    return locale;
}

} // namespace

namespace Qor {

wchar_t wideToLower(wchar_t c) {
    if (c < 0x80)
        return (c >= L'A' && c <= L'Z') ? wchar_t(c - L'A' + L'a') : c;
    return wchar_t(::towlower_l(wint_t(c), unicodeLocale()));
}

wchar_t wideToUpper(wchar_t c) {
    if (c < 0x80)
        return (c >= L'a' && c <= L'z') ? wchar_t(c - L'a' + L'A') : c;
    return wchar_t(::towupper_l(wint_t(c), unicodeLocale()));
}

} // namespace Qor
