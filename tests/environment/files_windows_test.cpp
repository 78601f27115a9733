// What only Windows knows about files and folders.
#include "orv/files_windows.h"

#include <gtest/gtest.h>
#include <windows.h>

#include "orv/files.h"
#include "support/temp_folder.h"
#include "support/text.h"

namespace {

TEST(Versions, ComeFromTheResource) {
    wchar_t module[MAX_PATH];
    ASSERT_NE(0U, GetModuleFileNameW(GetModuleHandleW(L"orvbase.dll"), module, MAX_PATH));
    VS_FIXEDFILEINFO info{};
    EXPECT_TRUE(GetFileVersion(CFilePath(module), info));
    EXPECT_EQ(VS_FFI_SIGNATURE, static_cast<long>(info.dwSignature));
    CString text;
    EXPECT_TRUE(GetFileVersion(CFilePath(module), text));
    CString expected;
    expected.Format(L"%d.%d.%d.%d", static_cast<int>(HIWORD(info.dwFileVersionMS)),
                    static_cast<int>(LOWORD(info.dwFileVersionMS)), static_cast<int>(HIWORD(info.dwFileVersionLS)),
                    static_cast<int>(LOWORD(info.dwFileVersionLS)));
    EXPECT_TEXT(expected, text);
    const TempFolder folder;
    folder.put("no resource.dll", "MZ");
    EXPECT_FALSE(GetFileVersion(folder / "no resource.dll", text));
    EXPECT_FALSE(GetFileVersion(folder / "none", info));
    EXPECT_TEXT(expected, text);
}

TEST(FilesAndFolders, TheSystemsRecordIsFilled) {
    const TempFolder folder;
    folder.put("file", "123");
    WIN32_FIND_DATAW data{};
    EXPECT_TRUE(GetFileData(folder / "file", data));
    EXPECT_TEXT(L"file", CString(data.cFileName));
    EXPECT_EQ(3U, data.nFileSizeLow);
}

TEST(FilesAndFolders, TheInterpreterRemovesOnlyWhatIsSafe) {
    const TempFolder folder;
    const CDirPath victim = folder / "to go";
    const CDirPath odd = folder / "100%TEMP%";
    ASSERT_TRUE(CreateDirectoryRecursive(victim.AppendSubDir(L"sub")));
    ASSERT_TRUE(CreateDirectoryRecursive(odd, nullptr));
    const wchar_t* const refused[] = {
        L"", L"C:\\", L"C:\\windows", L"relative\\a\\b", L"\\\\srv\\share\\x", L"C:\\none\\there\\x"};
    for (const wchar_t* path : refused) {
        SCOPED_TRACE(utf8(path));
        EXPECT_FALSE(RemoveDirectoryRecursiveCmd(path));
    }
    EXPECT_FALSE(RemoveDirectoryRecursiveCmd(victim + L"\\"));
    EXPECT_FALSE(RemoveDirectoryRecursiveCmd(odd));
    EXPECT_TRUE(folder.has("to go") && folder.has("100%TEMP%"));
    EXPECT_TRUE(RemoveDirectoryRecursiveCmd(victim));
    EXPECT_FALSE(folder.has("to go"));
}

TEST(FilesAndFolders, TemporaryFolderStepsOutOfLongNames) {
    wchar_t before[MAX_PATH] = {};
    GetEnvironmentVariableW(L"TMP", before, MAX_PATH);
    SetEnvironmentVariableW(L"TMP", L"C:\\users\\01234567890123456789012345678901234");
    EXPECT_TEXT(L"C:\\users\\01234567890123456789012345678901234\\", GetTempPathW());
    SetEnvironmentVariableW(L"TMP", L"C:\\users\\012345678901234567890123456789012345");
    EXPECT_TEXT(L"C:\\users\\", GetTempPathW());
    SetEnvironmentVariableW(L"TMP", before);
    EXPECT_TRUE(Path::GetUserDocumentsPath().IsAbsolute());
}

}  // namespace
