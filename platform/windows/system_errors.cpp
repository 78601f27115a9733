#include "platform/system_errors.h"

#include "platform/windows/windows.h"

namespace orv::platform {

CString lastErrorText() {
    const DWORD error = GetLastError();
    if (error == ERROR_SUCCESS) return {};
    wchar_t* text = nullptr;
    const DWORD length =
        FormatMessageW(FORMAT_MESSAGE_ALLOCATE_BUFFER | FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS,
                       nullptr, error, 0, reinterpret_cast<wchar_t*>(&text), 0, nullptr);
    CString result(text, static_cast<int>(length));
    LocalFree(text);
    return result.Trim();
}

}  // namespace orv::platform
