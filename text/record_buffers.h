// The buffers in which records are written.
//
// The first is part of the program and serves every record of the usual size without allocating. The others come to
// life when a record outgrows the one before, each twice as large, and then stay: every writer shares them, so that
// none of them may move or go while a pointer into it can be around.
#pragma once

#include <cstddef>

namespace orv {

inline constexpr std::size_t kRecordBufferLength = 1'048'576;

/// Writing may overshoot the end of a buffer by this many characters.
inline constexpr std::size_t kRecordBufferSlack = 64;

wchar_t* firstRecordBuffer() noexcept;
/// The end of the buffer that starts at `start`.
wchar_t* endOfRecordBuffer(const wchar_t* start) noexcept;
/// The start of the next larger buffer. Throws std::bad_alloc when there is no memory for it.
wchar_t* nextRecordBuffer(const wchar_t* start);

}  // namespace orv
