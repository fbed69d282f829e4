#include "qor/BytesAsString.h"

#include "qor/Strings.h"

#include <cmath>
#include <string>

namespace {

using Text = LightweightString<wchar_t>;

constexpr wchar_t const* units[] = {L"KB", L"MB", L"GB", L"TB", L"PB", L"EB"};
constexpr double unitStep = 1024.0;

Text exactBytes(unsigned long long bytes) {
    return Text(std::wstring_view(std::to_wstring(bytes)))
        .append(bytes == 1 ? L" byte" : L" bytes");
}

// The unit is chosen on the rounded value, so 1048575 bytes read "1.0 MB" and not "1024.0 KB".
Text readableBytes(unsigned long long bytes) {
    if (bytes < 1024)
        return exactBytes(bytes);
    double value = double(bytes) / unitStep;
    unsigned unit = 0;
    while (std::round(value * 10) / 10 >= unitStep && unit + 1 < std::size(units)) {
        value /= unitStep;
        ++unit;
    }
    return Qor::WStringFromFloat(value, 1, false).append(L" ").append(units[unit]);
}

} // namespace

LightweightString<wchar_t> bytesAsString(unsigned long long bytes, int style) {
    return style == BytesExact ? exactBytes(bytes) : readableBytes(bytes);
}
