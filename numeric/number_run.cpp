#include "numeric/number_run.h"

#include <algorithm>
#include <iterator>

#include "framework/characters.h"
#include "orv/numbers.h"

namespace orv {
namespace {

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

bool numberOfRun(WideView run, double& value) {
    if (run.size() > kLongestToken) return false;
    if (run.size() >= 2 && run[0] == L'0' && isX(run[1])) {
        const bool hasPoint = run.back() == L'.' || run.back() == L',';
        return hexadecimal(run.substr(2, run.size() - 2 - (hasPoint ? 1 : 0)), value);
    }
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
