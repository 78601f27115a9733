// The numbers by which the interface of the text files names encodings.
#pragma once

namespace orv {

inline constexpr unsigned kPageOem = 3331;
inline constexpr unsigned kPageWindows1252 = 3332;
inline constexpr unsigned kPageUtf8 = 3333;               // without a mark
inline constexpr unsigned kPageUtf8Mark = 65001;          // with a mark
inline constexpr unsigned kPageUtf16 = 0xFFFFFFFF;        // little-endian, with a mark
inline constexpr unsigned kSystemPageUtf8 = 65001;        // as the system counts
inline constexpr unsigned kSystemPageWindows1252 = 1252;  // as the system counts

}  // namespace orv
