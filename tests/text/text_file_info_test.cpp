// What a report on a text file says.
#include <gtest/gtest.h>

#include "orv/text_files.h"
#include "support/bytes.h"
#include "support/temp_folder.h"

namespace {

using orv::TextEncoding;
using orv::TextFileInfo;

TEST(TextFileInfo, CountsAndPlacesAreThoseOfTheFile) {
    struct Row {
        const char* name;
        const char* file;
        TextEncoding encoding;
        bool hasMark;
        std::uint64_t characters, crLf, lf, cr, undecodable, first;
    };
    constexpr TextEncoding kUtf8 = TextEncoding::kUtf8, k1252 = TextEncoding::kWindows1252;
    constexpr TextEncoding kLittle = TextEncoding::kUtf16LittleEndian, kBig = TextEncoding::kUtf16BigEndian;
    // clang-format off
    const Row rows[] = {
        {"empty", "", kUtf8, false, 0, 0, 0, 0, 0, 0},
        {"line ends", "'a' 0D 0A 0A 0D 0D 0A 'b' 0D", kUtf8, false, 9, 2, 1, 2, 0, 0},
        {"mark", "EF BB BF C3 9C 0A", kUtf8, true, 2, 0, 1, 0, 0, 0},
        {"bad UTF-8", "EF BB BF 'a' E4 'b' E2 82", kUtf8, true, 4, 0, 0, 0, 2, 4},
        {"Windows-1252", "FC 81 0A 9D", k1252, false, 4, 0, 1, 0, 2, 1},
        {"UTF-16", "FF FE 0D 00 0A 00", kLittle, true, 2, 1, 0, 0, 0, 0},
        {"odd", "FE FF 00 'a' 00", kBig, true, 2, 0, 0, 0, 1, 4},
        {"lone surrogates", "FF FE 'a' 00 00 DC 00 D8 00 DC 00 D8", kLittle, true, 5, 0, 0, 0, 2, 4},
        {"a lone surrogate and an odd byte", "FF FE 00 D8 00", kLittle, true, 2, 0, 0, 0, 2, 2},
    };
    // clang-format on
    const TempFolder folder;
    for (const Row& row : rows) {
        for (const bool isScrambled : {false, true}) {
            SCOPED_TRACE(std::string(row.name) + (isScrambled ? ", scrambled" : ""));
            const std::string data = isScrambled ? scrambled(bytes(row.file)) : bytes(row.file);
            folder.put("file", data);
            TextFileInfo info;
            ASSERT_TRUE(orv::inspectTextFile(folder / "file", isScrambled, info));
            EXPECT_TRUE(row.encoding == info.encoding && row.hasMark == info.hasMark && data.size() == info.bytes);
            EXPECT_EQ(row.characters, info.characters);
            EXPECT_TRUE(row.crLf == info.crLfEnds && row.lf == info.lfEnds && row.cr == info.crEnds);
            EXPECT_EQ(row.undecodable, info.undecodable);
            EXPECT_EQ(row.first, info.firstUndecodable);
        }
    }
    TextFileInfo info;
    EXPECT_FALSE(orv::inspectTextFile(folder / "missing", false, info));
}

// Line ends and bad bytes across the windows in which a long file is read.
TEST(TextFileInfo, LongFilesAreCountedAsOne) {
    const TempFolder folder;
    for (const std::size_t before : {16383U, 262143U, 262144U, 524285U}) {
        SCOPED_TRACE(before);
        folder.put("file", bytes("EF BB BF") + std::string(before, 'x') + bytes("0D 0A E2 82 AC E2 82") +
                               std::string(100000, 'y') + "\n");
        TextFileInfo info;
        ASSERT_TRUE(orv::inspectTextFile(folder / "file", false, info));
        EXPECT_EQ(before + 2 + 1 + 1 + 100001, info.characters);
        EXPECT_TRUE(info.crLfEnds == 1 && info.lfEnds == 1 && info.crEnds == 0);
        EXPECT_EQ(1U, info.undecodable);
        EXPECT_EQ(3 + before + 5, info.firstUndecodable);
    }
}

}  // namespace
