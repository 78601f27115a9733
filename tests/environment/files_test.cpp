// Files and folders on real trees.
#include "orv/files.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <vector>

#include "support/temp_folder.h"
#include "support/text.h"

namespace {

namespace fs = std::filesystem;

/// A tree that all recursions go over: files with umlauts, a read-only one, an empty folder.
struct Tree {
    TempFolder folder;
    CDirPath root = folder / "Bäume";

    Tree() {
        fs::create_directories(folder.path() / u8"Bäume" / "sub.1" / "deep");
        fs::create_directories(folder.path() / u8"Bäume" / "empty");
        folder.put("Bäume/a.txt", "12345");
        folder.put("Bäume/Ä.TXT", "1");
        folder.put("Bäume/b.dat", "");
        folder.put("Bäume/sub.1/c.txt", "123");
        folder.put("Bäume/sub.1/deep/d.txt", "1234567");
        fs::permissions(folder.path() / u8"Bäume" / "b.dat", fs::perms::owner_read, fs::perm_options::replace);
    }
};

/// Relative to `root`, with "/", sorted: "a|b|".
CString shown(const CArray<CFilePath, const CFilePath&>& files, const CDirPath& root) {
    std::vector<CString> names;
    for (std::intptr_t i = 0; i < files.GetSize(); ++i) {
        CString name = files[i].Mid(root.GetLength() + 1);
        name.Replace(L'\\', L'/');
        names.push_back(name);
    }
    std::sort(names.begin(), names.end());
    CString all;
    for (const CString& name : names)
        all += name + L"|";
    return all;
}

CString collected(const CDirPath& root, const wchar_t* pattern) {
    CArray<CFilePath, const CFilePath&> files;
    CollectFilesRecursive(root, pattern, files);
    return shown(files, root);
}

CString sorted(const CStringArray& names) {
    std::vector<CString> all;
    for (std::intptr_t i = 0; i < names.GetSize(); ++i)
        all.push_back(names[i]);
    std::sort(all.begin(), all.end());
    CString text;
    for (const CString& name : all)
        text += name + L"|";
    return text;
}

TEST(FilesAndFolders, PatternsSelectNames) {
    const Tree tree;
    struct Row {
        const wchar_t *pattern, *files, *folders, *tree;
    };
    const Row rows[] = {
        {L"*", L"a.txt|b.dat|Ä.TXT|", L"empty|sub.1|", L"a.txt|b.dat|sub.1/c.txt|sub.1/deep/d.txt|Ä.TXT|"},
        {L"*.*", L"a.txt|b.dat|Ä.TXT|", L"empty|sub.1|", L"a.txt|b.dat|sub.1/c.txt|sub.1/deep/d.txt|Ä.TXT|"},
        {L"*.txt", L"a.txt|Ä.TXT|", L"", L"a.txt|sub.1/c.txt|sub.1/deep/d.txt|Ä.TXT|"},
        {L"?.TXT", L"a.txt|Ä.TXT|", L"", L"a.txt|sub.1/c.txt|sub.1/deep/d.txt|Ä.TXT|"},
        {L"ä.*", L"Ä.TXT|", L"", L"Ä.TXT|"},
        {L"sub*", L"", L"sub.1|", L""},
        {L"nothing", L"", L"", L""},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(utf8(row.pattern));
        CStringArray names;
        names.Add(L"before");
        EXPECT_TRUE(GetFileNames(tree.root, row.pattern, names));
        EXPECT_TEXT(row.files, sorted(names));
        EXPECT_TRUE(GetDirNames(tree.root, row.pattern, names));
        EXPECT_TEXT(row.folders, sorted(names));
        EXPECT_TEXT(row.tree, collected(tree.root, row.pattern));
    }
    CStringArray names;
    EXPECT_FALSE(GetFileNames(tree.root.AppendSubDir(L"none"), L"*", names));
    EXPECT_FALSE(GetDirNames(tree.root.AppendSubDir(L"a.txt"), L"*", names));
    EXPECT_TEXT(L"", collected(tree.root.AppendSubDir(L"none"), L"*"));
}

TEST(FilesAndFolders, FilesComeBeforeThoseOfSubfolders) {
    const Tree tree;
    CArray<CFilePath, const CFilePath&> files;
    files.Add(L"before");
    CollectFilesRecursive(tree.root, L"*", files);
    ASSERT_EQ(6, files.GetSize());
    EXPECT_TEXT(L"before", files[0]);
    for (std::intptr_t i = 1; i <= 3; ++i)
        EXPECT_TRUE(files[i].GetDirPath().IsEqual(tree.root)) << i;
    EXPECT_TEXT(L"c.txt", files[4].GetFileName());
    EXPECT_TEXT(L"d.txt", files[5].GetFileName());
}

TEST(FilesAndFolders, AThousandEntriesAreFoundOnceAndAgain) {
    const TempFolder folder;
    constexpr int kEntries = 1000;
    for (int i = 0; i < kEntries; ++i)
        folder.put("entry " + std::to_string(i), "");
    CFindFiles find(TempFolder::asText(folder.path()), L"*", true);
    for (int round = 0; round < 2; ++round) {
        std::vector<CString> names;
        CString name;
        while (find.GetNext(name))
            names.push_back(name);
        EXPECT_TEXT(L"", name);
        std::sort(names.begin(), names.end());
        EXPECT_EQ(names.end(), std::unique(names.begin(), names.end()));
        EXPECT_EQ(kEntries, static_cast<int>(names.size()));
    }
    CFindFiles folders(TempFolder::asText(folder.path()), L"*", false);
    CString name(L"before");
    EXPECT_FALSE(folders.GetNext(name));
    EXPECT_TEXT(L"", name);
    CFindFiles none(folder / "none", L"*", true);
    EXPECT_FALSE(none.GetNext(name));
}

TEST(FilesAndFolders, SpaceIsSummedUp) {
    const Tree tree;
    EXPECT_EQ(6, GetSpaceUsageLong(tree.root, L"", false));
    EXPECT_EQ(16, GetSpaceUsageLong(tree.root, L"", true));
    EXPECT_EQ(16U, GetSpaceUsage(tree.root, L"*", true));
    EXPECT_EQ(6, GetSpaceUsageLong(tree.root, L"*.txt", true));  // no subfolder has such a name
    EXPECT_EQ(0, GetSpaceUsageLong(tree.root.AppendSubDir(L"none"), L"", true));
    // A file of 4 GiB and 7 bytes, without any content on the disk.
    tree.folder.put("Bäume/empty/large", "");
    std::error_code error;
    fs::resize_file(tree.folder.path() / u8"Bäume" / "empty" / "large", (1ULL << 32) + 7, error);
    if (!error) {
        EXPECT_EQ(7, GetSpaceUsageLong(tree.root.AppendSubDir(L"empty"), L"", true));
        unsigned low = 0;
        std::int64_t whole = 0;
        EXPECT_TRUE(GetFileSize(tree.root.AppendFile(L"empty/large"), low));
        EXPECT_TRUE(GetFileSize(tree.root.AppendFile(L"empty/large"), whole));
        EXPECT_EQ(7U, low);
        EXPECT_EQ((1LL << 32) + 7, whole);
    }
}

TEST(FilesAndFolders, FilesHaveSizesAndTimes) {
    const Tree tree;
    const CFilePath file = tree.root.AppendFile(L"a.txt");
    const CFilePath none = tree.root.AppendFile(L"none");
    std::int64_t size = -1;
    EXPECT_TRUE(GetFileSize(file, size));
    EXPECT_EQ(5, size);
    EXPECT_FALSE(GetFileSize(none, size));
    EXPECT_FALSE(GetFileSize(tree.root.AppendFile(L"*"), size));
    EXPECT_EQ(5, size);
    orv::FindRecord record{};
    EXPECT_TRUE(GetFileData(tree.root.AppendFile(L"b.dat"), record));
    EXPECT_TEXT(L"b.dat", CString(record.name));
    EXPECT_TRUE((record.attributes & orv::FindRecord::kReadOnly) != 0 && !record.isFolder() && !record.isLink());
    EXPECT_TRUE(GetFileData(tree.root.AppendFile(L"empty"), record));
    EXPECT_TRUE(record.isFolder());

    const CTime moment(1'000'000'000);
    CTime time;
    EXPECT_TRUE(SetFileTime(file, eFileTimeLastWrite, moment));
    EXPECT_TRUE(GetFileTime(file, eFileTimeLastWrite, time));
    EXPECT_EQ(moment, time);
    EXPECT_TRUE(GetFileTime(file, eFileTimeLastAccess, time));
    EXPECT_NE(moment, time);
    EXPECT_TRUE(SetFileTime(file, eFileTimeLastAccess, CTime(1'100'000'000)));
    EXPECT_TRUE(GetFileTime(file, eFileTimeLastWrite, time));
    EXPECT_EQ(moment, time);
    const auto other = static_cast<EFileTime>(3);
    time = CTime(42);
    EXPECT_TRUE(GetFileTime(file, other, time));
    EXPECT_EQ(CTime(42), time);
    EXPECT_FALSE(SetFileTime(file, other, moment));
    EXPECT_FALSE(GetFileTime(none, eFileTimeLastWrite, time));
    EXPECT_FALSE(SetFileTime(none, eFileTimeLastWrite, moment));
    EXPECT_FALSE(SetFileTime(file, eFileTimeLastWrite, CTime(INT64_MAX)));
    EXPECT_FALSE(SetFileTime(file, eFileTimeLastWrite, CTime(INT64_MIN)));
}

TEST(FilesAndFolders, OlderTargetsAreOverwritten) {
    const TempFolder folder;
    const CFilePath from = folder / "from";
    const CFilePath to = folder / "to";
    struct Row {
        const char* name;
        int fromTime, toTime;  // 0: not there
        bool result, copied;
    };
    const Row rows[] = {
        {"no target", 1000, 0, true, true},   {"older target", 2000, 1000, true, true},
        {"as old", 2000, 2000, true, false},  {"newer target", 1000, 2000, true, false},
        {"no source", 0, 1000, false, false}, {"neither", 0, 0, false, false},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.name);
        for (const auto& [name, time] : {std::pair("from", row.fromTime), std::pair("to", row.toTime)}) {
            fs::remove(folder.path() / name);
            if (time == 0) continue;
            folder.put(name, name);
            ASSERT_TRUE(SetFileTime(folder / name, eFileTimeLastWrite, CTime(time)));
        }
        const int expected = row.fromTime == 0 || row.toTime == 0 ? -2
                             : row.fromTime < row.toTime          ? -1
                                                                  : static_cast<int>(row.fromTime > row.toTime);
        EXPECT_EQ(expected, CompareFileTime(from, to));
        EXPECT_EQ(expected, FileUtils::CompareFileTime(from, to));
        EXPECT_FALSE(FileUtils::CopyFileWithRetries(from, to, 0, 0));
        EXPECT_EQ(row.result, FileUtils::CopyFileWithTimeCompare(from, to));
        EXPECT_EQ(row.result, FileUtils::CopyFileWithRetries(from, to, 1, 2));
        EXPECT_EQ(row.copied ? "from" : row.toTime != 0 ? "to" : "", folder.get("to"));
        if (row.copied) {
            EXPECT_EQ(0, CompareFileTime(from, to));
        }
    }
    // A read-only target is refused, and stays as it was.
    folder.put("from", "new");
    folder.put("to", "old");
    ASSERT_TRUE(SetFileTime(to, eFileTimeLastWrite, CTime(1000)));
    fs::permissions(folder.path() / "to", fs::perms::owner_read, fs::perm_options::replace);
    EXPECT_FALSE(FileUtils::CopyFileWithTimeCompare(from, to));
    EXPECT_EQ("old", folder.get("to"));
    EXPECT_TRUE(RemoveReadOnlyFlag(to));
    EXPECT_TRUE(RemoveReadOnlyFlag(to));
    EXPECT_TRUE(FileUtils::CopyFileWithTimeCompare(from, to));
    EXPECT_EQ("new", folder.get("to"));
    EXPECT_FALSE(RemoveReadOnlyFlag(folder / "none"));
}

TEST(FilesAndFolders, TreesAreCopiedAndRemoved) {
    const Tree tree;
    const CDirPath copy = tree.folder / "x/y/copy";
    EXPECT_TRUE(CopyDirectoryRecursive(tree.root, copy + L"/"));
    EXPECT_TEXT(collected(tree.root, L"*"), collected(copy, L"*"));
    EXPECT_EQ("1234567", tree.folder.get("x/y/copy/sub.1/deep/d.txt"));
    EXPECT_TRUE(tree.folder.has("x/y/copy/empty"));
    EXPECT_EQ(0, CompareFileTime(tree.root.AppendFile(L"a.txt"), copy.AppendFile(L"a.txt")));
    EXPECT_TRUE(CopyDirectoryRecursive(tree.root, copy));  // nothing left to do
    EXPECT_TRUE(CopyDirectoryRecursive(tree.root, tree.root));

    EXPECT_TRUE(RemoveDirectoryRecursive(copy + L"\\"));
    EXPECT_FALSE(tree.folder.has("x/y/copy"));
    EXPECT_TRUE(tree.folder.has("x/y"));
    EXPECT_FALSE(RemoveDirectoryRecursive(copy));
    EXPECT_FALSE(RemoveDirectoryRecursive(L""));
    EXPECT_EQ("12345", tree.folder.get("Bäume/a.txt"));
}

TEST(FilesAndFolders, CopyingSaysWhereItStopped) {
    const Tree tree;
    CString at;
    EXPECT_EQ(orv::FolderCopy::kIntoItself, orv::copyFolder(tree.root, tree.root.AppendSubDir(L"sub.1/new"), at));
    EXPECT_EQ(orv::FolderCopy::kIntoItself, orv::copyFolder(tree.root, tree.root.AppendSubDir(L"x/../y"), at));
    EXPECT_FALSE(CopyDirectoryRecursive(tree.root, tree.root.AppendSubDir(L"new")));
    EXPECT_FALSE(tree.folder.has("Bäume/new"));
    // Beside it, with a name that begins the same.
    EXPECT_EQ(orv::FolderCopy::kDone, orv::copyFolder(tree.root, tree.root + L"2", at));

    EXPECT_EQ(orv::FolderCopy::kSourceMissing, orv::copyFolder(tree.folder / "none", tree.folder / "made", at));
    EXPECT_TRUE(CopyDirectoryRecursive(tree.folder / "none", tree.folder / "made"));
    EXPECT_TRUE(tree.folder.has("made"));
    tree.folder.put("file", "");
    EXPECT_EQ(orv::FolderCopy::kTargetFailed, orv::copyFolder(tree.root, tree.folder / "file/x", at));
}

TEST(FilesAndFolders, FoldersAreMadeWithThoseAbove) {
    const TempFolder folder;
    folder.put("file", "");
    EXPECT_TRUE(CreateDirectoryRecursive(folder / "a/ü/c/"));
    EXPECT_TRUE(folder.has("a/ü/c"));
    EXPECT_TRUE(CreateDirectoryRecursive(folder / "a"));
    EXPECT_TRUE(CreateDirectoryRecursive(folder / "file"));
    EXPECT_FALSE(CreateDirectoryRecursive(folder / "file/a/b"));
    EXPECT_TRUE(CreateDirectoryRecursive(L""));  // nothing is missing
    // Unlike separators, white space belongs to a name.
    const CDirPath spaced = CDirPath(folder / "a/\xC2\xA0 x\xC2\xA0");
    EXPECT_FALSE(RemoveDirectoryRecursive(CDirPath(folder / "a/ü\xC2\xA0")));
    EXPECT_TRUE(CreateDirectoryRecursive(spaced.AppendSubDir(L"y")));
    EXPECT_TRUE(folder.has("a/\xC2\xA0 x\xC2\xA0/y"));
    EXPECT_FALSE(folder.has("a/\xC2\xA0 x"));
    EXPECT_TRUE(CopyDirectoryRecursive(folder / "a", folder / "b"));
    EXPECT_TRUE(folder.has("b/\xC2\xA0 x\xC2\xA0/y"));
    EXPECT_TRUE(RemoveDirectoryRecursive(spaced + L"//"));
    EXPECT_FALSE(folder.has("a/\xC2\xA0 x\xC2\xA0"));
    EXPECT_TRUE(folder.has("a/ü/c"));
    CStringArray names;
    GetFileNames(folder / "b/", L"", names);
    EXPECT_EQ(0, names.GetSize());
    EXPECT_TRUE(CDirPath(folder / "a").IsWritable());
    EXPECT_FALSE(folder.has("a/_test_.000"));
    EXPECT_FALSE(CDirPath(folder / "none").IsWritable());
}

TEST(FilesAndFolders, PathsBeyondTheOldLimitWork) {
    const TempFolder folder;
    CDirPath deep = TempFolder::asText(folder.path());
    for (int i = 0; i < 8; ++i)
        deep = deep.AppendSubDir(CString(L'n', 60));
    ASSERT_TRUE(CreateDirectoryRecursive(deep));
    EXPECT_TRUE(deep.IsWritable());
    folder.put("from", "content");
    EXPECT_TRUE(FileUtils::CopyFileWithTimeCompare(folder / "from", deep.AppendFile(L"to.txt")));
    EXPECT_EQ(0, CompareFileTime(folder / "from", deep.AppendFile(L"to.txt")));
    const CDirPath root = TempFolder::asText(folder.path());
    EXPECT_EQ(14, GetSpaceUsageLong(root, L"", true));
    CArray<CFilePath, const CFilePath&> files;
    CollectFilesRecursive(root, L"*.txt", files);
    ASSERT_EQ(1, files.GetSize());
    EXPECT_TRUE(files[0].IsEqual(deep.AppendFile(L"to.txt")));
    EXPECT_TRUE(CopyDirectoryRecursive(root.AppendSubDir(CString(L'n', 60)), folder / "copy"));
    EXPECT_TRUE(RemoveDirectoryRecursive(root.AppendSubDir(CString(L'n', 60))));
    EXPECT_TRUE(RemoveDirectoryRecursive(folder / "copy"));
    EXPECT_EQ(7, GetSpaceUsageLong(root, L"", true));
}

}  // namespace
