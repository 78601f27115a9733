#include "localization/wordbook_lines.h"

#include <emmintrin.h>

#include <bit>

#include "localization/key_context.h"

namespace orv {
namespace {

constexpr WideView kSeparator = L" <*> ";

/// The next character that means something to a wordbook's line: CR, LF, "<" or a backslash; else `end`.
wchar_t* nextMark(wchar_t* at, wchar_t* end) {
    constexpr int kStep = 8;
    const __m128i cr = _mm_set1_epi16(L'\r');
    const __m128i lf = _mm_set1_epi16(L'\n');
    const __m128i less = _mm_set1_epi16(L'<');
    const __m128i backslash = _mm_set1_epi16(L'\\');
    for (; end - at >= kStep; at += kStep) {
        const __m128i units = _mm_loadu_si128(reinterpret_cast<const __m128i*>(at));
        const __m128i found =
            _mm_or_si128(_mm_or_si128(_mm_cmpeq_epi16(units, cr), _mm_cmpeq_epi16(units, lf)),
                         _mm_or_si128(_mm_cmpeq_epi16(units, less), _mm_cmpeq_epi16(units, backslash)));
        const auto bits = static_cast<unsigned>(_mm_movemask_epi8(found));
        if (bits != 0) return at + std::countr_zero(bits) / 2;
    }
    while (at < end && *at != L'\r' && *at != L'\n' && *at != L'<' && *at != L'\\')
        ++at;
    return at;
}

bool isSeparatorAt(const wchar_t* less, const wchar_t* line, const wchar_t* end) {
    return less > line && end - less >= 4 && less[-1] == L' ' && less[1] == L'*' && less[2] == L'>' && less[3] == L' ';
}

/// Replaces every occurrence of a backslash and `letter`; returns the new end.
wchar_t* unescapeOne(wchar_t* begin, wchar_t* end, wchar_t letter, wchar_t meaning) {
    wchar_t* to = begin;
    for (const wchar_t* from = begin; from < end; ++to) {
        const bool isEscape = *from == L'\\' && end - from >= 2 && from[1] == letter;
        *to = isEscape ? meaning : *from;
        from += isEscape ? 2 : 1;
    }
    return to;
}

// ODDITY(wordbook-unescape-order): one kind of escape after the other, the backslash last: "\\n" becomes a backslash
// and a line feed, never a backslash and an n. Pinned by Wordbooks.LinesAreReadLikeThis.
wchar_t* unescape(wchar_t* begin, wchar_t* end) {
    end = unescapeOne(begin, end, L'r', L'\r');
    end = unescapeOne(begin, end, L'n', L'\n');
    end = unescapeOne(begin, end, L't', L'\t');
    end = unescapeOne(begin, end, L'"', L'"');
    return unescapeOne(begin, end, L'\\', L'\\');
}

}  // namespace

bool WordbookLines::next(WordbookEntry& entry, bool skipEmpty) {
    while (at_ < end_) {
        wchar_t* separator = nullptr;
        bool hasBackslash = false;
        wchar_t* at = nextMark(at_, end_);
        for (; at < end_ && *at != L'\r' && *at != L'\n'; at = nextMark(at + 1, end_)) {
            if (*at == L'\\') {
                hasBackslash = true;
            } else if (separator == nullptr && isSeparatorAt(at, at_, end_)) {
                separator = at - 1;
            }
        }
        const bool isPair = end_ - at >= 2 && at[0] == L'\r' && at[1] == L'\n';
        wchar_t* const behind = at + (isPair ? 2 : 1);
        ++line_;
        if (separator != nullptr) read(separator, at, hasBackslash, entry);
        at_ = behind;
        if (separator != nullptr && !(skipEmpty && entry.written.empty())) return true;
    }
    return false;
}

// Behind the line is its end, or the one character more, so that a translation can grow by one.
void WordbookLines::read(wchar_t* separator, wchar_t* lineEnd, bool hasBackslash, WordbookEntry& entry) const {
    wchar_t* const source = at_;
    wchar_t* sourceEnd = separator;
    wchar_t* translation = separator + kSeparator.size();
    wchar_t* end = lineEnd;
    if (hasBackslash) {
        sourceEnd = unescape(source, sourceEnd);
        end = unescape(translation, end);
    }
    entry.line = line_;
    entry.source = {source, static_cast<std::size_t>(sourceEnd - source)};
    entry.written = {translation, static_cast<std::size_t>(end - translation)};
    translation += contextLength(entry.written);
    // ODDITY(wordbook-harmonise): the source's last character is appended first, and a blank that the translation ended
    // in then takes away the last one: "a: <*> b " becomes "b ". Pinned by Wordbooks.LinesAreReadLikeThis.
    const wchar_t sourceLast = sourceEnd > source ? sourceEnd[-1] : L'\0';
    const wchar_t translationLast = end > translation ? end[-1] : L'\0';
    if (sourceLast != translationLast) {
        if (sourceLast == L'\n' || sourceLast == L' ' || sourceLast == L':') *end++ = sourceLast;
        if (translationLast == L' ') --end;
    }
    entry.translation = {translation, static_cast<std::size_t>(end - translation)};
}

}  // namespace orv
