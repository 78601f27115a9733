// UTF-8 to UTF-16 and back.
//
// Invalid UTF-8 (overlong forms, surrogates, values above U+10FFFF, cut sequences) becomes U+FFFD, one for each maximal
// bad part; a lone surrogate is written as U+FFFD (EF BF BD).
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "orv/wide.h"

namespace orv {

struct Utf8Decoded {
    std::size_t length;      // characters written
    std::size_t badParts;    // U+FFFD written for bytes that are no UTF-8
    std::size_t firstBadAt;  // byte offset of the first of them; the size of the text when there is none
};

/// Decodes into `out`, which has room for `bytes.size()` + kUtf8Slack characters.
inline constexpr std::size_t kUtf8Slack = 32;
Utf8Decoded decodeUtf8(std::string_view bytes, wchar_t* out);

/// Decodes as long as the bytes are well-formed: true and the number of characters, or false at the first bad part.
bool decodeValidUtf8(std::string_view bytes, wchar_t* out, std::size_t& length);

/// How many bytes at the end (0 to 3) are the beginning of a character that goes on behind it.
std::size_t cutUtf8Tail(std::string_view bytes);

/// Encodes into `out`, which has room for 3 * text.size() + kUtf8Slack bytes; returns the bytes written.
std::size_t encodeUtf8(WideView text, char* out);

WideString utf8ToWide(std::string_view bytes);
std::string wideToUtf8(WideView text);

}  // namespace orv
