// Whole text files: which bytes are read as which text, and which text becomes which bytes.
#include <functional>
#include <memory>

#include "support/bytes.h"
#include "support/temp_folder.h"
#include "support/text.h"

namespace {

constexpr unsigned kOem = 3331, k1252 = 3332, kUtf8 = 3333, kUtf8Mark = 65001, kUtf16 = 0xFFFFFFFF;
constexpr unsigned kNoSuchPage = 4242;

/// Text with NULs and all: "" literals end at the first.
CString text(std::initializer_list<int> units) {
    CString result;
    for (const int unit : units)
        result.AppendChar(static_cast<wchar_t>(unit));
    return result;
}

class TextFiles : public testing::Test {
  protected:
    /// Reads in the given page through both forms, which must agree.
    CString read(unsigned page, bool isScrambled = false) {
        CString result = L"untouched";
        EXPECT_TRUE(orvStrUtil::readStringBufferFromFile(result, folder_ / "file", page, isScrambled));
        wchar_t* array = nullptr;
        EXPECT_TRUE(orvStrUtil::readStringBufferFromFile(array, folder_ / "file", page, isScrambled));
        const std::unique_ptr<wchar_t[]> owned(array);
        EXPECT_TRUE(array != nullptr && CString(array, result.GetLength()) == result && array[result.GetLength()] == 0);
        return result;
    }
    CString readAuto(bool isScrambled = false) {
        CString result = L"untouched";
        EXPECT_TRUE(orvStrUtil::readStringFromFileAuto(result, folder_ / "file", isScrambled));
        return result;
    }
    void put(std::string_view data) { folder_.put("file", data); }

