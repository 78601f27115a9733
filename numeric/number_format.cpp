#include "numeric/number_format.h"

#include "framework/characters.h"
#include "text/views.h"

namespace orv {

bool isNumberFormat(WideView format) {
    constexpr WideView kFlags = L"-+ #0";
    int directives = 0;
    for (std::size_t at = 0; (at = format.find(L'%', at)) != WideView::npos; ++at) {
        ++at;
        if (at < format.size() && format[at] == L'%') continue;
        at = format.find_first_not_of(kFlags, at);
        at = format.find_first_not_of(L"0123456789", at);
        if (at < format.size() && format[at] == L'.') at = format.find_first_not_of(L"0123456789", at + 1);
        if (at < format.size() && format[at] == L'l') ++at;
        if (at >= format.size() || WideView(L"eEfFgG").find(format[at]) == WideView::npos) return false;
        ++directives;
    }
    return directives == 1;
}

CString withThousands(const CString& number) {
    constexpr std::size_t kGroup = 3;
    WideView text = viewOf(number);
    CString result;
    if (text.starts_with(L'-') || text.starts_with(L'+')) {
        result = text.front();
        text.remove_prefix(1);
    }
    const std::size_t point = text.rfind(L'.');
    const WideView whole = text.substr(0, point);
    const WideView decimals = point == WideView::npos ? WideView() : text.substr(point + 1);
    constexpr WideView kDigits = L"0123456789";
    const bool isNumber = whole.find_first_not_of(kDigits) == WideView::npos &&
                          decimals.find_first_not_of(kDigits) == WideView::npos && whole.size() + decimals.size() != 0;
    if (!isNumber) return number;
    for (std::size_t i = 0; i < whole.size(); ++i) {
        if (i != 0 && (whole.size() - i) % kGroup == 0) result += L'.';
        result += whole[i];
    }
    return point == WideView::npos ? result : result + L"," + textOf(decimals);
}

}  // namespace orv
