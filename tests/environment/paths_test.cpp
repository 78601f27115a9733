// Path values and the functions on paths.
#include "orv/paths.h"

#include <gtest/gtest.h>

#include "orv/wide.h"
#include "support/text.h"

namespace {

TEST(Paths, JoiningBringsOneSeparator) {
    struct Row {
        const wchar_t *base, *tail, *expected;
    };
    const Row rows[] = {
        {L"C:\\a", L"b", L"C:\\a\\b"},
        {L"C:\\a\\", L"b", L"C:\\a\\b"},
        {L"C:\\a", L"\\b", L"C:\\a\\b"},
        {L"C:\\a\\", L"\\b", L"C:\\a\\b"},
        {L"C:\\a\\", L"/b", L"C:\\a\\b"},
        {L"C:/a/", L"\\b", L"C:/a/b"},
        {L"C:/a", L"b", L"C:/a/b"},
        {L"C:\\a", L"b/c", L"C:\\a/b/c"},
        {L"C:\\a", L"/b", L"C:\\a/b"},
        {L"C:/a", L"\\b", L"C:/a\\b"},
        {L"", L"\\b", L"\\b"},
        {L"C:\\a", L"", L"C:\\a"},
        {L"", L"", L""},
        {L"C:\\a\\", L"\\\\b", L"C:\\a\\\\b"},
        {L"C:", L"a", L"C:\\a"},
        {L"\\", L"\\", L"\\"},
        {L"C:\\a", L"b\\", L"C:\\a\\b\\"},
        {L"C:\\a long folder/with a slash", L"b", L"C:\\a long folder/with a slash/b"},
        {L"C:/slash in the first vector only", L"b", L"C:/slash in the first vector only/b"},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(utf8(row.base) + " + " + utf8(row.tail));
        EXPECT_TEXT(row.expected, Path::AppendPath(row.base, row.tail));
        EXPECT_TEXT(row.expected, Path::AppendSubDir(row.base, row.tail));
        EXPECT_TEXT(row.expected, Path::AppendFileName(row.base, row.tail));
        EXPECT_TEXT(row.expected, CDirPath(row.base).AppendSubDir(row.tail));
        EXPECT_TEXT(row.expected, CDirPath(row.base).AppendFile(row.tail));
    }
}

TEST(Paths, FilesHaveTheseParts) {
    struct Row {
        const wchar_t *path, *drive, *host, *folder, *name, *stem, *ext;
        bool isAbsolute;
    };
    const Row rows[] = {
        {L"", L"", L"", L"", L"", L"", L"", false},
        {L"C:\\a.b\\x.tar.gz", L"C:", L"", L"C:\\a.b\\", L"x.tar.gz", L"x.tar", L"gz", true},
        {L"c:x", L"c:", L"", L"c:", L"x", L"x", L"", true},
        {L"a/.profile", L"", L"", L"a/", L".profile", L"", L"profile", false},
        {L"C:\\a/b.c\\d", L"C:", L"", L"C:\\a/b.c\\", L"d", L"d", L"", true},
        {L"x.", L"", L"", L"", L"x.", L"x", L"", false},
        {L"C:\\a\\", L"C:", L"", L"C:\\a\\", L"", L"", L"", true},
        {L"\\\\srv\\share\\x.y", L"", L"\\\\srv", L"\\\\srv\\share\\", L"x.y", L"x", L"y", true},
        {L"\\\\srv/share/x", L"", L"\\\\srv", L"\\\\srv/share/", L"x", L"x", L"", true},
        {L"\\\\s/r\\x", L"", L"\\\\s/r", L"\\\\s/r\\", L"x", L"x", L"", true},
        {L"\\\\srv", L"", L"\\\\srv", L"\\\\", L"srv", L"srv", L"", true},
        {L"//srv/x", L"", L"", L"//srv/", L"x", L"x", L"", false},
        {L"\\x", L"", L"", L"\\", L"x", L"x", L"", false},
        {L"1:\\x", L"", L"", L"1:\\", L"x", L"x", L"", false},
        {L"ä:\\x", L"ä:", L"", L"ä:\\", L"x", L"x", L"", true},
        {L":", L"", L"", L"", L":", L":", L"", false},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(utf8(row.path));
        const CFilePath path(row.path);
        EXPECT_TEXT(row.drive, path.GetDrive());
        EXPECT_TEXT(row.drive, CDirPath(row.path).GetDrive());
        EXPECT_TEXT(row.host, path.GetHost());
        EXPECT_TEXT(row.folder, path.GetDirPath());
        EXPECT_TEXT(row.name, path.GetFileName());
        EXPECT_TEXT(row.stem, path.GetShortFileName());
        EXPECT_TEXT(row.stem, GetShortFileName(row.path));
        EXPECT_TEXT(row.ext, path.GetFileExt());
        EXPECT_EQ(row.isAbsolute, path.IsAbsolute());
        EXPECT_EQ(row.isAbsolute, CDirPath(row.path).IsAbsolute());
        EXPECT_EQ(*row.host != 0, path.IsUNC());
        EXPECT_EQ(*row.host != 0, CDirPath(row.path).IsUNC());
        EXPECT_TEXT(row.path, path.GetDirPath() + path.GetFileName());
    }
}

TEST(Paths, FoldersHaveTheseParts) {
    struct Row {
        const wchar_t *path, *name, *parent, *trimmed;
    };
    const Row rows[] = {
        {L"C:\\data\\plan\\", L"plan", L"C:\\data\\", L"C:\\data\\plan"},
        {L"C:\\data\\rev.2\\", L"rev", L"C:\\data\\", L"C:\\data\\rev.2"},
        {L" C:\\a \\ / ", L"a", L"C:\\", L"C:\\a"},
        {L"C:\\", L"", L"C:\\", L"C:"},
        {L"C:/", L"", L"C:\\", L"C:"},
        {L"C:", L"", L"C:", L"C:"},
        {L"a", L"a", L"", L"a"},
        {L"\\\\srv\\share", L"share", L"\\\\srv\\", L"\\\\srv\\share"},
        {L"", L"", L"", L""},
        {L"\\/ ", L"", L"", L""},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(utf8(row.path));
        EXPECT_TEXT(row.name, CDirPath(row.path).GetDirName());
        EXPECT_TEXT(row.parent, CDirPath(row.path).GetParentDirPath());
        EXPECT_TEXT(row.trimmed, CDirPath(row.path).Trimmed());
        CDirPath changed(row.path);
        EXPECT_EQ(&changed, &changed.Trim());
        EXPECT_TEXT(row.trimmed, changed);
    }
}

TEST(Paths, NormalizingFollowsItsSteps) {
    struct Row {
        const wchar_t *path, *expected;
    };
    const Row rows[] = {
        {L"", L""},
        {L" \t\x3000", L""},
        {L"C:\\a long folder\\another one\\x.dat", L"C:\\a long folder\\another one\\x.dat"},
        {L"\\\\srv\\share//x\\.\\y \\ z\\..\\w  ", L"\\\\srv\\share\\x\\y\\w"},
        {L"c:/a//b/.", L"c:\\a\\b\\."},
        // 3: from the third character on
        {L"\\\\\\\\srv", L"\\\\\\srv"},
        {L"\\\\\\srv", L"\\\\\\srv"},
        {L"a\\\\b", L"a\\\\b"},
        {L"C:\\\\\\\\a", L"C:\\a"},
        {L"C:\\a\\\\", L"C:\\a\\"},
        // 4
        {L"\\.\\a", L"\\.\\a"},
        {L"C:\\.\\.\\a\\.\\", L"C:\\a\\"},
        {L"C:\\a\\.b\\c.\\d", L"C:\\a\\.b\\c.\\d"},
        // 5 and 6; what they bring about stays
        {L"C:\\a  \\  b c\\d", L"C:\\a\\b c\\d"},
        {L"C:\\a\\ \\b", L"C:\\a\\\\b"},
        {L"C:\\a\\. \\b", L"C:\\a\\.\\b"},
        {L"a \\b", L"a\x20\\b"},
        {L"ab \\c", L"ab\\c"},
        {L"C:\\a\\ ..\\b", L"C:\\b"},
        // a run of blanks longer than one look
        {L"C:\\ab            \\ x\\ y", L"C:\\ab\\x\\y"},
        {L"C:\\ab            \\ ..\\c", L"C:\\c"},
        // 7
        {L"C:\\..\\x", L"C:\\..\\x"},
        {L"C:\\a\\b\\..", L"C:\\a\\"},
        {L"C:\\a\\..", L"C:\\"},
        {L"C:\\a\\..\\..\\b", L"C:\\..\\b"},
        {L"C:\\a\\b\\..\\..\\c\\..\\d", L"C:\\d"},
        {L"C:\\..\\a\\..\\b", L"C:\\..\\a\\..\\b"},
        {L"C:\\a\\..b", L"C:\\b"},
        {L"C:\\a\\b\\....\\c", L"C:\\c"},
        {L"\\..\\x", L"\\..\\x"},
        {L"\\a\\..\\x", L"\\x"},
        {L"\\\\srv\\share\\..\\x", L"\\\\srv\\x"},
        {L"\\\\srv\\..\\x", L"\\\\srv\\..\\x"},
        {L"\\\\..\\x", L"\\\\..\\x"},
        {L"a\\..\\b", L"b"},
        {L"C:a\\..\\b", L"C:b"},
        {L"..\\..\\b", L"..\\..\\b"},
        {L"a\\..\\..\\..\\b", L"..\\..\\b"},
        {L"..\\a\\..\\b", L"..\\b"},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(utf8(row.path));
        CString text(row.path);
        const CString before = text;
        EXPECT_EQ(&text, &NormalizePath(text));
        EXPECT_TEXT(row.expected, text);
        EXPECT_TEXT(row.path, before);  // copies do not change along
        EXPECT_TEXT(row.expected, CDirPath(row.path).Normalized());
        EXPECT_TEXT(row.expected, CFilePath(row.path).Normalized());
        // Anywhere in a longer path, whose vectors then begin elsewhere.
        for (CString pad = L"C:\\"; *row.path == L'C' && row.path[2] == L'\\' && pad.GetLength() < 24; pad += L'x') {
            const CString tail(row.path + 3);
            if (tail.Find(L"..") >= 0) continue;
            CString longer = pad + L"y\\" + tail;
            EXPECT_TEXT(pad + L"y" + CString(row.expected).Mid(2), NormalizePath(longer));
        }
    }
}

TEST(Paths, HugePathsAreNormalizedInLinearTime) {
    constexpr int kSteps = 300'000;
    CString path(L"\\\\");
    path += CString(L'h', kSteps);
    for (int i = 0; i < kSteps; ++i)
        path += L"\\a";
    for (int i = 0; i < kSteps; ++i)
        path += L"\\..";
    NormalizePath(path);
    EXPECT_EQ(kSteps + 3, path.GetLength());
    CString blanks = L"C:\\" + CString(L' ', kSteps) + L"\\x";
    EXPECT_TEXT(L"C:\\\\x", NormalizePath(blanks));
}

TEST(Paths, EqualPathsAreFoundEqual) {
    struct Row {
        const wchar_t *a, *b;
        bool folders, files;
    };
    const Row rows[] = {
        {L"C:\\Temp\\", L"c:/temp", true, false},
        {L"C:\\a", L"c:/A", true, true},
        {L"C:\\Ä\\x", L"c:\\ä\\X", true, true},
        {L"C:\\a\\..\\b", L"C:\\b", true, true},
        {L"C:\\a\\\\", L"C:\\a", true, false},
        {L"C:\\a", L"C:\\ab", false, false},
        {L"", L"\\", true, false},
        {L"", L"", true, true},
        {L"C:\\a\\", L"C:\\b\\", false, false},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(utf8(row.a) + " = " + utf8(row.b));
        EXPECT_EQ(row.folders, CDirPath(row.a).IsEqual(row.b));
        EXPECT_EQ(row.folders, CDirPath(row.b).IsEqual(row.a));
        EXPECT_EQ(row.files, CFilePath(row.a).IsEqual(row.b));
        EXPECT_EQ(row.files, CFilePath(row.b).IsEqual(row.a));
    }
}

TEST(Paths, PartsAreReplaced) {
    struct Row {
        const wchar_t *path, *part, *expected;
    };
    const Row extensions[] = {
        {L"x.txt", L"", L"x"},
        {L"x", L".pdf", L"x.pdf"},
        {L"x.", L"pdf", L"x.pdf"},
        {L"x.txt", L".", L"x"},
        {L"x...", L"", L"x"},
        {L"", L"pdf", L"pdf"},
        {L"", L".pdf", L"pdf"},
        {L"x.a.b", L"c", L"x.a.c"},
        {L"x.a", L"..b", L"x..b"},
        {L"C:\\a.b\\x", L"c", L"C:\\a.b\\x.c"},
        {L"C:\\a\\", L"c", L"C:\\a\\.c"},
        {L"x..", L"c", L"x..c"},
    };
    for (const Row& row : extensions) {
        SCOPED_TRACE(utf8(row.path) + " " + utf8(row.part));
        EXPECT_TEXT(row.expected, CFilePath(row.path).SetFileExt(row.part));
        EXPECT_TEXT(row.expected, Path::ChangeFileExt(row.path, row.part));
    }
    const Row names[] = {
        {L"C:\\a\\x.txt", L"y", L"C:\\a\\y.txt"},
        {L"C:\\a\\x.txt", L"", L"C:\\a\\.txt"},
        {L"x.", L"y", L"y."},
        {L"x", L"y.z", L"y.z"},
        {L"C:x.t", L"y", L"C:\\y.t"},
    };
    for (const Row& row : names) {
        SCOPED_TRACE(utf8(row.path) + " " + utf8(row.part));
        EXPECT_TEXT(row.expected, CFilePath(row.path).SetShortFileName(row.part));
    }
    EXPECT_TEXT(L"D:\\b\\x.txt", CFilePath(L"C:\\a\\x.txt").SetDirPath(L"D:\\b"));
    EXPECT_TEXT(L"C:\\a\\y", CFilePath(L"C:\\a\\x.txt").SetFileName(L"y"));
    CFilePath own(L"C:\\a\\x.txt");
    EXPECT_TEXT(L"C:\\a\\x.C:\\a\\x.txt", own.SetFileExt(own));
    EXPECT_TRUE(CFilePath(L"x.PDF").IsFileExt(L"..pdf"));
    EXPECT_FALSE(CFilePath(L"x.pdf2").IsFileExt(L"pdf"));
    EXPECT_TRUE(CFilePath(L"x").IsFileExt(L"."));
}

TEST(Paths, FilesAreCompletedAndUncompleted) {
    struct Row {
        const wchar_t *file, *dir, *ext, *complete, *bare;
    };
    const Row rows[] = {
        {L"sub\\x.dat", L"D:\\d", L"txt", L"D:\\d\\x.dat", L"sub\\x.dat"},
        {L"x", L"D:\\d\\", L"txt", L"D:\\d\\x.txt", L"x"},
        {L"C:\\a\\x", L"D:\\d", L".txt", L"C:\\a\\x.txt", L"C:\\a\\x"},
        {L"C:\\a\\x.txt", L"c:/A", L".TXT", L"C:\\a\\x.txt", L"x"},
        {L"", L"D:\\d", L"txt", L"", L""},
        {L"sub\\x", L"", L"", L"sub\\x", L"sub\\x"},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(utf8(row.file));
        EXPECT_TEXT(row.complete, CompleteFilePath(row.file, row.dir, row.ext));
        EXPECT_TEXT(row.bare, UnCompleteFilePath(row.file, row.dir, row.ext));
    }
}

TEST(Paths, RelativePathsGoUpAndDown) {
    struct Row {
        const wchar_t *path, *base, *expected;
    };
    const Row rows[] = {
        {L"C:\\a\\b\\f.txt", L"C:\\a\\b", L"f.txt"},
        {L"C:\\a\\b\\f.txt", L"c:/A/B/", L"f.txt"},
        {L"C:\\a\\c\\f.txt", L"C:\\a\\b", L"..\\c\\f.txt"},
        {L"C:\\a\\c\\f.txt", L"C:\\a\\b\\d\\e", L"..\\..\\..\\c\\f.txt"},
        {L"C:\\a\\b", L"C:\\a\\b", L"..\\"},
        {L"C:\\a", L"C:\\a\\b", L"..\\..\\"},
        {L"C:\\a\\b\\", L"C:\\a\\b", L"..\\"},
        {L"C:\\a\\x\\..\\b\\f", L"C:\\.\\a", L"b\\f"},
        {L"C:\\a", L"D:\\a", L"C:\\a"},
        {L"C:/a/../b", L"D:\\a", L"C:/a/../b"},
        {L"C:\\a\\f", L"a\\b", L"C:\\a\\f"},
        {L"a\\f", L"C:\\a", L"a\\f"},
        {L"C:\\a", L"C:\\b", L"C:\\a"},
        {L"C:\\", L"C:\\", L"C:\\"},
        {L"a\\b\\f", L"a\\c", L"..\\b\\f"},
        {L"\\\\srv\\s\\f", L"\\\\SRV\\s", L"f"},
        {L"\\\\srv\\s\\f", L"\\\\other\\s", L"\\\\srv\\s\\f"},
        {L"\\\\srv\\s\\f", L"C:\\s", L"\\\\srv\\s\\f"},
        {L"\\\\srv/s/f", L"\\\\srv/s", L"f"},
        {L"", L"", L""},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(utf8(row.path) + " from " + utf8(row.base));
        EXPECT_TEXT(row.expected, CalcRelativePath(row.path, row.base));
    }
}

TEST(Paths, NamesAreCleaned) {
    struct Row {
        const wchar_t *path, *replacement, *expected;
    };
    const Row rows[] = {
        {L"C:\\a\\b:c?.txt", L"_", L"C:\\a\\b_c_.txt"},
        {L"a/b|c*d?e\"f<g>h", L"-", L"a-b-c-d-e-f-g-h"},
        {L"C:\\a?\\b", L"", L"C:\\a\\b"},
        {L"C:x", L"_", L"C_x"},
        {L"\\x:", L"_", L"\\x_"},
        {L"a:b", L"(colon)", L"a(colon)b"},
        {L"C:\\a\\", L"_", L"C:\\a\\"},
        {L"", L"_", L""},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(utf8(row.path));
        EXPECT_TEXT(row.expected, getCleanedFilePath(row.path, row.replacement));
    }
}

TEST(Paths, ValuesAreTexts) {
    CDirPath folder = L"C:\\a";
    const CString text = folder;
    folder += L"\\b";
    EXPECT_TEXT(L"C:\\a", text);
    EXPECT_TEXT(L"C:\\a\\b", folder);
    EXPECT_TEXT(L"<C:\\a\\b|x.y>", CStringFormat(L"<%s|%s>", folder, CFilePath(L"x.y")));
    // Nothing is cut off at the lengths that the system's own splitting has.
    const CString name(L'n', 1000);
    const CString ext(L'e', 1000);
    CString path = L"C:\\" + CString(L'd', 1000);
    path += L"\\" + name + L"." + ext;
    EXPECT_TEXT(name, CFilePath(path).GetShortFileName());
    EXPECT_TEXT(ext, CFilePath(path).GetFileExt());
    EXPECT_EQ(1004, CFilePath(path).GetDirPath().GetLength());
}

TEST(Versions, CompareByNumberThenText) {
    struct Row {
        const wchar_t *a, *b;
        int expected;
    };
    const Row rows[] = {
        {L"2.0", L"2", 0},
        {L"20", L"2", 0},
        {L"10.1", L"9.5", 1},
        {L"1.10", L"1.9", -1},
        {L" .1.2 ", L"1.2", 0},
        {L"1.2b", L"1.2B", 0},
        {L"1.2a", L"1.2b", -1},
        {L"", L"0", 0},
        {L"", L"0.0", -1},
        {L"x.1", L"1", -1},
        {L"4294967297.1", L"1.1", 1},
        {nullptr, L"1", -1},
        {L"1.2", L"1.2.1", -1},
        {L"99999999991", L"100000000001", -1},
        {L"-1.1", L"0.1", -1},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(utf8(row.a) + " <=> " + utf8(row.b));
        EXPECT_EQ(row.expected, vercmp(row.a, row.b));
        EXPECT_EQ(-row.expected, vercmp(row.b, row.a));
    }
}

TEST(CommandLines, SwitchesHaveArguments) {
    struct Row {
        const wchar_t *line, *name;
        int found;
        const wchar_t* argument;
        int isSwitch;
    };
    const Row rows[] = {
        {L"app /file \"C:\\My Docs\\a.txt\" /x", L"FILE", 1, L"C:\\My Docs\\a.txt", 1},
        {L"app /file /x", L"file", 1, L"", 1},
        {L"app /file:x", L"file", 1, L"x", 0},
        {L"app -file:Äb c", L" fiLe ", 1, L"Äb", 0},
        {L"app /file", L"file", 1, L"", 1},
        {L"app /file   ", L"file", 1, L"", 1},
        {L"app -file  val", L"file", 1, L"val", 1},
        {L"app -file a /file b", L"file", 1, L"b", 1},  // "/file " counts before "-file "
        {L"app -file:a -file b", L"file", 1, L"b", 1},
        {L"app /files x", L"file", 0, L"", 0},
        {L"app file x", L"file", 0, L"", 1},
        {L"  file x", L"file", 0, L"", 0},  // nothing in front of the first word
        {L"app /file \"a b", L"file", 1, L"a b", 1},
        {L"app /file \"\" b", L"file", 1, L"", 1},
        {L"app /file -1", L"file", 1, L"", 1},
        {L"app /ÜBER 1", L"über", 1, L"1", 1},
        {L"", L"file", 0, L"", 0},
        {L"app", L"", 0, L"", 0},
        {nullptr, L"file", 0, L"", 0},
        {L"app", nullptr, 0, L"", 0},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(utf8(row.line) + " / " + utf8(row.name));
        CString argument(L"before");
        EXPECT_EQ(row.found, GetArgumentFromCmdLine(row.line, row.name, argument));
        EXPECT_TEXT(row.argument, argument);
        EXPECT_EQ(row.isSwitch, CheckSwitchInCmdLine(row.line, row.name));
    }
}

}  // namespace
