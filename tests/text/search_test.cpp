// FindNoCase and what builds on it.
#include <random>

#include "support/all_texts.h"
#include "support/guarded_text.h"
#include "support/text.h"
#include "support/vector_levels.h"

namespace {

using orv::WideString;
using orv::WideView;

bool isFolded(unsigned ch) {
    return (ch >= 0x41 && ch <= 0x5A) || (ch >= 0xC0 && ch <= 0xDE) || (ch >= 0x410 && ch <= 0x42F);
}

wchar_t slowFold(wchar_t ch) { return static_cast<wchar_t>(isFolded(ch) ? ch + 32 : ch); }

int slowFind(WideView text, WideView what, std::size_t start) {
    for (std::size_t at = start; at + what.size() <= text.size(); ++at) {
        std::size_t k = 0;
        while (k < what.size() && slowFold(text[at + k]) == slowFold(what[k]))
            ++k;
        if (k == what.size()) return static_cast<int>(at);
    }
    return -1;
}

CString textOf(WideView view) { return CString(view.data(), static_cast<int>(view.size())); }

int found(const wchar_t* text, const wchar_t* what) {
    const wchar_t* at = orvStrUtil::FindNoCase(text, what);
    return at == nullptr ? -1 : static_cast<int>(at - text);
}

TEST(CaselessSearch, NullAndEmptyTexts) {
    const wchar_t* text = L"abc";
    EXPECT_EQ(nullptr, orvStrUtil::FindNoCase(nullptr, L"a"));
    EXPECT_EQ(nullptr, orvStrUtil::FindNoCase(text, nullptr));
    EXPECT_EQ(text, orvStrUtil::FindNoCase(text, L""));
    EXPECT_TRUE(orvStrUtil::ContainsNoCase(L"", L"") && !orvStrUtil::ContainsNoCase(nullptr, L""));
}

TEST(CaselessSearch, FoldsExactlyThreeRanges) {
    atEachVectorLevel([] {
        for (unsigned ch = 1; ch < 0x10000; ++ch) {
            const wchar_t text[] = {static_cast<wchar_t>(ch), 0};
            for (const unsigned other : {ch + 32, ch ^ 32, ch ^ 0x60, ch + 64, ch ^ 0x80, ch ^ 0x400, ch}) {
                const wchar_t what[] = {static_cast<wchar_t>(other), 0};
                if (what[0] == 0) continue;
                ASSERT_EQ(slowFold(text[0]) == slowFold(what[0]), orvStrUtil::ContainsNoCase(text, what))
                    << ch << " and " << other;
            }
        }
    });
}

TEST(CaselessSearch, IndexRows) {
    // clang-format off
    const struct { const wchar_t *text, *what; int start, expected; } rows[] = {
        {L"Rohr DN50", L"dn", 0, 5}, {L"Rohr DN50", L"dn", 5, 5}, {L"Rohr DN50", L"dn", 6, -1},
        {L"abc", L"c", 3, -1},       {L"abc", L"c", 4, -1},       {L"abc", L"c", -1, -1},
        {L"abc", L"", 0, 0},         {L"abc", L"", 2, 2},         {L"abc", L"", 3, -1},
        {L"", L"", 0, -1},           {L"abc", nullptr, 0, -1},    {L"ab", L"abc", 0, -1},
        {L"ЖУК", L"жук", 0, 0},      {L"ЁЖ", L"ёж", 0, -1},       {L"3\u00D74", L"3\u00F74", 0, 0},
    };
    // clang-format on
    for (const auto& row : rows) {
        EXPECT_EQ(row.expected, orvStrUtil::FindIndexNoCase(row.text, row.what, row.start))
            << utf8(row.text) << " from " << row.start;
    }
    const CString withNul(L"ab\0cd", 5);
    EXPECT_EQ(3, orvStrUtil::FindIndexNoCase(withNul, L"CD", 0)) << "the search goes on behind a NUL";
}

TEST(CaselessSearch, AllSmallTexts) {
    const auto texts = allTexts(L"aAb", 6);
    const auto wanted = allTexts(L"aB", 4);
    atEachVectorLevel([&] {
        for (const WideString& text : texts) {
            const CString subject = textOf(text);
            for (const WideString& what : wanted) {
                ASSERT_EQ(slowFind(text, what, 0), found(text.c_str(), what.c_str()));
                if (what.empty() || text.empty()) continue;
                ASSERT_EQ(slowFind(text, what, text.size() / 2),
                          orvStrUtil::FindIndexNoCase(subject, what.c_str(), static_cast<int>(text.size() / 2)));
            }
        }
    });
}

// Every length around the steps of the kernels, every place, at the very end of readable memory; the rest is full of
// near misses that have the right first and last character.
TEST(CaselessSearch, EveryPlaceBeforeAnUnreadablePage) {
    const WideView what = L"pumpE";
    const GuardedText wanted(what);
    atEachVectorLevel([&] {
        for (std::size_t length = 0; length < 200; ++length) {
            WideString filler;
            while (filler.size() < length)
                filler += L"Px-peP";
            filler.resize(length);
            const GuardedText miss(filler);
            ASSERT_EQ(-1, found(miss.characters(), wanted.characters())) << length;
            for (std::size_t at = 0; at + what.size() <= length; ++at) {
                WideString text = filler;
                text.replace(at, what.size(), L"PuMpe");
                orv::WideTraits::copy(miss.characters(), text.data(), length);
                ASSERT_EQ(static_cast<int>(at), found(miss.characters(), wanted.characters())) << length;
            }
        }
    });
}

// First many near misses, so that the search changes to its linear way, then pieces of the wanted text in any phase,
// some with a wrong character, at last the text itself.
TEST(CaselessSearch, PiecesOfRepeatingTexts) {
    std::mt19937 random(8);
    const auto below = [&random](std::size_t limit) { return random() % limit; };
    for (int round = 0; round < 2000; ++round) {
        WideString unit;
        for (std::size_t left = 1 + below(round % 4 == 0 ? 9 : 3); left > 0; --left)
            unit += L"aAbB"[below(4)];
        WideString what;
        for (const std::size_t length = 50 + below(20); what.size() < length;)
            what += unit;
        WideString text;
        for (int run = 0; run < 12; ++run)
            text += what.substr(0, what.size() - unit.size()) + L'x';
        if (round % 2 == 0) {
            what[30 + below(20)] = L'c';
            text += what.substr(0, 29) + what.substr(0, 29) + what.substr(0, 29) + what.substr(0, 29);
        }
        for (int piece = 0; piece < 20; ++piece) {
            const std::size_t first = below(below(2) == 0 ? 4 : what.size());
            text += what.substr(first, what.size() - first - below(below(2) == 0 ? 4 : what.size() - first));
            if (below(3) == 0) text[text.size() - 1 - below(40)] = L"xabc"[below(4)];
        }
        WideString almost = what + unit;  // one period on from a wrong start, and wrong once there too
        almost[0] = L'x';
        almost[what.size()] = L'x';
        text += almost + what + unit;
        ASSERT_EQ(slowFind(text, what, 0), found(text.c_str(), what.c_str())) << round;
    }
}

TEST(CaselessSearch, HostileTextsTakeLinearTime) {
    const WideString text(2'000'000, L'a');
    WideString what(1'000'000, L'A');
    what[500'000] = L'b';
    EXPECT_EQ(-1, found(text.c_str(), what.c_str()));
    what.back() = L'c';
    what[1] = L'a';
    EXPECT_EQ(-1, found(text.c_str(), what.c_str()));
}

TEST(CaselessReplace, Rows) {
    // clang-format off
    const struct { const wchar_t *name, *text, *from, *to; int count; const wchar_t* result; } rows[] = {
        {L"same length", L"Rohr ROHR rohr", L"rohr", L"Duct", 3, L"Duct Duct Duct"},
        {L"longer", L"aXbxc", L"x", L"--", 2, L"a--b--c"},  {L"shorter", L"aXXbxxc", L"xX", L"-", 2, L"a-b-c"},
        {L"by nothing", L"aXbx", L"X", L"", 2, L"ab"},      {L"by null", L"aXbx", L"X", nullptr, 2, L"ab"},
        {L"everything", L"xX", L"X", nullptr, 2, L""},
        {L"what was inserted is not searched", L"aa", L"A", L"aa", 2, L"aaaa"},
        {L"matches do not overlap", L"aAaAa", L"aa", L"b", 2, L"bba"},
        {L"no match", L"abc", L"d", L"e", 0, L"abc"},       {L"empty from", L"abc", L"", L"e", 0, L"abc"},
        {L"null from", L"abc", nullptr, L"e", 0, L"abc"},   {L"empty text", L"", L"a", L"e", 0, L""},
    };
    // clang-format on
    for (const auto& row : rows) {
        SCOPED_TRACE(utf8(row.name));
        CString text = row.text;
        const CString shared = text;
        EXPECT_EQ(row.count, orvStrUtil::ReplaceNoCase(text, row.from, row.to));
        EXPECT_TEXT(row.result, text);
        EXPECT_TEXT(row.text, shared);
        EXPECT_TEXT(row.result, orvStrUtil::GetReplacedText(shared, row.from, row.to, false));
    }
    EXPECT_TEXT(L"a-b", orvStrUtil::GetReplacedText(L"axb", L"x", L"-", true));
    EXPECT_TEXT(L"aXb", orvStrUtil::GetReplacedText(L"aXb", L"x", L"-", true));
    EXPECT_TEXT(L"ab", orvStrUtil::GetReplacedText(L"axb", L"x", nullptr, true));
    EXPECT_TEXT(L"axb", orvStrUtil::GetReplacedText(L"axb", nullptr, L"-", true));
}

TEST(CaselessReplace, ManyMatchesAndPartsOfTheTextItself) {
    CString text(L'x', 1000);
    EXPECT_EQ(1000, orvStrUtil::ReplaceNoCase(text, L"X", L"yz"));
    EXPECT_EQ(1000, orvStrUtil::ReplaceNoCase(text, L"YZ", L"x"));
    EXPECT_EQ(CString(L'x', 1000), text);
    CString own = L"abAB";
    EXPECT_EQ(1, orvStrUtil::ReplaceNoCase(own, own, own));
    EXPECT_EQ(2, orvStrUtil::ReplaceNoCase(own, L"a", own));
    EXPECT_TEXT(L"abABbabABB", own);
    EXPECT_EQ(6, orvStrUtil::ReplaceNoCase(own, L"b", own.GetString() + own.GetLength() - 1)) << "same length";
    EXPECT_TEXT(L"aBABBaBABB", own);
}

}  // namespace
