// The two loops in which records spend their time, on NUL-terminated texts.
#pragma once

#include <cstddef>

namespace orv {

struct EscapedCopy {
    const wchar_t* from;  // at the closing NUL, unless the room ended first
    wchar_t* to;
};

/// Copies a value with its escapes up to its NUL, which is not written, or until `to` has reached `end`. May write up
/// to kRecordBufferSlack characters behind `end`.
EscapedCopy copyEscaped(const wchar_t* from, wchar_t* to, const wchar_t* end);

/// How many characters stand before the first one that a reader must look at: the separator, U+00AE, "&", carriage
/// return, line feed or NUL.
std::size_t plainLength(const wchar_t* text, wchar_t separator);

/// Copies a field of at most 32 characters with no such character but the separator behind it, if there is room for
/// it, and returns its length. Else returns kNoSimpleField and writes nothing.
inline constexpr std::size_t kNoSimpleField = static_cast<std::size_t>(-1);
std::size_t copySimpleField(const wchar_t* text, wchar_t separator, wchar_t* to, std::size_t room);

/// Goes behind the `count`th separator. Null when a line feed or the end comes first.
const wchar_t* skipSeparators(const wchar_t* text, wchar_t separator, long count);

}  // namespace orv
