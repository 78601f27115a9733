// The one wide printf, and numbers as text.
#include <clocale>
#include <cmath>
#include <cstdio>
#include <limits>
#include <random>
#include <string>

#include "orv/numbers.h"
#include "support/comma_locale.h"
#include "support/text.h"

namespace {

enum Colour { kRed = 3 };

template <class... Arguments>
CString formatted(const wchar_t* format, const Arguments&... arguments) {
    CString text;
    text.Format(format, arguments...);
    return text;
}

TEST(Format, Integers) {
    EXPECT_TEXT(L"[   42][42   ][00042][+42][ 42]", formatted(L"[%5d][%-5d][%05d][%+d][% d]", 42, 42, 42, 42, 42));
    EXPECT_TEXT(L"-2147483648 4294967295", formatted(L"%d %u", std::numeric_limits<int>::min(), 4294967295U));
    EXPECT_TEXT(L"ff 0XFF 017 0 0", formatted(L"%x %#X %#o %#o %#x", 255, 255, 15, 0, 0));
    EXPECT_TEXT(L"[00042][  042][]", formatted(L"[%.5d][%5.3d][%.0d]", 42, 42, 0));
    EXPECT_TEXT(L"-9223372036854775808 FFFFFFFFFFFFFFFF 12",
                formatted(L"%I64d %I64X %I32d", std::numeric_limits<long long>::min(), ~0ULL, 12));
    EXPECT_TEXT(L"18446744073709551615 7 -1 200", formatted(L"%llu %ld %hd %hhu", ~0ULL, 7L, 65535, 456));
    EXPECT_TEXT(L"3", formatted(L"%d", kRed));
    EXPECT_TEXT(L"[  7][7  ][007]", formatted(L"[%*d][%*d][%.*d]", 3, 7, -3, 7, 3, 7));
    EXPECT_TEXT(L"0000000000000010", formatted(L"%p", reinterpret_cast<void*>(16)));
}

TEST(Format, Texts) {
    const CString text(L"Größe");
    EXPECT_TEXT(L"Größe|Gr|      Gr|x", formatted(L"%s|%.2s|%8.2s|%c", text, text, text, L'x'));
    EXPECT_TEXT(L"abc|ab|x|abc", formatted(L"%hs|%.2S|%hc|%ls", "abc", "abc", 'x', L"abc"));
    EXPECT_TEXT(L"(null)|100%|%y", formatted(L"%s|%d%%|%y", static_cast<const wchar_t*>(nullptr), 100));
    EXPECT_TEXT(L"tail %", formatted(L"tail %"));
    EXPECT_TEXT(L"", formatted(nullptr));
    CString self(L"a");
    self.Format(L"%s%s", self, self);
    self.AppendFormat(L"-%s", self);
    EXPECT_TEXT(L"aa-aa", self);
    EXPECT_EQ(1'000'000, formatted(L"%99999999d", 1).GetLength());
    EXPECT_TEXT(L"x1 2.50", formatted(L"%s %.2f", CStringFormat(L"x%d", 1), 2.5L));
    EXPECT_TEXT(L"", CStringFormat(nullptr));
}

// The C library's narrow printf in the C locale is the oracle for doubles, save for the names of what is not finite.
TEST(Format, DoublesLikeTheCLibrary) {
    // clang-format off
    const char* const formats[] = {"%g", "%f", "%e", "%.0f", "%.3g", "%+012.4f", "%-14.2e|", "%G", "%.15g", "%.17g",
                                   "%#.0f", "% g", "%.0e"};
    // clang-format on
    const double values[] = {0.0,     -0.0,     1,       -1,     0.5,        2.5,  1e-7, 123456,
                             1234567, 999999.5, 9999995, 0.0001, 0.00001,    1e22, 1e23, 1.7976931348623157e308,
                             5e-324,  0.1,      1.0 / 3, 100000, 1e5 + 0.05, 1e100};
    for (const char* format : formats) {
        for (const double value : values) {
            char expected[500];
            std::snprintf(expected, sizeof expected, format, value);
            EXPECT_EQ(CString(expected), formatted(CString(format), value)) << format << ' ' << value;
        }
    }
    const double infinity = std::numeric_limits<double>::infinity();
    EXPECT_TEXT(L"inf -inf nan   INF", formatted(L"%g %f %e %05G", infinity, -infinity, std::nan(""), infinity));
    EXPECT_TEXT(L"1.5", formatted(L"%g", 1.5F));
    EXPECT_TEXT(L"1.00000 1.00000e+06 0.000100000 1.e+10",
                formatted(L"%#g %#g %#g %#.0e", 1.0, 999999.5, 0.0001, 1e10));
    EXPECT_TEXT(L"0000100000 -000000001.5", formatted(L"%010g %012g", 100000.0, -1.5));
}

TEST(Numbers, GeneralLikeTheCLibrary) {
    std::mt19937_64 random(11);
    for (int i = 0; i < 200'000; ++i) {
        double value = static_cast<double>(random() % 100'000'000) / 1000.0;
        if (i % 3 == 0) value = std::ldexp(static_cast<double>(random() >> 11), static_cast<int>(random() % 400) - 250);
        if (i % 7 == 0) value = static_cast<double>(random() % 20'000'000) / 2;  // halves in the last place
        if (i % 2 == 0) value = -value;
        char expected[40];
        std::snprintf(expected, sizeof expected, "%g", value);
        wchar_t made[orv::kGeneralLength];
        const int length = orv::formatGeneral(value, made);
        ASSERT_EQ(CString(expected), CString(made, length)) << expected;
    }
}

TEST(Numbers, ParsesTheLongestPrefix) {
    // clang-format off
    struct Row { const wchar_t* text; double value; std::size_t length; };
    const double infinity = std::numeric_limits<double>::infinity();
    const Row rows[] = {
        {L"1.5m", 1.5, 3},       {L" -2e3", -2000, 5},       {L"1e", 1, 1},          {L"1e+", 1, 1},
        {L".5", 0.5, 2},         {L"5.", 5, 2},              {L".", 0, 0},           {L"", 0, 0},
        {L"-", 0, 0},            {L",", 0, 0},               {L"inf", 0, 0},         {L"nan", 0, 0},
        {L"0x10", 0, 1},         {L"1e999", infinity, 5},    {L"-1e999", -infinity, 6}, {L"1e-999", 0, 6},
        {L"1.2.3", 1.2, 3},      {L"0e999999999999", 0, 14}, {L"\x00A0+7", 7, 3},    {L"5e-324", 5e-324, 6},
        {L"1.7976931348623157e308", 1.7976931348623157e308, 22}, {L"9007199254740993", 9007199254740992.0, 16},
        {L"123456789012345678901234567890", 123456789012345678901234567890.0, 30},
    };
    // clang-format on
    for (const Row& row : rows) {
        SCOPED_TRACE(utf8(row.text));
        const orv::ParsedDouble parsed = orv::parseDouble(row.text);
        EXPECT_EQ(row.value, parsed.value);
        EXPECT_EQ(row.length, parsed.length);
    }
    EXPECT_TRUE(std::signbit(orv::parseDouble(L"-0").value));
}

TEST(Numbers, ParsesWhatWasWritten) {
    std::mt19937_64 random(12);
    for (int i = 0; i < 100'000; ++i) {
        const double value =
            std::ldexp(static_cast<double>(random() >> (random() % 50)), static_cast<int>(random() % 600) - 300);
        for (const wchar_t* format : {L"%.17g", L"%.3f"}) {
            const CString text = formatted(format, value);
            const double expected = std::strtod(orvStdStrUtil::convertUnicodeToUtf8(text).c_str(), nullptr);
            ASSERT_EQ(expected, orv::parseDouble(text.GetString()).value) << utf8(text);
        }
    }
}

TEST(Numbers, ParsesIntegers) {
    EXPECT_TRUE(orv::parseInteger(L" 12x").value == 12 && orv::parseInteger(L" 12x").length == 3);
    EXPECT_EQ(std::numeric_limits<int>::max(), orv::parseInteger(L"2147483648").value);
    EXPECT_EQ(std::numeric_limits<int>::min(), orv::parseInteger(L"-99999999999999999999999").value);
    EXPECT_EQ(0U, orv::parseInteger(L"+x").length);
}

TEST(Numbers, IgnoreTheProcessLocale) {
    const CommaLocale locale;
    ASSERT_STREQ(",", std::localeconv()->decimal_point) << "the locale is there";
    EXPECT_TEXT(L"1.5 0.25", formatted(L"%g %.2f", 1.5, 0.25));
    EXPECT_EQ(1.5, orv::parseDouble(L"1.5").value);
    EXPECT_EQ(1.0, orv::parseDouble(L"1,5").value);
    EXPECT_EQ(1e300, orv::parseDouble(L"1000000000000000000000.000e279").value);  // the long way
}

}  // namespace
