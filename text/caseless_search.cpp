// Vectors look for places where the first and the last unit fit; each is then compared in full. Texts made for it
// ("aaaa...") could make that quadratic, so after too much vain comparing the rest is searched by the two-way algorithm
// (Crochemore and Perrin, 1991), which is linear and needs no memory.
#include "text/caseless_search.h"

#include <algorithm>

namespace orv {

namespace {

// The start of the lexicographically largest suffix of a text, less one, and that suffix's period.
struct Suffix {
    std::size_t before;  // npos: the whole text
    std::size_t period;
};

template <class Larger>
Suffix largestSuffix(WideView what, Larger larger) {
    std::size_t before = CaselessNeedle::npos;
    std::size_t candidate = 0;
    std::size_t offset = 1;
    std::size_t period = 1;
    while (candidate + offset < what.size()) {
        const wchar_t own = foldForSearch(what[before + offset]);
        const wchar_t other = foldForSearch(what[candidate + offset]);
        if (own == other) {
            if (offset == period) {
                candidate += period;
                offset = 1;
            } else {
                ++offset;
            }
        } else if (larger(own, other)) {
            candidate += offset;
            offset = 1;
            period = candidate - before;
        } else {
            before = candidate++;
            offset = 1;
            period = 1;
        }
    }
    return {before, period};
}

std::size_t findTwoWay(WideView text, WideView what, std::size_t from) {
    const Suffix up = largestSuffix(what, [](wchar_t a, wchar_t b) { return a > b; });
    const Suffix down = largestSuffix(what, [](wchar_t a, wchar_t b) { return a < b; });
    const std::size_t length = what.size();
    const bool useDown = down.before + 1 > up.before + 1;  // npos + 1 is 0
    const std::size_t split = (useDown ? down.before : up.before) + 1;
    std::size_t period = useDown ? down.period : up.period;
    const auto same = [](wchar_t a, wchar_t b) { return foldForSearch(a) == foldForSearch(b); };
    const bool periodic =
        split + period <= length && std::equal(what.begin(), what.begin() + static_cast<std::ptrdiff_t>(split),
                                               what.begin() + static_cast<std::ptrdiff_t>(period), same);
    if (!periodic) period = std::max(split, length - split) + 1;
    std::size_t known = 0;  // units at the start that are known to match, for a periodic text
    for (std::size_t at = from; at + length <= text.size();) {
        std::size_t k = std::max(split, known);
        while (k < length && same(what[k], text[at + k]))
            ++k;
        if (k < length) {
            at += k - split + 1;
            known = 0;
            continue;
        }
        k = split;
        while (k > known && same(what[k - 1], text[at + k - 1]))
            --k;
        if (k <= known) return at;
        at += period;
        known = periodic ? length - period : 0;
    }
    return CaselessNeedle::npos;
}

}  // namespace

bool CaselessNeedle::standsAt(const wchar_t* text, std::size_t& compared) const {
    std::size_t k = 0;
    while (k < what_.size() && foldForSearch(text[k]) == foldForSearch(what_[k]))
        ++k;
    compared += k + 1;
    return k == what_.size();
}

std::size_t CaselessNeedle::firstMatch(WideView text, std::size_t from, Candidates found) const {
    std::size_t compared = 0;
    while (found.bits != 0) {
        std::size_t at = 0;
        for (std::uint64_t bits = found.bits; bits != 0; bits &= bits - 1) {
            at = found.at + static_cast<std::size_t>(__builtin_ctzll(bits));
            if (standsAt(text.data() + at, compared)) return at;
            if (compared > 1000 + 8 * (at - from)) return findTwoWay(text, what_, at + 1);
        }
        found = nextCandidates(text.data(), text.size() - what_.size() + 1, ends_, at + 1);
    }
    return npos;
}

}  // namespace orv
