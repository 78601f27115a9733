// What arguments a printf format takes.
#include "orv/translation.h"
#include "text/views.h"

namespace orv {
namespace {

/// "*" for each width or precision that is an argument, then length and conversion; a cut directive is "%".
WideString argumentsOf(WideView format) {
    constexpr WideView kFlagsAndDigits = L"-+ #0123456789.*";
    constexpr WideView kLengths = L"hlLIqjzt";
    WideString arguments;
    for (std::size_t at = 0; (at = format.find(L'%', at)) != WideView::npos;) {
        ++at;
        if (at < format.size() && format[at] == L'%') {
            ++at;
            continue;
        }
        for (; at < format.size() && kFlagsAndDigits.find(format[at]) != WideView::npos; ++at) {
            if (format[at] == L'*') arguments += L'*';
        }
        const std::size_t length = at;
        while (at < format.size() && kLengths.find(format[at]) != WideView::npos)
            ++at;
        if (at > length && format[at - 1] == L'I') {
            while (at < format.size() && format[at] >= L'0' && format[at] <= L'9')  // %I64d
                ++at;
        }
        arguments += format.substr(length, at - length);
        const wchar_t conversion = at < format.size() ? format[at++] : L'%';
        arguments += conversion == L'i' ? L'd' : conversion;
        arguments += L' ';
    }
    return arguments;
}

}  // namespace

bool takeSameArguments(const wchar_t* a, const wchar_t* b) { return argumentsOf(viewOf(a)) == argumentsOf(viewOf(b)); }

}  // namespace orv
