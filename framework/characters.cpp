#include "framework/characters.h"

#include <cstdint>

namespace orv {

namespace {

struct CharacterKind {
    std::uint16_t flags;
    std::uint16_t toLower;
    std::uint16_t toUpper;
    std::uint16_t toFolded;
};

enum : std::uint16_t { kSpace = 1, kLetter = 2, kDigit = 4 };

#include "framework/character_table.inc"

const CharacterKind& kindOf(wchar_t ch) noexcept {
    const unsigned code = static_cast<unsigned>(ch) & 0xFFFFU;
    return kKinds[kKindInBlock[kBlockOfCharacter[code / 64]][code % 64]];
}

wchar_t plus(wchar_t ch, std::uint16_t step) noexcept { return static_cast<wchar_t>(ch + step); }

}  // namespace

bool isTabledSpace(wchar_t ch) noexcept { return (kindOf(ch).flags & kSpace) != 0; }
bool isDigit(wchar_t ch) noexcept { return (kindOf(ch).flags & kDigit) != 0; }
bool isLetter(wchar_t ch) noexcept { return (kindOf(ch).flags & kLetter) != 0; }
wchar_t toLower(wchar_t ch) noexcept { return plus(ch, kindOf(ch).toLower); }
wchar_t toUpper(wchar_t ch) noexcept { return plus(ch, kindOf(ch).toUpper); }
wchar_t foldCase(wchar_t ch) noexcept { return plus(ch, kindOf(ch).toFolded); }

}  // namespace orv
