#include "qor/UTF8.h"

#include <cstring>
#include <string>

namespace {

constexpr wchar_t replacement = 0xFFFD;

bool isScalarValue(unsigned long c) {
    return c <= 0x10FFFF && (c < 0xD800 || c > 0xDFFF);
}

void encode(unsigned long c, std::string& out) {
    if (!isScalarValue(c))
        c = replacement;
    char bytes[4];
    unsigned n;
    if (c < 0x80) {
        bytes[0] = char(c);
        n = 1;
    } else if (c < 0x800) {
        bytes[0] = char(0xC0 | (c >> 6));
        bytes[1] = char(0x80 | (c & 0x3F));
        n = 2;
    } else if (c < 0x10000) {
        bytes[0] = char(0xE0 | (c >> 12));
        bytes[1] = char(0x80 | ((c >> 6) & 0x3F));
        bytes[2] = char(0x80 | (c & 0x3F));
        n = 3;
    } else {
        bytes[0] = char(0xF0 | (c >> 18));
        bytes[1] = char(0x80 | ((c >> 12) & 0x3F));
        bytes[2] = char(0x80 | ((c >> 6) & 0x3F));
        bytes[3] = char(0x80 | (c & 0x3F));
        n = 4;
    }
    out.append(bytes, n);
}

// Decodes one character at `s`; answers the number of bytes used, or 0 when the sequence there is
// invalid (the caller then replaces one byte).
unsigned decode(unsigned char const* s, unsigned available, unsigned long& c) {
    unsigned char lead = s[0];
    unsigned length;
    unsigned long minimum;
    if (lead < 0x80) {
        c = lead;
        return 1;
    } else if (lead >= 0xC2 && lead <= 0xDF) {
        length = 2;
        minimum = 0x80;
        c = lead & 0x1F;
    } else if (lead >= 0xE0 && lead <= 0xEF) {
        length = 3;
        minimum = 0x800;
        c = lead & 0x0F;
    } else if (lead >= 0xF0 && lead <= 0xF4) {
        length = 4;
        minimum = 0x10000;
        c = lead & 0x07;
    } else {
        return 0;
    }
    if (length > available)
        return 0;
    for (unsigned i = 1; i < length; ++i) {
        if ((s[i] & 0xC0) != 0x80)
            return 0;
        c = (c << 6) | (s[i] & 0x3F);
    }
    return (c >= minimum && isScalarValue(c)) ? length : 0;
}

} // namespace

// Both directions collect into a plain buffer and make the shared string once: appending
// character by character to a shared string would check its ownership on every character.
LightweightString<char> toUTF8(LightweightString<wchar_t> const& text) {
    std::string out;
    out.reserve(text.size());
    for (wchar_t c : text)
        encode(static_cast<unsigned long>(static_cast<unsigned>(c)), out);
    return LightweightString<char>(out.data(), unsigned(out.size()));
}

LightweightString<char> toUTF8(wchar_t const* text) {
    return toUTF8(LightweightString<wchar_t>(text));
}

LightweightString<wchar_t> fromUTF8(char const* text, unsigned length) {
    std::wstring out;
    out.reserve(length);
    auto const* s = reinterpret_cast<unsigned char const*>(text);
    unsigned i = 0;
    while (i < length) {
        unsigned long c = 0;
        unsigned used = decode(s + i, length - i, c);
        out.push_back(used != 0 ? wchar_t(c) : replacement);
        i += used != 0 ? used : 1;
    }
    return LightweightString<wchar_t>(out.data(), unsigned(out.size()));
}

LightweightString<wchar_t> fromUTF8(char const* text) {
    return fromUTF8(text, text != nullptr ? unsigned(std::strlen(text)) : 0);
}

LightweightString<wchar_t> fromUTF8(LightweightString<char> const& text) {
    return fromUTF8(text.c_str(), text.size());
}
