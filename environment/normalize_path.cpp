// NormalizePath: one look over the text finds what there is to do, mostly nothing; then only the steps that have work
// are made, each in one pass from the first place that caught the eye.
#include <emmintrin.h>

#include <algorithm>

#include "environment/path_text.h"
#include "framework/characters.h"
#include "orv/paths.h"

namespace {

using orv::WideView;

/// What pairs of neighbours there are in a text. Steps 3 to 6 leave the first two characters alone, so that the pair at
/// 0 matters only as the beginning of a parent step.
struct Sight {
    bool slash = false;     // "/"
    bool doubled = false;   // "\\"
    bool dotted = false;    // "\."
    bool blank = false;     // " \" or "\ "
    std::size_t first = 0;  // nothing of this begins before
    bool any() const { return slash || doubled || dotted || blank; }
};

Sight lookAt(const wchar_t* text, std::size_t length) {
    constexpr std::size_t kStep = 8;
    Sight sight;
    sight.first = length;
    const auto pair = [&](std::size_t i) {
        const wchar_t a = text[i];
        const wchar_t b = text[i + 1];
        const bool slash = a == L'/';
        const bool doubled = i != 0 && a == L'\\' && b == L'\\';
        const bool dotted = a == L'\\' && b == L'.';
        const bool blank = (a == L'\\' && b == L' ') || (a == L' ' && b == L'\\');
        if (slash || doubled || dotted || blank) sight.first = std::min(sight.first, i);
        sight.slash |= slash;
        sight.doubled |= doubled;
        sight.dotted |= dotted;
        sight.blank |= blank;
    };
    if (length < kStep + 1) {
        for (std::size_t i = 0; i < length; ++i)
            pair(i);
        return sight;
    }
    const __m128i backslash = _mm_set1_epi16(L'\\');
    const __m128i forward = _mm_set1_epi16(L'/');
    const __m128i point = _mm_set1_epi16(L'.');
    const __m128i space = _mm_set1_epi16(L' ');
    __m128i slash = _mm_setzero_si128();
    __m128i doubled = slash;
    __m128i dotted = slash;
    __m128i blank = slash;
    // The last pair ends with the closing NUL.
    const auto look = [&](std::size_t i) {
        const __m128i a = _mm_loadu_si128(reinterpret_cast<const __m128i*>(text + i));
        const __m128i b = _mm_loadu_si128(reinterpret_cast<const __m128i*>(text + i + 1));
        const __m128i back = _mm_cmpeq_epi16(a, backslash);
        const __m128i backNext = _mm_cmpeq_epi16(b, backslash);
        const __m128i isSlash = _mm_cmpeq_epi16(a, forward);
        const __m128i isDoubled = _mm_and_si128(back, backNext);
        const __m128i isDotted = _mm_and_si128(back, _mm_cmpeq_epi16(b, point));
        const __m128i isBlank = _mm_or_si128(_mm_and_si128(back, _mm_cmpeq_epi16(b, space)),
                                             _mm_and_si128(_mm_cmpeq_epi16(a, space), backNext));
        const __m128i all = _mm_or_si128(_mm_or_si128(isSlash, isDoubled), _mm_or_si128(isDotted, isBlank));
        if (sight.first == length && _mm_movemask_epi8(all) != 0) sight.first = i;
        slash = _mm_or_si128(slash, isSlash);
        doubled = _mm_or_si128(doubled, isDoubled);
        dotted = _mm_or_si128(dotted, isDotted);
        blank = _mm_or_si128(blank, isBlank);
    };
    std::size_t i = 1;
    for (; i + kStep <= length; i += kStep)
        look(i);
    if (i < length) look(length - kStep);
    sight.slash = _mm_movemask_epi8(slash) != 0;
    sight.doubled = _mm_movemask_epi8(doubled) != 0;
    sight.dotted = _mm_movemask_epi8(dotted) != 0;
    sight.blank = _mm_movemask_epi8(blank) != 0;
    pair(0);
    return sight;
}

constexpr std::size_t kUntouched = 2;  // so that the two backslashes before a host survive

/// The text of steps 3 to 7, of `length` characters that may be written.
class Rewriter {
  public:
    Rewriter(wchar_t* text, std::size_t length, std::size_t from)
        : text_(text), length_(length), from_(std::max(from, kUntouched)) {}

    std::size_t length() const { return length_; }

    void collapseDoubles() {
        compact([this](std::size_t to, wchar_t ch) { return ch == L'\\' && endsIn(to, L'\\') ? to - 1 : to; });
    }

