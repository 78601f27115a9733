// What a 16-bit character is: the one table behind every classification and simple case mapping of the library.
//
// The same in both flavours and in every locale. Surrogates are no letters and have no case.
#pragma once

namespace orv {

/// As isSpace, for every character.
bool isTabledSpace(wchar_t ch) noexcept;
/// U+0009..000D, 0020, 0085, 00A0, 1680, 2000..200A, 2028, 2029, 202F, 205F, 3000.
inline bool isSpace(wchar_t ch) noexcept {
    constexpr wchar_t kFirstRare = 0x85;
    return ch < kFirstRare ? ch == L' ' || (ch >= L'\t' && ch <= L'\r') : isTabledSpace(ch);
}
/// "0" to "9".
inline bool isAsciiDigit(wchar_t ch) noexcept { return ch >= L'0' && ch <= L'9'; }
/// Decimal digits of every script.
bool isDigit(wchar_t ch) noexcept;
bool isLetter(wchar_t ch) noexcept;
inline bool isAlphanumeric(wchar_t ch) noexcept { return isLetter(ch) || isDigit(ch); }
/// Unicode's simple mappings, one character to one: Ä to ä, ß stays.
wchar_t toLower(wchar_t ch) noexcept;
wchar_t toUpper(wchar_t ch) noexcept;
/// Unicode's simple case folding, under which texts are compared when case does not matter.
wchar_t foldCase(wchar_t ch) noexcept;

}  // namespace orv
