// Wildcard matching against the steps taken one by one, and globbing against its recursive definition.
#include <cstdint>
#include <cstdlib>
#include <vector>

#include "orv/string_utilities.h"

namespace {

using orv::WideString;
using orv::WideView;

bool slowSteps(WideView text, WideView pattern) {
    std::size_t t = 0;
    std::size_t p = 0;
    std::size_t backTrack = WideView::npos;
    while (p < pattern.size()) {
        if (pattern[p] == L'*') {
            backTrack = p;
            while (p < pattern.size() && pattern[p] == L'*')
                ++p;
            while (t < text.size() && (p == pattern.size() || text[t] != pattern[p]))
                ++t;
        } else if (t < text.size() && (pattern[p] == L'?' || pattern[p] == text[t])) {
            ++t;
            ++p;
        } else if (backTrack == WideView::npos || t == text.size()) {
            return false;
        } else {
            p = backTrack;
        }
    }
    return t == text.size();
}

// Row by row: whether the pattern so far matches the first t characters.
bool slowGlob(WideView text, WideView pattern) {
    std::vector<bool> matched(text.size() + 1, false);
    matched[0] = true;
    for (const wchar_t ch : pattern) {
        std::vector<bool> next(text.size() + 1, false);
        for (std::size_t t = 0; t <= text.size(); ++t) {
            if (ch == L'*') {
                next[t] = matched[t] || (t > 0 && next[t - 1]);
            } else if (t > 0) {
                next[t] = matched[t - 1] && (ch == L'?' || ch == text[t - 1]);
            }
        }
        matched = next;
    }
    return matched[text.size()];
}

WideString lower(const WideString& text) {
    const CString folded = CString(text.data(), static_cast<int>(text.size())).MakeLower();
    return WideString(folded.GetString(), text.size());
}

// Few characters, so that much matches; among them all kinds of spellings.
WideString textOf(const std::uint8_t* data, std::size_t size) {
    static constexpr WideView kCharacters = L"ab*?AiI\u0130kK\u212A\u00E4\u00C4x\u0416\u0436";
    WideString text;
    for (std::size_t i = 0; i < size; ++i)
        text += kCharacters[data[i] % kCharacters.size()];
    return text;
}

void require(bool holds) {
    if (!holds) std::abort();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size < 1 || size > 500) return 0;
    const std::size_t split = data[0] % size;
    const WideString pattern = textOf(data + 1, split);
    const WideString text = textOf(data + 1 + split, size - 1 - split);
    const WideString lowerText = lower(text);
    const WideString lowerPattern = lower(pattern);
    require(orvStrUtil::MatchesWildcardPattern(text.c_str(), pattern.c_str(), true) == slowSteps(text, pattern));
    require(orvStrUtil::MatchesWildcardPattern(text.c_str(), pattern.c_str(), false) ==
            slowSteps(lowerText, lowerPattern));
    require(orv::globMatch(text, pattern, true) == slowGlob(text, pattern));
    // The characters above fold as they go to lower case, but for the dotted capital I, which folds to itself.
    if (text.find(L'\u0130') == WideView::npos && pattern.find(L'\u0130') == WideView::npos) {
        require(orv::globMatch(text, pattern, false) == slowGlob(lowerText, lowerPattern));
    }
    return 0;
}
