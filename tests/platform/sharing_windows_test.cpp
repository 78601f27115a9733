// What only Windows does: files held against others, and message boxes.
#ifndef NOMINMAX
#define NOMINMAX
#endif
#include <windows.h>

#include <atomic>
#include <thread>

#include "orv/framework.h"
#include "orv/messages.h"
#include "support/temp_folder.h"
#include "support/text.h"

namespace {

HANDLE open(const CString& path, DWORD access, DWORD share) {
    return CreateFileW(path, access, share, nullptr, OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr);
}

TEST(Sharing, ReadersWaitUntilTheFileIsFree) {
    const TempFolder folder;
    folder.put("file", "old");
    const CString path = folder / "file";
    const HANDLE held = open(path, GENERIC_WRITE, 0);
    ASSERT_NE(INVALID_HANDLE_VALUE, held);
    EXPECT_FALSE(orvStrUtil::writeStringBufferToFile(L"x", path, true, 3333, false)) << "writers do not wait";
    std::atomic<bool> isFree = false;
    std::thread holder([&] {
        Sleep(250);
        DWORD done = 0;
        WriteFile(held, "new", 3, &done, nullptr);
        isFree = true;
        CloseHandle(held);
    });
    CString text;
    const bool isRead = orvStrUtil::readStringFromFileAuto(text, path, false);
    EXPECT_TRUE(isFree) << "read while it was held";
    holder.join();
    EXPECT_TRUE(isRead);
    EXPECT_TEXT(L"new", text);
}

TEST(Sharing, ReadersForbidNothingToOthers) {
    const TempFolder folder;
    folder.put("file", "text");
    const CString path = folder / "file";
    const HANDLE writer = open(path, GENERIC_WRITE, FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE);
    ASSERT_NE(INVALID_HANDLE_VALUE, writer);
    CString text;
    EXPECT_TRUE(orvStrUtil::readStringFromFileAuto(text, path, false));
    EXPECT_TEXT(L"text", text);
    CloseHandle(writer);
}

TEST(Sharing, FileOpensWithTheShareOfItsFlags) {
    const TempFolder folder;
    folder.put("file", "text");
    const CString path = folder / "file";
    // clang-format off
    struct Row { unsigned flags; bool mayRead, mayWrite; };
    const Row rows[] = {
        {CFile::modeRead | CFile::shareDenyNone, true, true},  {CFile::modeRead | CFile::shareDenyWrite, true, false},
        {CFile::modeRead | CFile::shareDenyRead, false, true}, {CFile::modeRead | CFile::shareExclusive, false, false},
        {CFile::modeRead, false, false},
    };
    // clang-format on
    constexpr DWORD kAll = FILE_SHARE_READ | FILE_SHARE_WRITE;
    for (const Row& row : rows) {
        SCOPED_TRACE(row.flags);
        CFile file;
        ASSERT_TRUE(file.Open(path, row.flags));
        const HANDLE reader = open(path, GENERIC_READ, kAll);
        const HANDLE writer = open(path, GENERIC_WRITE, kAll);
        EXPECT_EQ(row.mayRead, reader != INVALID_HANDLE_VALUE);
        EXPECT_EQ(row.mayWrite, writer != INVALID_HANDLE_VALUE);
        if (reader != INVALID_HANDLE_VALUE) CloseHandle(reader);
        if (writer != INVALID_HANDLE_VALUE) CloseHandle(writer);
    }
}

TEST(Messages, TheDefaultPresenterIsAMessageBox) {
    std::thread user([] {
        for (int attempt = 0; attempt < 200; ++attempt) {
            if (HWND box = FindWindowW(L"#32770", L"Orv-Testmeldung"); box != nullptr) {
                PostMessageW(box, WM_COMMAND, IDOK, 0);
                return;
            }
            Sleep(25);
        }
        ADD_FAILURE() << "no message box came";
        ExitProcess(3);
    });
    orv::showMessage(orv::MessageKind::kWarning, L"Orv-Testmeldung", L"Text");
    user.join();
}

}  // namespace
