#include "numeric/number_run.h"

#include <algorithm>
#include <cstdint>
#include <iterator>

#include "framework/characters.h"
#include "orv/numbers.h"

namespace orv {
namespace {

bool isPoint(wchar_t ch) { return ch == L',' || ch == L'.'; }
bool isE(wchar_t ch) { return ch == L'E' || ch == L'e'; }
bool isX(wchar_t ch) { return ch == L'X' || ch == L'x'; }

bool hexadecimal(WideView digits, double& value) {
    if (digits.empty()) return false;
    double sum = 0;
    for (const wchar_t ch : digits) {
        if (!isAsciiDigit(ch)) return false;
        sum = sum * 16 + (ch - L'0');
    }
    value = sum;
    return true;
}

}  // namespace

std::size_t numberRunLength(const wchar_t* at, const wchar_t* end, CommaMeans comma) {
    const wchar_t* const begin = at;
    while (at < end) {
        if (*at == L',') {
            const bool digitBehind = end - at > 1 && isAsciiDigit(at[1]);
            if (comma == CommaMeans::kSeparator || (comma == CommaMeans::kSeparatorUnlessDigit && !digitBehind)) break;
        } else if (isE(*at)) {
            ++at;  // the exponent's sign, whatever it is
        } else if (!isAsciiDigit(*at) && *at != L'.' && !isX(*at)) {
            break;
        }
        at += at < end ? 1 : 0;
    }
    return static_cast<std::size_t>(at - begin);
}

PlainNumber readPlainNumber(const wchar_t* at, const wchar_t* end) {
    // So few digits that the quotient of two exact doubles is the nearest one.
    constexpr std::ptrdiff_t kExactDigits = 15;
    constexpr double kPowers[] = {1, 1e1, 1e2, 1e3, 1e4, 1e5, 1e6, 1e7, 1e8, 1e9, 1e10, 1e11, 1e12, 1e13, 1e14, 1e15};
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
    const bool isAll = at == end || (!isAsciiDigit(*at) && !isPoint(*at) && !isE(*at) && !isX(*at));
    if (!isAll || whole + decimals > kExactDigits) return {};
    constexpr std::ptrdiff_t kGroup = 3;
    return {static_cast<double>(digits) / kPowers[decimals], static_cast<std::size_t>(at - begin),
            point == L',' && decimals == kGroup && whole >= 1 && whole <= kGroup && *begin != L'0'};
}

bool numberOfRun(WideView run, double& value) {
    if (run.size() >= 2 && run[0] == L'0' && isX(run[1])) return hexadecimal(run.substr(2), value);
    if (run.size() > kLongestToken) return false;
    wchar_t text[kLongestToken];
    std::transform(run.begin(), run.end(), text, [](wchar_t ch) { return ch == L',' ? L'.' : ch; });
    WideView number(text, run.size());
    // A point at the end belongs to its number.
    if (number.ends_with(L'.') && number.find(L'.') == number.size() - 1) number.remove_suffix(1);
    const ParsedDouble parsed = parseDouble(number);
    value = parsed.value;
    return parsed.length == number.size() && parsed.length != 0;
}

bool mayMeanThousands(WideView run) {
    constexpr std::size_t kGroup = 3;
    const std::size_t comma = run.find(L',');
    return comma != WideView::npos && comma >= 1 && comma <= kGroup && run.size() - comma - 1 == kGroup &&
           run[0] != L'0' && run.find_first_not_of(L"0123456789,") == WideView::npos;
}

}  // namespace orv
