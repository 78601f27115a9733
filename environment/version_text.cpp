// vercmp.
#include <cstdint>

#include "environment/path_text.h"
#include "framework/characters.h"
#include "orv/paths.h"

namespace {

using orv::WideView;

WideView significant(const wchar_t* text) {
    WideView view = orv::trimmedWhiteSpace(text != nullptr ? WideView(text) : WideView());
    // ODDITY(version-zeros): zeros at the end go from whole numbers too, so that 20 equals 2 and 1.10 is before 1.9.
    // Pinned by Versions.CompareByNumberThenText.
    while (view.ends_with(L'0'))
        view.remove_suffix(1);
    while (view.ends_with(L'.'))
        view.remove_suffix(1);
    while (view.starts_with(L'.'))
        view.remove_prefix(1);
    return view;
}

/// The number in front, with room for a date and a time (202601011200); more saturates.
std::int64_t leadingNumber(WideView text) {
    constexpr std::int64_t kMost = 100'000'000'000'000'000;
    const bool isNegative = text.starts_with(L'-');
    if (isNegative || text.starts_with(L'+')) text.remove_prefix(1);
    std::int64_t number = 0;
    for (std::size_t i = 0; i < text.size() && orv::isAsciiDigit(text[i]); ++i)
        number = number < kMost ? number * 10 + (text[i] - L'0') : kMost * 10;
    return isNegative ? -number : number;
}

int sign(int value) { return value < 0 ? -1 : value > 0 ? 1 : 0; }

}  // namespace

int vercmp(const wchar_t* a, const wchar_t* b) {
    const WideView first = significant(a);
    const WideView second = significant(b);
    const std::int64_t numbers[] = {leadingNumber(first), leadingNumber(second)};
    if (numbers[0] != numbers[1]) return numbers[0] < numbers[1] ? -1 : 1;
    return sign(orv::textOf(first).CompareNoCase(orv::textOf(second)));
}