    void dropSelfSteps() {
        compact([this](std::size_t to, wchar_t ch) {
            return ch == L'\\' && endsIn(to, L'.') && endsIn(to - 1, L'\\') ? to - 2 : to;
        });
    }

    void dropBlanks() {
        compact([this](std::size_t to, wchar_t ch) {
            while (ch == L'\\' && endsIn(to, L' '))
                --to;
            from_ = std::min(from_, to);  // a long run of blanks may begin before what caught the eye
            return to;
        });
        std::size_t to = std::min(from_, length_);
        for (std::size_t i = to; i < length_; ++i) {
            if (text_[i] != L' ' || !endsIn(to, L'\\')) text_[to++] = text_[i];
        }
        length_ = to;
    }

    /// Everything before `to` is free of parent steps; a parent step begins with the backslash before `to`.
    void resolveParentSteps(std::size_t from) {
        std::size_t to = std::min({from, from_, length_});
        std::size_t i = to;
        bool stopped = false;
        while (i < length_) {
            const bool isStep = !stopped && to > 0 && text_[to - 1] == L'\\' && text_[i] == L'.' && i + 1 < length_ &&
                                text_[i + 1] == L'.';
            if (isStep) {
                const std::size_t cut = parentEnd(to);
                stopped = cut == to;
                if (!stopped) {
                    to = cut;
                    i += 2;
                    if (i < length_ && text_[i] == L'\\') ++i;
                    continue;
                }
            }
            text_[to++] = text_[i++];
        }
        length_ = to;
    }

  private:
    bool endsIn(std::size_t to, wchar_t ch) const { return to > kUntouched && text_[to - 1] == ch; }

    /// Writes every character behind what `place` leaves of the text written so far.
    template <class Place>
    void compact(Place place) {
        std::size_t to = std::min(from_, length_);
        for (std::size_t i = to; i < length_; ++i) {
            to = place(to, text_[i]);
            text_[to++] = text_[i];
        }
        length_ = to;
    }

    /// Where the prefix of `to` characters, which ends in a backslash, ends without its last component; `to` itself
    /// where it is not to be shortened.
    std::size_t parentEnd(std::size_t to) {
        std::size_t folder = 0;
        if (orv::isUncPath({text_, to})) {
            if (hostEnd_ == 0) {
                const std::size_t end = WideView(text_, to).find(L'\\', kUntouched);
                if (end == WideView::npos) return to;
                hostEnd_ = end;  // no step goes beyond it, so it stays
            }
            folder = hostEnd_;
        } else {
            folder = orv::driveLength({text_, to});
        }
        if (to - folder <= 1) return to;  // "\" or nothing
        std::size_t end = to - 1;
        while (end > folder && text_[end - 1] != L'\\')
            --end;
        // The first component of a relative path goes with its separator, except that ".." cannot be taken back.
        const bool isParent = WideView(text_ + end, to - 1 - end) == L"..";
        return isParent && end == folder ? to : end;
    }

    wchar_t* text_;
    std::size_t length_;
    std::size_t from_;
    std::size_t hostEnd_ = 0;
};

}  // namespace

// ODDITY(normalize-in-steps): each step is made once, in its order: a blank between two backslashes leaves both of
// them, a ".\" that a removed blank brings about stays. Pinned by Paths.NormalizingFollowsItsSteps.
// ODDITY(parent-by-text): "\.." counts whatever stands behind it, so that C:\a\..b becomes C:\b. Pinned by
// Paths.NormalizingFollowsItsSteps.
CString& NormalizePath(CString& text) {
    std::size_t length = orv::viewOf(text).size();
    while (length > 0 && orv::isSpace(text.GetString()[length - 1]))
        --length;
    if (length != orv::viewOf(text).size()) text.Truncate(static_cast<int>(length));
    Sight sight = lookAt(text.GetString(), length);
    if (!sight.any()) return text;

    wchar_t* const characters = text.GetBuffer();
    if (sight.slash) {
        std::replace(characters, characters + length, L'/', L'\\');
        sight = lookAt(characters, length);
    }
    Rewriter rewriter(characters, length, sight.first);
    if (sight.doubled) rewriter.collapseDoubles();
    if (sight.dotted) rewriter.dropSelfSteps();
    if (sight.blank) rewriter.dropBlanks();
    if (sight.dotted || sight.blank) rewriter.resolveParentSteps(sight.first);
    text.ReleaseBufferSetLength(static_cast<int>(rewriter.length()));
    return text;
}
