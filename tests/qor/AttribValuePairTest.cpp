#include "qor/AttribValuePair.h"

#include "qor/UTF8.h"

#include <gtest/gtest.h>

namespace {

using WString = LightweightString<wchar_t>;
using NString = LightweightString<char>;

TEST(AttribValuePair, ParsingSplitsAtTheFirstSeparator) {
    struct Case {
        wchar_t const* text;
        wchar_t const* name;
        wchar_t const* value;
    } const cases[] = {
        {L"formula=a=b+c", L"formula", L"a=b+c"},
        {L"Size =  12 MB", L"Size ", L"  12 MB"},
        {L"=value", L"", L"value"},
        {L"no separator", L"no separator", L""},
    };
    for (Case const& c : cases) {
        SCOPED_TRACE(toUTF8(c.text).c_str());
        Qor::AttribValuePair wide(WString(c.text), L'=');
        EXPECT_EQ(wide.getName(), c.name);
        EXPECT_EQ(wide.getValue(), c.value);
        EXPECT_EQ(Qor::AttribValuePair(toUTF8(c.text), '='), wide);
    }
}

TEST(AttribValuePair, BuiltFromPartsItJoinsThemWithItsSeparator) {
    Qor::AttribValuePair link(NString("MDCLinkClick"),
                              NString("https://example.org/?a=1&b=\xc3\xa9"));
    EXPECT_EQ(link.asUTF8String(), "MDCLinkClick=https://example.org/?a=1&b=\xc3\xa9");
    EXPECT_EQ(link.getValue(), L"https://example.org/?a=1&b=\u00e9");
    EXPECT_EQ(Qor::AttribValuePair(link.asString(), L'='), link);

    Qor::AttribValuePair tab(WString(L"key"), WString(L"value"), L'\t');
    EXPECT_EQ(tab.asString(), L"key\tvalue");
}

} // namespace
