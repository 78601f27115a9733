// Folders as only Windows has them: with security attributes, removed by the command interpreter, known to the shell.
#include "environment/make_folder.h"
#include "environment/path_text.h"
#include "orv/files.h"
#include "orv/files_windows.h"
#include "platform/windows/system_path.h"
#include "platform/windows/windows.h"
// Behind it, because it needs it.
#include <shlobj.h>

namespace {

/// Owns what the system hands out as a handle; none is null.
class Handle {
  public:
    explicit Handle(HANDLE handle) : handle_(handle) {}
    Handle(const Handle&) = delete;
    Handle& operator=(const Handle&) = delete;
    ~Handle() {
        if (handle_ != nullptr) CloseHandle(handle_);
    }
    HANDLE get() const { return handle_; }

  private:
    HANDLE handle_;
};

bool mayGoToInterpreter(const CDirPath& dir) {
    constexpr int kLeastBackslashes = 2;
    if (dir.IsEmpty() || dir.GetAt(dir.GetLength() - 1) == L'\\' || !dir.IsAbsolute() || dir.IsUNC()) return false;
    // Inside the quotes of the command these two alone mean something.
    if (dir.FindOneOf(L"\"%") >= 0) return false;
    if (GetFileAttributesW(orv::platform::SystemPath(dir).get()) == INVALID_FILE_ATTRIBUTES) return false;
    int backslashes = 0;
    for (const wchar_t ch : orv::viewOf(dir))
        backslashes += ch == L'\\' ? 1 : 0;
    return backslashes >= kLeastBackslashes;
}

/// The interpreter of the system's own folder: no program of that name elsewhere is to be found first.
CString interpreterPath() {
    wchar_t folder[MAX_PATH];
    const UINT length = GetSystemDirectoryW(folder, MAX_PATH);
    return length != 0 && length < MAX_PATH ? Path::AppendPath(folder, L"cmd.exe") : CString();
}

}  // namespace

bool CreateDirectoryRecursive(const CDirPath& dir, _SECURITY_ATTRIBUTES* security) {
    return orv::makeFolders(dir, [security](const CDirPath& path) {
        return CreateDirectoryW(orv::platform::SystemPath(path).get(), security) != 0;
    });
}

bool GetFileData(const CFilePath& file, WIN32_FIND_DATAW& data) {
    return GetFileData(file, reinterpret_cast<orv::FindRecord&>(data));
}

bool RemoveDirectoryRecursiveCmd(CDirPath dir) {
    dir.Normalize();
    if (!mayGoToInterpreter(dir)) return false;
    CString removal;
    removal.Format(L"rmdir /s /q \"%s\"", dir);
    CString command;
    command.Format(L"cmd /C %s", removal);
    STARTUPINFOW startup{};
    startup.cb = sizeof(startup);
    PROCESS_INFORMATION information{};
    const CString interpreter = interpreterPath();
    if (interpreter.IsEmpty() || CreateProcessW(interpreter, command.GetBuffer(), nullptr, nullptr, FALSE,
                                                CREATE_NO_WINDOW, nullptr, nullptr, &startup, &information) == 0) {
        return false;
    }
    const Handle process(information.hProcess);
    const Handle thread(information.hThread);
    return WaitForSingleObject(process.get(), INFINITE) == WAIT_OBJECT_0;
}

CDirPath Path::GetUserDocumentsPath() {
    wchar_t folder[MAX_PATH];
    return SHGetFolderPathW(nullptr, CSIDL_PERSONAL, nullptr, SHGFP_TYPE_CURRENT, folder) == S_OK ? CDirPath(folder)
                                                                                                  : CDirPath();
}
