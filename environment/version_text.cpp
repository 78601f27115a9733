// vercmp.
#include "environment/path_text.h"
#include "orv/numbers.h"
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

int sign(int value) { return value < 0 ? -1 : value > 0 ? 1 : 0; }

}  // namespace

int vercmp(const wchar_t* a, const wchar_t* b) {
    const WideView first = significant(a);
    const WideView second = significant(b);
    const auto leading = [](WideView text) { return orv::parseInteger(text.substr(0, text.find(L'.'))).value; };
    const std::int32_t numbers[] = {leading(first), leading(second)};
    if (numbers[0] != numbers[1]) return numbers[0] < numbers[1] ? -1 : 1;
    return sign(orv::textOf(first).CompareNoCase(orv::textOf(second)));
}
