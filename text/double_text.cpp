#include <charconv>
#include <cmath>
#include <limits>

#include "orv/string_utilities.h"

namespace {

// The exact decimal expansion of any double ends here at the latest; all further digits are zeros.
constexpr int kMostDecimals = 1074;
// So many are written at most.
constexpr int kMostZeros = 1'000'000;
// A sign, the 309 digits of the largest double, the point.
constexpr int kMostBefore = 311;

}  // namespace

CString StringUtils::DoubleToString(double value, int decimals, bool commaDecimal) {
    const bool strip = decimals <= 0;
    if (strip) decimals = 6;
    if (std::isnan(value)) value = std::numeric_limits<double>::quiet_NaN();  // written without a sign
    int zeros = 0;
    if (decimals > kMostDecimals && std::isfinite(value)) {
        zeros = decimals - kMostDecimals < kMostZeros ? decimals - kMostDecimals : kMostZeros;
    }
    if (decimals > kMostDecimals) decimals = kMostDecimals;
    char digits[kMostBefore + kMostDecimals];
    const char* end = std::to_chars(digits, digits + sizeof digits, value, std::chars_format::fixed, decimals).ptr;
    if (strip) {
        while (end > digits && end[-1] == '0')
            --end;
        while (end > digits && end[-1] == '.')
            --end;
    }
    const auto length = static_cast<int>(end - digits) + zeros;
    CString result;
    wchar_t* out = result.GetBufferSetLength(length);
    for (const char* digit = digits; digit < end; ++digit)
        *out++ = *digit == '.' && commaDecimal ? L',' : static_cast<wchar_t>(*digit);
    for (int i = 0; i < zeros; ++i)
        *out++ = L'0';
    result.ReleaseBufferSetLength(length);
    return result;
}
