// The suite's wildcard steps, and true globbing beside them.
#include "support/all_texts.h"
#include "support/guarded_text.h"
#include "support/text.h"
#include "support/vector_levels.h"

namespace {

using orv::WideString;
using orv::WideView;

// The steps one by one, on indices; the text counts as NUL at its end.
bool slowSteps(WideView text, WideView pattern) {
    if (pattern.empty()) return text.empty();
    std::size_t t = 0;
    std::size_t p = 0;
    std::size_t backTrack = WideView::npos;
    while (p < pattern.size()) {
        if (pattern[p] == L'*') {
            backTrack = p;
            std::size_t behind = p;
            while (behind < pattern.size() && pattern[behind] == L'*')
                ++behind;
            const wchar_t wanted = behind < pattern.size() ? pattern[behind] : L'\0';
            while (t < text.size() && text[t] != wanted)
                ++t;
            p = behind;
        } else if (t < text.size() && (pattern[p] == L'?' || pattern[p] == text[t])) {
            ++t;
            ++p;
        } else {
            if (backTrack == WideView::npos || t == text.size()) return false;
            p = backTrack;
        }
    }
    return t == text.size();
}

bool slowGlob(WideView text, WideView pattern) {
    if (pattern.empty()) return text.empty();
    if (pattern[0] == L'*') {
        return slowGlob(text, pattern.substr(1)) || (!text.empty() && slowGlob(text.substr(1), pattern));
    }
    return !text.empty() && (pattern[0] == L'?' || pattern[0] == text[0]) &&
           slowGlob(text.substr(1), pattern.substr(1));
}

WideString lower(WideView text) {
    CString copy(text.data(), static_cast<int>(text.size()));
    copy.MakeLower();
    return WideString(copy.GetString(), text.size());
}

TEST(Wildcard, FollowsItsSteps) {
    // clang-format off
    const struct { const wchar_t *text, *pattern; bool steps, glob; } rows[] = {
        {L"abc", L"a*c", true, true},      {L"abc", L"a?", false, false},     {L"", L"", true, true},
        {L"a", L"", false, false},         {L"", L"*", true, true},           {L"abc", L"abc***", true, true},
        {L"abc", L"???", true, true},      {L"ab", L"ab?", false, false},     {L"a.txt", L"*.txt", true, true},
        {L"a.txt.txt", L"*.txt", false, true},
        {L"acab", L"*ab", true, true},     {L"aaab", L"*aab", false, true},   {L"ab", L"*?", false, true},
        {L"a?", L"*?", true, true},        {L"xaxby", L"*a*b?", true, true},  {L"abcabd", L"*ab?", false, true},
        {L"ab", L"**b", true, true},       {L"*", L"\\*", false, false},
    };
    // clang-format on
    for (const auto& row : rows) {
        SCOPED_TRACE(utf8(row.text) + " against " + utf8(row.pattern));
        for (const bool byCase : {true, false}) {
            EXPECT_EQ(row.steps, orvStrUtil::MatchesWildcardPattern(row.text, row.pattern, byCase));
            EXPECT_EQ(row.glob, orv::globMatch(row.text, row.pattern, byCase));
        }
        EXPECT_EQ(row.steps, slowSteps(row.text, row.pattern)) << "the slow definition itself";
    }
    EXPECT_FALSE(orvStrUtil::MatchesWildcardPattern(nullptr, L"*", true));
    EXPECT_FALSE(orvStrUtil::MatchesWildcardPattern(L"", nullptr, false));
}

TEST(Wildcard, AllSmallTextsAndPatterns) {
    for (const bool byCase : {true, false}) {
        const auto patterns = byCase ? allTexts(L"ab*?", 5) : allTexts(L"kKb*?", 4);
        for (const WideString& text : byCase ? allTexts(L"ab?", 5) : allTexts(L"kK\u212AB", 4)) {
            for (const WideString& pattern : patterns) {
                const WideString subject = byCase ? text : lower(text);
                const WideString wanted = byCase ? pattern : lower(pattern);
                ASSERT_EQ(slowSteps(subject, wanted),
                          orvStrUtil::MatchesWildcardPattern(text.c_str(), pattern.c_str(), byCase))
                    << utf8(text.c_str()) << " against " << utf8(pattern.c_str());
                ASSERT_EQ(slowGlob(subject, wanted), orv::globMatch(text, pattern, byCase))
                    << utf8(text.c_str()) << " against " << utf8(pattern.c_str());
            }
        }
    }
}

// Behind a star a character is looked for by all its spellings.
TEST(Wildcard, EveryCharacterBehindAStarIgnoringCase) {
    for (unsigned code = 1; code < 0x10000; ++code) {
        const auto ch = static_cast<wchar_t>(code);
        if (ch == L'*' || ch == L'\u2560') continue;
        const CString folded = CString(ch).MakeLower();
        const CString text = L"\u2560" + CString(ch);
        ASSERT_TRUE(orvStrUtil::MatchesWildcardPattern(text, L"*" + folded, false)) << code;
        const CString capital = CString(folded).MakeUpper();
        const bool same = CString(capital).MakeLower() == folded;
        ASSERT_EQ(same, orvStrUtil::MatchesWildcardPattern(text, L"*" + capital, false)) << code;
    }
}

TEST(Wildcard, TextsBeforeAnUnreadablePage) {
    for (std::size_t length = 1; length < 150; ++length) {
        const GuardedText text(WideString(length - 1, L'x') + L'Y');
        const GuardedText pattern(WideView(L"*Y"));
        const GuardedText lowerPattern(WideView(L"x*y"));
        EXPECT_TRUE(orvStrUtil::MatchesWildcardPattern(text.characters(), pattern.characters(), true)) << length;
        EXPECT_EQ(length > 1, orvStrUtil::MatchesWildcardPattern(text.characters(), lowerPattern.characters(), false));
        EXPECT_FALSE(orvStrUtil::MatchesWildcardPattern(text.characters(), L"*z", true)) << length;
    }
}

TEST(Wildcard, SubjectForm) {
    const struct {
        const char* name;
        const wchar_t* text;
        const wchar_t* pattern;
        bool caseSensitive;
        bool keep;
        bool result;
        const wchar_t* subject;
    } rows[] = {
        {"folded", L"RÜCKLAUF", L"rück*", false, false, true, L"rücklauf"},
        {"folded without a match", L"RÜCKLAUF", L"vor*", false, false, false, L"rücklauf"},
        {"kept", L"RÜCKLAUF", L"rück*", false, true, true, L"RÜCKLAUF"},
        {"by case", L"RÜCKLAUF", L"RÜ*", true, false, true, L"RÜCKLAUF"},
        {"by case, other case", L"RÜCKLAUF", L"rü*", true, false, false, L"RÜCKLAUF"},
        {"the subject's own text", nullptr, L"OLD", false, false, true, L"old"},
        {"the subject's own text kept", nullptr, L"OLD", false, true, true, L"Old"},
        {"no pattern", L"New", nullptr, false, false, false, L"New"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        CString subject = L"Old";
        EXPECT_EQ(row.result,
                  orvStrUtil::MatchesWildcardPattern(subject, row.text, row.pattern, row.caseSensitive, row.keep));
        EXPECT_TEXT(row.subject, subject);
    }
    CString own = L"AB*";
    EXPECT_TRUE(orvStrUtil::MatchesWildcardPattern(own, own, own.GetString() + 2, true, false)) << "parts of itself";
    EXPECT_TRUE(orvStrUtil::MatchesWildcardPattern(own, L"Abx", own, false, true));
    EXPECT_TEXT(L"Abx", own);
}

TEST(Wildcard, HostilePatternsEnd) {
    const WideString text(20'000, L'a');
    WideString pattern;
    for (int i = 0; i < 2'000; ++i)
        pattern += L"*a?";
    pattern += L'b';
    EXPECT_FALSE(orvStrUtil::MatchesWildcardPattern(text.c_str(), pattern.c_str(), true));
    EXPECT_FALSE(orvStrUtil::MatchesWildcardPattern(text.c_str(), pattern.c_str(), false));
    EXPECT_FALSE(orv::globMatch(text, pattern, true));
    EXPECT_FALSE(orv::globMatch(text, pattern + L"*", false));
}

}  // namespace
