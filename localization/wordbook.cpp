#include "localization/wordbook.h"

#include <emmintrin.h>

#include <bit>

#include "localization/key_context.h"
#include "orv/string_utilities.h"

namespace orv {
namespace {

constexpr WideView kSeparator = L" <*> ";
constexpr unsigned kPageWithoutMark = 1252;

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

Wordbook::Wordbook(const CFilePath& path) : path_(path), language_(path.GetFileExt()) { language_.MakeUpper(); }

void Wordbook::unload() {
    isLoaded_ = false;
    text_.clear();
    entries_.clear();
    results_.clear();
    index_.clear();
}

const CString* Wordbook::find(WideView text, std::uint32_t hash) {
    if (!isLoaded_ && !load()) return nullptr;
    const std::uint32_t at = index_.find(hash, [&](std::uint32_t i) { return sourceOf(entries_[i]) == text; });
    if (at == HashIndex::kNone) return nullptr;
    if (results_[at].IsEmpty()) {
        const Entry& entry = entries_[at];
        results_[at].SetString(text_.data() + entry.translationAt, static_cast<int>(entry.translationLength));
    }
    return &results_[at];
}

bool Wordbook::load() {
    CString content;
    if (!orvStrUtil::readStringBufferFromFile(content, path_, kPageWithoutMark, false)) return false;
    unload();
    // One character more: the last translation may grow by one.
    text_.reserve(static_cast<std::size_t>(content.GetLength()) + 1);
    text_.assign(content.GetString(), static_cast<std::size_t>(content.GetLength()));
    text_.push_back(0);
    wchar_t* const begin = text_.data();
    wchar_t* const end = begin + text_.size() - 1;
    constexpr std::size_t kUsualLine = 40;
    entries_.reserve(text_.size() / kUsualLine);
    for (wchar_t* line = begin; line < end;) {
        wchar_t* separator = nullptr;
        bool hasBackslash = false;
        wchar_t* at = nextMark(line, end);
        for (; at < end && *at != L'\r' && *at != L'\n'; at = nextMark(at + 1, end)) {
            if (*at == L'\\') {
                hasBackslash = true;
            } else if (separator == nullptr && isSeparatorAt(at, line, end)) {
                separator = at - 1;
            }
        }
        const bool isPair = end - at >= 2 && at[0] == L'\r' && at[1] == L'\n';
        wchar_t* const next = at + (isPair ? 2 : 1);
        if (separator != nullptr) addLine(line, separator, at, hasBackslash);
        line = next;
    }
    results_.resize(entries_.size());
    isLoaded_ = true;
    return true;
}

// The line's characters are changed where they stand; behind them is the line end, or the one character more.
void Wordbook::addLine(wchar_t* line, wchar_t* separator, wchar_t* end, bool hasBackslash) {
    wchar_t* sourceEnd = separator;
    wchar_t* translation = separator + kSeparator.size();
    if (translation > end) return;  // the blank behind "<*>" is the next line's
    if (hasBackslash) {
        sourceEnd = unescape(line, sourceEnd);
        end = unescape(translation, end);
    }
    if (translation == end) return;
    translation += contextLength({translation, static_cast<std::size_t>(end - translation)});
    // ODDITY(wordbook-harmonise): the source's last character is appended first, and a blank that the translation ended
    // in then takes away the last one: "a: <*> b " becomes "b ". Pinned by Wordbooks.LinesAreReadLikeThis.
    const wchar_t sourceLast = sourceEnd > line ? sourceEnd[-1] : L'\0';
    const wchar_t translationLast = end > translation ? end[-1] : L'\0';
    if (sourceLast != translationLast) {
        if (sourceLast == L'\n' || sourceLast == L' ' || sourceLast == L':') *end++ = sourceLast;
        if (translationLast == L' ') --end;
    }
    const WideView source(line, static_cast<std::size_t>(sourceEnd - line));
    const auto placeOf = [&](const wchar_t* at) { return static_cast<std::uint32_t>(at - text_.data()); };
    const Entry entry{placeOf(line), static_cast<std::uint32_t>(source.size()), placeOf(translation),
                      static_cast<std::uint32_t>(end - translation)};
    const std::uint32_t hash = hashText(source);
    const std::uint32_t known = index_.find(hash, [&](std::uint32_t i) { return sourceOf(entries_[i]) == source; });
    if (known != HashIndex::kNone) {
        entries_[known] = entry;
        return;
    }
    entries_.push_back(entry);
    index_.add(hash, static_cast<std::uint32_t>(entries_.size() - 1));
}

}  // namespace orv
