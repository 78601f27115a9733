// Numbers to text and back (orv/numbers.h).
//
// Both ways have a short path for what engineering data is made of, numbers of few digits, and a long one through the
// standard library's locale-free conversions, which are exact.
#include <array>
#include <charconv>
#include <cmath>
#include <cstring>
#include <limits>
#include <string>

#include "framework/characters.h"
#include "orv/numbers.h"

namespace orv {

namespace {

// Powers of ten that a double holds exactly.
constexpr int kExactPower = 22;
constexpr std::array<double, kExactPower + 1> kPowersOfTen = {1e0,  1e1,  1e2,  1e3,  1e4,  1e5,  1e6,  1e7,
                                                              1e8,  1e9,  1e10, 1e11, 1e12, 1e13, 1e14, 1e15,
                                                              1e16, 1e17, 1e18, 1e19, 1e20, 1e21, 1e22};

double powerOfTen(int exponent) { return kPowersOfTen[static_cast<std::size_t>(exponent)]; }

// ---- To text ----

constexpr int kDigits = 6;

struct SixDigits {
    int digits;    // 100000..999999
    int exponent;  // of the first digit
};

// value * 10^(5 - exponent), one rounding away from exact.
double scaled(double value, int exponent) {
    return exponent <= kDigits - 1 ? value * powerOfTen(kDigits - 1 - exponent)
                                   : value / powerOfTen(exponent - (kDigits - 1));
}

// The six digits nearest to a positive value. False where one multiplication cannot tell: exponents out of reach, or
// so near to the middle between two results that its rounding (a relative 2^-53, here below 1e-9) could decide.
bool sixDigits(double value, SixDigits& out) {
    constexpr int kSmallest = kDigits - 1 - kExactPower;
    constexpr int kLargest = kDigits - 1 + kExactPower;
    constexpr double kDoubt = 1e-6;

    int binary = 0;
    std::frexp(value, &binary);
    int exponent = static_cast<int>(std::floor((binary - 1) * 0.30102999566398120));  // at most 1 too small
    if (exponent < kSmallest || exponent + 1 > kLargest) return false;
    double digits = scaled(value, exponent);
    if (digits >= 1e6) digits = scaled(value, ++exponent);
    if (digits < 1e5) return false;
    int whole = static_cast<int>(digits);
    const double rest = digits - whole;
    if (std::fabs(rest - 0.5) < kDoubt) return false;
    if (rest > 0.5) ++whole;
    if (whole == 1'000'000) {
        whole = 100'000;
        ++exponent;
    }
    out = {whole, exponent};
    return true;
}

wchar_t digit(int value) { return static_cast<wchar_t>(L'0' + value); }

wchar_t* putExponent(wchar_t* out, int exponent) {
    *out++ = L'e';
    *out++ = exponent < 0 ? L'-' : L'+';
    const int size = exponent < 0 ? -exponent : exponent;
    *out++ = digit(size / 10);
    *out++ = digit(size % 10);
    return out;
}

wchar_t* putSixDigits(wchar_t* out, SixDigits number) {
    std::array<wchar_t, kDigits> digits;
    int count = kDigits;
    int rest = number.digits;
    for (std::size_t i = kDigits; i-- > 0; rest /= 10)
        digits[i] = digit(rest % 10);
    while (count > 1 && digits[static_cast<std::size_t>(count) - 1] == L'0')
        --count;
    const auto put = [&](int from, int to) {
        for (int i = from; i < to; ++i)
            *out++ = i < count ? digits[static_cast<std::size_t>(i)] : L'0';
    };

    if (number.exponent < -4 || number.exponent >= kDigits) {
        put(0, 1);
        if (count > 1) *out++ = L'.';
        put(1, count);
        return putExponent(out, number.exponent);
    }
    if (number.exponent < 0) {
        *out++ = L'0';
        *out++ = L'.';
        for (int i = -1; i > number.exponent; --i)
            *out++ = L'0';
        put(0, count);
        return out;
    }
    put(0, number.exponent + 1);
    if (count > number.exponent + 1) {
        *out++ = L'.';
        put(number.exponent + 1, count);
    }
    return out;
}

// ---- From text ----

std::size_t skipSpaces(WideView text) {
    std::size_t at = 0;
    while (at < text.size() && isSpace(text[at]))
        ++at;
    return at;
}

// The exact conversion of a number's text (digits, point, exponent: no sign), through narrow characters.
double convertLong(WideView number, bool belowOne) {
    std::string narrow(number.size(), '\0');
    for (std::size_t i = 0; i < number.size(); ++i)
        narrow[i] = static_cast<char>(number[i]);
    double value = 0;
    const auto result = std::from_chars(narrow.data(), narrow.data() + narrow.size(), value);
    if (result.ec == std::errc::result_out_of_range) {
        return belowOne ? 0.0 : std::numeric_limits<double>::infinity();
    }
    return value;
}

}  // namespace

int formatGeneral(double value, wchar_t (&out)[kGeneralLength]) {
    wchar_t* at = out;
    if (std::signbit(value) && !std::isnan(value)) {
        *at++ = L'-';
        value = -value;
    }
    SixDigits number{};
    if (value == 0) {
        *at++ = L'0';
    } else if (std::isfinite(value) && sixDigits(value, number)) {
        at = putSixDigits(at, number);
    } else {
        std::array<char, kGeneralLength> narrow;
        const auto end =
            std::to_chars(narrow.data(), narrow.data() + narrow.size(), value, std::chars_format::general, kDigits).ptr;
        for (const char* from = std::isnan(value) ? end - 3 : narrow.data(); from != end; ++from) {
            *at++ = static_cast<wchar_t>(*from);
        }
    }
    *at = 0;
    return static_cast<int>(at - out);
}

int formatInteger(std::int32_t value, wchar_t (&out)[kIntegerLength]) {
    std::array<char, kIntegerLength> narrow;
    const char* end = std::to_chars(narrow.data(), narrow.data() + narrow.size(), value).ptr;
    const auto length = static_cast<int>(end - narrow.data());
    for (int i = 0; i < length; ++i)
        out[i] = static_cast<wchar_t>(narrow[static_cast<std::size_t>(i)]);
    out[length] = 0;
    return length;
}

ParsedDouble parseDouble(WideView text) {
    constexpr std::uint64_t kExactMantissa = std::uint64_t{1} << 53;
    constexpr int kMantissaDigits = 19;
    constexpr int kExponentLimit = 100'000;

    std::size_t at = skipSpaces(text);
    const bool negative = at < text.size() && text[at] == L'-';
    if (at < text.size() && (text[at] == L'-' || text[at] == L'+')) ++at;

    const std::size_t start = at;
    std::uint64_t mantissa = 0;
    int significant = 0;  // digits in the mantissa, leading zeros not counted
    std::int64_t exponent = 0;
    bool dropped = false;  // digits that the mantissa has no room for
    std::size_t digits = 0;
    const auto take = [&](bool decimals) {
        for (; at < text.size() && isAsciiDigit(text[at]); ++at, ++digits) {
            if (significant < kMantissaDigits) {
                mantissa = mantissa * 10 + static_cast<std::uint64_t>(text[at] - L'0');
                if (mantissa != 0) ++significant;
                if (decimals) --exponent;
            } else {
                dropped = true;
                if (!decimals) ++exponent;
            }
        }
    };
    take(false);
    if (at < text.size() && text[at] == L'.' && (digits > 0 || (at + 1 < text.size() && isAsciiDigit(text[at + 1])))) {
        ++at;
        take(true);
    }
    if (digits == 0) return {0.0, 0};

    if (at < text.size() && (text[at] == L'e' || text[at] == L'E')) {
        std::size_t next = at + 1;
        const bool minus = next < text.size() && text[next] == L'-';
        if (next < text.size() && (text[next] == L'-' || text[next] == L'+')) ++next;
        if (next < text.size() && isAsciiDigit(text[next])) {
            int size = 0;
            for (; next < text.size() && isAsciiDigit(text[next]); ++next) {
                if (size < kExponentLimit) size = size * 10 + (text[next] - L'0');
            }
            exponent += minus ? -size : size;
            at = next;
        }
    }

    double value = 0;
    if (mantissa == 0) {
        value = 0;
    } else if (!dropped && mantissa <= kExactMantissa && exponent >= -kExactPower && exponent <= kExactPower) {
        // Both factors are exact, so one operation rounds once.
        value = static_cast<double>(mantissa);
        value = exponent < 0 ? value / powerOfTen(static_cast<int>(-exponent))
                             : value * powerOfTen(static_cast<int>(exponent));
    } else {
        value = convertLong(text.substr(start, at - start), exponent + significant <= 0);
    }
    return {negative ? -value : value, at};
}

ParsedInteger parseInteger(WideView text) {
    constexpr std::int64_t kLimit = std::int64_t{1} << 31;
    std::size_t at = skipSpaces(text);
    const bool negative = at < text.size() && text[at] == L'-';
    if (at < text.size() && (text[at] == L'-' || text[at] == L'+')) ++at;
    const std::size_t start = at;
    std::int64_t value = 0;
    for (; at < text.size() && isAsciiDigit(text[at]); ++at) {
        if (value < kLimit) value = value * 10 + (text[at] - L'0');
    }
    if (at == start) return {0, 0};
    if (negative) value = -value;
    if (value > kLimit - 1) value = kLimit - 1;
    if (value < -kLimit) value = -kLimit;
    return {static_cast<std::int32_t>(value), at};
}

}  // namespace orv
