// Files and folders where links are to be had and "/" is the system's separator.
#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>

#include "orv/files.h"
#include "support/temp_folder.h"
#include "support/text.h"

namespace {

namespace fs = std::filesystem;

std::intptr_t filesIn(const CDirPath& root) {
    CArray<CFilePath, const CFilePath&> files;
    CollectFilesRecursive(root, L"*", files);
    return files.GetSize();
}

TEST(Links, AreFollowedOnceAndRemovedAsLinks) {
    const TempFolder folder;
    const fs::path& path = folder.path();
    fs::create_directories(path / "tree" / "sub");
    fs::create_directories(path / "outside");
    folder.put("tree/sub/file", "123");
    folder.put("outside/kept", "12345");
    folder.put("outside/read-only", "");
    fs::permissions(path / "outside" / "read-only", fs::perms::owner_read, fs::perm_options::replace);
    fs::create_directory_symlink("..", path / "tree" / "sub" / "loop");
    fs::create_directory_symlink(path / "outside", path / "tree" / "to outside");
    fs::create_directory_symlink(path / "outside", path / "tree" / "again");
    fs::create_symlink(path / "outside" / "read-only", path / "tree" / "to file");
    const CDirPath tree = folder / "tree";
    EXPECT_EQ(4, filesIn(tree));  // file, kept, read-only, and the link to it
    EXPECT_EQ(8, GetSpaceUsageLong(tree, L"", true));

    CString at;
    EXPECT_EQ(orv::FolderCopy::kIntoItself, orv::copyFolder(tree, folder / "outside/copy", at));
    EXPECT_TRUE(CopyDirectoryRecursive(tree, folder / "copy"));
    EXPECT_EQ("12345", folder.get("copy/to outside/kept") + folder.get("copy/again/kept"));
    EXPECT_FALSE(fs::is_symlink(path / "copy" / "to file"));
    // The target is reached through a link.
    fs::create_directory_symlink(path / "tree" / "sub", path / "way in");
    EXPECT_FALSE(CopyDirectoryRecursive(tree, folder / "way in/new"));
    EXPECT_FALSE(folder.has("tree/sub/new"));

    EXPECT_TRUE(RemoveDirectoryRecursive(folder / "way in/"));
    EXPECT_EQ("123", folder.get("tree/sub/file"));
    EXPECT_TRUE(RemoveDirectoryRecursive(tree));
    EXPECT_FALSE(folder.has("tree"));
    EXPECT_EQ("12345", folder.get("outside/kept"));
    const auto mode = fs::status(path / "outside" / "read-only").permissions();
    EXPECT_EQ(fs::perms::none, mode & fs::perms::owner_write);
}

TEST(Links, ThatLeadNowhereAreFiles) {
    const TempFolder folder;
    fs::create_directories(folder.path() / "tree");
    fs::create_symlink("none", folder.path() / "tree" / "dangling");
    EXPECT_EQ(1, filesIn(folder / "tree"));
    EXPECT_FALSE(CopyDirectoryRecursive(folder / "tree", folder / "copy"));
    EXPECT_TRUE(RemoveDirectoryRecursive(folder / "tree"));
}

TEST(FilesAndFolders, NamesThatNoPathCanHoldAreNotTouched) {
    const TempFolder folder;
    fs::create_directories(folder.path() / "tree");
    folder.put("victim", "kept");
    folder.put("tree/..\\victim", "its own");
    EXPECT_EQ(0, filesIn(folder / "tree"));
    EXPECT_FALSE(CopyDirectoryRecursive(folder / "tree", folder / "copy"));
    EXPECT_FALSE(RemoveDirectoryRecursive(folder / "tree"));
    EXPECT_EQ("kept", folder.get("victim"));
    EXPECT_EQ("its own", folder.get("tree/..\\victim"));
}

TEST(FilesAndFolders, BackslashesSeparateToo) {
    const TempFolder folder;
    fs::create_directories(folder.path() / "a" / "b");
    folder.put("a/b/file", "123");
    const CFilePath file = CFilePath(folder / "a/./b/file").Normalized();
    EXPECT_EQ(-1, file.Find(L'/'));
    std::int64_t size = 0;
    EXPECT_TRUE(GetFileSize(file, size));
    EXPECT_EQ(3, size);
    CString text;
    EXPECT_TRUE(orvStrUtil::readStringFromFileAuto(text, file, false));
    EXPECT_TEXT(L"123", text);
}

TEST(FilesAndFolders, TemporaryFolderStepsOutOfLongNames) {
    const char* const before = std::getenv("TMPDIR");
    const std::string kept = before != nullptr ? before : "";
    struct Row {
        const char* variable;
        const wchar_t* expected;
    };
    const Row rows[] = {
        {"/var/tmp", L"/var/tmp/"},
        {"/var/01234567890123456789012345678901234", L"/var/01234567890123456789012345678901234/"},
        {"/var/012345678901234567890123456789012345/", L"/var/"},
        {"", L"/tmp/"},
    };
    for (const Row& row : rows) {
        setenv("TMPDIR", row.variable, 1);
        EXPECT_TEXT(row.expected, GetTempPathW());
    }
    if (before != nullptr) {
        setenv("TMPDIR", kept.c_str(), 1);
    } else {
        unsetenv("TMPDIR");
    }
}

}  // namespace
