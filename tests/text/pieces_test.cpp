// Cutting and cleaning texts, plain fields, numbers as texts, decorated names.
#include <cmath>
#include <limits>

#include "support/guarded_text.h"
#include "support/text.h"

namespace {

TEST(TextPieces, AroundACharacter) {
    // clang-format off
    const struct { const wchar_t *text, *leftOfFirst, *leftOfLast, *rightOfFirst, *rightOfLast; } rows[] = {
        {L"a.b.c", L"a", L"a.b", L"b.c", L"c"},
        {L"abc", L"", L"", L"abc", L"abc"},
        {L".", L"", L"", L"", L""},
        {L"a.", L"a", L"a", L"", L""},
        {L"", L"", L"", L"", L""},
    };
    // clang-format on
    for (const auto& row : rows) {
        SCOPED_TRACE(utf8(row.text));
        EXPECT_TEXT(row.leftOfFirst, orvStrUtil::SubStrLeftFromFirstOccurence(row.text, L'.'));
        EXPECT_TEXT(row.leftOfLast, orvStrUtil::SubStrLeftFromLastOccurence(row.text, L'.'));
        EXPECT_TEXT(row.rightOfFirst, orvStrUtil::SubStrRightFromFirstOccurence(row.text, L'.'));
        EXPECT_TEXT(row.rightOfLast, orvStrUtil::SubStrRightFromLastOccurence(row.text, L'.'));
    }
}

TEST(TextPieces, SeparatedToArray) {
    // clang-format off
    const struct { const wchar_t *separator, *text, *joined; } rows[] = {  // joined: every entry between brackets
        {L";", L"a;;b;", L"[old][a][][b]"}, {L";", L";a", L"[old][][a]"},         {L";", L"a", L"[old][a]"},
        {L"", L"a;b", L"[old][a;b]"},       {L"ab", L"xabyaab", L"[old][x][ya]"}, {L";", L"", L"[old]"},
        {L"aa", L"aaa", L"[old][][a]"},     {L"long", L"lo", L"[old][lo]"},       {L";", L";", L"[old][]"},
    };
    // clang-format on
    for (const auto& row : rows) {
        CStringArray out;
        out.Add(L"old");
        orvStrUtil::separatedStringToArray(row.separator, row.text, out);
        CString joined;
        for (int i = 0; i < static_cast<int>(out.GetSize()); ++i)
            joined += L"[" + out[i] + L"]";
        EXPECT_TEXT(row.joined, joined) << utf8(row.text);
    }
}

TEST(TextPieces, RemoveNumericAndNonNumeric) {
    const CString original = L"DN50 Süd0123456789";
    EXPECT_TEXT(L"DN Süd", orvStrUtil::removeAllNumeric(original));
    EXPECT_TEXT(L"DN50 Süd0123456789", original);
    EXPECT_TEXT(L"/:\u0663", orvStrUtil::removeAllNumeric(L"1/2:\u0663"));
    EXPECT_TEXT(L"1.5", orvStrUtil::removeAllNonNumeric(L"1,5 m/s"));
    EXPECT_TEXT(L"-1.2.312", orvStrUtil::removeAllNonNumeric(L"a-1.2,3+e1/2"));
    EXPECT_TEXT(L"", orvStrUtil::removeAllNonNumeric(L"\u0663/ e+"));
}

TEST(PlainFields, Rows) {
    // clang-format off
    const struct { const wchar_t* text; int n; const wchar_t *separator, *expected; } rows[] = {
        {L"a;b;c", 1, L";", L"a"},   {L"a;b;c", 3, L";", L"c"},
        {L"a;b;c", 4, L";", L""},    {L"a;b;c\n", 3, L";", L"c"},
        {L"a\n;b", 1, L";", L"a\n"}, {L"a;b\n\n", 2, L";", L"b\n"},
        {L"a;;c", 2, L";", L""},     {L"a;b", 0, L";", L""},
        {L"a;b", -1, L";", L""},     {L"a<>b<>", 2, L"<>", L"b"},
        {L"a<>b<>", 3, L"<>", L""},  {L"a;b\n", 1, L"", L"a;b"},
        {L"a;b", 2, L"", L""},       {L"", 1, L";", L""},
        {L"\n", 1, L";", L""},       {L"a\u00AEb&n", 1, L":", L"a\u00AEb&n"},  // nothing is decoded
    };
    // clang-format on
    for (const auto& row : rows) {
        SCOPED_TRACE(utf8(row.text) + " field " + std::to_string(row.n));
        EXPECT_TEXT(row.expected, substr(CString(row.text), row.n, row.separator));
        EXPECT_TEXT(row.expected, substr(CString(row.text), row.n, CString(row.separator)));
    }
    EXPECT_TEXT(L"a", substr(CString(L"a"), 1, static_cast<const wchar_t*>(nullptr)));
}

TEST(PlainFields, IntoABuffer) {
    // clang-format off
    const struct { const wchar_t* text; int n; bool result; const wchar_t* expected; } rows[] = {
        {L"a;bc;d", 2, true, L"bc"},       {L"a;bc;d", 3, true, L"d"},   {L"a;bc;d", 4, false, L"unchanged"},
        {L"a;;d", 2, true, L""},           {L"a;", 2, true, L""},        {L"", 1, true, L""},
        {L"", 2, false, L"unchanged"},     {L"a\nb;c", 1, true, L"a"},   {L"a\nb;c", 2, true, L"c"},
        {L"a;b", 0, false, L""},  {nullptr, 1, false, L"unchanged"},
    };
    // clang-format on
    for (const auto& row : rows) {
        SCOPED_TRACE(utf8(row.text) + " field " + std::to_string(row.n));
        wchar_t out[16] = L"unchanged";
        EXPECT_EQ(row.result, substr(row.text, row.n, L';', out));
        EXPECT_TEXT(row.expected, out);
    }
    const GuardedText text(orv::WideView(L"a;bc"));
    const GuardedText room(orv::WideView(L"??"));
    EXPECT_TRUE(substr(text.characters(), 2, L';', room.characters()));
    EXPECT_TEXT(L"bc", room.characters());
    EXPECT_FALSE(substr(text.characters(), 3, L';', room.characters()));
    EXPECT_FALSE(substr(L"a", 1, L';', nullptr));
}

TEST(DoubleText, Rows) {
    // clang-format off
    const struct { double value; int decimals; bool comma; const wchar_t* expected; } rows[] = {
        {2.5, 0, false, L"2.5"},    {3.0, 0, false, L"3"},      {1.25, 2, true, L"1,25"},   {100.0, 0, false, L"100"},
        {0.0, 0, false, L"0"},      {-0.0, 0, false, L"-0"},
        {0.1234567, 0, true, L"0,123457"},
        {1e-9, 0, false, L"0"},     {-2.5, -3, true, L"-2,5"},  {2.5, 1, false, L"2.5"},    {2.0, 3, false, L"2.000"},
        {0.125, 2, false, L"0.12"}, {0.375, 2, false, L"0.38"},
        {1e20, 1, true, L"100000000000000000000,0"},
        {std::numeric_limits<double>::infinity(), 0, false, L"inf"},
        {-std::numeric_limits<double>::infinity(), 3, true, L"-inf"},
        {std::copysign(std::numeric_limits<double>::quiet_NaN(), -1.0), 2, true, L"nan"},
    };
    // clang-format on
    for (const auto& row : rows)
        EXPECT_TEXT(row.expected, StringUtils::DoubleToString(row.value, row.decimals, row.comma));
}

TEST(DoubleText, ExtremeValuesAndDecimals) {
    using Limits = std::numeric_limits<double>;
    EXPECT_EQ(310, StringUtils::DoubleToString(-Limits::max(), 0, false).GetLength());
    // The smallest double has exactly 1074 decimals, the last of them a 5; then come zeros, a million at most.
    const CString smallest = StringUtils::DoubleToString(Limits::denorm_min(), 1076, true);
    EXPECT_EQ(1078, smallest.GetLength());
    EXPECT_TEXT(L"0,000...62500", smallest.Left(5) + L"..." + smallest.Right(5));
    const CString largest = StringUtils::DoubleToString(-Limits::max(), std::numeric_limits<int>::max(), false);
    EXPECT_EQ(310 + 1075 + 1'000'000, largest.GetLength());
    EXPECT_TEXT(L"-179769313486231570814527423731704356798070567525844", largest.Left(52));
}

TEST(StandardText, Trim) {
    // clang-format off
    const struct { const wchar_t *text, *left, *right, *both; } rows[] = {
        {L" \t\n\v\f\ra b\r\f ", L"a b\r\f ", L" \t\n\v\f\ra b", L"a b"},
        {L"\u00A0a\u2003", L"\u00A0a\u2003", L"\u00A0a\u2003", L"\u00A0a\u2003"},  // no spaces of ASCII
        {L"  ", L"", L"", L""},
        {L"", L"", L"", L""},
    };
    // clang-format on
    for (const auto& row : rows) {
        SCOPED_TRACE(utf8(row.text));
        const orv::WideString text = row.text;
        EXPECT_TEXT(row.left, orvStdStrUtil::trimLeft(text).c_str());
        EXPECT_TEXT(row.right, orvStdStrUtil::trimRight(text).c_str());
        EXPECT_TEXT(row.both, orvStdStrUtil::trim(text).c_str());
    }
}

TEST(StandardText, ReplaceAll) {
    // clang-format off
    const struct { const wchar_t *text, *from, *to, *expected; } rows[] = {
        {L"aXbX", L"X", L"--", L"a--b--"}, {L"aa", L"a", L"aa", L"aaaa"}, {L"aaa", L"aa", L"b", L"ba"},
        {L"abc", L"", L"x", L"abc"},       {L"ABab", L"ab", L"", L"AB"},  {L"", L"a", L"b", L""},
    };
    // clang-format on
    for (const auto& row : rows) {
        EXPECT_TEXT(row.expected, orvStdStrUtil::replaceAll(orv::WideString(row.text), row.from, row.to).c_str());
    }
}

TEST(DecoratedNames, Rows) {
    // clang-format off
    const struct { const wchar_t* name; const char* expected; } rows[] = {
        {L"?open@@YAHPBD@Z", "?open@@YAHPEB_W@Z"},
        {L"?open@@YAHPB_W@Z", "?open@@YAHPEB_W@Z"},
        {L"?put@CFile2@@QAEXPADQBD@Z", "?put@CFile2@@QAEXPEA_WQEB_W@Z"},
        {L"?f@@YAXPA_WQB_W@Z", "?f@@YAXPEA_WQEB_W@Z"},
        {L"?f@@YAXAAVC@@ABVD@@PAVE@@PBVF@@@Z", "?f@@YAXAEAVC@@AEBVD@@PEAVE@@PEBVF@@@Z"},
        {L"?f@@YAHABH@Z", "?f@@YAHAEBH@Z"},
        {L"?f@@YAXV?$CStringT@DV?$StrTraitMFC@DV?$X@D@@@@@@Z",
         "?f@@YAXV?$CStringT@_WV?$StrTraitMFC_DLL@_WV?$X@_W@@@@@@Z"},
        {L"plain", "plain"},
        {L"", ""},
    };
    // clang-format on
    for (const auto& row : rows)
        EXPECT_EQ(row.expected, orvStrUtil::translateDecoratedName(row.name)) << utf8(row.name);
}

}  // namespace
