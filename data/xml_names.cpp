#include "data/xml_names.h"

#include <algorithm>
#include <cstdint>
#include <iterator>

namespace orv {
namespace {

struct Range {
    std::uint32_t first, last;
};

// clang-format off
constexpr Range kStart[] = { // NameStartChar without ":"
    {'A', 'Z'}, {'_', '_'}, {'a', 'z'}, {0xC0, 0xD6}, {0xD8, 0xF6}, {0xF8, 0x2FF}, {0x370, 0x37D}, {0x37F, 0x1FFF},
    {0x200C, 0x200D}, {0x2070, 0x218F}, {0x2C00, 0x2FEF}, {0x3001, 0xD7FF}, {0xF900, 0xFDCF}, {0xFDF0, 0xFFFD},
    {0x10000, 0xEFFFF}};
constexpr Range kMore[] = { // what NameChar adds
    {'-', '.'}, {'0', '9'}, {0xB7, 0xB7}, {0x300, 0x36F}, {0x203F, 0x2040}};
constexpr Range kText[] = { // Char
    {0x9, 0xA}, {0xD, 0xD}, {0x20, 0xD7FF}, {0xE000, 0xFFFD}, {0x10000, 0x10FFFF}};
// clang-format on

template <std::size_t Count>
bool isIn(const Range (&ranges)[Count], std::uint32_t ch) {
    return std::any_of(std::begin(ranges), std::end(ranges),
                       [ch](const Range& range) { return ch >= range.first && ch <= range.last; });
}

/// Takes one character; half a surrogate pair is itself.
std::uint32_t take(WideView& text) {
    const std::uint32_t first = text[0];
    text.remove_prefix(1);
    if ((first & 0xFC00) != 0xD800 || text.empty() || (text[0] & 0xFC00) != 0xDC00) return first;
    const std::uint32_t second = text[0];
    text.remove_prefix(1);
    return 0x10000 + ((first & 0x3FF) << 10) + (second & 0x3FF);
}

}  // namespace

bool isXmlName(WideView text) {
    if (text.empty() || !isIn(kStart, take(text))) return false;
    while (!text.empty()) {
        const std::uint32_t ch = take(text);
        if (!isIn(kStart, ch) && !isIn(kMore, ch)) return false;
    }
    return true;
}

bool isXmlText(WideView text) {
    while (!text.empty()) {
        if (!isIn(kText, take(text))) return false;
    }
    return true;
}

}  // namespace orv
