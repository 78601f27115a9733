// The byte forms of text that the library converts itself, besides UTF-8 (framework/utf8.h).
#pragma once

#include <cstddef>
#include <string_view>

#include "orv/wide.h"

namespace orv {

// ---- Windows-1252 ----
// The five bytes without a character (81, 8D, 8F, 90, 9D) stand for the C1 controls of the same number, both ways.

/// Writes bytes.size() characters.
void decodeWindows1252(std::string_view bytes, wchar_t* out);
/// Writes at most text.size() bytes and returns how many; a character that the page lacks is one "?".
std::size_t encodeWindows1252(WideView text, char* out);
/// True for the C1 controls that stand for bytes without a character.
constexpr bool isUndefinedInWindows1252(wchar_t character) {
    return character == 0x81 || character == 0x8D || character == 0x8F || character == 0x90 || character == 0x9D;
}

// ---- UTF-16 ----

/// Copies or swaps bytes.size() / 2 characters; an odd last byte is left alone.
void decodeUtf16(std::string_view bytes, bool isBigEndian, wchar_t* out);

// ---- Scrambling ----

inline constexpr unsigned char kScrambleStep = 3;
/// Adds to each byte, modulo 256.
void scramble(char* bytes, std::size_t count);
void unscramble(char* bytes, std::size_t count);

}  // namespace orv
