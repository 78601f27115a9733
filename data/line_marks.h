// Where the lines of a text have a separator and where they end, found many characters at a time and ahead of the
// reader, so that no line waits for the one before.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

#include "framework/vector.h"
#include "orv/wide.h"

namespace orv {

/// The separators, LF and perhaps one more character of a NUL-terminated text, and its NUL, in order. Reads behind the
/// NUL, on its page only.
class LineMarks {
  public:
    LineMarks(const wchar_t* text, wchar_t separator, wchar_t other = L'\n')
        : block_(text), separator_(separator), other_(other) {}

    /// The first mark at or behind `at`, which never is before the last one given.
    const wchar_t* from(const wchar_t* at) {
        for (;; ++next_) {
            if (next_ == end_) fill();
            if (*next_ >= at) return *next_;
        }
    }

    /// The one behind the last one given, which was not the NUL.
    const wchar_t* following() {
        if (++next_ == end_) fill();
        return *next_;
    }

    /// How many characters of the text have been seen from `at` on.
    std::size_t seenFrom(const wchar_t* at) const { return at < seen_ ? static_cast<std::size_t>(seen_ - at) : 0; }

    /// Whether `text` stands at `at`.
    bool isAt(const wchar_t* at, WideView text) const {
        if (seenFrom(at) >= text.size()) return equalUnits(at, text.data(), text.size());
        for (const wchar_t ch : text) {
            if (*at == 0 || *at++ != ch) return false;
        }
        return true;
    }

    static constexpr std::size_t kBlock = 64;   // characters
    static constexpr std::size_t kBlocks = 16;  // at once

  private:
    static constexpr std::size_t kMore = 8;  // what is found is written so many at once

    void fill();

    const wchar_t* block_;  // where to go on: at first in the middle of a block
    wchar_t separator_;
    wchar_t other_;
    const wchar_t* seen_ = nullptr;
    std::array<const wchar_t*, kBlock * kBlocks + kMore> marks_;
    const wchar_t** next_ = marks_.data();
    const wchar_t** end_ = marks_.data();
};

}  // namespace orv
