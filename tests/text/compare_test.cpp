// Looking at the ends of texts, and comparing texts with numbers in them.
#include <algorithm>
#include <vector>

#include "support/all_texts.h"
#include "support/guarded_text.h"
#include "support/text.h"

namespace {

using orv::WideString;
using orv::WideView;

TEST(TextEnds, BeginsAndEndsWith) {
    // clang-format off
    const struct { const wchar_t *text, *part; bool begins, beginsAnyCase, ends, endsAnyCase; } rows[] = {
        {L"Rohr", L"Ro", true, true, false, false},      {L"Rohr", L"hr", false, false, true, true},
        {L"Rohr", L"Rohrx", false, false, false, false}, {L"Rohr", L"", false, false, false, false},
        {L"", L"", false, false, false, false},          {nullptr, L"a", false, false, false, false},
        {L"Rohr", nullptr, false, false, false, false},  {L"ÄÖ", L"ä", false, true, false, false},
        {L"ΑΣ", L"ς", false, false, false, true},
        {L"abcdefghijklm", L"ABCDEFGHIJKLM", false, true, false, true},
        {L"abcdefghijklm", L"abcdefghijklx", false, false, false, false},
    };
    // clang-format on
    for (const auto& row : rows) {
        SCOPED_TRACE(utf8(row.text) + " and " + utf8(row.part));
        EXPECT_EQ(row.begins, orvStrUtil::BeginsWith(row.text, row.part, true));
        EXPECT_EQ(row.beginsAnyCase, orvStrUtil::BeginsWith(row.text, row.part, false));
        EXPECT_EQ(row.ends, orvStrUtil::EndsWith(row.text, row.part, true));
        EXPECT_EQ(row.endsAnyCase, orvStrUtil::EndsWith(row.text, row.part, false));
    }
}

TEST(TextEnds, EmptyLastAndBreak) {
    EXPECT_TRUE(orvStrUtil::IsEmpty(nullptr) && orvStrUtil::IsEmpty(L"") && !orvStrUtil::IsEmpty(L" "));
    EXPECT_TRUE(orvStrUtil::GetLastChar(L"") == 0 && orvStrUtil::GetLastChar(L"abc") == L'c');
    EXPECT_TRUE(orvStrUtil::NextIsBreak(L"\nx") && orvStrUtil::NextIsBreak(L"\r\n"));
    for (const wchar_t* text : {L"\rx", L"\r", L"x\n", L"", static_cast<const wchar_t*>(nullptr)})
        EXPECT_FALSE(orvStrUtil::NextIsBreak(text)) << utf8(text);
    const GuardedText lastIsReturn(WideView(L"\r"));
    EXPECT_FALSE(orvStrUtil::NextIsBreak(lastIsReturn.characters()));
}

TEST(NaturalOrder, AlphaNumericalFollowsItsSteps) {
    // clang-format off
    const struct { const char* name; const wchar_t *a, *b; int expected; } rows[] = {
        {"by case", L"a", L"A", 1},
        {"both empty", L"", L"", 0},
        {"prefix of a number: the shorter has no digit there", L"item1", L"item10", -1},
        {"the first digits differ", L"x19", L"x21", -1},
        {"so 130 against 14 compares 30 with 4", L"130", L"14", 1},
        {"and 105 against 12 compares 05 with 2", L"105", L"12", 1},
        {"leading zero of the rest", L"1005", L"15", 0},
        {"digit against none", L"10", L"1a", -1},
        {"digit above space", L"9", L" ", 1},
        {"only leading zeros differ", L"007", L"7", 0},
        {"beyond 32 bits all the same", L"99999999999", L"88888888888", 0},
        {"the largest and one less", L"2147483647", L"1147483647", 1},
        {"digits of other scripts are characters", L"\u0662", L"\u0663", -1},
        {"characters from U+8000 on are large", L"\uFF21", L"a", 1},
        {"difference behind a full vector", L"abcdefghijklmnopq9", L"abcdefghijklmnopq10", -1},
    };
    // clang-format on
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        EXPECT_EQ(row.expected, orvStrUtil::CompareAlphaNumerical(row.a, row.b));
        EXPECT_EQ(-row.expected, orvStrUtil::CompareAlphaNumerical(row.b, row.a));
    }
    EXPECT_EQ(-1, orvStrUtil::CompareAlphaNumerical(CString(L"a\0b", 3), CString(L"a\0c", 3))) << "behind a NUL";
}

int signOf(int order) { return order < 0 ? -1 : order > 0 ? 1 : 0; }

TEST(NaturalOrder, NaturalRows) {
    // In this order; texts of one row are equivalent.
    // clang-format off
    const std::vector<std::vector<const wchar_t*>> rows = {
        {L""}, {L" 9"}, {L"0", L"00"}, {L"1a"}, {L"1b", L"01b"}, {L"9", L"009"}, {L"10"}, {L"10a2"}, {L"10a10"},
        {L"99999999999999999999999"}, {L"100000000000000000000000"}, {L"A"}, {L"a"}, {L"a1"}, {L"a1b"}, {L"a9"},
        {L"a10", L"a010"}, {L"a10b"}, {L"b"},
    };
    // clang-format on
    for (std::size_t i = 0; i < rows.size(); ++i) {
        for (std::size_t j = 0; j < rows.size(); ++j) {
            for (const wchar_t* a : rows[i]) {
                for (const wchar_t* b : rows[j]) {
                    EXPECT_EQ(int{i > j} - int{i < j}, signOf(orv::compareNatural(a, b, true)))
                        << utf8(a) << " and " << utf8(b);
                }
            }
        }
    }
    EXPECT_EQ(0, orv::compareNatural(L"ÄNDERUNG 07", L"änderung 7", false));
    EXPECT_GT(0, orv::compareNatural(L"a9", L"A10", false));
}

TEST(NaturalOrder, NaturalIsAStrictWeakOrder) {
    const auto texts = allTexts(L"019aA", 3);
    for (const bool caseSensitive : {true, false}) {
        // Equivalence must be transitive: after sorting, each text is at or above all texts before it.
        auto sorted = texts;
        std::sort(sorted.begin(), sorted.end(),
                  [caseSensitive](WideView a, WideView b) { return orv::compareNatural(a, b, caseSensitive) < 0; });
        for (std::size_t i = 0; i < sorted.size(); ++i) {
            for (std::size_t j = 0; j <= i; ++j) {
                const int order = signOf(orv::compareNatural(sorted[i], sorted[j], caseSensitive));
                ASSERT_GE(order, 0) << utf8(sorted[i].c_str()) << " and " << utf8(sorted[j].c_str());
                ASSERT_EQ(-order, signOf(orv::compareNatural(sorted[j], sorted[i], caseSensitive)));
            }
        }
    }
}

}  // namespace
