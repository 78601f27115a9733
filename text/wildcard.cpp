// Wildcard patterns, by the steps that the suite's stored patterns rely on. See glob.cpp for true globbing.
#include <functional>

#include "framework/vector.h"
#include "orv/string_utilities.h"
#include "text/lower_spellings.h"

namespace {

struct Exactly {
    static bool same(wchar_t a, wchar_t b) { return a == b; }

    /// The character behind a star.
    explicit Exactly(wchar_t wanted) : wanted_(wanted) {}
    /// The first place at or behind `text` that holds it, or the text's end.
    const wchar_t* next(const wchar_t* text) const { return text + orv::findUnitOrEnd(text, wanted_); }

  private:
    wchar_t wanted_;
};

// As if both texts had been folded to lower case before, but without the copies: nothing is allocated or shared.
struct IgnoringCase {
    static bool same(wchar_t a, wchar_t b) { return a == b || orv::lowerOf(a) == orv::lowerOf(b); }

    explicit IgnoringCase(wchar_t wanted) : wanted_(orv::spellingsOf(orv::lowerOf(wanted))) {}
    const wchar_t* next(const wchar_t* text) const {
        return text + orv::findOfThreeOrEnd(text, wanted_.lower, wanted_.upper, wanted_.third);
    }

  private:
    orv::LowerSpellings wanted_;
};

const wchar_t* behindStars(const wchar_t* pattern) {
    while (*pattern == L'*')
        ++pattern;
    return pattern;
}

// From the first star on. Text and pattern only ever move on between two visits of a star: linear time.
//
// ODDITY(wildcard-no-second-try): the character behind a star is looked for as it is, a "?" too; after a mismatch the
// text goes on from where it stands, not from behind the last try; and a pattern that has ended is a result, not a
// mismatch. So "*.txt" does not match a.txt.txt, "*aab" not aaab, and "*?" only a text with a question mark at its end.
// Pinned by Wildcard.FollowsItsSteps.
template <class Rule>
[[gnu::noinline]] bool matchesFromStar(const wchar_t* text, const wchar_t* pattern) {
    const wchar_t* behind = behindStars(pattern);
    for (;;) {
        if (*behind == 0) return true;
        const Rule wanted(*behind);
        text = wanted.next(text);
        pattern = behind;
        for (;;) {
            if (*pattern == L'*') break;
            if (*pattern == 0) return *text == 0;
            if (*text == 0) return false;
            if (*pattern == L'?' || Rule::same(*text, *pattern)) {
                ++text;
                ++pattern;
            } else {
                text = wanted.next(text);
                pattern = behind;
            }
        }
        behind = behindStars(pattern);
    }
}

template <class Rule>
[[gnu::noinline]] bool matches(const wchar_t* text, const wchar_t* pattern) {
    for (; *pattern != L'*'; ++text, ++pattern) {
        if (*pattern == 0) return *text == 0;
        if (*text == 0 || (*pattern != L'?' && !Rule::same(*text, *pattern))) return false;
    }
    return matchesFromStar<Rule>(text, pattern);
}

bool isPartOf(const CString& whole, const wchar_t* text) {
    const std::less<const wchar_t*> before;
    const wchar_t* first = whole.GetString();
    return !before(text, first) && !before(first + whole.GetLength(), text);
}

}  // namespace

bool orvStrUtil::MatchesWildcardPattern(const wchar_t* text, const wchar_t* pattern, bool caseSensitive) {
    if (text == nullptr || pattern == nullptr) return false;
    return caseSensitive ? matches<Exactly>(text, pattern) : matches<IgnoringCase>(text, pattern);
}

bool orvStrUtil::MatchesWildcardPattern(CString& subject, const wchar_t* text, const wchar_t* pattern,
                                        bool caseSensitive, bool keepSubject) {
    const CString before = isPartOf(subject, pattern) ? subject : CString();  // keeps the pattern's characters
    if (text != nullptr) subject = text;
    if (pattern == nullptr) return false;
    const bool result = MatchesWildcardPattern(subject.GetString(), pattern, caseSensitive);
    if (!caseSensitive && !keepSubject) subject.MakeLower();
    return result;
}
