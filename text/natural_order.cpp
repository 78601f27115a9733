// Comparing texts with numbers in them.
#include <cstdint>

#include "framework/characters.h"
#include "orv/string_utilities.h"
#include "text/views.h"

namespace {

using orv::WideView;

int signOf(std::uint64_t a, std::uint64_t b) { return a == b ? 0 : a < b ? -1 : 1; }

bool isDigitAt(WideView text, std::size_t at) { return at < text.size() && orv::isAsciiDigit(text[at]); }

// The number that begins at a digit; beyond 32 bits the largest one.
std::uint64_t numberAt(WideView text, std::size_t at) {
    constexpr std::uint64_t kLargest = 0x7FFFFFFF;
    std::uint64_t number = 0;
    for (; isDigitAt(text, at) && number < kLargest; ++at)
        number = number * 10 + static_cast<std::uint64_t>(text[at] - L'0');
    return number < kLargest ? number : kLargest;
}

// A run of digits without its leading zeros; `at` moves behind it.
WideView significantDigits(WideView text, std::size_t& at) {
    while (at < text.size() && text[at] == L'0')
        ++at;
    const std::size_t first = at;
    while (isDigitAt(text, at))
        ++at;
    return text.substr(first, at - first);
}

}  // namespace

int orvStrUtil::CompareAlphaNumerical(const CString& a, const CString& b) {
    // Most texts differ at once. The first character can always be read: it may be the closing NUL.
    const wchar_t x = *a.GetString();
    const wchar_t y = *b.GetString();
    if (x != y && !(orv::isAsciiDigit(x) && orv::isAsciiDigit(y))) return x < y ? -1 : 1;

    const WideView left = orv::viewOf(a);
    const WideView right = orv::viewOf(b);
    const std::size_t common = left.size() < right.size() ? left.size() : right.size();
    const std::size_t at = orv::firstMismatch(left.data(), right.data(), common);
    // ODDITY(natural-from-mismatch): numbers begin where the texts first differ, not where their digits begin, and
    // numbers beyond 32 bits are all the same; so this is no strict order (10 > 9, 9 > 1a, 10 < 1a) and texts that
    // differ may count as equal. Pinned by NaturalOrder.AlphaNumericalFollowsItsSteps.
    if (isDigitAt(left, at) && isDigitAt(right, at)) return signOf(numberAt(left, at), numberAt(right, at));
    if (at == common) return signOf(left.size(), right.size());
    return signOf(left[at], right[at]);
}

namespace orv {

int compareNatural(WideView a, WideView b, bool caseSensitive) {
    std::size_t i = 0;
    std::size_t j = 0;
    while (i < a.size() && j < b.size()) {
        if (isAsciiDigit(a[i]) && isAsciiDigit(b[j])) {
            const WideView left = significantDigits(a, i);
            const WideView right = significantDigits(b, j);
            if (left.size() != right.size()) return signOf(left.size(), right.size());
            if (const int order = left.compare(right); order != 0) return order;
            continue;
        }
        const wchar_t left = caseSensitive ? a[i] : foldCase(a[i]);
        const wchar_t right = caseSensitive ? b[j] : foldCase(b[j]);
        if (left != right) return signOf(left, right);
        ++i;
        ++j;
    }
    return signOf(a.size() - i, b.size() - j);
}

}  // namespace orv
