#include "qor/BytesAsString.h"

#include "qor/UTF8.h"
#include "support/DecimalCommaLocale.h"

#include <gtest/gtest.h>

namespace {

std::string readable(unsigned long long bytes) {
    return toUTF8(bytesAsString(bytes, BytesReadable)).str();
}

TEST(BytesAsString, ReadableSizesUseBinaryUnitsWithOneDecimalInTheUnitTheyRoundTo) {
    struct Case {
        unsigned long long bytes;
        char const* text;
    } const cases[] = {
        {1, "1 byte"},
        {1023, "1023 bytes"},
        {1024, "1.0 KB"},
        {3565158, "3.4 MB"},
        {18446744073709551615ull, "16.0 EB"},
        {1048575, "1.0 MB"},
        {1048524, "1023.9 KB"},
    };
    for (Case const& c : cases)
        EXPECT_EQ(readable(c.bytes), c.text) << c.bytes;
}

TEST(BytesAsString, TheExactStyleCountsEveryByte) {
    EXPECT_EQ(toUTF8(bytesAsString(1, BytesExact)), "1 byte");
    EXPECT_EQ(toUTF8(bytesAsString(18446744073709551615ull, BytesExact)),
              "18446744073709551615 bytes");
}

TEST(BytesAsString, TheDecimalPointIgnoresTheLocale) {
    DecimalCommaLocale comma;
    if (!comma.active())
        GTEST_SKIP() << "no locale with a decimal comma";
    EXPECT_EQ(readable(1229), "1.2 KB");
}

} // namespace
