// Version resources of programs and libraries.
#include <algorithm>
#include <cstring>
#include <vector>

#include "orv/files_windows.h"
#include "platform/windows/system_path.h"
#include "platform/windows/windows.h"

bool GetFileVersion(const CFilePath& file, VS_FIXEDFILEINFO& info) {
    const orv::platform::SystemPath path(file);
    DWORD unused = 0;
    const DWORD size = GetFileVersionInfoSizeW(path.get(), &unused);
    if (size == 0) return false;
    std::vector<unsigned char> resource(size);
    void* found = nullptr;
    UINT length = 0;
    if (GetFileVersionInfoW(path.get(), 0, size, resource.data()) == 0 ||
        VerQueryValueW(resource.data(), L"\\", &found, &length) == 0 || found == nullptr || length == 0) {
        return false;
    }
    static_assert(sizeof(info) == 52);
    info = {};
    std::memcpy(&info, found, std::min<std::size_t>(length, sizeof(info)));
    return true;
}

bool GetFileVersion(const CFilePath& file, CString& text) {
    VS_FIXEDFILEINFO info;
    if (!GetFileVersion(file, info)) return false;
    text.Format(L"%d.%d.%d.%d", static_cast<int>(HIWORD(info.dwFileVersionMS)),
                static_cast<int>(LOWORD(info.dwFileVersionMS)), static_cast<int>(HIWORD(info.dwFileVersionLS)),
                static_cast<int>(LOWORD(info.dwFileVersionLS)));
    return true;
}
