// Text files as lists of lines.
#include "support/bytes.h"
#include "support/temp_folder.h"
#include "support/text.h"

namespace {

constexpr unsigned k1252 = 3332, kUtf8 = 3333, kUtf8Mark = 65001, kUtf16 = 0xFFFFFFFF;

/// The entries, each with "|" behind it.
CString shown(CStringList& list) {
    CString result;
    for (POSITION at = list.GetHeadPosition(); at != nullptr;)
        result += list.GetNext(at) + L"|";
    return result;
}

TEST(StringLists, EveryLineEndEndsOneLine) {
    const TempFolder folder;
    // clang-format off
    struct Row { const char* file; const wchar_t* expected; };
    const Row rows[] = {
        {"", L""},                         {"'a'", L"a|"},         {"'a' 0D 0A 'b' 0A 'c' 0D 'd'", L"a|b|c|d|"},
        {"'a' 0D 0A", L"a|"},              {"0A", L"|"},           {"0D 0D 0A 0A 0D", L"||||"},
        {"'a' 0D 0A 0D 0A 'b'", L"a||b|"}, {"0A 0D 'a'", L"||a|"}, {"EF BB BF 'K' C3 BC 0A", L"Kü|"},
        {"FC 0A", L"ü|"},
    };
    // clang-format on
    for (const Row& row : rows) {
        SCOPED_TRACE(row.file);
        folder.put("file", bytes(row.file));
        CStringList list;
        list.AddTail(L"old");
        EXPECT_TRUE(orvStrUtil::readStringlistFromFileAuto(list, folder / "file", false));
        EXPECT_TEXT(row.expected, shown(list));
        EXPECT_TRUE(orvStrUtil::readStringlistFromFile(list, folder / "file", k1252, false));
        EXPECT_TEXT(row.expected, shown(list));
        folder.put("file", scrambled(bytes(row.file)));
        EXPECT_TRUE(orvStrUtil::readStringlistFromFileAuto(list, folder / "file", true));
        EXPECT_TEXT(row.expected, shown(list));
    }
}

TEST(StringLists, EntriesAreWrittenAndAppendedWithTheirLineEnds) {
    const TempFolder folder;
    struct Row {
        unsigned page;
        const char* written;
        const char* appended;  // what a second list adds
    };
    // clang-format off
    const Row rows[] = {
        {kUtf8Mark, "EF BB BF 'K' C3 BC 0D 0A 0D 0A", "'K' C3 BC 0D 0A 0D 0A"},
        {kUtf8, "'K' C3 BC 0D 0A 0D 0A", "'K' C3 BC 0D 0A 0D 0A"},
        {kUtf16, "FF FE 4B 00 FC 00 0D 00 0A 00 0D 00 0A 00", "4B 00 FC 00 0D 00 0A 00 0D 00 0A 00"},
        {k1252, "'K' FC 0D 0A 0D 0A", "'K' FC 0D 0A 0D 0A"},
        {850, "'K' 81 0D 0A 0D 0A", "'K' 81 0D 0A 0D 0A"},
    };
    // clang-format on
    CStringList list;
    list.AddTail(L"Kü");
    list.AddTail(L"");
    for (const Row& row : rows) {
        SCOPED_TRACE(row.page);
        const std::string written = bytes(row.written);
        EXPECT_TRUE(orvStrUtil::writeStringlistToFile(list, folder / "file", row.page));
        EXPECT_EQ(hex(written), hex(folder.get("file")));
        EXPECT_TRUE(orvStrUtil::appendStringlistToFile(list, folder / "file", row.page));
        EXPECT_EQ(hex(written + bytes(row.appended)), hex(folder.get("file")));
        // A file that appending creates is like a written one; one that is there and empty gets no mark.
        const std::string fresh = "new " + std::to_string(row.page);
        EXPECT_TRUE(orvStrUtil::appendStringlistToFile(list, folder / fresh, row.page));
        EXPECT_EQ(hex(written), hex(folder.get(fresh)));
        folder.put("empty", "");
        EXPECT_TRUE(orvStrUtil::appendStringlistToFile(list, folder / "empty", row.page));
        EXPECT_EQ(hex(bytes(row.appended)), hex(folder.get("empty")));
        EXPECT_TRUE(orvStrUtil::writeStringlistToFile(list, folder / "file", row.page, true));
        EXPECT_EQ(hex(scrambled(written)), hex(folder.get("file")));
    }
    CStringList none;
    EXPECT_TRUE(orvStrUtil::writeStringlistToFile(none, folder / "file", kUtf8Mark));
    EXPECT_EQ("EF BB BF ", hex(folder.get("file")));
    constexpr unsigned kNoSuchPage = 4242;
    for (const char* name : {"file", "other"}) {
        EXPECT_FALSE(orvStrUtil::writeStringlistToFile(list, folder / name, kNoSuchPage));
        EXPECT_FALSE(orvStrUtil::appendStringlistToFile(list, folder / name, kNoSuchPage));
    }
    EXPECT_EQ("EF BB BF ", hex(folder.get("file")));
    EXPECT_FALSE(folder.has("other"));
}

}  // namespace
