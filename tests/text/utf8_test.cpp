// UTF-8 against the tables of the Unicode standard and against a slow definition, on every level of vector kernels.
#include <random>

#include "support/bytes.h"
#include "support/slow_utf8.h"
#include "support/temp_folder.h"
#include "support/text.h"
#include "support/vector_levels.h"

namespace {

TEST(Utf8, OneReplacementForEachMaximalBadPart) {
    // clang-format off
    struct Row { const char *name, *bytes; const wchar_t* expected; };
    const Row rows[] = {
        // The Unicode standard, tables 3-8 to 3-11.
        {"overlong", "C0 AF E0 80 BF F0 81 82 41", L"\xFFFD\xFFFD\xFFFD\xFFFD\xFFFD\xFFFD\xFFFD\xFFFD\x41"},
        {"surrogates", "ED A0 80 ED BF BF ED AF 41", L"\xFFFD\xFFFD\xFFFD\xFFFD\xFFFD\xFFFD\xFFFD\xFFFD\x41"},
        {"other ill-formed", "F4 91 92 93 FF 41 80 BF 42", L"\xFFFD\xFFFD\xFFFD\xFFFD\xFFFD\x41\xFFFD\xFFFD\x42"},
        {"cut", "E1 80 E2 F0 91 92 F1 BF 41", L"\xFFFD\xFFFD\xFFFD\xFFFD\x41"},
        {"ends of the ranges", "7F C2 80 DF BF E0 A0 80 ED 9F BF EE 80 80 EF BF BF F0 90 80 80 F4 8F BF BF",
         L"\x7F\x80\x7FF\x800\xD7FF\xE000\xFFFF\xD800\xDC00\xDBFF\xDFFF"},
    };
    // clang-format on
    for (const Row& row : rows) {
        // In front of the row stand so many characters that it lies anywhere in a block and across its end.
        for (std::size_t before = 0; before < 70; ++before) {
            atEachVectorLevel([&] {
                const std::string front(before, 'x');
                const std::string behind = before % 2 == 0 ? std::string(130, 'y') : std::string();
                const CString expected = CString(L'x', static_cast<int>(before)) + row.expected +
                                         CString(L'y', static_cast<int>(behind.size()));
                EXPECT_TEXT(expected, orvStdStrUtil::convertUtf8ToUnicode(front + bytes(row.bytes) + behind))
                    << row.name << " behind " << before;
            });
        }
    }
}

TEST(Utf8, EveryLevelAgreesWithTheDefinition) {
    std::mt19937 random(20);
    // Kinds of pieces; a text favours a few of them, so that blocks of one kind and mixed ones both come.
    // clang-format off
    const std::string pieces[] = {
        "Heizkreisverteiler ", "ö", "ß", "€", "テ", "\xF0\x9F\x94\xA5", "\xED\xA0\x80", "\xE2\x82",
        "\xC3", "\xF0\x9F", "\x80", "\xFF", "ж", "ῶ", "\xED\x9F\xBF", "a"};
    // clang-format on
    for (int round = 0; round < 3000; ++round) {
        std::string data;
        const std::size_t kinds = 1 + random() % std::size(pieces);
        const std::size_t first = random() % std::size(pieces);
        const std::size_t length = random() % 300;
        while (data.size() < length)
            data += pieces[(first + random() % kinds) % std::size(pieces)];
        const orv::WideString expected = slowDecodeUtf8(data);
        const CString decoded(expected.c_str(), static_cast<int>(expected.size()));
        const std::string encoded = slowEncodeUtf8(expected);
        atEachVectorLevel([&] {
            ASSERT_TRUE(decoded == orvStdStrUtil::convertUtf8ToUnicode(data)) << hex(data);
            ASSERT_EQ(hex(encoded), hex(orvStdStrUtil::convertUnicodeToUtf8(decoded)));
        });
        // Lone surrogates come from nothing but 16-bit text.
        CString broken = decoded;
        for (int i = 0; i < broken.GetLength(); i += 7)
            broken.SetAt(i, i % 2 == 0 ? L'\xD83D' : L'\xDD25');
        const orv::WideView view(broken.GetString(), static_cast<std::size_t>(broken.GetLength()));
        const std::string repaired = slowEncodeUtf8(view);
        atEachVectorLevel([&] { ASSERT_EQ(hex(repaired), hex(orvStdStrUtil::convertUnicodeToUtf8(broken))); });
    }
}

TEST(Utf8, ConversionEndsAtTheFirstNul) {
    EXPECT_EQ("ab", orvStdStrUtil::convertUnicodeToUtf8(CString(L"ab\0cd", 5)));
    EXPECT_TEXT(L"ab", orvStdStrUtil::convertUtf8ToUnicode(std::string("ab\0cd", 5)));
    EXPECT_EQ("", orvStdStrUtil::convertUnicodeToUtf8(CString()));
    EXPECT_TEXT(L"", orvStdStrUtil::convertUtf8ToUnicode(""));
}

}  // namespace
