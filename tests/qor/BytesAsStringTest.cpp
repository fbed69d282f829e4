#include "qor/BytesAsString.h"

#include "qor/UTF8.h"
#include "support/DecimalCommaLocale.h"

#include <gtest/gtest.h>

namespace {

struct Case {
    unsigned long long bytes;
    char const* text;
};

void expectReadable(std::initializer_list<Case> cases) {
    for (Case const& c : cases) {
        SCOPED_TRACE(c.bytes);
        EXPECT_EQ(toUTF8(bytesAsString(c.bytes, BytesReadable)).str(), c.text);
    }
}

TEST(BytesAsString, ReadableSizesUseBinaryUnitsWithOneDecimal) {
    expectReadable({
        {0, "0 bytes"},
        {1, "1 byte"},
        {512, "512 bytes"},
        {1023, "1023 bytes"},
        {1024, "1.0 KB"},
        {1229, "1.2 KB"},
        {3565158, "3.4 MB"},
        {5368709120ull, "5.0 GB"},
        {1536ull << 30, "1.5 TB"},
        {18446744073709551615ull, "16.0 EB"},
    });
}

TEST(BytesAsString, ASizeThatRoundsUpToTheNextUnitIsShownInIt) {
    expectReadable({
        {1048575, "1.0 MB"},
        {1048524, "1023.9 KB"},
        {1073741823, "1.0 GB"},
    });
}

TEST(BytesAsString, TheExactStyleCountsEveryByte) {
    EXPECT_EQ(toUTF8(bytesAsString(1, BytesExact)), "1 byte");
    EXPECT_EQ(toUTF8(bytesAsString(3565158, BytesExact)), "3565158 bytes");
    EXPECT_EQ(toUTF8(bytesAsString(18446744073709551615ull, BytesExact)),
              "18446744073709551615 bytes");
}

TEST(BytesAsString, TheDecimalPointIgnoresTheLocale) {
    DecimalCommaLocale comma;
    if (!comma.active())
        GTEST_SKIP() << "no locale with a decimal comma";
    expectReadable({{1229, "1.2 KB"}});
}

} // namespace
