// Where in a text a search text might stand, ignoring case: the vector half of the search.
#pragma once

#include <cstddef>
#include <cstdint>

namespace orv {

/// A unit with one or two spellings: u may stand for it only if (u & kept) == wanted.
struct SpellingFilter {
    wchar_t kept;
    wchar_t wanted;
};

/// The first and the last unit of a search text, `gap` units apart.
struct NeedleEnds {
    std::size_t gap;
    SpellingFilter first;
    SpellingFilter last;
};

/// Bit k set: both filters hold at position `at` + k. The search goes on behind the highest bit; no bit: nothing more.
struct Candidates {
    std::size_t at;
    std::uint64_t bits;
};

/// The next group of candidates at or after `from` among the positions 0..count-1 of a text, all of which leave room
/// for the search text.
Candidates nextCandidates(const wchar_t* text, std::size_t count, const NeedleEnds& ends, std::size_t from);

}  // namespace orv
