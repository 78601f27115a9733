// Where the lines of a text have a separator and where they end, found many characters at a time and ahead of the
// reader, so that no line waits for the one before.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

#include "orv/wide.h"

namespace orv {

/// The separators and LF of a NUL-terminated text, and its NUL, in order. Reads behind the NUL, on its page only.
class LineMarks {
  public:
    LineMarks(const wchar_t* text, wchar_t separator) : block_(text), separator_(separator) {}

    /// The first mark at or behind `at`, which never is before that of the last call.
    const wchar_t* from(const wchar_t* at) {
        for (;; ++next_) {
            if (next_ == end_) fill();
            if (*next_ >= at) return *next_;
        }
    }

    static constexpr std::size_t kBlock = 64;   // characters
    static constexpr std::size_t kBlocks = 16;  // at once

  private:
    static constexpr std::size_t kMore = 8;  // put() writes behind the end

    void fill();
    void put(const wchar_t* start, std::uint64_t marks, unsigned count);

    const wchar_t* block_;  // where to go on: at first in the middle of a block
    wchar_t separator_;
    std::array<const wchar_t*, kBlock * kBlocks + kMore> marks_;  // what is found is written first
    const wchar_t** next_ = marks_.data();
    const wchar_t** end_ = marks_.data();
};

}  // namespace orv
