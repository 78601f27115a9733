// Numbers as most are typed, read in one go.
#pragma once

#include <cstddef>
#include <cstdint>

#include "framework/characters.h"
#include "orv/wide.h"

namespace orv {

/// At most 15 digits with at most one point or comma, and nothing of a number behind it.
struct PlainNumber {
    double value = 0;
    std::size_t length = 0;  // 0: the number is another
    bool mayMeanThousands = false;
};

inline PlainNumber readPlainNumber(const wchar_t* at, const wchar_t* end) {
    // So few digits that the quotient of two exact doubles is the nearest one.
    constexpr std::ptrdiff_t kExactDigits = 15;
    static constexpr double kPowers[] = {1,   1e1, 1e2,  1e3,  1e4,  1e5,  1e6,  1e7,
                                         1e8, 1e9, 1e10, 1e11, 1e12, 1e13, 1e14, 1e15};
    const auto isPoint = [](wchar_t ch) { return ch == L',' || ch == L'.'; };
    // An exponent, a hexadecimal number or a second point: another kind of number, or none.
    const auto goesOn = [&](wchar_t ch) {
        constexpr unsigned kCase = L'a' - L'A';
        return isAsciiDigit(ch) || isPoint(ch) || (ch | kCase) == L'e' || (ch | kCase) == L'x';
    };
    const wchar_t* const begin = at;
    std::int64_t digits = 0;
    const auto take = [&] {
        const wchar_t* const first = at;
        for (; at < end && isAsciiDigit(*at) && at - begin <= kExactDigits; ++at)
            digits = digits * 10 + (*at - L'0');
        return at - first;
    };
    const std::ptrdiff_t whole = take();
    const wchar_t point = at < end && isPoint(*at) ? *at : L'\0';
    if (point != 0) ++at;
    const std::ptrdiff_t decimals = point != 0 ? take() : 0;
    const bool isAll = at == end || !goesOn(*at);
    if (!isAll || whole + decimals > kExactDigits) return {};
    constexpr std::ptrdiff_t kGroup = 3;
    return {decimals != 0 ? static_cast<double>(digits) / kPowers[decimals] : static_cast<double>(digits),
            static_cast<std::size_t>(at - begin),
            point == L',' && decimals == kGroup && whole >= 1 && whole <= kGroup && *begin != L'0'};
}

}  // namespace orv
