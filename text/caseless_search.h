// Searching without regard to case by the three ranges of FindNoCase.
#pragma once

#include <cstddef>

#include "orv/wide.h"
#include "text/caseless_kernels.h"

namespace orv {

/// Lower case for A-Z, U+00C0..U+00DE and U+0410..U+042F; every other unit is its own.
constexpr wchar_t foldForSearch(wchar_t unit) {
    const unsigned u = unit;
    // ODDITY(search-times-divide): the range U+00C0..U+00DE holds the multiplication sign U+00D7, which so equals the
    // division sign U+00F7. Pinned by CaselessSearch.FoldsExactlyThreeRanges.
    const bool capital = u - 'A' < 26U || u - 0xC0U < 0x1FU || u - 0x410U < 0x20U;
    return static_cast<wchar_t>(capital ? u + 32 : u);
}

/// A text to search for, prepared once for many searches. It refers to the text, which must stay.
class CaselessNeedle {
  public:
    static constexpr std::size_t npos = static_cast<std::size_t>(-1);

    /// The text must not be empty.
    explicit CaselessNeedle(WideView what)
        : what_(what), ends_{what.size() - 1, filterOf(what.front()), filterOf(what.back())} {}

    /// Position of the first match at or after `from` (at most the length), or npos. The time grows with the length of
    /// both texts, never with their product.
    std::size_t findIn(WideView text, std::size_t from) const {
        if (text.size() - from < what_.size()) return npos;
        const Candidates found = nextCandidates(text.data(), text.size() - what_.size() + 1, ends_, from);
        return found.bits == 0 ? npos : firstMatch(text, from, found);
    }

  private:
    // The spellings of a unit differ by 32: in one bit, or in the two bits where that carries. Leaving those bits out
    // lets a few strangers pass, which the full comparison rejects.
    static constexpr SpellingFilter filterOf(wchar_t unit) {
        const unsigned folded = foldForSearch(unit);
        const bool twoBits = folded - 0x440U < 0x10U;
        const bool oneBit = folded - 'a' < 26U || folded - 0xE0U < 0x1FU || folded - 0x430U < 0x10U;
        const unsigned kept = twoBits ? 0xFF9F : oneBit ? 0xFFDF : 0xFFFF;
        return {static_cast<wchar_t>(kept), static_cast<wchar_t>(folded & kept)};
    }
    bool standsAt(const wchar_t* text, std::size_t& compared) const;
    std::size_t firstMatch(WideView text, std::size_t from, Candidates found) const;

    WideView what_;
    NeedleEnds ends_;
};

}  // namespace orv
