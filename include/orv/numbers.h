// Numbers as text and back, never by the process's locale: the decimal sign is always ".".
#pragma once

#include <cstdint>

#include "orv/export.h"
#include "orv/wide.h"

namespace orv {

/// Room that formatGeneral needs: "-1.23457e-308" and the closing NUL, generously.
inline constexpr int kGeneralLength = 24;

/// Writes `value` as printf's "%g" does (six significant digits, at least two exponent digits), with a closing NUL;
/// returns the number of characters before it.
///   0.5 => "0.5"     1234567 => "1.23457e+06"     0.0000001 => "1e-07"     -0.0 => "-0"
/// An infinity is "inf" or "-inf", what is no number "nan".
ORV_API int formatGeneral(double value, wchar_t (&out)[kGeneralLength]);

/// Room that formatInteger needs: "-2147483648" and the closing NUL.
inline constexpr int kIntegerLength = 12;

/// Writes `value` in decimal digits, with a closing NUL; returns the number of characters before it.
ORV_API int formatInteger(std::int32_t value, wchar_t (&out)[kIntegerLength]);

/// A number at the start of a text and how many characters it took (0: there is none, and the value is 0).
struct ParsedDouble {
    double value;
    std::size_t length;
};
struct ParsedInteger {
    std::int32_t value;
    std::size_t length;
};

/// The longest prefix that is a decimal number, white space before it skipped and counted. The result is the double
/// nearest to the digits; beyond the range it is an infinity or 0. Names ("inf", "nan") and hexadecimal are no numbers.
///   "1.5m" => 1.5, 3     " -2e3" => -2000, 5     "1e" => 1, 1     ".5" => 0.5, 2     "," => 0, 0
ORV_API ParsedDouble parseDouble(WideView text);

/// White space, a sign, digits; values beyond 32 bits become the nearest 32-bit value.
///   " 12x" => 12, 3      "-7" => -7, 2      "99999999999" => 2147483647, 11     "x" => 0, 0
ORV_API ParsedInteger parseInteger(WideView text);

}  // namespace orv
