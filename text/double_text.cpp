#include <charconv>
#include <cmath>
#include <limits>

#include "orv/string_utilities.h"

namespace {

// The exact decimal expansion of any double ends here at the latest; all further digits would be zeros.
constexpr int kMostDecimals = 1074;
// A sign, the 309 digits of the largest double, the point.
constexpr int kMostBefore = 311;

}  // namespace

CString StringUtils::DoubleToString(double value, int decimals, bool commaDecimal) {
    const bool strip = decimals <= 0;
    if (strip) decimals = 6;
    if (std::isnan(value)) value = std::numeric_limits<double>::quiet_NaN();  // written without a sign
    if (decimals > kMostDecimals) decimals = kMostDecimals;
    char digits[kMostBefore + kMostDecimals];
    const char* end = std::to_chars(digits, digits + sizeof digits, value, std::chars_format::fixed, decimals).ptr;
    if (strip) {
        while (end > digits && end[-1] == '0')
            --end;
        while (end > digits && end[-1] == '.')
            --end;
    }
    const auto length = static_cast<int>(end - digits);
    CString result;
    wchar_t* out = result.GetBufferSetLength(length);
    for (const char* digit = digits; digit < end; ++digit)
        *out++ = *digit == '.' && commaDecimal ? L',' : static_cast<wchar_t>(*digit);
    result.ReleaseBufferSetLength(length);
    return result;
}