    TempFolder folder_;
};

TEST_F(TextFiles, AMarkDecidesOrTheWholeFile) {
    // clang-format off
    struct Row { const char *name, *file; bool hasMark; CString expected; };
    const Row rows[] = {
        {"empty", "", true, L""},  // as good as marked
        {"UTF-8", "EF BB BF 'K' C3 BC 'che' 0D 0A", true, L"Küche\r\n"},
        {"UTF-8 mark alone", "EF BB BF", true, L""},
        {"UTF-16 little", "FF FE 4B 00 FC 00", true, L"Kü"},
        {"UTF-16 big", "FE FF 00 4B 00 FC 20 AC", true, L"Kü€"},
        {"UTF-16 odd last byte", "FF FE 4B 00 FC", true, L"K\xFFFD"},
        {"UTF-16 big, mark and one byte", "FE FF 4B", true, L"\xFFFD"},
        {"UTF-16 keeps a lone surrogate", "FF FE 00 D8 41 00", true, text({0xD800, 0x41})},
        {"NULs are characters", "EF BB BF 'a' 00 'b'", true, text({'a', 0, 'b'})},
        {"bad UTF-8 behind a mark is substituted", "EF BB BF 'a' E4 'b'", true, text({'a', 0xFFFD, 'b'})},
        {"ASCII", "'Rohr DN 50'", false, L"Rohr DN 50"},
        {"two, three and four bytes", "C3 9C E2 82 AC F0 9F 94 A5", false, L"Ü€\xD83D\xDD25"},
        {"umlaut of 1252", "'K' FC 'che'", false, L"Küche"},
        {"UTF-8 with one bad byte is 1252 as a whole", "C3 9C FC", false, L"Ãœü"},
        {"cut at the end", "'a' E2 82", false, text({'a', 0xE2, 0x201A})},
        {"overlong", "C0 80", false, text({0xC0, 0x20AC})},
        {"surrogate", "ED A0 80", false, text({0xED, 0xA0, 0x20AC})},
        {"beyond U+10FFFF", "F4 90 80 80", false, text({0xF4, 0x90, 0x20AC, 0x20AC})},
        {"follower alone", "BF", false, L"¿"},
    };
    // clang-format on
    for (const Row& row : rows) {
        SCOPED_TRACE(row.name);
        put(bytes(row.file));
        EXPECT_TEXT(row.expected, readAuto());
        if (row.hasMark) {
            for (const unsigned page : {kOem, k1252, kUtf8, kUtf8Mark, kUtf16, 850U, kNoSuchPage})
                EXPECT_TEXT(row.expected, read(page)) << page;
        }
        put(scrambled(bytes(row.file)));
        EXPECT_TEXT(row.expected, readAuto(true));
        if (row.hasMark) {
            EXPECT_TEXT(row.expected, read(kUtf8, true));
        } else {  // a plain mark in front of scrambled bytes is no part of them
            put("\xEF\xBB\xBF" + scrambled(bytes(row.file)));
            EXPECT_TEXT(row.expected, readAuto(true));
        }
    }
}

TEST_F(TextFiles, TwoBytesOfTheUtf8MarkDecide) {
    put(bytes("EF BB 'Kanal'"));
    EXPECT_TEXT(L"anal", readAuto());
    EXPECT_TRUE(orvStrUtil::isUnicodeFile(folder_ / "file", false));
    put(bytes("EF BB"));
    EXPECT_TEXT(L"", readAuto());
    EXPECT_FALSE(orvStrUtil::isUnicodeFile(folder_ / "file", false));
}

TEST_F(TextFiles, UnmarkedFilesAreReadByTheCodePage) {
    // clang-format off
    struct Row { unsigned page; const char* file; const wchar_t* expected; };
    const Row rows[] = {
        {kUtf8, "'K' C3 BC", L"Kü"},
        {kUtf8, "'K' FC '!'", L"K\xFFFD!"},
        {k1252, "'K' FC 80 81 9F", L"Kü€\x0081Ÿ"},
        {kUtf8Mark, "'K' C3 BC", L"KÃ¼"},  // not trusted without a mark
        {kUtf16, "'K' FC", L"Kü"},
        {1252, "'K' FC 8D", L"Kü\x008D"},
        {kNoSuchPage, "'K' FC", L"Kü"},
        {850, "'K' 81", L"Kü"},
        {1251, "CA E8 E5 E2", L"Киев"},
        {kOem, "84 94 81 E1", L"äöüß"},  // the same in both western OEM pages
        {932, "83 65 83 58 83 67", L"テスト"},
    };
    // clang-format on
    for (const Row& row : rows) {
        SCOPED_TRACE(std::to_string(row.page) + ": " + row.file);
        put(bytes(row.file));
        EXPECT_TEXT(row.expected, read(row.page));
        put(scrambled(bytes(row.file)));
        EXPECT_TEXT(row.expected, read(row.page, true));
    }
}

// Longer than the reader's windows, with characters across every kind of border.
TEST_F(TextFiles, LongFilesAreReadAsShortOnes) {
    const std::string unit = bytes("'Rohr' C3 9C E2 82 AC F0 9F 94 A5 0D 0A");  // 15 bytes, 10 characters
    const CString unitText = L"RohrÜ€\xD83D\xDD25\r\n";
    for (const std::size_t size : {16383U, 16384U, 16385U, 262143U, 262144U, 262145U, 600000U}) {
        SCOPED_TRACE(size);
        std::string data(size % unit.size(), 'x');
        CString expected(L'x', static_cast<int>(data.size()));
        while (data.size() < size) {
            data += unit;
            expected += unitText;
        }
        put(data);
        EXPECT_TRUE(expected == readAuto());
        EXPECT_TRUE(expected == read(kUtf8));
        put(scrambled(data));
        EXPECT_TRUE(expected == readAuto(true));
        // One bad byte at the very end, and the whole file is Windows-1252: as many characters as bytes.
        put(data + "\xFC");
        const CString western = readAuto();
        EXPECT_EQ(static_cast<int>(size) + 1, western.GetLength());
        EXPECT_TEXT(L"Ã", western.Mid(static_cast<int>(size % unit.size()) + 4, 1));
        put("\xEF\xBB\xBF" + scrambled(data + "\xFC"));
        EXPECT_TRUE(western == readAuto(true));
        ASSERT_TRUE(orvStrUtil::writeStringBufferToFile(expected, folder_ / "file", true, kUtf16, false));
        EXPECT_EQ(2 + 2 * static_cast<std::size_t>(expected.GetLength()), folder_.get("file").size());
        EXPECT_TRUE(expected == readAuto());
        ASSERT_TRUE(orvStrUtil::writeStringBufferToFile(expected, folder_ / "file", true, kUtf8, true));
        EXPECT_TRUE(scrambled(data) == folder_.get("file"));
    }
}

TEST_F(TextFiles, CharactersBecomeBytes) {
    // clang-format off
    struct Row { bool unicode; unsigned page; CString text; const char* expected; };
    const Row rows[] = {
        {true, kUtf8Mark, L"", "EF BB BF"},
        {true, kUtf8Mark, L"Kü", "EF BB BF 'K' C3 BC"},
        {true, kUtf8, L"Ü€\xD83D\xDD25", "C3 9C E2 82 AC F0 9F 94 A5"},
        {true, kUtf8, L"", ""},
        {true, kUtf8, text({'a', 0xD800, 0, 0xDC00}), "'a' EF BF BD 00 EF BF BD"},
        {true, kUtf16, L"Kü", "FF FE 4B 00 FC 00"},
        {true, kUtf16, L"", "FF FE"},
        {true, kUtf16, text({0xD800}), "FF FE 00 D8"},
        {false, kUtf8, L"Kü", "'K' C3 BC"},
        {false, kUtf8Mark, L"Kü", "'K' C3 BC"},
        {false, k1252, L"Kü€\x0081Ÿ", "'K' FC 80 81 9F"},
        {false, 1252, L"→\xD83D\xDD25!Ā", "'?' '?' '!' '?'"},  // one "?" a character, and no look-alikes
        {false, kOem, L"äöüß", "84 94 81 E1"},
        {false, 1251, L"Киевä", "CA E8 E5 E2 '?'"},
        {false, 932, L"テスト", "83 65 83 58 83 67"},
    };
    // clang-format on
    for (const Row& row : rows) {
        SCOPED_TRACE(std::to_string(row.page) + ": " + row.expected);
        put("older and longer content of the file");
        EXPECT_TRUE(orvStrUtil::writeStringBufferToFile(row.text, folder_ / "file", row.unicode, row.page, false));
        EXPECT_EQ(hex(bytes(row.expected)), hex(folder_.get("file")));
        EXPECT_TRUE(orvStrUtil::writeStringBufferToFile(row.text, folder_ / "file", row.unicode, row.page, true));
        EXPECT_EQ(hex(scrambled(bytes(row.expected))), hex(folder_.get("file")));
    }
}

TEST_F(TextFiles, UnicodeInAnotherPageWritesAnEmptyFile) {
    for (const unsigned page : {1252U, k1252, kOem, 0U, kNoSuchPage}) {
        put("old");
        EXPECT_TRUE(orvStrUtil::writeStringBufferToFile(L"new", folder_ / "file", true, page, false)) << page;
        EXPECT_EQ("", folder_.get("file")) << page;
    }
}

TEST_F(TextFiles, WhatCannotBeWrittenLeavesTheOldFile) {
    put("old");
    EXPECT_FALSE(orvStrUtil::writeStringBufferToFile(L"new", folder_ / "file", false, kNoSuchPage, false));
    EXPECT_FALSE(orvStrUtil::writeStringBufferToFile(L"new", folder_ / "file", false, kUtf16, false));
    EXPECT_EQ("old", folder_.get("file"));
    EXPECT_FALSE(orvStrUtil::writeStringBufferToFile(L"new", folder_ / "file2", false, kUtf16, false));
    EXPECT_FALSE(folder_.has("file2"));
    EXPECT_FALSE(orvStrUtil::writeStringBufferToFile(L"new", TempFolder::asText(folder_.path()), true, kUtf8, false));
    EXPECT_FALSE(orvStrUtil::writeStringBufferToFile(L"new", folder_ / "missing/file", true, kUtf8, false));
    EXPECT_FALSE(orvStrUtil::writeStringBufferToFile(L"new", nullptr, true, kUtf8, false));
}

TEST_F(TextFiles, WhatCannotBeOpenedFailsAtOnceAndChangesNothing) {
    const CString paths[] = {folder_ / "missing", folder_ / "missing/file", TempFolder::asText(folder_.path()), L""};
    for (const CString& path : paths) {
        CString out = L"kept";
        wchar_t start[] = L"kept";
        wchar_t* array = start;
        CStringList list;
        list.AddTail(L"kept");
        EXPECT_FALSE(orvStrUtil::readStringFromFileAuto(out, path, false));
        EXPECT_FALSE(orvStrUtil::readStringBufferFromFile(out, path, kUtf8, true));
        EXPECT_FALSE(orvStrUtil::readStringBufferFromFile(array, path, kUtf8, false));
        EXPECT_FALSE(orvStrUtil::readStringlistFromFile(list, path, kUtf8, false));
        EXPECT_FALSE(orvStrUtil::isUnicodeFile(path, false));
        EXPECT_TEXT(L"kept", out);
        EXPECT_EQ(start, array);
        EXPECT_EQ(1, list.GetCount());
    }
    CString out;
    EXPECT_FALSE(orvStrUtil::readStringFromFileAuto(out, nullptr, false));
    EXPECT_FALSE(orvStrUtil::isUnicodeFile(nullptr, true));
}

TEST_F(TextFiles, EveryByteOfWindows1252ComesBack) {
    std::string all;
    for (int byte = 0; byte < 256; ++byte)
        all += static_cast<char>(byte);
    for (int shift = 0; shift < 17; ++shift, all += 'x') {  // every place in a vector and behind the last one
        put(all);
        const CString decoded = read(k1252);
        ASSERT_EQ(256 + shift, decoded.GetLength());
        ASSERT_TRUE(orvStrUtil::writeStringBufferToFile(decoded, folder_ / "file", false, k1252, false));
        EXPECT_EQ(hex(all), hex(folder_.get("file")));
    }
}

TEST_F(TextFiles, UnicodeFilesShowByTheirFirstThreeBytes) {
    // clang-format off
    const struct { const char* file; bool plain, isScrambled; } rows[] = {
        {"", false, false},        {"FF FE", false, false}, {"FF FE 00", true, false}, {"FE FF 00", true, false},
        {"F2 BE C2", false, true}, {"02 01", false, false}, {"02 01 00", false, true}, {"01 02 00", false, true},
        {"'abc'", false, false},   {"EF BB BF", true, true},  // a plain mark counts for scrambled files too
    };
    // clang-format on
    for (const auto& row : rows) {
        put(bytes(row.file));
        EXPECT_EQ(row.plain, orvStrUtil::isUnicodeFile(folder_ / "file", false)) << row.file;
        EXPECT_EQ(row.isScrambled, orvStrUtil::isUnicodeFile(folder_ / "file", true)) << row.file;
    }
}

}  // namespace
